#include "kvdatosart/db/ValoresSql.h"
#include "kvdatosart/stock/Movimiento.h"
#include "kvdatosart/stock/clsAlmacen_Articulo.h"

// What a movement asks of the article master and tells it and the warehouse master.

namespace kv {

// clang-format off
bool clsAlmacen_Articulo::ArticuloSinStock(std::int32_t lngArticulo) {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, Cnx(), TextoSql(
        "SELECT Tipo FROM Articulos WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresaArticulos()),
        " AND Codigo =", SqlEntero(lngArticulo)));
    const bool sinStock = !rs->Eof() && ABoolean(rs->Fields("Tipo").Value());
    rs->Close();
    return sinStock;
}

void clsAlmacen_Articulo::Propagar(std::int16_t intAlmacen, std::int32_t lngArticulo, const Movimiento& movimiento,
                                   std::string_view precioCompra) {
    const TextoNumero fecha = SqlFecha(movimiento.fecha);
    if (movimiento.EsVenta()) {
        // Quirk (0018): no guard on the date; a sale always sets it, even to an earlier day.
        Cnx().Ejecutar(TextoSql(
            "UPDATE Articulos SET FUVenta ='", fecha, "'",
            " WHERE Cod_Empresa = ", SqlEntero(Emp().CodEmpresaArticulos()),
            " AND Codigo =", SqlEntero(lngArticulo)));
        Cnx().Ejecutar(TextoSql(
            "UPDATE Almacenes SET FUVenta ='", fecha, "'",
            " WHERE Cod_Empresa = ", SqlEntero(Emp().CodEmpresa()),
            " AND Codigo =", SqlEntero(intAlmacen)));
    }
    if (movimiento.EsRecepcion()) {
        Cnx().Ejecutar(TextoSql(
            "UPDATE Articulos SET FUCompra ='", fecha, "'", precioCompra,
            " WHERE Cod_Empresa = ", SqlEntero(Emp().CodEmpresaArticulos()),
            " AND Codigo =", SqlEntero(lngArticulo),
            " AND FUCompra<='", fecha, "'"));
        Cnx().Ejecutar(TextoSql(
            "UPDATE Almacenes SET FUCompra ='", fecha, "'",
            " WHERE Cod_Empresa = ", SqlEntero(Emp().CodEmpresa()),
            " AND Codigo =", SqlEntero(intAlmacen),
            " AND FUCompra<='", fecha, "'"));
    }
}
// clang-format on

}  // namespace kv
