#include "kvdatosart/component/clsDatosArt.h"
#include "kvdatosart/customers/ColumnasCliente.h"
#include "kvdatosart/db/ValoresSql.h"
#include "kvdatosart/rules/clsCliente_Articulo.h"
#include "kvdatosart/rules/clsCliente_DtosFamilias.h"
#include "kvdatosart/rules/clsCliente_Grp_Dtos.h"
#include "kvdatosart/rules/clsClientes_Cadenas_ConvArt.h"
#include "kvdatosart/stock/clsAlmacen_Articulo.h"
#include "kvdatosart/tests/comun/ConexionQueFalla.h"
#include "kvdatosart/tests/servidor/Pareja.h"

namespace kv::prueba {
namespace {

void Anotar(Respuestas& r, const std::string& prefijo, const DatosArticulo& a) {
#define KV_PROPIEDAD(nombre, tipo) r(prefijo + #nombre, a.nombre);
#include "kvdatosart/component/com/Propiedades.inc"
#undef KV_PROPIEDAD
}

// Boots and trousers are sold by size; some articles do not exist.
std::int32_t Articulo(Azar& azar) {
    if (azar.Una(8)) return azar.De({103, 1109, 1113});
    if (azar.Una(40)) return azar.De({0, -1, 5555});
    return azar.Una(3) ? azar.Entre(1001, 1324) : azar.Entre(101, 122);
}

std::uint8_t Talla(Azar& azar, std::int32_t articulo) {
    if (articulo >= 1109) return azar.Entre<std::uint8_t>(0, 6);
    return articulo == 103 || azar.Una(20) ? azar.Entre<std::uint8_t>(37, 47) : std::uint8_t{0};
}

void Mover(clsAlmacen_Articulo& c, Azar& azar, Respuestas& r, bool variante, std::uint8_t x, std::uint8_t y) {
    // Quarters, whose sums are exact: a stock of 0 is 0 everywhere.
    const double unidades = azar.Entre(-40, 200) / 4.0;
    const double neto = azar.Una(6) ? 0 : azar.Importe(0, 50, 4).ADouble();
    const auto op = azar.De<std::int16_t>({1, 3, 3, 5, 5, 7, 8, 13});
    const Fecha fecha = azar.Una(2) ? azar.Dia(-90, 30) : azar.Dia(-3, 3);
    const bool fichas = azar.Una(2);
    double puc = 0;
    double medio = 0;
    double stock = 0;
    if (variante)
        c.Act_Stock_Cualidades(c.Almacen, c.Articulo, x, y, unidades, unidades / 2, neto, op, fecha, puc, medio, stock,
                               fichas);
    else
        c.Act_Stock(c.Almacen, c.Articulo, unidades, unidades / 2, neto, op, fecha, puc, medio, stock, fichas);
    r("precio de compra", puc);
    r("coste medio", medio);
    r("stock", stock);
}

void HacerExistencias(Lado& lado, Azar& azar, Respuestas& r) {
    // The fourth warehouse and some articles have no row yet.
    clsAlmacen_Articulo c;
    c.Almacen = azar.Entre<std::int16_t>(1, 4);
    c.Articulo = azar.Una(4) ? 103 : azar.Una(2) ? azar.Entre(101, 124) : azar.Entre(1001, 1010);
    lado.Inyectar(c, c.Almacen == 1 && c.Articulo % 5 == 0 ? 2 : 1);
    const auto x = azar.Una(6) ? std::uint8_t{0} : azar.Entre<std::uint8_t>(38, 47);
    const auto y = azar.Entre<std::uint8_t>(0, 3);
    // Half of what is done are movements.
    if (azar.Una(2)) return Mover(c, azar, r, azar.Una(2), x, y);
    const Currency importe = azar.Importe(-20, 200, azar.Entre(0, 4));
    c.Bloqueado = c.Desglosa_Pack = azar.Una(2);
    const int metodo = azar.Entre(1, 12);
    if (metodo == 1) c.Act_PendRecibir(importe);
    if (metodo == 2) c.Act_PendServir(importe);
    if (metodo == 3) c.Act_PendRecibir_Cualidades(x, y, importe);
    if (metodo == 4) c.Act_PendServir_Cualidades(x, y, importe);
    if (metodo == 5)
        c.Act_Stock_Ubicaciones(c.Almacen, c.Articulo, azar.De<std::string>({"P1", "P2", "Ñandú"}), "E1", "",
                                c.Bloqueado ? "x" : "", "", importe);
    if (metodo == 6) c.Act_Costo(importe);
    if (metodo == 7) c.Act_Bloqueo();
    if (metodo == 8) c.Act_Desglosa_Pack();
    if (metodo == 9) c.Act_Costo_DF(c.Almacen, c.Articulo, importe, azar.Importe(0, 50, 4).ADouble());
    if (metodo == 10) c.Act_StockMiniCompras(importe);
    if (metodo == 11) r("coste", c.Dev_Costo(c.Almacen, c.Articulo, x, y));
    if (metodo == 11) r("segundo coste", c.Dev_CostoDF(c.Almacen, c.Articulo, x, y));
    if (metodo == 12) c.Cargar();
    r("stock cargado", c.Stock_Actual);
}

using Precios = clsCliente_Articulo;
using RecorridoPrecios = bool (Precios::*)(std::unique_ptr<Recordset>&);

// Prices of a customer for an article never overlap here: of two on the same day, any database may return either.
void Preciar(Lado& lado, Azar& azar, Respuestas& r) {
    Precios p;
    lado.Inyectar(p);
    const int metodo = azar.Entre(0, 11);
    const int periodo = azar.Entre(0, 2);
    const bool porArticulo = azar.Una(2);
    p.Cod_Empresa = p.Cod_EmpresaExtra = p.Cod_Almacen = 1;
    p.Cod_Articulo = azar.Entre(101, 112);
    p.Cod_Cliente = azar.Entre(21, 32);
    p.Fecha_Inicial = azar.hoy + (periodo * 30 - 30);
    p.Fecha_Final = p.Fecha_Inicial + 29;
    const std::int32_t codigo = porArticulo ? p.Cod_Articulo : p.Cod_Cliente;
    const Fecha dia = azar.Una(2) ? p.Fecha_Final : azar.Dia(-40, 70);
    const Currency unidades = azar.Importe(-9, 60, 2);
    const Currency importe = azar.Importe(-50, 900, 4);
    const Currency coste = azar.Una(2) ? Currency() : azar.Importe(1, 500, 4);
    p.precio = importe.ADouble();
    p.Por_Articulo(porArticulo || metodo == 4);
    p.Key(codigo);
    if (metodo <= 2) p.Insertar();
    if (metodo == 3) p.Eliminar(porArticulo ? p.Cod_Cliente : p.Cod_Articulo, p.Fecha_Inicial, p.Fecha_Final);
    if (metodo == 4) p.Modificar(azar.Entre(21, 32));
    if (metodo == 5) r("hay", p.Dev_Precio(dia));
    if (metodo == 5) r("precio", p.precio);
    std::unique_ptr<Recordset> rs;
    if (metodo == 6) r("hay", p.Cargar(rs, porArticulo, codigo, nullptr));
    constexpr RecorridoPrecios kRecorridos[] = {&Precios::Cargar_Siguiente, &Precios::Cargar_Anterior,
                                                &Precios::Cargar_Primero, &Precios::Cargar_Ultimo};
    if (metodo == 7 || metodo == 8) r("hallado", (p.*kRecorridos[azar.Entre(0, 3)])(rs));
    if (rs) r.Filas(*rs);
    if (metodo == 9 || metodo == 10) p.Acumular(p.Fecha_Inicial, unidades, importe, coste);
    if (metodo == 11) p.Acumular_C(p.Fecha_Inicial, unidades, importe, coste, azar.Entre<std::int16_t>(38, 45), 1);
}

template <class Clase>
void Rellenar(Clase& dtos, Azar& azar) {
    const auto familia = [&](int desde, int maximo) {
        return dtos.Nivel >= desde ? azar.Entre<std::int16_t>(1, maximo) : std::int16_t{0};
    };
    dtos.NumNiveles = 3;
    dtos.Nivel = azar.Entre<std::uint8_t>(1, 4);
    dtos.Familia_1 = familia(1, 3);
    dtos.Familia_2 = familia(2, 2);
    dtos.Familia_3 = familia(3, 2);
    dtos.Cod_Articulo = azar.Entre(101, 106);
    dtos.Descuento = azar.Importe(0, 60, 2).ADouble();
}

void DeFamilia(Lado& lado, Azar& azar, Respuestas& r) {
    const int metodo = azar.Entre(0, 6);
    clsCliente_DtosFamilias dtos;
    Rellenar(lado.Inyectar(dtos), azar);
    dtos.Cliente = azar.Entre(21, 26);
    if (metodo <= 1) dtos.Insertar();
    if (metodo == 2) dtos.Modificar();
    if (metodo == 3) dtos.Eliminar();
    if (metodo == 4) r("exacto", dtos.Dev_Descuento());
    if (metodo == 5) r("activo", dtos.Dev_Descuento_Activo());
    if (metodo != 6) return;
    r.Filas(*dtos.Cargar_Todos());
    r("artículos", !dtos.Cargar_Articulos(dtos.Familia_1, dtos.Familia_2, dtos.Familia_3)->Eof());
}

void DeGrupo(Lado& lado, Azar& azar, Respuestas& r) {
    const int metodo = azar.Entre(0, 6);
    clsCliente_Grp_Dtos dtos;
    Rellenar(lado.Inyectar(dtos), azar);
    dtos.Cod_Grupo = azar.Entre<std::int16_t>(1, 3);
    // No range begins where one of the demonstration does: which row of the same key comes first would be anyone's.
    const int minimo = azar.De({0, 2, 11, 101});
    dtos.Unidades_Min = Currency::DeEntero(minimo);
    dtos.Unidades_Max = Currency::DeEntero(minimo == 0 ? 0 : minimo == 2 ? 9 : minimo == 11 ? 99 : 500);
    const Currency unidades = azar.Importe(0, 600, azar.Entre(0, 2));
    if (metodo <= 1) dtos.Insertar();
    if (metodo == 2) dtos.Modificar();
    if (metodo == 3) dtos.Eliminar();
    if (metodo == 4) r("exacto", dtos.Dev_Descuento(unidades));
    if (metodo == 5) r("activo", dtos.Dev_Descuento_Activo(azar.Entre(21, 26), unidades));
    if (metodo != 6) return;
    // Of several overlapping ranges the bounds of any may come back: only whether there is one counts.
    Currency desde;
    Currency hasta;
    r("se solapa", dtos.Comprobar_Encajados(desde, hasta));
    r.Filas(*dtos.Cargar_Todos());
}

using Nodo = std::array<std::int16_t, 4>;
constexpr Nodo kNodos[] = {{}, {1}, {1, 1}, {1, 1, 1}, {1, 1, 1, 1}, {1, 1, 1, 2}, {2}, {2, 1}};

void Rellenar(clsClientes_Cadenas_ConvArt& a, Azar& azar) {
    const Nodo& nodo = kNodos[azar.Entre(0, 7)];
    a.Cod_Articulo = azar.Entre(101, 106);
    a.Cod_Nivel1 = nodo[0];
    a.Cod_Nivel2 = nodo[1];
    a.Cod_Nivel3 = nodo[2];
    a.Cod_Nivel4 = nodo[3];
    a.PrecioBase = azar.Importe(0, 90, 2);
    a.DtoPadre = azar.Una(2);
    a.FechaEntrada = azar.hoy + -10;
    // An offer of nothing, which is a division by zero, comes up now and then.
    for (std::int16_t n = 0; n < 5; ++n) {
        a.TipoDto(n, azar.Entre<std::int16_t>(0, 3));
        a.ImporteDto(n, azar.Una(3) ? azar.Importe(-1, 30, azar.Entre(0, 2)) : Currency());
        a.UnidadesDto(n, azar.Entre<std::int16_t>(0, 2));
        a.AplicarCascada(n, azar.Una(2));
    }
}

// A new agreement takes its first day from the database's clock, which may be in another zone: it is given one.
void Poner(Lado& lado, clsClientes_Cadenas_ConvArt& a, Currency base) {
    a.Eliminar();
    a.Insertar();
    lado.conexion->Ejecutar(TextoSql(
        "UPDATE Clientes_Cadenas_ConvArt SET FechaEntrada ='", SqlFecha(a.FechaEntrada),
        "', PBase =", SqlCurrencyConPunto(base), " WHERE Cod_Empresa =1 AND Cod_Articulo =", SqlEntero(a.Cod_Articulo),
        " AND Cod_Nivel1 =", SqlEntero(a.Cod_Nivel1), " AND Cod_Nivel2 =", SqlEntero(a.Cod_Nivel2),
        " AND Cod_Nivel3 =", SqlEntero(a.Cod_Nivel3), " AND Cod_Nivel4 =", SqlEntero(a.Cod_Nivel4)));
}

void Acordar(Lado& lado, Azar& azar, Respuestas& r) {
    const int metodo = azar.Entre(0, 7);
    clsClientes_Cadenas_ConvArt a;
    Rellenar(lado.Inyectar(a), azar);
    if (metodo <= 1) Poner(lado, a, metodo == 0 ? a.PrecioBase : Currency());
    if (metodo == 2) a.Modificar();
    if (metodo == 3 && a.DtoPadre) a.Eliminar();
    if (metodo == 4) a.Cargar();
    r("salida", a.FechaSalida);
    r("del padre", a.DtoPadre);
    for (std::int16_t n = 0; n < 5; ++n) {
        const std::string casilla = " " + std::to_string(n);
        r("tipo" + casilla, a.TipoDto(n));
        r("importe" + casilla, a.ImporteDto(n));
        r("unidades" + casilla, a.UnidadesDto(n));
        r("cascada" + casilla, a.AplicarCascada(n));
        r("desde" + casilla, a.FechaDtoI(n));
        r("hasta" + casilla, a.FechaDtoF(n));
    }
    if (metodo <= 4) return;
    const Fecha dia = azar.Dia(-30, 30);
    std::string cadena;
    Fecha entrada;
    Valor salida;
    r("base", a.Devuelve_PBase(cadena, entrada, salida, dia));
    r("cadena", cadena);
    r("entrada", entrada);
    r("salida", salida);
    r("nivel", a.Dev_CadenaConvenio_Nivel(dia));
    r("total", a.Dev_CadenaConvenio_Total(dia));
    r("neto", a.Dev_Neto(dia));
}

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
constexpr Recorrido kRecorridosCliente[] = {&clsCliente::Cargar, &clsCliente::Cargar_Primero,
                                            &clsCliente::Cargar_Ultimo, &clsCliente::Cargar_Anterior,
                                            &clsCliente::Cargar_Siguiente};

void HacerCliente(Lado& lado, Azar& azar, Respuestas& r) {
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
        r("hallado", (c.*kRecorridosCliente[azar.Entre(0, 4)])(nullptr));
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

void CompararCargas(Pareja& pareja, Azar& azar, int veces) {
    // One object a side loads article after article, so that what a load leaves as it was is compared too.
    std::array<clsDatosArt, 2> articulos;
    for (int i = 0; i < veces; ++i) {
        pareja.Probar("Cargar", azar, [&](Lado& lado, Azar& suerte, Respuestas& r) {
            const auto corto = [&](int minimo, int maximo) { return suerte.Entre<std::int16_t>(minimo, maximo); };
            clsDatosArt& a = lado.Inyectar(articulos[lado.indice], corto(1, 2));
            const std::int32_t articulo = Articulo(suerte);
            const std::int32_t cliente = suerte.Una(40) ? 999 : suerte.Entre(1, 60);
            a.CualidadX = Talla(suerte, articulo);
            a.CualidadY = suerte.Entre<std::uint8_t>(0, 2);
            const Fecha fecha = suerte.Dia(-500, 130);
            const std::int16_t tarifa = corto(-1, 6);
            const std::int16_t almacen = corto(1, 4);
            const std::int16_t decimales = corto(0, 4);
            const Currency unidades =
                suerte.Una(2) ? suerte.Importe(0, 200, 4) : Currency::DeEntero(suerte.De({0, 1, 9, 10, 500}));
            r("resultado", a.Cargar(articulo, cliente, fecha, tarifa, almacen, decimales, unidades));
            Anotar(r, "", a);
            if (const auto padre = a.padre()) Anotar(r, "padre.", *padre);
        });
        // Most questions have an answer: a future day finds one where a change is in force on it.
        pareja.Probar("DevPvp", azar, [](Lado& lado, Azar& suerte, Respuestas& r) {
            clsDatosArt a;
            lado.Inyectar(a, suerte.Entre<std::int16_t>(1, 2));
            const bool futura = suerte.Una(3);
            const bool cualquiera = suerte.Una(6);
            a.Codigo = cualquiera ? Articulo(suerte)
                       : futura   ? suerte.De({102, 103, 1026, 1035, 1044})
                                  : suerte.Entre(1001, 1324);
            a.CualidadX = Talla(suerte, a.Codigo);
            const auto tarifa =
                cualquiera ? suerte.Entre<std::int16_t>(-1, 6) : suerte.De<std::int16_t>({1, 1, 2, 3, 5});
            const Fecha fecha = futura ? suerte.Dia(1, 130) : suerte.Dia(-500, 0);
            r("precio", a.DevPvp(tarifa, fecha, suerte.Una(3)));
            r("TarifaPVP", a.TarifaPVP);
        });
    }
}

void CompararExistencias(Pareja& pareja, Azar& azar, int veces) {
    while (veces > 0) {
        const int juntos = azar.Una(15) ? azar.Entre(2, 8) : 1;
        const bool confirma = azar.Una(2);
        if (juntos > 1)
            pareja.Probar("BeginTrans", azar, [](Lado& lado, Azar&, Respuestas&) { lado.conexion->BeginTrans(); });
        for (int i = 0; i < juntos; ++i, --veces) pareja.Probar("existencias", azar, HacerExistencias);
        if (juntos > 1)
            pareja.Probar("fin de la transacción", azar, [&](Lado& lado, Azar&, Respuestas&) {
                confirma ? lado.conexion->CommitTrans() : lado.conexion->RollbackTrans();
            });
    }
}

void CompararReglas(Pareja& pareja, Azar& azar, int veces) {
    pareja.Repetir("precios", azar, veces, Preciar);
    pareja.Repetir("descuento de familia", azar, veces / 2, DeFamilia);
    pareja.Repetir("descuento de grupo", azar, veces / 2, DeGrupo);
    pareja.Repetir("acuerdos", azar, veces, Acordar);
}

void CompararClientes(Pareja& pareja, Azar& azar, int veces) {
    pareja.Repetir("cliente", azar, veces, HacerCliente);
}

void CompararTodo(Pareja& pareja, Azar& azar) {
    pareja.CompararTablas(azar);
    CompararCargas(pareja, azar, 2000);
    CompararExistencias(pareja, azar, 900);
    CompararReglas(pareja, azar, 500);
    CompararClientes(pareja, azar, 400);
    CompararAplicacion(pareja, azar, 150);
    CompararCargas(pareja, azar, 500);
    pareja.CompararTablas(azar);
}

}  // namespace kv::prueba
