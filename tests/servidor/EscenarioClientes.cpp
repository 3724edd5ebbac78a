#include "customers/ColumnasCliente.h"
#include "db/ValoresSql.h"
#include "tests/comun/ConexionQueFalla.h"
#include "tests/servidor/Escenarios.h"

namespace kv::prueba {
namespace {

// Names begin with a letter that no other customer has, so that every collation sorts them alike.
void Rellenar(clsCliente& c, Azar azar, Fecha hoy) {
    c.Nombre = "Zapatería Núñez & Cía. " + std::to_string(c.Codigo);
    c.Nombre_Comercial = azar.De<std::string>({"", "a; DELETE FROM Clientes --", "100 % piel [nº 1] \"Z\""});
    c.Observaciones = azar.De<std::string>({"", "Paga en € ", "  con blancos  ", "áéíóú ÁÉÍÓÚ üÜ ¿¡ çÇ ºª"});
    if (azar.Una(12)) c.Direccion = "Calle de l'Om";
    c.TarifaPVP = static_cast<std::int16_t>(azar.Entre(0, 5));
    c.TarifaPromocion = static_cast<std::int16_t>(azar.Una(4) ? 4 : 0);
    c.TipoCliente = static_cast<std::int16_t>(azar.Una(6) ? 1 : 0);
    c.CopiasFra = static_cast<std::uint8_t>(azar.De({0, 1, 127, 128, 255}));
    c.Grupo_Dto = static_cast<std::int16_t>(azar.Entre(0, 3));
    c.padre = azar.Una(5) ? azar.Entre(101, 112) : 0;
    c.Bloqueado = azar.Una(2);
    c.EnvioEDI = azar.Una(2);
    c.Dto_1 = azar.Importe(0, 50, 4);
    c.Credito = Currency::DeDiezmilesimas(azar.De<std::int64_t>({0, 1, -1, 9999999999999999, -9999999999999999}));
    c.MaxPuntos = azar.De({0, 2147483647, -2147483647});
    if (azar.Una(2)) c.FAlta = azar.Dia(hoy, -9000, 0);
    if (azar.Una(2)) c.FUVenta = azar.Dia(hoy, -100, 0);
    if (azar.Una(3)) c.FBaja = Fecha::DeAmd(2050, 12, 31);
    c.Cad_Nivel_1 = static_cast<std::int16_t>(azar.Entre(0, 2));
    c.Cad_Nivel_2 = static_cast<std::int16_t>(c.Cad_Nivel_1 == 0 ? 0 : azar.Entre(0, 2));
}

void Anotar(Respuestas& r, const clsCliente& c) {
    r.Miembros("", c, kColumnasCliente);
}

struct Encargo {
    int metodo;
    std::int32_t codigo;
    Azar azar;
    Fecha dia;
    bool si;
    int numero;
};

void Recorrer(clsCliente& c, const Encargo& e, Respuestas& r) {
    bool (clsCliente::*const kMetodos[])(clsCliente*) = {&clsCliente::Cargar_Primero, &clsCliente::Cargar_Ultimo,
                                                         &clsCliente::Cargar_Anterior, &clsCliente::Cargar_Siguiente};
    c.Cargar();
    c.FichaClienteModoDesp = e.si;
    r("hallado", (c.*kMetodos[e.numero % 4])(nullptr));
    Anotar(r, c);
}

void Telefonear(clsCliente& c, const Encargo& e, Respuestas& r) {
    c.Cargar_Telefonos();
    r("cuántos", static_cast<std::int32_t>(c.NumeroTelefonos()));
    r("primero", c.TelefonoP);
    r("segundo", c.TelefonoS);
    r("cuarto", c.TelefonoFS);
    c.Insertar_Telefono(static_cast<std::uint8_t>(e.numero), "976 00 " + std::to_string(e.numero));
}

void Consultar(clsCliente& c, const Encargo& e, Respuestas& r) {
    r("existe", c.Existe());
    r("albaranes", c.Dev_SaldoAlbaranes());
    r("puntos", c.Dev_SaldoPuntos());
    r("código nuevo", c.Dev_Codigo_Nuevo(e.numero * 10));
    r("notas", c.Verif_Notas());
}

void Hacer(Lado& lado, const Encargo& e, Fecha hoy, Respuestas& r) {
    clsCliente c;
    lado.Inyectar(c, e.si ? 2 : 1);
    c.Codigo = e.codigo;
    if (e.metodo <= 3) Rellenar(c, e.azar, hoy);
    if (e.metodo <= 2) c.Insertar();
    if (e.metodo == 3) c.Modificar();
    if (e.metodo == 4) {
        r("hallado", c.Cargar());
        Anotar(r, c);
    }
    if (e.metodo == 5) Recorrer(c, e, r);
    if (e.metodo == 6) Telefonear(c, e, r);
    if (e.metodo == 7) e.si ? c.Act_FUVenta(e.dia) : c.Act_FUCobro(e.dia);
    if (e.metodo == 8) Consultar(c, e, r);
    if (e.metodo == 9) r("eliminado", c.Eliminar(e.numero % 3 == 0));
    // One of the statements of the deletion fails: nothing may be gone.
    if (e.metodo == 10) {
        c.Conexion(std::make_shared<ConexionQueFalla>(lado.conexion, 1 + e.numero % 10));
        c.Eliminar(true);
    }
}

}  // namespace

void CompararClientes(Pareja& pareja, Azar& azar, Fecha hoy, int veces) {
    for (int i = 0; i < veces; ++i) {
        const Encargo e{azar.Entre(0, 10),
                        azar.Una(4) ? azar.Entre(1, 60) : azar.Entre(101, 112),
                        Azar(static_cast<std::uint64_t>(azar.Entre(0, 1 << 30))),
                        azar.Dia(hoy, -60, 5),
                        azar.Una(2),
                        azar.Entre(1, 12)};
        // The demonstration's own customers are read and moved on, but stay.
        if (e.codigo <= 60 && e.metodo == 9 && e.numero % 3 == 0) continue;
        const std::string nombre = TextoSql("cliente ", SqlEntero(e.codigo), ", ", SqlEntero(e.metodo), " ",
                                            SqlEntero(e.numero), std::string_view(e.si ? " sí" : " no"));
        pareja.Probar(nombre, [&](Lado& lado, Respuestas& r) { Hacer(lado, e, hoy, r); });
    }
}

void CompararTodo(Pareja& pareja, Azar& azar, Fecha hoy) {
    pareja.CompararTablas();
    CompararCargas(pareja, azar, hoy, 2000);
    CompararExistencias(pareja, azar, hoy, 900);
    CompararPrecios(pareja, azar, hoy, 500);
    CompararDescuentos(pareja, azar, 500);
    CompararAcuerdos(pareja, azar, hoy, 400);
    CompararClientes(pareja, azar, hoy, 400);
    CompararCargas(pareja, azar, hoy, 500);
    pareja.CompararTablas();
}

}  // namespace kv::prueba
