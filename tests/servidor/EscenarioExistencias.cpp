#include "db/ValoresSql.h"
#include "stock/clsAlmacen_Articulo.h"
#include "tests/servidor/Escenarios.h"

namespace kv::prueba {
namespace {

struct Apunte {
    int metodo;
    std::int16_t almacen;
    std::int32_t articulo;
    std::uint8_t x;
    std::uint8_t y;
    double unidades;
    double neto;
    std::int16_t op;
    Fecha fecha;
    bool si;
    Currency incremento;
    std::string ubicacion;
};

using Metodo = void (*)(clsAlmacen_Articulo&, const Apunte&, Respuestas&);

struct ConNombre {
    const char* nombre;
    Metodo metodo;
};

void Mover(clsAlmacen_Articulo& c, const Apunte& a, Respuestas& r, bool variante) {
    double puc = 0;
    double medio = 0;
    double stock = 0;
    if (variante)
        c.Act_Stock_Cualidades(a.almacen, a.articulo, a.x, a.y, a.unidades, a.unidades / 2, a.neto, a.op, a.fecha, puc,
                               medio, stock, a.si);
    else
        c.Act_Stock(a.almacen, a.articulo, a.unidades, a.unidades / 2, a.neto, a.op, a.fecha, puc, medio, stock, a.si);
    r("precio de compra", puc);
    r("coste medio", medio);
    r("stock", stock);
}

// clang-format off
constexpr ConNombre kMetodos[] = {
    {"Act_Stock", [](clsAlmacen_Articulo& c, const Apunte& a, Respuestas& r) { Mover(c, a, r, false); }},
    {"Act_Stock_Cualidades", [](clsAlmacen_Articulo& c, const Apunte& a, Respuestas& r) { Mover(c, a, r, true); }},
    {"Act_PendRecibir", [](clsAlmacen_Articulo& c, const Apunte& a, Respuestas&) { c.Act_PendRecibir(a.incremento); }},
    {"Act_PendServir", [](clsAlmacen_Articulo& c, const Apunte& a, Respuestas&) { c.Act_PendServir(a.incremento); }},
    {"Act_PendRecibir_Cualidades", [](clsAlmacen_Articulo& c, const Apunte& a, Respuestas&) {
        c.Act_PendRecibir_Cualidades(a.x, a.y, a.incremento); }},
    {"Act_PendServir_Cualidades", [](clsAlmacen_Articulo& c, const Apunte& a, Respuestas&) {
        c.Act_PendServir_Cualidades(a.x, a.y, a.incremento); }},
    {"Act_Stock_Ubicaciones", [](clsAlmacen_Articulo& c, const Apunte& a, Respuestas&) {
        c.Act_Stock_Ubicaciones(a.almacen, a.articulo, a.ubicacion, "E1", "", a.si ? "x" : "", "", a.incremento); }},
    {"Act_Costo", [](clsAlmacen_Articulo& c, const Apunte& a, Respuestas&) { c.Act_Costo(a.incremento); }},
    {"Act_Bloqueo", [](clsAlmacen_Articulo& c, const Apunte& a, Respuestas&) { c.Bloqueado = a.si; c.Act_Bloqueo(); }},
    {"Act_Desglosa_Pack", [](clsAlmacen_Articulo& c, const Apunte& a, Respuestas&) {
        c.Desglosa_Pack = a.si; c.Act_Desglosa_Pack(); }},
    {"Act_Costo_DF", [](clsAlmacen_Articulo& c, const Apunte& a, Respuestas&) {
        c.Act_Costo_DF(a.almacen, a.articulo, a.incremento, a.neto); }},
    {"Act_StockMiniCompras", [](clsAlmacen_Articulo& c, const Apunte& a, Respuestas&) {
        c.Act_StockMiniCompras(a.incremento); }},
    {"Dev_Costo", [](clsAlmacen_Articulo& c, const Apunte& a, Respuestas& r) {
        r("coste", c.Dev_Costo(a.almacen, a.articulo, a.x, a.y));
        r("segundo coste", c.Dev_CostoDF(a.almacen, a.articulo, a.x, a.y)); }},
    {"Cargar", [](clsAlmacen_Articulo& c, const Apunte&, Respuestas& r) { c.Cargar(); r("stock", c.Stock_Actual); }},
};
// clang-format on

Apunte UnApunte(Azar& azar, Fecha hoy) {
    // Half of what is done are movements. The fourth warehouse and some articles have no row yet.
    const bool movimiento = azar.Una(2);
    const bool talla = azar.Una(4);
    Apunte a{movimiento ? azar.Entre(0, 1) : azar.Entre(2, static_cast<int>(std::size(kMetodos)) - 1),
             static_cast<std::int16_t>(azar.Entre(1, 4)),
             talla ? 103 : azar.De({azar.Entre(101, 124), azar.Entre(1001, 1010)}),
             static_cast<std::uint8_t>(azar.Una(6) ? 0 : azar.Entre(38, 47)),
             static_cast<std::uint8_t>(azar.Entre(0, 3)),
             // Quarters, whose sums are exact: a stock of 0 is 0 everywhere.
             azar.Entre(-40, 200) / 4.0, azar.Una(6) ? 0 : azar.Entre(1, 500000) / 10000.0,
             azar.De<std::int16_t>({1, 3, 3, 5, 5, 7, 8, 13}), azar.Dia(hoy, -90, 30), azar.Una(2),
             azar.Importe(-20, 200, azar.Entre(0, 4)), azar.De<std::string>({"P1", "P2", "Ñandú"})};
    return a;
}

std::string Nombre(const Apunte& a) {
    return TextoSql(std::string_view(kMetodos[a.metodo].nombre), "(", SqlEntero(a.almacen), ", ", SqlEntero(a.articulo),
                    ", ", SqlEntero(a.x), "-", SqlEntero(a.y), ", ", SqlDoble(a.unidades), ", ", SqlDoble(a.neto), ", ",
                    SqlEntero(a.op), ", ", SqlFecha(a.fecha), ", ", SqlCurrencyConPunto(a.incremento), ")");
}

}  // namespace

void CompararExistencias(Pareja& pareja, Azar& azar, Fecha hoy, int veces) {
    int quedan = 0;
    bool confirma = false;
    const auto cerrar = [&](Lado& lado, Respuestas&) {
        if (confirma)
            lado.conexion->CommitTrans();
        else
            lado.conexion->RollbackTrans();
    };
    for (int i = 0; i < veces; ++i) {
        if (quedan == 0 && azar.Una(15)) {
            quedan = azar.Entre(2, 8);
            confirma = azar.Una(2);
            pareja.Probar("BeginTrans", [](Lado& lado, Respuestas&) { lado.conexion->BeginTrans(); });
        }
        const Apunte a = UnApunte(azar, hoy);
        pareja.Probar(Nombre(a), [&](Lado& lado, Respuestas& r) {
            clsAlmacen_Articulo almacen;
            lado.Inyectar(almacen, a.almacen == 1 && a.articulo % 5 == 0 ? 2 : 1);
            almacen.Almacen = a.almacen;
            almacen.Articulo = a.articulo;
            kMetodos[a.metodo].metodo(almacen, a, r);
        });
        if (quedan > 0 && --quedan == 0) pareja.Probar("fin de la transacción", cerrar);
    }
    if (quedan > 0) pareja.Probar("fin de la transacción", cerrar);
}

}  // namespace kv::prueba
