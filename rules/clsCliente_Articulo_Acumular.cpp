#include "kvdatosart/db/BibliotecaComun.h"
#include "kvdatosart/db/ValoresSql.h"
#include "kvdatosart/rules/clsCliente_Articulo.h"
#include "kvdatosart/stock/clsAlmacen_Articulo.h"

namespace kv {
namespace {

// Fragments of one statistics table.
struct TablaEstadistica {
    std::string_view actualizar;
    std::string_view insertar;
};

constexpr TablaEstadistica kArticulos = {
    " UPDATE Clientes_Articulos SET",
    " INSERT INTO Clientes_Articulos (Cod_Empresa, Cod_Almacen, Cod_Cliente, Cod_Articulo,"};
constexpr TablaEstadistica kArticulosTx = {
    " UPDATE Clientes_Articulos_Tx SET",
    " INSERT INTO Clientes_Articulos_Tx (Cod_Empresa, Cod_Almacen, Cod_Cliente, Cod_Articulo,"};
constexpr TablaEstadistica kCualidades = {
    " UPDATE Clientes_Articulos_C SET",
    " INSERT INTO Clientes_Articulos_C (Cod_Empresa, Cod_Almacen, Cod_Cliente, Cod_Articulo,"};
constexpr TablaEstadistica kCualidadesTx = {
    " UPDATE Clientes_Articulos_C_Tx SET",
    " INSERT INTO Clientes_Articulos_C_Tx (Cod_Empresa, Cod_Almacen, Cod_Cliente, Cod_Articulo,"};

// A sale as its statements name it: every value is text already.
struct Apunte {
    TextoNumero empresa;
    TextoNumero almacen;
    TextoNumero cliente;
    TextoNumero articulo;
    std::string condicionCualidades;
    std::string_view columnasInsertar;
    std::string valoresCualidades;
    TextoNumero fecha;
    TextoNumero unidades;
    TextoNumero importePvp;
    TextoNumero importeCosto;
};

TextoNumero Importe(Currency valor) {
    return SqlCurrencyConPunto(Biblioteca().Redondear(valor, 2));
}

// clang-format off
// Adds the sale to the day's row, or makes it.
void Anotar(Connection& conexion, const TablaEstadistica& tabla, const Apunte& a) {
    const std::int32_t afectados = conexion.EjecutarContando(TextoSql(
        tabla.actualizar,
        " Unidades = Unidades + ", a.unidades,
        ", Importe_PVP = Importe_PVP + ", a.importePvp,
        ", Importe_Costo = Importe_Costo + ", a.importeCosto,
        " WHERE Cod_Empresa = ", a.empresa,
        " AND Cod_Almacen =", a.almacen,
        " AND Cod_Cliente = ", a.cliente,
        " AND Cod_Articulo = ", a.articulo,
        a.condicionCualidades,
        " AND Fecha ='", a.fecha, "'"));
    if (afectados != 0) return;
    conexion.Ejecutar(TextoSql(
        tabla.insertar,
        a.columnasInsertar,
        a.empresa, ", ", a.almacen, ", ", a.cliente, ", ", a.articulo, a.valoresCualidades,
        ", '", a.fecha, "', ", a.unidades, ", ", a.importePvp, ", ", a.importeCosto, ")"));
}

}  // namespace

void clsCliente_Articulo::Acumular(Fecha dteFecha, Currency curUnidades, Currency curImportePvp,
                                   Currency curImporteCosto) try {
    if (curImporteCosto == Currency()) {
        clsAlmacen_Articulo almacen;
        Inyectar(almacen);
        curImporteCosto = almacen.Dev_Costo(Cod_Almacen, Cod_Articulo, 0, 0) * curUnidades;
    }
    const Apunte apunte = {
        SqlEntero(Cod_Empresa), SqlEntero(Cod_Almacen), SqlEntero(Cod_Cliente), SqlEntero(Cod_Articulo), "",
        " Fecha, Unidades, Importe_PVP, Importe_Costo) VALUES (", "",
        SqlFechaLiteral(dteFecha), SqlNumero(curUnidades.ADouble()), Importe(curImportePvp), Importe(curImporteCosto)};
    Anotar(Cnx(), kArticulos, apunte);
    Anotar(Cnx(), kArticulosTx, apunte);
} catch (...) {
    // Quirk (0007): the plural of the class's name.
    Relanzar("clsClientes_Articulo::Acumular");
}

void clsCliente_Articulo::Acumular_C(Fecha dteFecha, Currency curUnidades, Currency curImportePvp,
                                     Currency curImporteCosto, std::int16_t intCualidadX,
                                     std::int16_t intCualidadY) try {
    if (curImporteCosto == Currency()) curImporteCosto = CosteUnitarioCualidad() * curUnidades;
    const Apunte apunte = {
        SqlEntero(Cod_Empresa), SqlEntero(Cod_Almacen), SqlEntero(Cod_Cliente), SqlEntero(Cod_Articulo),
        TextoSql(" AND CualidadX = ", SqlEntero(intCualidadX), " AND CualidadY = ", SqlEntero(intCualidadY)),
        " CualidadX, CualidadY, Fecha, Unidades, Importe_PVP, Importe_Costo) VALUES (",
        TextoSql(", ", SqlEntero(intCualidadX), ", ", SqlEntero(intCualidadY)),
        SqlFechaLiteral(dteFecha), SqlNumero(curUnidades.ADouble()), Importe(curImportePvp), Importe(curImporteCosto)};
    Anotar(Cnx(), kCualidades, apunte);
    Anotar(Cnx(), kCualidadesTx, apunte);
} catch (...) {
    Relanzar("clsCliente_Articulo::Acumular_C");
}

// Quirk (0017): unlike the plain article's, it is read here and from the article's row, not from the variant's.
Currency clsCliente_Articulo::CosteUnitarioCualidad() {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, Cnx(), TextoSql(
        "SELECT ", std::string_view(Emp().CosteUltimaCompra() ? "PU_Compra" : "P_Medio"), " AS Costo",
        " FROM Almacen_Articulos",
        " WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresa()),
        " AND Cod_Almacen =", SqlEntero(Cod_Almacen),
        " AND Cod_Articulo =", SqlEntero(Cod_Articulo)));
    const Currency coste = rs->Eof() ? Currency() : ACurrency(rs->Fields("Costo").Value());
    rs->Close();
    return coste;
}
// clang-format on

}  // namespace kv
