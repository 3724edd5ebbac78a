#include "db/ValoresSql.h"
#include "stock/Movimiento.h"
#include "stock/clsAlmacen_Articulo.h"

namespace kv {

// clang-format off
void clsAlmacen_Articulo::Act_Stock(std::int16_t intAlmacen, std::int32_t lngArticulo, double dblUnidades,
                                    double dblPeso, double dblNeto, std::int16_t intOp, Fecha dteFecha,
                                    double& dblPUC, double& dblPMedio, double& dblStock, bool bolModFichaArt) {
    const TextoNumero empresa = SqlEntero(Emp().CodEmpresa());
    const TextoNumero almacen = SqlEntero(intAlmacen);
    const TextoNumero articulo = SqlEntero(lngArticulo);
    const TextoNumero fecha = SqlFecha(dteFecha);
    const bool sinStock = ArticuloSinStock(lngArticulo);
    if (EsSalida(intOp)) {
        dblUnidades = -dblUnidades;
        dblPeso = -dblPeso;
    }
    const bool conCoste = dblUnidades > 0 && EsEntradaConCoste(intOp) && dblNeto > 0;
    if (conCoste) dblPMedio = dblNeto;
    dblPUC = 0;
    dblStock = 0;
    double peso = 0;

    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, Cnx(), TextoSql(
        "SELECT Stock_Actual, Stock_Peso, P_Medio, PU_Compra FROM Almacen_Articulos",
        " WHERE Cod_Empresa =", empresa,
        " And Cod_Almacen =", almacen,
        " And Cod_Articulo =", articulo));
    if (!rs->Eof()) {
        dblStock = ADouble(rs->Fields("Stock_Actual").Value());
        peso = ADouble(rs->Fields("Stock_Peso").Value());
        dblPUC = ADouble(rs->Fields("PU_Compra").Value());
        dblPMedio = ADouble(rs->Fields("P_Medio").Value());
        // Only positive stock with a positive average is weighed; anything else starts the average afresh.
        if (conCoste)
            dblPMedio = dblPMedio > 0 && dblStock > 0 ? MediaPonderada(dblPMedio, dblStock, dblUnidades, dblNeto)
                                                      : dblNeto;
    }
    rs->Close();

    const std::string venta = FragmentoVenta(intOp, dblUnidades, dteFecha);
    std::string medio;
    std::string compra;
    if (EsEntradaConCoste(intOp)) Agregar(medio, ", P_Medio =", SqlDoble(dblPMedio));
    if (intOp == kOpEntradaConPrecio && dblNeto > 0) Agregar(compra, ", PU_Compra =", SqlDoble(dblNeto));
    const PeriodoExistencias periodo = CambioDePeriodo(dblStock, dblUnidades, dteFecha);
    dblStock += dblUnidades;
    peso += dblPeso;

    const std::string donde = TextoSql(
        " WHERE Cod_Empresa =", empresa,
        " AND Cod_Almacen =", almacen,
        " AND Cod_Articulo =", articulo);
    const std::int32_t afectados = Cnx().EjecutarContando(sinStock
        // The 0 keeps the list valid when there is no sale date to write.
        ? TextoSql("UPDATE Almacen_Articulos SET ", " Stock_Actual = Stock_Actual + 0", venta, donde)
        : TextoSql(
            "UPDATE Almacen_Articulos SET",
            " Stock_Actual = Stock_Actual + ", SqlDoble(dblUnidades),
            ", Stock_Peso = Stock_Peso + ", SqlDoble(dblPeso),
            medio, compra, venta, periodo.inicio, periodo.fin, donde));
    if (afectados == 0) {
        const FilaNueva fila = PrepararFilaNueva(intOp, dblUnidades, dblNeto, dteFecha);
        dblPUC = fila.PUC;
        dblPMedio = fila.PMedio;
        Cnx().Ejecutar(sinStock
            ? TextoSql(
                "INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo,",
                " FUlt_Compra, FUlt_Venta) VALUES (",
                empresa, ", ", almacen, ", ", articulo, ", '", fila.compra, "', '", fila.venta, "')")
            : TextoSql(
                "INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo,",
                " Stock_Actual, Stock_Peso, PU_Compra, P_Medio, FUlt_Compra, FUlt_Venta,",
                " FIni_Existencias, FFin_Existencias) VALUES (",
                empresa, ", ", almacen, ", ", articulo, ", ", SqlDoble(dblStock), ", ", SqlDoble(peso), ", ",
                SqlDoble(dblPUC), ", ", SqlDoble(dblPMedio), ", '", fila.compra, "', '", fila.venta, "', '",
                fila.inicio, "', '", fila.fin, "')"));
    }

    // Guarded here and in the masters by >= 0, not > 0: a receipt without a price is a receipt all the same.
    const bool recepcion = intOp == kOpCompra && dblUnidades > 0 && dblNeto >= 0;
    std::string precioCompra;
    if (dblNeto > 0 && !sinStock) Agregar(precioCompra, ", PU_Compra =", SqlDoble(dblNeto));
    if (recepcion)
        Cnx().Ejecutar(TextoSql(
            "UPDATE Almacen_Articulos SET FUlt_Compra ='", fecha, "'", precioCompra,
            " WHERE Cod_Empresa =", empresa,
            " And Cod_Almacen =", almacen,
            " And Cod_Articulo =", articulo,
            " AND FUlt_Compra<='", fecha, "'"));
    if (!bolModFichaArt) return;
    if (intOp == kOpVenta && dblUnidades < 0) PropagarVenta(intAlmacen, lngArticulo, dteFecha);
    if (recepcion) PropagarCompra(intAlmacen, lngArticulo, dteFecha, precioCompra);
}

