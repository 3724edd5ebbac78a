#include "stock/clsAlmacen_Articulo.h"
#include "tests/servidor/Escenarios.h"

namespace kv::prueba {
namespace {

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

void Hacer(Lado& lado, Azar& azar, Respuestas& r) {
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

}  // namespace

void CompararExistencias(Pareja& pareja, Azar& azar, int veces) {
    while (veces > 0) {
        const int juntos = azar.Una(15) ? azar.Entre(2, 8) : 1;
        const bool confirma = azar.Una(2);
        if (juntos > 1)
            pareja.Probar("BeginTrans", azar, [](Lado& lado, Azar&, Respuestas&) { lado.conexion->BeginTrans(); });
        for (int i = 0; i < juntos; ++i, --veces) pareja.Probar("existencias", azar, Hacer);
        if (juntos > 1)
            pareja.Probar("fin de la transacción", azar, [&](Lado& lado, Azar&, Respuestas&) {
                confirma ? lado.conexion->CommitTrans() : lado.conexion->RollbackTrans();
            });
    }
}

}  // namespace kv::prueba
