#include "kvdatosart/stock/clsAlmacen_Articulo.h"

#include "kvdatosart/db/BibliotecaComun.h"
#include "kvdatosart/db/ValoresSql.h"

namespace kv {

// clang-format off
Currency clsAlmacen_Articulo::Dev_Costo(std::int16_t intAlmacen, std::int32_t lngArticulo, std::uint8_t bytCualidadX,
                                        std::uint8_t bytCualidadY) {
    return LeerCoste(Emp().CosteUltimaCompra() ? "PU_Compra" : "P_Medio", intAlmacen, lngArticulo, bytCualidadX,
                     bytCualidadY);
}

Currency clsAlmacen_Articulo::Dev_CostoDF(std::int16_t intAlmacen, std::int32_t lngArticulo,
                                          std::uint8_t bytCualidadX, std::uint8_t bytCualidadY) {
    return LeerCoste(Emp().CosteUltimaCompra() ? "DF_PU_Compra" : "DF_P_Medio", intAlmacen, lngArticulo, bytCualidadX,
                     bytCualidadY);
}

Currency clsAlmacen_Articulo::LeerCoste(std::string_view columna, std::int16_t intAlmacen, std::int32_t lngArticulo,
                                        std::uint8_t bytCualidadX, std::uint8_t bytCualidadY) {
    const std::string cabeza = TextoSql("SELECT Bloqueo, Stock_Actual, ", columna, " AS Costo");
    const std::string clave = TextoSql(
        SqlEntero(Emp().CodEmpresa()),
        " AND Cod_Almacen =", SqlEntero(intAlmacen),
        " AND Cod_Articulo =", SqlEntero(lngArticulo));
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, Cnx(), TextoSql(
        cabeza,
        " FROM Almacen_Articulos WHERE Cod_Empresa =", clave));
    Currency coste = rs->Eof() ? Currency() : ACurrency(rs->Fields("Costo").Value());
    rs->Close();
    if (bytCualidadX == 0 || bytCualidadY == 0) return coste;

    AbrirLectura(rs, Cnx(), TextoSql(
        cabeza,
        " FROM Almacen_Articulos_C WHERE Cod_Empresa =", clave,
        " AND CualidadX =", SqlEntero(bytCualidadX),
        " AND CualidadY =", SqlEntero(bytCualidadY)));
    if (!rs->Eof()) {
        const Currency costeCualidad = ACurrency(rs->Fields("Costo").Value());
        if (costeCualidad > Currency()) coste = costeCualidad;
    }
    rs->Close();
    return coste;
}

// Converted to money before it is rounded to the cost decimals; a negative average gives way to the net cost.
double clsAlmacen_Articulo::MediaPonderada(double media, double stock, double unidades, double neto) const {
    const Currency ponderada = Currency::DeDouble((media * stock + unidades * neto) / (unidades + stock));
    const double redondeada = Biblioteca().Redondear(ponderada, Emp().DecCostes()).ADouble();
    return redondeada < 0 ? neto : redondeada;
}

void clsAlmacen_Articulo::Act_Costo_DF(std::int16_t intAlmacen, std::int32_t lngArticulo, Currency curIncremento,
                                       double dblCosto) {
    const std::string clave = TextoSql(
        " WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresa()),
        " And Cod_Almacen =", SqlEntero(intAlmacen),
        " And Cod_Articulo =", SqlEntero(lngArticulo));
    std::string sql =
        "UPDATE Almacen_Articulos SET";
    if (curIncremento > Currency()) {
        const double cantidad = curIncremento.ADouble();
        double media = dblCosto;
        std::unique_ptr<Recordset> rs;
        AbrirLectura(rs, Cnx(), TextoSql(
            "SELECT Stock_Actual, DF_P_Medio, DF_PU_Compra FROM Almacen_Articulos", clave));
        if (!rs->Eof()) {
            const double stock = ADouble(rs->Fields("Stock_Actual").Value());
            const double anterior = ADouble(rs->Fields("DF_P_Medio").Value());
            if (anterior > 0 && stock + cantidad > 0) media = MediaPonderada(anterior, stock, cantidad, dblCosto);
        }
        rs->Close();
        Agregar(sql, " DF_P_Medio =", SqlDoble(media), ",");
    }
    Agregar(sql, " DF_PU_Compra =", SqlDoble(dblCosto), clave);
    Cnx().Ejecutar(sql);
    Cnx().Ejecutar(TextoSql(
        "UPDATE Articulos SET",
        " DF_PU_Compra =", SqlDoble(dblCosto),
        " WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresaArticulos()),
        " And Codigo =", SqlEntero(lngArticulo)));
}

void clsAlmacen_Articulo::Cargar() {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, Cnx(), TextoSql(
        "SELECT * FROM Almacen_Articulos WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresa()),
        " AND Cod_Almacen =", SqlEntero(Almacen),
        " AND Cod_Articulo =", SqlEntero(Articulo)));
    if (!rs->Eof()) Stock_Actual = ADouble(rs->Fields("Stock_Actual").Value());
    rs->Close();
}
// clang-format on

}  // namespace kv
