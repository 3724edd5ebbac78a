#include "kvdatosart/rules/clsCliente_Grp_Dtos.h"

#include "kvdatosart/db/ValoresSql.h"
#include "kvdatosart/rules/NivelesFamilia.h"

namespace kv {

bool clsCliente_Grp_Dtos::EsArticulo() const {
    return EsNivelArticulo(Nivel, NumNiveles);
}

// clang-format off
void clsCliente_Grp_Dtos::Insertar() try {
    const bool articulo = EsArticulo();
    std::string sql = articulo
        ? " INSERT INTO Clientes_Grp_Descuentos_Fam (Nivel,Cod_Empresa,Cod_Grupo,"
        : " INSERT INTO Clientes_Grp_Descuentos_Fam (Nivel,Cod_Empresa,Cod_Grupo, ";
    Agregar(sql,
        " Descuento, Cod_Articulo, Familia_1, Familia_2, Familia_3, Unidades_Min, Unidades_Max) ",
        " VALUES (", SqlEntero(Nivel), ",", SqlEntero(Emp().CodEmpresa()), ",", SqlEntero(Cod_Grupo), ",",
        SqlNumero(Descuento));
    if (articulo)
        Agregar(sql, ",", SqlEntero(Cod_Articulo), ",");
    else
        Agregar(sql, ",0,");
    Agregar(sql, SqlEntero(Familia_1), ",", SqlEntero(Familia_2), ",", SqlEntero(Familia_3), ",",
        SqlNumero(Unidades_Min), ",", SqlNumero(Unidades_Max), ")");
    Cnx().Ejecutar(sql);
    Cnx().Ejecutar(TextoSql(
        "UPDATE Clientes_Grp_Descuentos SET Act = 0 WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresa()),
        " AND Codigo = ", SqlEntero(Cod_Grupo)));
} catch (...) {
    Relanzar("clsCliente_Grp_Dtos::Insertar");
}

void clsCliente_Grp_Dtos::Eliminar() try {
    std::string sql = " DELETE FROM Clientes_Grp_Descuentos_Fam WHERE (";
    if (EsArticulo())
        Agregar(sql, "Cod_Articulo = ", SqlEntero(Cod_Articulo), " AND Nivel = ", SqlEntero(Nivel));
    else
        Agregar(sql, " Nivel = ", SqlEntero(Nivel));
    Agregar(sql,
        " and Cod_Empresa = ", SqlEntero(Emp().CodEmpresa()),
        " AND Familia_1 =", SqlEntero(Familia_1),
        " and Familia_2 =", SqlEntero(Familia_2),
        " AND Familia_3 =", SqlEntero(Familia_3),
        " AND Cod_Grupo = ", SqlEntero(Cod_Grupo),
        " AND Unidades_Min = ", SqlNumero(Unidades_Min),
        " AND Unidades_Max = ", SqlNumero(Unidades_Max), ")");
    Cnx().Ejecutar(sql);
    Cnx().Ejecutar(TextoSql(
        "UPDATE Clientes_Grp_Descuentos SET Act = 0 WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresa()),
        " AND Codigo = ", SqlEntero(Cod_Grupo)));
} catch (...) {
    Relanzar("clsCliente_Grp_Dtos::Borrar");
}

// Quirk (0007): it reports the source of the deletion.
void clsCliente_Grp_Dtos::Modificar() try {
    const bool articulo = EsArticulo();
    std::string sql = TextoSql(" UPDATE Clientes_Grp_Descuentos_Fam SET Descuento = ", SqlNumero(Descuento));
    if (articulo)
        Agregar(sql, " WHERE Cod_Articulo = ", SqlEntero(Cod_Articulo), " AND Nivel = ", SqlEntero(Nivel));
    else
        Agregar(sql, " WHERE Nivel = ", SqlEntero(Nivel));
    Agregar(sql,
        " AND Cod_Empresa = ", SqlEntero(Emp().CodEmpresa()),
        " AND Familia_1 =", SqlEntero(Familia_1),
        " AND Familia_2 =", SqlEntero(Familia_2),
        " AND Familia_3 =", SqlEntero(Familia_3),
        " AND Cod_Grupo = ", SqlEntero(Cod_Grupo));
    if (articulo)
        Agregar(sql, " AND Unidades_Min = ", SqlNumero(Unidades_Min), " AND Unidades_Max = ", SqlNumero(Unidades_Max));
    else
        Agregar(sql, " AND Unidades_Min =", SqlNumero(Unidades_Min), " AND Unidades_Max =", SqlNumero(Unidades_Max));
    Cnx().Ejecutar(sql);
    Cnx().Ejecutar(TextoSql(
        "UPDATE Clientes_Grp_Descuentos SET Act = 0 WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresa()),
        " AND Codigo =", SqlEntero(Cod_Grupo)));
} catch (...) {
    Relanzar("clsCliente_Grp_Dtos::Borrar");
}

std::unique_ptr<Recordset> clsCliente_Grp_Dtos::Cargar_Articulos(
    std::int16_t intFamilia1, std::int16_t intFamilia2, std::int16_t intFamilia3) try {
    std::string sql = TextoSql(
        " SELECT Codigo, Descripcion From Articulos Where ",
        " Familia_1 = ", SqlEntero(intFamilia1));
    if (intFamilia2 != 0) Agregar(sql, " AND Familia_2 = ", SqlEntero(intFamilia2));
    if (intFamilia3 != 0) Agregar(sql, " AND Familia_3 = ", SqlEntero(intFamilia3));
    Agregar(sql, " And Cod_Empresa = ", SqlEntero(Emp().CodEmpresa()));
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, Cnx(), sql);
    return rs;
} catch (...) {
    Relanzar("clsCliente_Grp_Dtos::Cargar_Articulos");
}

