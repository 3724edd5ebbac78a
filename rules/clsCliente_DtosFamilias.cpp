#include "kvdatosart/rules/clsCliente_DtosFamilias.h"

#include "kvdatosart/db/ValoresSql.h"
#include "kvdatosart/rules/NivelesFamilia.h"

namespace kv {
namespace {

double LeerDescuento(Connection& conexion, std::string_view sql) {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, conexion, sql);
    const double descuento = rs->Eof() ? 0.0 : ADouble(rs->Fields("Descuento").Value());
    rs->Close();
    return descuento;
}

}  // namespace

bool clsCliente_DtosFamilias::EsArticulo() const {
    return EsNivelArticulo(Nivel, NumNiveles);
}

// clang-format off
void clsCliente_DtosFamilias::Insertar() try {
    std::string sql = TextoSql(
        " INSERT INTO Descuentos_Familias (Codigo,Nivel,Cod_Empresa,Cod_Cliente,",
        " Descuento, Tipo_Descuento, Cod_Articulo, Familia_1, Familia_2, Familia_3) ",
        " VALUES (0,", SqlEntero(Nivel), ",", SqlEntero(Emp().CodEmpresa()), ",", SqlEntero(Cliente), ",",
        SqlNumero(Descuento), ",", SqlEntero(Tipo_Descuento));
    if (EsArticulo())
        Agregar(sql, ",", SqlEntero(Cod_Articulo), ",");
    else
        Agregar(sql, ",0,");
    Agregar(sql, SqlEntero(Familia_1), ",", SqlEntero(Familia_2), ",", SqlEntero(Familia_3), ")");
    Cnx().Ejecutar(sql);
} catch (...) {
    Relanzar("clsDescuentos_Familia::Insertar");
}

void clsCliente_DtosFamilias::Eliminar() try {
    std::string sql = " DELETE FROM Descuentos_Familias WHERE (";
    if (EsArticulo())
        Agregar(sql, "Cod_Articulo = ", SqlEntero(Cod_Articulo), " and Nivel = ", SqlEntero(Nivel));
    else
        Agregar(sql, " Nivel = ", SqlEntero(Nivel));
    Agregar(sql, Cola());
    Cnx().Ejecutar(sql);
} catch (...) {
    Relanzar("clsDescuentos_Familia::Borrar");
}

// Quirk (0007): it reports the source of the deletion.
void clsCliente_DtosFamilias::Modificar() try {
    std::string sql = TextoSql(
        " UPDATE Descuentos_Familias SET Descuento = ", SqlNumero(Descuento),
        ", Tipo_Descuento = ", SqlEntero(Tipo_Descuento));
    if (EsArticulo())
        Agregar(sql, " WHERE (Cod_Articulo = ", SqlEntero(Cod_Articulo), " AND Nivel = ", SqlEntero(Nivel));
    else
        Agregar(sql, " WHERE (Nivel = ", SqlEntero(Nivel));
    Agregar(sql,
        " AND Cod_Empresa = ", SqlEntero(Emp().CodEmpresa()),
        " AND Familia_1 =", SqlEntero(Familia_1),
        " AND Familia_2 =", SqlEntero(Familia_2),
        " AND Familia_3 =", SqlEntero(Familia_3),
        " AND Cod_Cliente = ", SqlEntero(Cliente), ")");
    Cnx().Ejecutar(sql);
} catch (...) {
    Relanzar("clsDescuentos_Familia::Borrar");
}

std::unique_ptr<Recordset> clsCliente_DtosFamilias::Cargar_Articulos(
    std::int16_t intFamilia1, std::int16_t intFamilia2, std::int16_t intFamilia3) try {
    std::string sql = TextoSql(
        " SELECT Codigo, Descripcion From Articulos Where ",
        " Familia_1 = ", SqlEntero(intFamilia1));
    if (intFamilia2 != 0) Agregar(sql, " and Familia_2 = ", SqlEntero(intFamilia2));
    if (intFamilia3 != 0) Agregar(sql, " and Familia_3 = ", SqlEntero(intFamilia3));
    Agregar(sql, " And Cod_Empresa = ", SqlEntero(Emp().CodEmpresa()));
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, Cnx(), sql);
    return rs;
} catch (...) {
    Relanzar("clsCliente_DtosFamilias::Cargar_Articulos");
}

