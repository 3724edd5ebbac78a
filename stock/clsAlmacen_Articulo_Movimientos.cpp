#include "kvdatosart/db/ValoresSql.h"
#include "kvdatosart/stock/Movimiento.h"
#include "kvdatosart/stock/clsAlmacen_Articulo.h"

// A movement on the plain article's row and on a variant's: the same steps, in the same order, each with statements and
// guards of its own. What stands here twice differs; what does not stands once.

namespace kv {
namespace {

/// The key of a row as texts.
struct Clave {
    Clave(std::int16_t codEmpresa, std::int16_t intAlmacen, std::int32_t lngArticulo)
        : empresa(SqlEntero(codEmpresa)), almacen(SqlEntero(intAlmacen)), articulo(SqlEntero(lngArticulo)) {}

    TextoNumero empresa;
    TextoNumero almacen;
    TextoNumero articulo;
};

struct ClaveVariante : Clave {
    ClaveVariante(const Clave& clave, std::uint8_t bytCualidadX, std::uint8_t bytCualidadY)
        : Clave(clave), x(SqlEntero(bytCualidadX)), y(SqlEntero(bytCualidadY)) {}

    TextoNumero x;
    TextoNumero y;
};

// clang-format off
std::string LeerArticulo(const Clave& clave) {
    return TextoSql(
        "SELECT Stock_Actual, Stock_Peso, P_Medio, PU_Compra FROM Almacen_Articulos",
        " WHERE Cod_Empresa =", clave.empresa,
        " And Cod_Almacen =", clave.almacen,
        " And Cod_Articulo =", clave.articulo);
}

std::string LeerVariante(const ClaveVariante& clave) {
    return TextoSql(
        "SELECT Stock_Actual, Stock_Peso, P_Medio, PU_Compra FROM Almacen_Articulos_C",
        " WHERE Cod_Empresa =", clave.empresa,
        " AND Cod_Almacen =", clave.almacen,
        " AND Cod_Articulo =", clave.articulo,
        " AND CualidadX =", clave.x,
        " AND CualidadY =", clave.y);
}

std::string ActualizarArticulo(const Clave& clave, const Movimiento& m, const Fragmentos& cambios) {
    const std::string compra = m.op == kOpEntradaConPrecio ? m.FragmentoPrecio() : std::string();
    return TextoSql(
        "UPDATE Almacen_Articulos SET",
        " Stock_Actual = Stock_Actual + ", SqlDoble(m.unidades),
        ", Stock_Peso = Stock_Peso + ", SqlDoble(m.peso),
        cambios.medio, compra, cambios.venta, cambios.inicio, cambios.fin,
        " WHERE Cod_Empresa =", clave.empresa,
        " AND Cod_Almacen =", clave.almacen,
        " AND Cod_Articulo =", clave.articulo);
}

// The 0 keeps the list valid when there is no sale date to write.
std::string ActualizarSinStock(const Clave& clave, const Fragmentos& cambios) {
    return TextoSql(
        "UPDATE Almacen_Articulos SET ",
        " Stock_Actual = Stock_Actual + 0", cambios.venta,
        " WHERE Cod_Empresa =", clave.empresa,
        " AND Cod_Almacen =", clave.almacen,
        " AND Cod_Articulo =", clave.articulo);
}

// Quirk (0018): no purchase price here, not even for a priced entry.
std::string ActualizarVariante(const ClaveVariante& clave, const Movimiento& m, const Fragmentos& cambios) {
    return TextoSql(
        "UPDATE Almacen_Articulos_C SET",
        " Stock_Actual = Stock_Actual + ", SqlDoble(m.unidades),
        ", Stock_Peso = Stock_Peso + ", SqlDoble(m.peso),
        cambios.medio, cambios.venta, cambios.inicio, cambios.fin,
        " WHERE Cod_Empresa =", clave.empresa,
        " AND Cod_Almacen =", clave.almacen,
        " AND Cod_Articulo =", clave.articulo,
        " AND CualidadX =", clave.x,
        " AND CualidadY =", clave.y);
}

std::string InsertarArticulo(const Clave& clave, const FilaStock& fila, const FechasNuevas& fechas) {
    return TextoSql(
        "INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo,",
        " Stock_Actual, Stock_Peso, PU_Compra, P_Medio, FUlt_Compra, FUlt_Venta,",
        " FIni_Existencias, FFin_Existencias) VALUES (",
        clave.empresa, ", ", clave.almacen, ", ", clave.articulo, ", ",
        SqlDoble(fila.stock), ", ", SqlDoble(fila.peso), ", ", SqlDoble(fila.PUC), ", ", SqlDoble(fila.PMedio), ", '",
        fechas.compra, "', '", fechas.venta, "', '", fechas.inicio, "', '", fechas.fin, "')");
}

std::string InsertarSinStock(const Clave& clave, const FechasNuevas& fechas) {
    return TextoSql(
        "INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo,",
        " FUlt_Compra, FUlt_Venta) VALUES (",
        clave.empresa, ", ", clave.almacen, ", ", clave.articulo, ", '", fechas.compra, "', '", fechas.venta, "')");
}

std::string InsertarVariante(const ClaveVariante& clave, const FilaStock& fila, const FechasNuevas& fechas) {
    return TextoSql(
        "INSERT INTO Almacen_Articulos_C (Cod_Empresa, Cod_Almacen, Cod_Articulo,",
        " CualidadX, CualidadY, Stock_Actual, Stock_Peso, PU_Compra, P_Medio, ",
        " FUlt_Compra, FUlt_Venta, FIni_Existencias, FFin_Existencias) VALUES (",
        clave.empresa, ", ", clave.almacen, ", ", clave.articulo, ", ", clave.x, ", ", clave.y, ", ",
        SqlDoble(fila.stock), ", ", SqlDoble(fila.peso), ", ", SqlDoble(fila.PUC), ", ", SqlDoble(fila.PMedio), ", '",
        fechas.compra, "', '", fechas.venta, "', '", fechas.inicio, "', '", fechas.fin, "')");
}

std::string ComprarArticulo(const Clave& clave, const TextoNumero& fecha, std::string_view precio) {
    return TextoSql(
        "UPDATE Almacen_Articulos SET FUlt_Compra ='", fecha, "'", precio,
        " WHERE Cod_Empresa =", clave.empresa,
        " And Cod_Almacen =", clave.almacen,
        " And Cod_Articulo =", clave.articulo,
        " AND FUlt_Compra<='", fecha, "'");
}

std::string ComprarVariante(const ClaveVariante& clave, const TextoNumero& fecha, double neto, double media) {
    return TextoSql(
        "UPDATE Almacen_Articulos_C SET",
        " PU_Compra=", SqlDoble(neto),
        ",P_Medio=", SqlDoble(media),
        ",FUlt_Compra='", fecha, "'",
        " WHERE Cod_Empresa =", clave.empresa,
        " And Cod_Almacen =", clave.almacen,
        " And Cod_Articulo =", clave.articulo,
        " AND CualidadX =", clave.x,
        " AND CualidadY =", clave.y,
        " AND FUlt_Compra<='", fecha, "'");
}
// clang-format on

}  // namespace

void clsAlmacen_Articulo::Act_Stock(std::int16_t intAlmacen, std::int32_t lngArticulo, double dblUnidades,
                                    double dblPeso, double dblNeto, std::int16_t intOp, Fecha dteFecha, double& dblPUC,
                                    double& dblPMedio, double& dblStock, bool bolModFichaArt) {
    const Clave clave(Emp().CodEmpresa(), intAlmacen, lngArticulo);
    const Movimiento movimiento(intOp, dblUnidades, dblPeso, dblNeto, dteFecha);
    const bool sinStock = ArticuloSinStock(lngArticulo);
    FilaStock fila{dblPUC, dblPMedio, dblStock};
    if (LeerFila(LeerArticulo(clave), movimiento, fila)) fila.PMedio = MediaDeArticulo(movimiento, fila);
    const Fragmentos cambios(movimiento, fila);
    fila.Mover(movimiento);
    if (Cnx().EjecutarContando(sinStock ? ActualizarSinStock(clave, cambios)
                                        : ActualizarArticulo(clave, movimiento, cambios)) == 0) {
        fila.PUC = fila.PMedio = CosteNuevo(movimiento);
        const FechasNuevas fechas(movimiento);
        Cnx().Ejecutar(sinStock ? InsertarSinStock(clave, fechas) : InsertarArticulo(clave, fila, fechas));
    }
    const std::string precio = sinStock ? std::string() : movimiento.FragmentoPrecio();
    // A receipt without a price is a receipt all the same.
    if (movimiento.EsRecepcion()) Cnx().Ejecutar(ComprarArticulo(clave, SqlFecha(dteFecha), precio));
    if (bolModFichaArt) Propagar(intAlmacen, lngArticulo, movimiento, precio);
}

void clsAlmacen_Articulo::Act_Stock_Cualidades(std::int16_t intAlmacen, std::int32_t lngArticulo,
                                               std::uint8_t bytCualidadX, std::uint8_t bytCualidadY, double dblUnidades,
                                               double dblPeso, double dblNeto, std::int16_t intOp, Fecha dteFecha,
                                               double& dblPUC, double& dblPMedio, double& dblStock,
                                               bool bolModFichaArt) {
    const ClaveVariante clave({Emp().CodEmpresa(), intAlmacen, lngArticulo}, bytCualidadX, bytCualidadY);
    const Movimiento movimiento(intOp, dblUnidades, dblPeso, dblNeto, dteFecha);
    FilaStock fila{dblPUC, dblPMedio, dblStock};
    if (LeerFila(LeerVariante(clave), movimiento, fila)) fila.PMedio = MediaDeVariante(movimiento, fila);
    const Fragmentos cambios(movimiento, fila);
    fila.Mover(movimiento);
    if (Cnx().EjecutarContando(ActualizarVariante(clave, movimiento, cambios)) == 0) {
        fila.PUC = fila.PMedio = CosteNuevo(movimiento);
        Cnx().Ejecutar(InsertarVariante(clave, fila, FechasNuevas(movimiento)));
    }
    // Quirk (0018): only with a price, although the masters hear of the purchase without one.
    if (movimiento.EsRecepcionConPrecio())
        Cnx().Ejecutar(ComprarVariante(clave, SqlFecha(dteFecha), dblNeto, fila.PMedio));
    if (bolModFichaArt) Propagar(intAlmacen, lngArticulo, movimiento, movimiento.FragmentoPrecio());
}

// Only positive stock with a positive average is weighed; anything else starts the average afresh.
double clsAlmacen_Articulo::MediaDeArticulo(const Movimiento& movimiento, const FilaStock& fila) const {
    if (!movimiento.TraeCoste()) return fila.PMedio;
    if (fila.PMedio > 0 && fila.stock > 0)
        return MediaPonderada(fila.PMedio, fila.stock, movimiento.unidades, movimiento.neto);
    return movimiento.neto;
}

// Quirk (0018): unlike the plain article's, what counts is the stock after the movement, an average of 0 and a negative
// stock are weighed as they are, and a negative average gives way whatever the kind.
double clsAlmacen_Articulo::MediaDeVariante(const Movimiento& movimiento, const FilaStock& fila) const {
    if (fila.PMedio < 0) return movimiento.neto;
    if (movimiento.TraeCoste() && fila.stock + movimiento.unidades > 0)
        return MediaPonderada(fila.PMedio, fila.stock, movimiento.unidades, movimiento.neto);
    return fila.PMedio;
}

/// False when there is no row; then the average is the movement's cost when it brings one, else the caller's.
bool clsAlmacen_Articulo::LeerFila(std::string_view consulta, const Movimiento& movimiento, FilaStock& fila) {
    if (movimiento.TraeCoste()) fila.PMedio = movimiento.neto;
    fila.PUC = 0;
    fila.stock = 0;
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, Cnx(), consulta);
    const bool hayFila = !rs->Eof();
    if (hayFila) {
        fila.stock = ADouble(rs->Fields("Stock_Actual").Value());
        fila.peso = ADouble(rs->Fields("Stock_Peso").Value());
        fila.PUC = ADouble(rs->Fields("PU_Compra").Value());
        fila.PMedio = ADouble(rs->Fields("P_Medio").Value());
    }
    rs->Close();
    return hayFila;
}

}  // namespace kv