std::unique_ptr<Recordset> clsCliente_Grp_Dtos::Cargar_Todos() try {
    std::unique_ptr<Recordset> rs;
    AbrirEdicion(rs, Cnx(), TextoSql(
        " SELECT IsNull(des.Cod_Articulo,0) as Cod_Articulo, IsNull(des.Familia_1,art.Familia_1) as Familia_1 ,",
        " IsNull(des.Familia_2,art.Familia_2) as Familia_2, IsNull(des.Familia_3,art.Familia_3) as Familia_3, ",
        " des.Nivel, des.Descuento, des.Tipo_Descuento, ",
        " IsNull(art.Descripcion,'') As Nombre, des.Unidades_Min, des.Unidades_Max ",
        " FROM Clientes_Grp_Descuentos_Fam des ",
        " LEFT JOIN Articulos art ON",
        " (art.cod_Empresa=", SqlEntero(Emp().CodEmpresa()), " and art.Codigo = des.Cod_Articulo",
        ") ",
        " WHERE des.Cod_Grupo = ", SqlEntero(Cod_Grupo),
        " AND des.Cod_Empresa = ", SqlEntero(Emp().CodEmpresa()),
        " ORDER BY Familia_1, Familia_2, Familia_3, Cod_Articulo "));
    return rs;
} catch (...) {
    Relanzar("clsCliente_Grp_Dtos::Cargar_Todos");
}

