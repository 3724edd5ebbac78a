#include "kvdatosart/customers/clsCliente.h"
#include "kvdatosart/db/BibliotecaComun.h"
#include "kvdatosart/db/ValoresSql.h"

namespace kv {
namespace {

// The first row's column `campo`; 0 without a row.
template <class Numero>
Numero LeerUno(Connection& conexion, std::string_view sql, std::string_view campo, Numero (*convertir)(const Valor&)) {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, conexion, sql);
    Numero valor{};
    if (!rs->Eof()) valor = convertir(rs->Fields(campo).Value());
    rs->Close();
    return valor;
}

}  // namespace

// clang-format off
void clsCliente::Act_FUVenta(Fecha dteFecha) {
    Cnx().Ejecutar(TextoSql(
        "UPDATE Clientes SET FUVenta ='", SqlFecha(dteFecha),
        "' WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresaClientes()),
        " AND Codigo =", SqlEntero(Codigo),
        " AND FUVenta < '", SqlFecha(dteFecha), "'"));
}

void clsCliente::Act_FUCobro(Fecha dteFecha) {
    Cnx().Ejecutar(TextoSql(
        "UPDATE Clientes SET FUCobro ='", SqlFecha(dteFecha),
        "' WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresaClientes()),
        " AND Codigo =", SqlEntero(Codigo),
        " AND FUCobro < '", SqlFecha(dteFecha), "'"));
}

std::int32_t clsCliente::Dev_Codigo_Nuevo(std::int32_t lngCodigoMin) {
    const std::int32_t ultimo = LeerUno(Cnx(), TextoSql(
        "SELECT ISNULL(MAX(Codigo), 0) AS Codigo FROM Clientes",
        " WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresaClientes()),
        " AND Codigo >= ", SqlEntero(lngCodigoMin)), "Codigo", ALong);
    if (ultimo == INT32_MAX) LanzarError(kErrDesbordamiento);
    return ultimo + 1;
}

bool clsCliente::Verif_Notas() try {
    return LeerUno(Cnx(), TextoSql(
        " SELECT COUNT(*) AS Cant FROM Clientes_Notas",
        " WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresaClientes()),
        " AND Pendiente = 1 AND Vencimiento <= '", SqlFecha(Hoy()), "'"), "cant", ALong) > 0;
} catch (...) {
    Relanzar("clsCliente::Verif_Notas");
}

Currency clsCliente::Dev_SaldoAlbaranes() {
    return LeerUno(Cnx(), TextoSql(
        "SELECT ISNULL(SUM(Total), 0) AS Total FROM Albaranes_F",
        " WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresa()),
        " AND Cliente =", SqlEntero(Codigo),
        " AND Factura_Codigo = 0"), "total", ACurrency);
}

bool clsCliente::Existe() try {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, Cnx(), TextoSql(
        "SELECT Codigo FROM Clientes WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresaClientes()),
        " AND Codigo =", SqlEntero(Codigo)));
    const bool existe = !rs->Eof();
    rs->Close();
    return existe;
} catch (...) {
    Relanzar("clsCliente::Existe");
}

Currency clsCliente::Dev_SaldoPuntos() {
    return LeerUno(Cnx(), TextoSql(
        "SELECT ISNULL(SUM(Puntos),0) AS Puntos FROM Clientes_Puntos",
        " WHERE Cod_Empresa=", SqlEntero(Emp().CodEmpresa()),
        " AND Cod_Cliente=", SqlEntero(Codigo)), "Puntos", ACurrency);
}
// clang-format on

}  // namespace kv
