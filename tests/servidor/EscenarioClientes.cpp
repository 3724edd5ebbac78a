#include "customers/ColumnasCliente.h"
#include "tests/comun/ConexionQueFalla.h"
#include "tests/servidor/Escenarios.h"

namespace kv::prueba {
namespace {

// Names begin with a letter that no other customer has, so that every collation sorts them alike.
void Rellenar(clsCliente& c, Azar& azar) {
    c.Nombre = "Zapatería Núñez & Cía. " + std::to_string(c.Codigo);
    c.Nombre_Comercial = azar.De<std::string>({"", "a; DELETE FROM Clientes --", "100 % piel [nº 1] \"Z\""});
    c.Observaciones = azar.De<std::string>({"", "Paga en € ", "  con blancos  ", "áéíóú ÁÉÍÓÚ üÜ ¿¡ çÇ ºª"});
    if (azar.Una(12)) c.Direccion = "Calle de l'Om";
    c.TarifaPVP = azar.Entre<std::int16_t>(0, 5);
    c.TarifaPromocion = azar.De<std::int16_t>({0, 0, 0, 4});
    c.TipoCliente = azar.De<std::int16_t>({0, 0, 0, 0, 0, 1});
    c.CopiasFra = azar.De<std::uint8_t>({0, 1, 127, 128, 255});
    c.Grupo_Dto = azar.Entre<std::int16_t>(0, 3);
    c.padre = azar.Una(5) ? azar.Entre(101, 112) : 0;
    c.Bloqueado = azar.Una(2);
    c.EnvioEDI = azar.Una(2);
    c.Dto_1 = azar.Importe(0, 50, 4);
    c.Credito = Currency::DeDiezmilesimas(azar.De<std::int64_t>({0, 1, -1, 9999999999999999, -9999999999999999}));
    c.MaxPuntos = azar.De({0, 2147483647, -2147483647});
    if (azar.Una(2)) c.FAlta = azar.Dia(-9000, 0);
    if (azar.Una(2)) c.FUVenta = azar.Dia(-100, 0);
    if (azar.Una(2)) c.FUCobro = azar.Dia(-100, 0);
    if (azar.Una(3)) c.FBaja = Fecha::DeAmd(2050, 12, 31);
    c.Cad_Nivel_1 = azar.Entre<std::int16_t>(0, 2);
    c.Cad_Nivel_2 = c.Cad_Nivel_1 == 0 ? std::int16_t{0} : azar.Entre<std::int16_t>(0, 2);
}

using Recorrido = bool (clsCliente::*)(clsCliente*);
constexpr Recorrido kRecorridos[] = {&clsCliente::Cargar, &clsCliente::Cargar_Primero, &clsCliente::Cargar_Ultimo,
                                     &clsCliente::Cargar_Anterior, &clsCliente::Cargar_Siguiente};

void Hacer(Lado& lado, Azar& azar, Respuestas& r) {
    const int metodo = azar.Entre(0, 10);
    const bool demostracion = azar.Una(4);
    clsCliente c;
    lado.Inyectar(c, azar.Entre<std::int16_t>(1, 2));
    c.Codigo = demostracion ? azar.Entre(1, 60) : azar.Entre(101, 112);
    if (metodo <= 3) Rellenar(c, azar);
    if (metodo <= 2) c.Insertar();
    if (metodo == 3) c.Modificar();
    if (metodo == 4 || metodo == 5) {
        c.Cargar();
        c.FichaClienteModoDesp = azar.Una(2);
        r("hallado", (c.*kRecorridos[azar.Entre(0, 4)])(nullptr));
        r.Miembros(c, kColumnasCliente);
    }
    if (metodo == 6) {
        c.Cargar_Telefonos();
        r("teléfonos", static_cast<std::int32_t>(c.NumeroTelefonos()));
        r("números", c.TelefonoP + ", " + c.TelefonoS + ", " + c.TelefonoFS);
        const auto numero = azar.Entre<std::uint8_t>(1, 12);
        c.Insertar_Telefono(numero, "976 00 " + std::to_string(numero));
    }
    if (metodo == 7) azar.Una(2) ? c.Act_FUVenta(azar.Dia(-60, 5)) : c.Act_FUCobro(azar.Dia(-60, 5));
    if (metodo == 8) {
        r("existe", c.Existe());
        r("albaranes", c.Dev_SaldoAlbaranes());
        r("puntos", c.Dev_SaldoPuntos());
        r("código nuevo", c.Dev_Codigo_Nuevo(azar.Entre(1, 12) * 10));
        r("notas", c.Verif_Notas());
    }
    // The demonstration's own customers are read and moved on, but stay.
    if (metodo == 9) r("eliminado", c.Eliminar(azar.Una(3) && !demostracion));
    // One of the statements of the deletion fails: nothing may be gone.
    if (metodo != 10) return;
    c.Conexion(std::make_shared<ConexionQueFalla>(lado.conexion, azar.Entre(1, 10)));
    c.Eliminar(true);
}

}  // namespace

void CompararClientes(Pareja& pareja, Azar& azar, int veces) {
    pareja.Repetir("cliente", azar, veces, Hacer);
}

void CompararTodo(Pareja& pareja, Azar& azar) {
    pareja.CompararTablas(azar);
    CompararCargas(pareja, azar, 2000);
    CompararExistencias(pareja, azar, 900);
    CompararReglas(pareja, azar, 500);
    CompararClientes(pareja, azar, 400);
    CompararCargas(pareja, azar, 500);
    pareja.CompararTablas(azar);
}

}  // namespace kv::prueba