double clsCliente_Grp_Dtos::Dev_Descuento(const Currency& curUnidades) try {
    std::string sql =
        " SELECT Descuento, Tipo_Descuento FROM Clientes_Grp_Descuentos_Fam ";
    if (EsArticulo())
        Agregar(sql, " WHERE (Cod_Articulo =", SqlEntero(Cod_Articulo), " and Nivel = ", SqlEntero(Nivel));
    else
        Agregar(sql, " WHERE (Nivel = ", SqlEntero(Nivel));
    Agregar(sql,
        " and Cod_Empresa = ", SqlEntero(Emp().CodEmpresa()),
        " and Familia_1 =", SqlEntero(Familia_1),
        " and Familia_2 =", SqlEntero(Familia_2),
        " and Familia_3 =", SqlEntero(Familia_3),
        " and Cod_Grupo = ", SqlEntero(Cod_Grupo));
    if (curUnidades == Currency())
        Agregar(sql, " AND Unidades_Min=0 AND Unidades_Max=0");
    else
        Agregar(sql,
            " AND ((Unidades_Min<=", SqlNumero(curUnidades), " AND Unidades_Max>=", SqlNumero(curUnidades), ")",
            " OR (Unidades_Min=0 AND Unidades_Max=0))");
    Agregar(sql, ") ORDER BY Unidades_Min DESC");

    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, Cnx(), sql);
    const double descuento = rs->Eof() ? 0.0 : ADouble(rs->Fields("Descuento").Value());
    rs->Close();
    return descuento;
} catch (...) {
    Relanzar("clsCliente_Grp_Dtos::Dev_Descuento");
}

bool clsCliente_Grp_Dtos::Comprobar_Encajados(Currency& curUnidMinimo, Currency& curUnidMaximo) {
    // Quirk (0004): the bounds carry the regional decimal separator, unlike everywhere else.
    const TextoNumero m = SqlCurrency(Unidades_Min);
    const TextoNumero M = SqlCurrency(Unidades_Max);
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, Cnx(), TextoSql(
        "SELECT * FROM Clientes_Grp_Descuentos_Fam WHERE ",
        " Cod_Empresa=", SqlEntero(Emp().CodEmpresa()),
        " AND Cod_Grupo=", SqlEntero(Cod_Grupo),
        " AND Familia_1=", SqlEntero(Familia_1),
        " AND Familia_2=", SqlEntero(Familia_2),
        " AND Familia_3=", SqlEntero(Familia_3),
        " AND Cod_Articulo=", SqlEntero(Cod_Articulo),
        " AND Nivel=", SqlEntero(Nivel),
        " AND (((Unidades_Min <= ", m, " AND Unidades_Max >= ", m,
        ") OR (Unidades_Min <=", M, " AND Unidades_Max >= ", M, "))",
        " OR ((", m, " <= Unidades_Min ", " AND ", M, " >= Unidades_Min ",
        ") OR (", m, "<= Unidades_Max ", " AND ", M, " >= Unidades_Max", ")))"));
    const bool encajado = !rs->Eof();
    if (encajado) {
        curUnidMinimo = ACurrency(rs->Fields("Unidades_Min").Value());
        curUnidMaximo = ACurrency(rs->Fields("Unidades_Max").Value());
    }
    rs->Close();
    return encajado;
}
// clang-format on

void clsCliente_Grp_Dtos::Calcula_Nivel(std::string_view strClave) {
    LeerClaveDescuento(strClave, NumNiveles, {Nivel, Cod_Articulo, Familia_1, Familia_2, Familia_3});
}

Currency clsCliente_Grp_Dtos::Dev_Descuento_Activo(std::int32_t lngCliente, const Currency& curUnidades) {
    Currency descuento;
    fallo_.reset();
    try {
        const auto comando = Cnx().CrearCommand();
        PrepararDescuento(*comando, kProcedimiento, Emp(), {lngCliente, Cod_Articulo, Familia_1, Familia_2, Familia_3});
        comando->Parameters.Append(
            {"@Unidades", DataType::adCurrency, ParameterDirection::adParamInput, 0, curUnidades});
        comando->Parameters.Append({"@Dto", DataType::adCurrency, ParameterDirection::adParamOutput, 0, Nulo{}});
        comando->Execute(CommandType::adOptionUnspecified);
        descuento = ACurrency(comando->Parameters.Item("@Dto").Value);
    } catch (...) {
        // A sale is not stopped by a discount that cannot be found out.
        fallo_ = TextoDelFallo();
    }
    return descuento;
}

}  // namespace kv