void clsAlmacen_Articulo::Act_Stock_Cualidades(std::int16_t intAlmacen, std::int32_t lngArticulo,
                                               std::uint8_t bytCualidadX, std::uint8_t bytCualidadY,
                                               double dblUnidades, double dblPeso, double dblNeto, std::int16_t intOp,
                                               Fecha dteFecha, double& dblPUC, double& dblPMedio, double& dblStock,
                                               bool bolModFichaArt) {
    const TextoNumero empresa = SqlEntero(Emp().CodEmpresa());
    const TextoNumero almacen = SqlEntero(intAlmacen);
    const TextoNumero articulo = SqlEntero(lngArticulo);
    const TextoNumero fecha = SqlFecha(dteFecha);
    const std::string cualidades = TextoSql(
        " AND CualidadX =", SqlEntero(bytCualidadX),
        " AND CualidadY =", SqlEntero(bytCualidadY));
    if (EsSalida(intOp)) {
        dblUnidades = -dblUnidades;
        dblPeso = -dblPeso;
    }
    const bool conCoste = dblUnidades > 0 && EsEntradaConCoste(intOp) && dblNeto > 0;
    if (conCoste) dblPMedio = dblNeto;
    dblPUC = 0;
    dblStock = 0;
    double peso = 0;

    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, Cnx(), TextoSql(
        "SELECT Stock_Actual, Stock_Peso, P_Medio, PU_Compra FROM Almacen_Articulos_C",
        " WHERE Cod_Empresa =", empresa,
        " AND Cod_Almacen =", almacen,
        " AND Cod_Articulo =", articulo, cualidades));
    if (!rs->Eof()) {
        dblStock = ADouble(rs->Fields("Stock_Actual").Value());
        peso = ADouble(rs->Fields("Stock_Peso").Value());
        dblPUC = ADouble(rs->Fields("PU_Compra").Value());
        dblPMedio = ADouble(rs->Fields("P_Medio").Value());
        // Quirk: unlike the plain article's, what counts is the stock after the movement, an average of 0 and a
        // negative stock are weighed as they are, and a negative average gives way whatever the kind.
        if (dblPMedio < 0)
            dblPMedio = dblNeto;
        else if (dblStock + dblUnidades > 0 && conCoste)
            dblPMedio = MediaPonderada(dblPMedio, dblStock, dblUnidades, dblNeto);
    }
    rs->Close();

    const std::string venta = FragmentoVenta(intOp, dblUnidades, dteFecha);
    std::string medio;
    if (EsEntradaConCoste(intOp)) Agregar(medio, ", P_Medio =", SqlDoble(dblPMedio));
    const PeriodoExistencias periodo = CambioDePeriodo(dblStock, dblUnidades, dteFecha);
    dblStock += dblUnidades;
    peso += dblPeso;

    // Quirk: no purchase price here, not even for a priced entry.
    const std::int32_t afectados = Cnx().EjecutarContando(TextoSql(
        "UPDATE Almacen_Articulos_C SET",
        " Stock_Actual = Stock_Actual + ", SqlDoble(dblUnidades),
        ", Stock_Peso = Stock_Peso + ", SqlDoble(dblPeso),
        medio, venta, periodo.inicio, periodo.fin,
        " WHERE Cod_Empresa =", empresa,
        " AND Cod_Almacen =", almacen,
        " AND Cod_Articulo =", articulo, cualidades));
    if (afectados == 0) {
        const FilaNueva fila = PrepararFilaNueva(intOp, dblUnidades, dblNeto, dteFecha);
        dblPUC = fila.PUC;
        dblPMedio = fila.PMedio;
        Cnx().Ejecutar(TextoSql(
            "INSERT INTO Almacen_Articulos_C (Cod_Empresa, Cod_Almacen, Cod_Articulo,",
            " CualidadX, CualidadY, Stock_Actual, Stock_Peso, PU_Compra, P_Medio, ",
            " FUlt_Compra, FUlt_Venta, FIni_Existencias, FFin_Existencias) VALUES (",
            empresa, ", ", almacen, ", ", articulo, ", ", SqlEntero(bytCualidadX), ", ", SqlEntero(bytCualidadY), ", ",
            SqlDoble(dblStock), ", ", SqlDoble(peso), ", ", SqlDoble(dblPUC), ", ", SqlDoble(dblPMedio), ", '",
            fila.compra, "', '", fila.venta, "', '", fila.inicio, "', '", fila.fin, "')"));
    }

    if (intOp == kOpCompra && dblUnidades > 0 && dblNeto > 0)
        Cnx().Ejecutar(TextoSql(
            "UPDATE Almacen_Articulos_C SET",
            " PU_Compra=", SqlDoble(dblNeto),
            ",P_Medio=", SqlDoble(dblPMedio),
            ",FUlt_Compra='", fecha, "'",
            " WHERE Cod_Empresa =", empresa,
            " And Cod_Almacen =", almacen,
            " And Cod_Articulo =", articulo, cualidades,
            " AND FUlt_Compra<='", fecha, "'"));
    if (!bolModFichaArt) return;
    if (intOp == kOpVenta && dblUnidades < 0) PropagarVenta(intAlmacen, lngArticulo, dteFecha);
    // The masters keep >= 0.
    if (intOp == kOpCompra && dblUnidades > 0 && dblNeto >= 0)
        PropagarCompra(intAlmacen, lngArticulo, dteFecha,
                       dblNeto > 0 ? TextoSql(", PU_Compra =", SqlDoble(dblNeto)) : std::string());
}
// clang-format on

}  // namespace kv