std::unique_ptr<Recordset> clsCliente_DtosFamilias::Cargar_Todos() try {
    std::unique_ptr<Recordset> rs;
    AbrirEdicion(rs, Cnx(), TextoSql(
        " SELECT IsNull(des.Cod_Articulo,0) as Cod_Articulo, IsNull(des.Familia_1,art.Familia_1) as Familia_1 ,",
        " IsNull(des.Familia_2,art.Familia_2) as Familia_2, IsNull(des.Familia_3,art.Familia_3) as Familia_3, ",
        " des.Nivel, des.Codigo, des.Descuento, des.Tipo_Descuento, ",
        " IsNull(art.Descripcion,'') As Nombre From Descuentos_Familias des ",
        " Left JOIN Articulos art ON",
        " (art.cod_Empresa=", SqlEntero(Emp().CodEmpresa()), " and art.Codigo = des.Cod_Articulo",
        ") ",
        " WHERE des.cod_Cliente = ", SqlEntero(Cliente),
        " AND des.cod_empresa = ", SqlEntero(Emp().CodEmpresa()),
        " ORDER BY Familia_1, Familia_2, Familia_3 "));
    return rs;
} catch (...) {
    Relanzar("clsDescuentos_Familia::Cargar_Todos");
}

double clsCliente_DtosFamilias::Dev_Descuento() try {
    std::string sql =
        " SELECT Descuento, Tipo_Descuento FROM Descuentos_Familias ";
    if (EsArticulo())
        Agregar(sql, " WHERE (Cod_Articulo =", SqlEntero(Cod_Articulo), " and Nivel = ", SqlEntero(Nivel));
    else
        Agregar(sql, " WHERE (Nivel = ", SqlEntero(Nivel));
    Agregar(sql, Cola());
    return LeerDescuento(Cnx(), sql);
} catch (...) {
    Relanzar("clsDescuentos_Familia::Dev_Descuento");
}

double clsCliente_DtosFamilias::Dev_Descuento_Filtro(std::string_view strFiltro) {
    return LeerDescuento(Cnx(), TextoSql(
        " SELECT Descuento FROM Descuentos_Familias WHERE Cod_Empresa = ", SqlEntero(Emp().CodEmpresa()), strFiltro));
}

std::string clsCliente_DtosFamilias::Cola() const {
    return TextoSql(
        " and Cod_Empresa = ", SqlEntero(Emp().CodEmpresa()),
        " and Familia_1 =", SqlEntero(Familia_1),
        " and Familia_2 =", SqlEntero(Familia_2),
        " and Familia_3 =", SqlEntero(Familia_3),
        " and Cod_Cliente = ", SqlEntero(Cliente), ")");
}
// clang-format on

void clsCliente_DtosFamilias::Calcula_Nivel(std::string_view strClave) {
    LeerClaveDescuento(strClave, NumNiveles, {Nivel, Cod_Articulo, Familia_1, Familia_2, Familia_3});
}

double clsCliente_DtosFamilias::Dev_Descuento_Activo() {
    double descuento = 0;
    fallo_.reset();
    try {
        const auto comando = Cnx().CrearCommand();
        PrepararDescuento(*comando, kProcedimiento, Emp(), {Cliente, Cod_Articulo, Familia_1, Familia_2, Familia_3});
        comando->Parameters.Append({"@Dto", DataType::adCurrency, ParameterDirection::adParamOutput, 0, Nulo{}});
        comando->Execute(CommandType::adOptionUnspecified);
        descuento = ADouble(comando->Parameters.Item("@Dto").Value);
    } catch (...) {
        // A sale is not stopped by a discount that cannot be found out.
        fallo_ = TextoDelFallo();
    }
    return descuento;
}

}  // namespace kv
