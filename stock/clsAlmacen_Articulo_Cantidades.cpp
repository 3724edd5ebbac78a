#include "kvdatosart/db/BibliotecaComun.h"
#include "kvdatosart/db/ValoresSql.h"
#include "kvdatosart/stock/clsAlmacen_Articulo.h"

namespace kv {

// clang-format off
// Completes and runs an update of the row of `Almacen` and `Articulo`; where it finds none, the insertion, which gives
// the key and the same values.
void clsAlmacen_Articulo::PonerEnFila(std::string_view actualizar, std::string_view insertar,
                                      std::string_view valores) {
    const TextoNumero empresa = SqlEntero(Emp().CodEmpresa());
    const std::int32_t afectados = Cnx().EjecutarContando(TextoSql(
        actualizar,
        " WHERE Cod_Empresa = ", empresa,
        " AND Cod_Articulo = ", SqlEntero(Articulo),
        " AND Cod_Almacen = ", SqlEntero(Almacen)));
    if (afectados == 0)
        Cnx().Ejecutar(TextoSql(
            insertar, empresa, ", ", SqlEntero(Almacen), ", ", SqlEntero(Articulo), ", ", valores, ")"));
}

// The same for a variant's row and a quantity.
void clsAlmacen_Articulo::SumarEnVariante(std::string_view sumar, std::string_view insertar, std::int16_t intCualidadX,
                                          std::int16_t intCualidadY, Currency curIncremento) {
    if (intCualidadX == 0 || intCualidadY == 0) return;
    const TextoNumero empresa = SqlEntero(Emp().CodEmpresa());
    const TextoNumero incremento = SqlNumero(curIncremento);
    const std::int32_t afectados = Cnx().EjecutarContando(TextoSql(
        sumar, incremento,
        " WHERE Cod_Empresa = ", empresa,
        " AND Cod_Articulo = ", SqlEntero(Articulo),
        " AND CualidadX=", SqlEntero(intCualidadX),
        " AND CualidadY=", SqlEntero(intCualidadY),
        " AND Cod_Almacen = ", SqlEntero(Almacen)));
    if (afectados == 0)
        Cnx().Ejecutar(TextoSql(
            insertar, empresa, ", ", SqlEntero(Almacen), ", ", SqlEntero(Articulo), ", ", SqlEntero(intCualidadX), ", ",
            SqlEntero(intCualidadY), ", ", incremento, ")"));
}

void clsAlmacen_Articulo::Act_PendRecibir(Currency curIncremento) {
    const TextoNumero incremento = SqlNumero(curIncremento);
    PonerEnFila(
        TextoSql(" UPDATE Almacen_Articulos SET Pend_Recibir = Pend_Recibir + ", incremento),
        "INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo,"
        " Pend_Recibir) VALUES (", incremento);
}

void clsAlmacen_Articulo::Act_PendServir(Currency curIncremento) {
    const TextoNumero incremento = SqlNumero(curIncremento);
    PonerEnFila(
        TextoSql(" UPDATE Almacen_Articulos SET Pend_Servir = Pend_Servir + ", incremento),
        "INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo,"
        " Pend_Servir) VALUES (", incremento);
}

void clsAlmacen_Articulo::Act_PendRecibir_Cualidades(std::int16_t intCualidadX, std::int16_t intCualidadY,
                                                     Currency curIncremento) {
    SumarEnVariante(
        " UPDATE Almacen_Articulos_C SET Pend_Recibir = Pend_Recibir + ",
        "INSERT INTO Almacen_Articulos_C (Cod_Empresa, Cod_Almacen, Cod_Articulo,"
        " CualidadX, CualidadY, Pend_Recibir) VALUES (", intCualidadX, intCualidadY, curIncremento);
}

void clsAlmacen_Articulo::Act_PendServir_Cualidades(std::int16_t intCualidadX, std::int16_t intCualidadY,
                                                    Currency curIncremento) {
    SumarEnVariante(
        " UPDATE Almacen_Articulos_C SET Pend_Servir = Pend_Servir + ",
        "INSERT INTO Almacen_Articulos_C (Cod_Empresa, Cod_Almacen, Cod_Articulo,"
        " CualidadX, CualidadY, Pend_Servir) VALUES (", intCualidadX, intCualidadY, curIncremento);
}

void clsAlmacen_Articulo::Act_StockMiniCompras(Currency curIncremento) {
    const TextoNumero incremento = SqlNumero(curIncremento);
    PonerEnFila(
        TextoSql(" UPDATE Almacen_Articulos SET Stock_MiniCompra = Stock_MiniCompra + ", incremento),
        "INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, Stock_MiniCompra) VALUES (", incremento);
}

void clsAlmacen_Articulo::Act_Stock_Ubicaciones(std::int16_t intAlmacen, std::int32_t lngArticulo,
                                                const std::string& strUbic1, const std::string& strUbic2,
                                                const std::string& strUbic3, const std::string& strUbic4,
                                                const std::string& strUbic5, Currency curIncremento) {
    const TextoNumero empresa = SqlEntero(Emp().CodEmpresa());
    const TextoNumero incremento = SqlNumero(curIncremento);
    const std::int32_t afectados = Cnx().EjecutarContando(TextoSql(
        "UPDATE Almacen_Articulos_Ubic SET Stock_Actual=Stock_Actual+", incremento,
        " WHERE Cod_Empresa=", empresa,
        " AND Cod_Almacen=", SqlEntero(intAlmacen),
        " AND Cod_Articulo=", SqlEntero(lngArticulo),
        " AND Ubic1='", strUbic1, "' AND Ubic2='", strUbic2, "' AND Ubic3='", strUbic3,
        "' AND Ubic4='", strUbic4, "' AND Ubic5='", strUbic5, "'"));
    if (afectados == 0)
        Cnx().Ejecutar(TextoSql(
            "INSERT INTO Almacen_Articulos_Ubic ",
            " (Cod_Empresa, Cod_Almacen, Cod_Articulo, Ubic1, Ubic2, Ubic3, Ubic4, Ubic5, Stock_Actual) VALUES (",
            empresa, ", ", SqlEntero(intAlmacen), ", ", SqlEntero(lngArticulo), ", '", strUbic1, "', '", strUbic2,
            "', '", strUbic3, "', '", strUbic4, "', '", strUbic5, "', ", incremento, ")"));
}

void clsAlmacen_Articulo::Act_Costo(Currency curCosto) {
    const TextoNumero coste = SqlNumero(curCosto);
    PonerEnFila(
        TextoSql("UPDATE Almacen_Articulos SET PU_Compra =", coste, ", P_Medio =", coste),
        "INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo,"
        " PU_Compra, P_Medio) VALUES (", TextoSql(coste, ", ", coste));
}

void clsAlmacen_Articulo::Act_Bloqueo() {
    const TextoNumero bloqueo = SqlBooleanoAbsoluto(Bloqueado);
    const TextoNumero dormido = Bloqueado ? SqlFecha(Hoy()) : TextoNumero("01/01/1900");
    PonerEnFila(
        TextoSql("UPDATE Almacen_Articulos SET Bloqueo =", bloqueo, ", F_Dormido ='", dormido, "'"),
        "INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, Bloqueo, F_Dormido) VALUES (",
        TextoSql(bloqueo, ", '", dormido, "'"));
    MarcarArticulo();
}

void clsAlmacen_Articulo::Act_Desglosa_Pack() {
    const TextoNumero desglosa = SqlBooleanoAbsoluto(Desglosa_Pack);
    PonerEnFila(
        TextoSql("UPDATE Almacen_Articulos SET Desglosa_Pack =", desglosa),
        "INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, Desglosa_Pack) VALUES (", desglosa);
    MarcarArticulo();
}

void clsAlmacen_Articulo::MarcarArticulo() {
    Cnx().Ejecutar(TextoSql(
        "UPDATE Articulos SET Mod_Ficha = 1",
        " WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresaArticulos()),
        " AND Codigo = ", SqlEntero(Articulo)));
}
// clang-format on

}  // namespace kv
