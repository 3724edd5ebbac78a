#include <gtest/gtest.h>

#include <stdexcept>

#include "rules/NivelesFamilia.h"
#include "rules/clsCliente_DtosFamilias.h"
#include "rules/clsCliente_Grp_Dtos.h"
#include "tests/comun/ConexionGuion.h"
#include "tests/comun/EmpresaFija.h"
#include "tests/comun/Errores.h"

namespace kv::prueba {
namespace {

// Levels of a row in a company of three family levels.
constexpr std::uint8_t kFamilia = 3;
constexpr std::uint8_t kArticulo = 4;

template <class Clase>
class ConGuion : public testing::Test {
  protected:
    ConGuion() {
        objeto.Conexion(guion);
        objeto.cEmpresa(empresa);
        objeto.NumNiveles = 3;
        objeto.Nivel = kFamilia;
        objeto.Familia_1 = 5;
        objeto.Familia_2 = 6;
        objeto.Familia_3 = 7;
        objeto.Cod_Articulo = 1042;
        objeto.Descuento = 2.5;
    }

    BibliotecaDePrueba biblioteca{Fecha::DeAmd(2026, 3, 10), ','};
    std::shared_ptr<ConexionGuion> guion = std::make_shared<ConexionGuion>();
    std::shared_ptr<EmpresaFija> empresa = std::make_shared<EmpresaFija>();
    Clase objeto;
};

class Familias : public ConGuion<clsCliente_DtosFamilias> {
  protected:
    Familias() {
        objeto.Cliente = 77;
        objeto.Tipo_Descuento = 1;
    }
};

class Grupos : public ConGuion<clsCliente_Grp_Dtos> {
  protected:
    Grupos() {
        objeto.Cod_Grupo = 9;
        objeto.Unidades_Min = Currency::DeDouble(1.5);
        objeto.Unidades_Max = Currency::DeEntero(10);
    }
};

TEST_F(Familias, EscriturasDeFamiliaYDeArticulo) {
    guion->EsperaEjecucion(
        " INSERT INTO Descuentos_Familias (Codigo,Nivel,Cod_Empresa,Cod_Cliente, Descuento, Tipo_Descuento,"
        " Cod_Articulo, Familia_1, Familia_2, Familia_3)  VALUES (0,3,1,77,2.5,1,0,5,6,7)");
    guion->EsperaEjecucion(
        " DELETE FROM Descuentos_Familias WHERE ( Nivel = 3 and Cod_Empresa = 1 and Familia_1 =5 and Familia_2 =6"
        " and Familia_3 =7 and Cod_Cliente = 77)");
    guion->EsperaEjecucion(
        " UPDATE Descuentos_Familias SET Descuento = 2.5, Tipo_Descuento = 1 WHERE (Nivel = 3 AND Cod_Empresa = 1"
        " AND Familia_1 =5 AND Familia_2 =6 AND Familia_3 =7 AND Cod_Cliente = 77)");
    objeto.Insertar();
    objeto.Eliminar();
    objeto.Modificar();
    objeto.Nivel = kArticulo;
    guion->EsperaEjecucion(
        " INSERT INTO Descuentos_Familias (Codigo,Nivel,Cod_Empresa,Cod_Cliente, Descuento, Tipo_Descuento,"
        " Cod_Articulo, Familia_1, Familia_2, Familia_3)  VALUES (0,4,1,77,2.5,1,1042,5,6,7)");
    guion->EsperaEjecucion(
        " DELETE FROM Descuentos_Familias WHERE (Cod_Articulo = 1042 and Nivel = 4 and Cod_Empresa = 1"
        " and Familia_1 =5 and Familia_2 =6 and Familia_3 =7 and Cod_Cliente = 77)");
    guion->EsperaEjecucion(
        " UPDATE Descuentos_Familias SET Descuento = 2.5, Tipo_Descuento = 1 WHERE (Cod_Articulo = 1042 AND Nivel = 4"
        " AND Cod_Empresa = 1 AND Familia_1 =5 AND Familia_2 =6 AND Familia_3 =7 AND Cod_Cliente = 77)");
    objeto.Insertar();
    objeto.Eliminar();
    objeto.Modificar();
}

TEST_F(Familias, Consultas) {
    guion->EsperaConsulta(" SELECT Codigo, Descripcion From Articulos Where  Familia_1 = 5 And Cod_Empresa = 1");
    guion->EsperaConsulta(
        " SELECT Codigo, Descripcion From Articulos Where  Familia_1 = 5 and Familia_3 = 7 And Cod_Empresa = 1");
    objeto.Cargar_Articulos(5, 0, 0);
    objeto.Cargar_Articulos(5, 0, 7);
    auto& todos = guion->EsperaConsulta(
        " SELECT IsNull(des.Cod_Articulo,0) as Cod_Articulo, IsNull(des.Familia_1,art.Familia_1) as Familia_1 ,"
        " IsNull(des.Familia_2,art.Familia_2) as Familia_2, IsNull(des.Familia_3,art.Familia_3) as Familia_3, "
        " des.Nivel, des.Codigo, des.Descuento, des.Tipo_Descuento, "
        " IsNull(art.Descripcion,'') As Nombre From Descuentos_Familias des  Left JOIN Articulos art ON"
        " (art.cod_Empresa=1 and art.Codigo = des.Cod_Articulo)  WHERE des.cod_Cliente = 77 AND des.cod_empresa = 1"
        " ORDER BY Familia_1, Familia_2, Familia_3 ");
    todos.cursor = CursorType::adOpenKeyset;
    todos.bloqueo = LockType::adLockPessimistic;
    objeto.Cargar_Todos();
    guion->EsperaConsulta(
        " SELECT Descuento, Tipo_Descuento FROM Descuentos_Familias  WHERE (Nivel = 3 and Cod_Empresa = 1"
        " and Familia_1 =5 and Familia_2 =6 and Familia_3 =7 and Cod_Cliente = 77)",
        {"Descuento"}, {{7.5}});
    EXPECT_EQ(7.5, objeto.Dev_Descuento());
    objeto.Nivel = kArticulo;
    guion->EsperaConsulta(
        " SELECT Descuento, Tipo_Descuento FROM Descuentos_Familias  WHERE (Cod_Articulo =1042 and Nivel = 4"
        " and Cod_Empresa = 1 and Familia_1 =5 and Familia_2 =6 and Familia_3 =7 and Cod_Cliente = 77)");
    EXPECT_EQ(0, objeto.Dev_Descuento());
}

std::vector<Parameter> Comunes(std::int32_t cliente, std::uint8_t nivel, std::uint8_t niveles, bool e2, bool e3) {
    using T = DataType;
    const auto entrada = ParameterDirection::adParamInput;
    return {{"Return", T::adInteger, ParameterDirection::adParamReturnValue, 0, Nulo{}},
            {"@Empresa", T::adTinyInt, entrada, 0, std::int16_t{1}},
            {"@Cliente", T::adInteger, entrada, 0, cliente},
            {"@Articulo", T::adInteger, entrada, 0, std::int32_t{1042}},
            {"@Familia1", T::adSmallInt, entrada, 0, std::int16_t{5}},
            {"@Familia2", T::adSmallInt, entrada, 0, std::int16_t{6}},
            {"@Familia3", T::adSmallInt, entrada, 0, std::int16_t{7}},
            {"@Nivel", T::adTinyInt, entrada, 0, nivel},
            {"@Niveles", T::adTinyInt, entrada, 0, niveles},
            {"@EmpFamilia1", T::adBoolean, entrada, 0, true},
            {"@EmpFamilia2", T::adBoolean, entrada, 0, e2},
            {"@EmpFamilia3", T::adBoolean, entrada, 0, e3}};
}

Parameter Salida(Valor valor) {
    return {"@Dto", DataType::adCurrency, ParameterDirection::adParamOutput, 0, std::move(valor)};
}

TEST_F(Familias, DescuentoActivo_NivelesSegunLosTitulosDeLaEmpresa) {
    struct Caso {
        const char* segundo;
        const char* tercero;
        std::uint8_t nivel;
        std::uint8_t niveles;
    };
    for (const Caso& caso : {Caso{"F", "S", 4, 3}, {"", "S", 4, 3}, {"F", "", 3, 2}, {"", "", 2, 1}}) {
        empresa->captions = {"Sección", caso.segundo, caso.tercero};
        auto parametros = Comunes(77, caso.nivel, caso.niveles, *caso.segundo != 0, *caso.tercero != 0);
        parametros.push_back(Salida(Nulo{}));
        guion->EsperaProcedimiento("KVP_DevDtoDescuentosFamilias", parametros, {Salida(Currency::DeDouble(8.25))});
        EXPECT_EQ(8.25, objeto.Dev_Descuento_Activo());
    }
}

TEST_F(Familias, DescuentoActivo_CallaLosFallos) {
    guion->EsperaProcedimiento("KVP_DevDtoDescuentosFamilias", {}, {});
    guion->YFalla(2812, "no existe");
    EXPECT_EQ(0, objeto.Dev_Descuento_Activo());
    auto parametros = Comunes(77, 4, 3, true, true);
    parametros.push_back(Salida(Nulo{}));
    guion->EsperaProcedimiento("KVP_DevDtoDescuentosFamilias", parametros, {});
    EXPECT_EQ(0, objeto.Dev_Descuento_Activo());
}

// A context of the host's own, whose failures are none of the component's.
class EmpresaQueFalla : public EmpresaFija {
  public:
    std::string CaptionFamilia(std::int16_t) const override { throw std::runtime_error("sin títulos"); }
};

TEST_F(Familias, DescuentoActivo_CallaLosFallosAjenos) {
    objeto.cEmpresa(std::make_shared<EmpresaQueFalla>());
    EXPECT_EQ(0, objeto.Dev_Descuento_Activo());
}

TEST_F(Grupos, DescuentoActivo_CallaLosFallos) {
    guion->EsperaProcedimiento("KVP_DevDtoClientesGrupos", {}, {});
    guion->YFalla(2812, "no existe");
    EXPECT_EQ(Currency(), objeto.Dev_Descuento_Activo(31, Currency::DeEntero(1)));
    objeto.cEmpresa(std::make_shared<EmpresaQueFalla>());
    EXPECT_EQ(Currency(), objeto.Dev_Descuento_Activo(31, Currency::DeEntero(1)));
}

TEST_F(Familias, NivelDesbordado) {
    objeto.NumNiveles = 32767;
    EsperarError(kErrDesbordamiento, "clsDescuentos_Familia::Insertar", [&] { objeto.Insertar(); });
}

TEST_F(Familias, CalculaNivel) {
    struct Caso {
        std::string clave;
        std::int16_t niveles;
        int nivel;
        int articulo;
        int f1;
        int f2;
        int f3;
    };
    for (const Caso& caso : {Caso{"1042-4-3-12-7", 3, 4, 1042, 3, 12, 7},
                             {"1042-4-3-12-7", 2, 4, 0, 3, 12, 7},
                             {"0-2-3-12-0", 3, 2, 0, 3, 12, 0},
                             {" 5 - 4 - 1 - 2 - 3 ", 3, 4, 5, 1, 2, 3},
                             {"7-4", 3, 4, 7, 0, 7, 4},
                             {"", 3, 0, 0, 0, 0, 0},
                             {"4", 3, 4, 0, 0, 0, 4},
                             {std::string(200, '1').substr(0, 5) + "-4-x-2y-3", 3, 4, 11111, 0, 2, 3}}) {
        objeto.NumNiveles = caso.niveles;
        objeto.Calcula_Nivel(caso.clave);
        EXPECT_EQ(caso.nivel, objeto.Nivel) << caso.clave;
        EXPECT_EQ(caso.articulo, objeto.Cod_Articulo) << caso.clave;
        EXPECT_EQ(caso.f1, objeto.Familia_1) << caso.clave;
        EXPECT_EQ(caso.f2, objeto.Familia_2) << caso.clave;
        EXPECT_EQ(caso.f3, objeto.Familia_3) << caso.clave;
    }
    for (const std::string& mala : {std::string("1-256-1-1-1"), std::string("1-4-1-1-32768"),
                                    std::string("99999999999-4-1-1-1"), std::string(255, ' ') + "-4-1-1-1"})
        EsperarError(kErrDesbordamiento, "", [&] { objeto.Calcula_Nivel(mala); });
    EXPECT_NO_THROW(objeto.Calcula_Nivel(std::string(254, ' ') + "-4"));
}

TEST_F(Grupos, EscriturasDeFamiliaYDeArticulo_MarcanLaCabecera) {
    const auto marca = [&](const char* texto) { guion->EsperaEjecucion(texto); };
    guion->EsperaEjecucion(
        " INSERT INTO Clientes_Grp_Descuentos_Fam (Nivel,Cod_Empresa,Cod_Grupo,  Descuento, Cod_Articulo, Familia_1,"
        " Familia_2, Familia_3, Unidades_Min, Unidades_Max)  VALUES (3,1,9,2.5,0,5,6,7,1.5,10)");
    marca("UPDATE Clientes_Grp_Descuentos SET Act = 0 WHERE Cod_Empresa =1 AND Codigo = 9");
    guion->EsperaEjecucion(
        " DELETE FROM Clientes_Grp_Descuentos_Fam WHERE ( Nivel = 3 and Cod_Empresa = 1 AND Familia_1 =5"
        " and Familia_2 =6 AND Familia_3 =7 AND Cod_Grupo = 9 AND Unidades_Min = 1.5 AND Unidades_Max = 10)");
    marca("UPDATE Clientes_Grp_Descuentos SET Act = 0 WHERE Cod_Empresa =1 AND Codigo = 9");
    guion->EsperaEjecucion(
        " UPDATE Clientes_Grp_Descuentos_Fam SET Descuento = 2.5 WHERE Nivel = 3 AND Cod_Empresa = 1 AND Familia_1 =5"
        " AND Familia_2 =6 AND Familia_3 =7 AND Cod_Grupo = 9 AND Unidades_Min =1.5 AND Unidades_Max =10");
    marca("UPDATE Clientes_Grp_Descuentos SET Act = 0 WHERE Cod_Empresa =1 AND Codigo =9");
    objeto.Insertar();
    objeto.Eliminar();
    objeto.Modificar();
    objeto.Nivel = kArticulo;
    guion->EsperaEjecucion(
        " INSERT INTO Clientes_Grp_Descuentos_Fam (Nivel,Cod_Empresa,Cod_Grupo, Descuento, Cod_Articulo, Familia_1,"
        " Familia_2, Familia_3, Unidades_Min, Unidades_Max)  VALUES (4,1,9,2.5,1042,5,6,7,1.5,10)");
    marca("UPDATE Clientes_Grp_Descuentos SET Act = 0 WHERE Cod_Empresa =1 AND Codigo = 9");
    guion->EsperaEjecucion(
        " DELETE FROM Clientes_Grp_Descuentos_Fam WHERE (Cod_Articulo = 1042 AND Nivel = 4 and Cod_Empresa = 1"
        " AND Familia_1 =5 and Familia_2 =6 AND Familia_3 =7 AND Cod_Grupo = 9 AND Unidades_Min = 1.5"
        " AND Unidades_Max = 10)");
    marca("UPDATE Clientes_Grp_Descuentos SET Act = 0 WHERE Cod_Empresa =1 AND Codigo = 9");
    guion->EsperaEjecucion(
        " UPDATE Clientes_Grp_Descuentos_Fam SET Descuento = 2.5 WHERE Cod_Articulo = 1042 AND Nivel = 4"
        " AND Cod_Empresa = 1 AND Familia_1 =5 AND Familia_2 =6 AND Familia_3 =7 AND Cod_Grupo = 9"
        " AND Unidades_Min = 1.5 AND Unidades_Max = 10");
    marca("UPDATE Clientes_Grp_Descuentos SET Act = 0 WHERE Cod_Empresa =1 AND Codigo =9");
    objeto.Insertar();
    objeto.Eliminar();
    objeto.Modificar();
    guion->EsperaEjecucion(
        " INSERT INTO Clientes_Grp_Descuentos_Fam (Nivel,Cod_Empresa,Cod_Grupo, Descuento, Cod_Articulo, Familia_1,"
        " Familia_2, Familia_3, Unidades_Min, Unidades_Max)  VALUES (4,1,9,2.5,1042,5,6,7,1.5,10)");
    guion->YFalla(2627, "repetida");
    EsperarError(2627, "clsCliente_Grp_Dtos::Insertar", [&] { objeto.Insertar(); });
}

TEST_F(Grupos, ConsultasYClave) {
    guion->EsperaConsulta(
        " SELECT Codigo, Descripcion From Articulos Where  Familia_1 = 5 AND Familia_2 = 6 And Cod_Empresa = 1");
    guion->EsperaConsulta(
        " SELECT Codigo, Descripcion From Articulos Where  Familia_1 = 5 AND Familia_3 = 7 And Cod_Empresa = 1");
    objeto.Cargar_Articulos(5, 6, 0);
    objeto.Cargar_Articulos(5, 0, 7);
    auto& todos = guion->EsperaConsulta(
        " SELECT IsNull(des.Cod_Articulo,0) as Cod_Articulo, IsNull(des.Familia_1,art.Familia_1) as Familia_1 ,"
        " IsNull(des.Familia_2,art.Familia_2) as Familia_2, IsNull(des.Familia_3,art.Familia_3) as Familia_3, "
        " des.Nivel, des.Descuento, des.Tipo_Descuento,  IsNull(art.Descripcion,'') As Nombre, des.Unidades_Min,"
        " des.Unidades_Max  FROM Clientes_Grp_Descuentos_Fam des  LEFT JOIN Articulos art ON (art.cod_Empresa=1 and"
        " art.Codigo = des.Cod_Articulo)  WHERE des.Cod_Grupo = 9 AND des.Cod_Empresa = 1 ORDER BY Familia_1,"
        " Familia_2, Familia_3, Cod_Articulo ");
    todos.cursor = CursorType::adOpenKeyset;
    todos.bloqueo = LockType::adLockPessimistic;
    objeto.Cargar_Todos();
    objeto.Calcula_Nivel("1043-4-3-12-8");
    EXPECT_EQ(4, objeto.Nivel);
    EXPECT_EQ(1043, objeto.Cod_Articulo);
    EXPECT_EQ(3, objeto.Familia_1);
    EXPECT_EQ(12, objeto.Familia_2);
    EXPECT_EQ(8, objeto.Familia_3);
    EXPECT_EQ(Currency::DeEntero(10), objeto.Unidades_Max);
}

TEST_F(Grupos, DescuentoPorUnidades) {
    guion->EsperaConsulta(
        " SELECT Descuento, Tipo_Descuento FROM Clientes_Grp_Descuentos_Fam  WHERE (Nivel = 3 and Cod_Empresa = 1"
        " and Familia_1 =5 and Familia_2 =6 and Familia_3 =7 and Cod_Grupo = 9 AND Unidades_Min=0 AND Unidades_Max=0)"
        " ORDER BY Unidades_Min DESC");
    EXPECT_EQ(0, objeto.Dev_Descuento(Currency()));
    objeto.Nivel = kArticulo;
    guion->EsperaConsulta(
        " SELECT Descuento, Tipo_Descuento FROM Clientes_Grp_Descuentos_Fam  WHERE (Cod_Articulo =1042 and Nivel = 4"
        " and Cod_Empresa = 1 and Familia_1 =5 and Familia_2 =6 and Familia_3 =7 and Cod_Grupo = 9"
        " AND ((Unidades_Min<=0.5 AND Unidades_Max>=0.5) OR (Unidades_Min=0 AND Unidades_Max=0)))"
        " ORDER BY Unidades_Min DESC",
        {"Descuento"}, {{9.0}, {7.0}});
    EXPECT_EQ(9, objeto.Dev_Descuento(Currency::DeDouble(0.5)));
}

TEST_F(Grupos, DescuentoActivo_MandaLasUnidades) {
    auto parametros = Comunes(31, 4, 3, true, true);
    parametros.push_back(
        {"@Unidades", DataType::adCurrency, ParameterDirection::adParamInput, 0, Currency::DeDouble(2.5)});
    parametros.push_back(Salida(Nulo{}));
    guion->EsperaProcedimiento("KVP_DevDtoClientesGrupos", parametros, {Salida(Currency::DeEntero(6))});
    EXPECT_EQ(Currency::DeEntero(6), objeto.Dev_Descuento_Activo(31, Currency::DeDouble(2.5)));
}

TEST_F(Grupos, Encajados_EscribeLaComaRegionalYDevuelveLosLimites) {
    constexpr const char* kSql =
        "SELECT * FROM Clientes_Grp_Descuentos_Fam WHERE  Cod_Empresa=1 AND Cod_Grupo=9 AND Familia_1=5"
        " AND Familia_2=6 AND Familia_3=7 AND Cod_Articulo=1042 AND Nivel=3"
        " AND (((Unidades_Min <= 1,5 AND Unidades_Max >= 1,5) OR (Unidades_Min <=10 AND Unidades_Max >= 10))"
        " OR ((1,5 <= Unidades_Min  AND 10 >= Unidades_Min ) OR (1,5<= Unidades_Max  AND 10 >= Unidades_Max)))";
    Currency minimo;
    Currency maximo;
    guion->EsperaConsulta(kSql);
    EXPECT_FALSE(objeto.Comprobar_Encajados(minimo, maximo));
    EXPECT_EQ(Currency(), maximo);
    guion->EsperaConsulta(kSql, {"Unidades_Min", "Unidades_Max"}, {{Currency::DeEntero(10), Currency::DeEntero(20)}});
    EXPECT_TRUE(objeto.Comprobar_Encajados(minimo, maximo));
    EXPECT_EQ(Currency::DeEntero(10), minimo);
    EXPECT_EQ(Currency::DeEntero(20), maximo);
}

}  // namespace
}  // namespace kv::prueba
