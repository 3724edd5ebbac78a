#include <stdexcept>

#include "kvdatosart/rules/NivelesFamilia.h"
#include "kvdatosart/rules/clsCliente_DtosFamilias.h"
#include "kvdatosart/rules/clsCliente_Grp_Dtos.h"
#include "kvdatosart/tests/comun/ConGuion.h"

namespace kv::prueba {
namespace {

// A row of a group and one of a customer, both of the third family level in a company of three: the fourth is the
// article's.
class Descuentos : public ConGuion<clsCliente_Grp_Dtos> {
  protected:
    Descuentos() {
        familia.Conexion(guion);
        familia.cEmpresa(empresa);
        familia.Cliente = 77;
        familia.Tipo_Descuento = 8;
        Rellenar(familia);
        objeto.Cod_Grupo = 9;
        objeto.Unidades_Min = Currency::DeDouble(1.5);
        objeto.Unidades_Max = Currency::DeEntero(10);
        Rellenar(objeto);
    }
    template <class Clase>
    static void Rellenar(Clase& o) {
        o.NumNiveles = o.Nivel = 3;
        o.Familia_1 = 5;
        o.Familia_2 = 6;
        o.Familia_3 = 7;
        o.Cod_Articulo = 1042;
        o.Descuento = 2.5;
    }
    // The list of rows and the articles of a family, whose conditions are joined by `y`.
    template <class Clase>
    void Listar(Clase& o, const std::string& todos, const std::string& origen, const std::string& clase,
                const std::string& y) {
        auto& paso = guion->EsperaConsulta(todos);
        paso.cursor = 1;   // keyset
        paso.bloqueo = 2;  // pessimistic
        Hacer(o, origen + "::Cargar_Todos", [&] { o.Cargar_Todos()->Close(); });
        const std::string articulos = " SELECT Codigo, Descripcion From Articulos Where  Familia_1 = 5";
        guion->EsperaConsulta(articulos + " And Cod_Empresa = 1");
        o.Cargar_Articulos(5, 0, 0)->Close();
        guion->EsperaConsulta(articulos + y + "Familia_2 = 6 And Cod_Empresa = 1");
        o.Cargar_Articulos(5, 6, 0)->Close();
        guion->EsperaConsulta(articulos + y + "Familia_3 = 7 And Cod_Empresa = 1");
        Hacer(o, clase + "::Cargar_Articulos", [&] { o.Cargar_Articulos(5, 0, 7)->Close(); });
    }

    clsCliente_DtosFamilias familia;
};

// The key of both tables in a deletion or a search, and in a change.
const std::string kClave = " and Cod_Empresa = 1 and Familia_1 =5 and Familia_2 =6 and Familia_3 =7 and Cod_";
const std::string kClaveCambio = " AND Cod_Empresa = 1 AND Familia_1 =5 AND Familia_2 =6 AND Familia_3 =7 AND Cod_";

TEST_F(Descuentos, Escrituras_DeFamiliaYDeArticulo) {
    // What a group writes marks its header, unless it fails.
    const auto escribir = [&](const std::string& metodo, const std::string& sql, auto accion,
                              const std::string& grupo) {
        const std::string origen = "clsCliente_Grp_Dtos::" + metodo;
        guion->EsperaEjecucion(sql);
        guion->YFalla(547, "referencia");
        EsperarError(547, origen, accion);
        guion->EsperaEjecucion(sql);
        guion->EsperaEjecucion("UPDATE Clientes_Grp_Descuentos SET Act = 0 WHERE Cod_Empresa =1 AND Codigo =" + grupo);
        Hacer(objeto, origen, accion);
    };
    for (const bool articulo : {false, true}) {
        familia.Nivel = objeto.Nivel = articulo ? 4 : 3;
        familia.Descuento = objeto.Descuento = articulo ? 0 : 2.5;
        const std::string nivel = articulo ? "Cod_Articulo = 1042 AND Nivel = 4" : "Nivel = 3";
        const std::string borrado = articulo ? "(Cod_Articulo = 1042 " : "( ";
        const std::string codigo = articulo ? ",1042" : ",0";
        const std::string dto = articulo ? "n0" : "n2.5";
        guion->EsperaEjecucion(
            " INSERT INTO Descuentos_Familias (Codigo,Nivel,Cod_Empresa,Cod_Cliente, Descuento, Tipo_Descuento,"
            " Cod_Articulo, Familia_1, Familia_2, Familia_3)  VALUES (0," +
            std::string(articulo ? "4" : "3") + ",1,77," + dto + ",8" + codigo + ",5,6,7)");
        Hacer(familia, "clsDescuentos_Familia::Insertar", [&] { familia.Insertar(); });
        guion->EsperaEjecucion(" DELETE FROM Descuentos_Familias WHERE " + borrado +
                               (articulo ? "and Nivel = 4" : "Nivel = 3") + kClave + "Cliente = 77)");
        Hacer(familia, "clsDescuentos_Familia::Borrar", [&] { familia.Eliminar(); });
        guion->EsperaEjecucion(" UPDATE Descuentos_Familias SET Descuento = " + dto + ", Tipo_Descuento = 8 WHERE (" +
                               nivel + kClaveCambio + "Cliente = 77)");
        Hacer(familia, "clsDescuentos_Familia::Borrar", [&] { familia.Modificar(); });
        escribir(
            "Insertar",
            std::string(" INSERT INTO Clientes_Grp_Descuentos_Fam (Nivel,Cod_Empresa,Cod_Grupo,") +
                (articulo ? "" : " ") +
                " Descuento, Cod_Articulo, Familia_1, Familia_2, Familia_3, Unidades_Min, Unidades_Max)  VALUES (" +
                (articulo ? "4" : "3") + ",1,9," + dto + codigo + ",5,6,7,n1.5,n10)",
            [&] { objeto.Insertar(); }, " 9");
        escribir(
            "Borrar",
            " DELETE FROM Clientes_Grp_Descuentos_Fam WHERE " + borrado + (articulo ? "AND Nivel = 4" : "Nivel = 3") +
                " and Cod_Empresa = 1 AND Familia_1 =5 and Familia_2 =6 AND Familia_3 =7 AND Cod_Grupo = 9"
                " AND Unidades_Min = n1.5 AND Unidades_Max = n10)",
            [&] { objeto.Eliminar(); }, " 9");
        escribir(
            "Borrar",
            " UPDATE Clientes_Grp_Descuentos_Fam SET Descuento = " + dto + " WHERE " + nivel + kClaveCambio +
                (articulo ? "Grupo = 9 AND Unidades_Min = n1.5 AND Unidades_Max = n10"
                          : "Grupo = 9 AND Unidades_Min =n1.5 AND Unidades_Max =n10"),
            [&] { objeto.Modificar(); }, "9");
    }
    familia.NumNiveles = 32767;
    EsperarError(kErrDesbordamiento, "", [&] { familia.Insertar(); });
}

TEST_F(Descuentos, Consultas) {
    const std::string todos =
        " SELECT IsNull(des.Cod_Articulo,0) as Cod_Articulo, IsNull(des.Familia_1,art.Familia_1) as Familia_1 ,"
        " IsNull(des.Familia_2,art.Familia_2) as Familia_2, IsNull(des.Familia_3,art.Familia_3) as Familia_3, "
        " des.Nivel, ";
    Listar(familia,
           todos +
               "des.Codigo, des.Descuento, des.Tipo_Descuento, "
               " IsNull(art.Descripcion,'') As Nombre From Descuentos_Familias des  Left JOIN Articulos art ON"
               " (art.cod_Empresa=1 and art.Codigo = des.Cod_Articulo)  WHERE des.cod_Cliente = 77"
               " AND des.cod_empresa = 1 ORDER BY Familia_1, Familia_2, Familia_3 ",
           "clsDescuentos_Familia", "clsCliente_DtosFamilias", " and ");
    Listar(objeto,
           todos +
               "des.Descuento, des.Tipo_Descuento,  IsNull(art.Descripcion,'') As Nombre, des.Unidades_Min,"
               " des.Unidades_Max  FROM Clientes_Grp_Descuentos_Fam des  LEFT JOIN Articulos art ON"
               " (art.cod_Empresa=1 and art.Codigo = des.Cod_Articulo)  WHERE des.Cod_Grupo = 9"
               " AND des.Cod_Empresa = 1 ORDER BY Familia_1, Familia_2, Familia_3, Cod_Articulo ",
           "clsCliente_Grp_Dtos", "clsCliente_Grp_Dtos", " AND ");
    const std::string buscar = " SELECT Descuento, Tipo_Descuento FROM Descuentos_Familias  WHERE (";
    guion->EsperaConsulta(buscar + "Nivel = 3" + kClave + "Cliente = 77)", {"Descuento"}, {{7.5}});
    EXPECT_EQ(7.5, Hacer(familia, "clsDescuentos_Familia::Dev_Descuento", [&] { return familia.Dev_Descuento(); }));
    const std::string buscarGrupo = " SELECT Descuento, Tipo_Descuento FROM Clientes_Grp_Descuentos_Fam  WHERE (";
    guion->EsperaConsulta(buscarGrupo + "Nivel = 3" + kClave +
                          "Grupo = 9 AND Unidades_Min=0 AND Unidades_Max=0) ORDER BY Unidades_Min DESC");
    EXPECT_EQ(0, Hacer(objeto, "clsCliente_Grp_Dtos::Dev_Descuento", [&] { return objeto.Dev_Descuento({}); }));
    // The article's level is no byte.
    familia.NumNiveles = 258;
    guion->EsperaConsulta(buscar + "Nivel = 3" + kClave + "Cliente = 77)", {"Descuento"}, {{Nulo{}}});
    EsperarError(kErrNulo, "clsDescuentos_Familia::Dev_Descuento", [&] { familia.Dev_Descuento(); });
    familia.NumNiveles = 3;
    familia.Nivel = objeto.Nivel = 4;
    guion->EsperaConsulta(buscar + "Cod_Articulo =1042 and Nivel = 4" + kClave + "Cliente = 77)");
    EXPECT_EQ(0, familia.Dev_Descuento());
    const auto deGrupo = [&](const std::string& n, Valor primero) {
        guion->EsperaConsulta(buscarGrupo + "Cod_Articulo =1042 and Nivel = 4" + kClave +
                                  "Grupo = 9 AND ((Unidades_Min<=n" + n + " AND Unidades_Max>=n" + n +
                                  ") OR (Unidades_Min=0 AND Unidades_Max=0))) ORDER BY Unidades_Min DESC",
                              {"Descuento"}, {{std::move(primero)}, {7.0}});
        return objeto.Dev_Descuento(Currency::DeDouble(std::stod(n)));
    };
    EXPECT_EQ(9, deGrupo("0.5", 9.0));
    EXPECT_EQ(8, deGrupo("-0.5", 8.0));
    EsperarError(kErrNulo, "clsCliente_Grp_Dtos::Dev_Descuento", [&] { deGrupo("2", Nulo{}); });
}

TEST_F(Descuentos, Encajados_EscribeLaComaRegionalYDevuelveLosLimites) {
    constexpr const char* kSql =
        "SELECT * FROM Clientes_Grp_Descuentos_Fam WHERE  Cod_Empresa=1 AND Cod_Grupo=9 AND Familia_1=5"
        " AND Familia_2=6 AND Familia_3=7 AND Cod_Articulo=1042 AND Nivel=3"
        " AND (((Unidades_Min <= 1,5 AND Unidades_Max >= 1,5) OR (Unidades_Min <=10 AND Unidades_Max >= 10))"
        " OR ((1,5 <= Unidades_Min  AND 10 >= Unidades_Min ) OR (1,5<= Unidades_Max  AND 10 >= Unidades_Max)))";
    Currency minimo;
    Currency maximo;
    guion->EsperaConsulta(kSql);
    EXPECT_FALSE(Hacer(objeto, "KVDatosArt", [&] { return objeto.Comprobar_Encajados(minimo, maximo); }));
    EXPECT_EQ(Currency(), maximo);
    guion->EsperaConsulta(kSql, {"Unidades_Min", "Unidades_Max"}, {{10, 20}});
    EXPECT_TRUE(objeto.Comprobar_Encajados(minimo, maximo));
    EXPECT_EQ(Currency::DeEntero(10), minimo);
    EXPECT_EQ(Currency::DeEntero(20), maximo);
}

TEST_F(Descuentos, Activo_ParametrosEnOrdenYNivelesSegunLosTitulos) {
    // By ADO's own numbers.
    std::vector<Parameter> parametros;
    const auto p = [&](const char* nombre, int tipo, int direccion, const Valor& valor) {
        return parametros.emplace_back(nombre, static_cast<DataType>(tipo), static_cast<ParameterDirection>(direccion),
                                       0, valor);
    };
    const std::vector<Parameter> salida = {p("@Dto", 6, 2, Currency::DeDouble(8.25))};
    const auto probar = [&](const std::array<std::string, 3>& titulos, std::uint8_t nivel, std::uint8_t niveles) {
        SCOPED_TRACE(titulos[1] + titulos[2]);
        empresa->captions = titulos;
        parametros.clear();
        p("Return", 3, 4, Nulo{}), p("@Empresa", 16, 1, std::int16_t{1}), p("@Cliente", 3, 1, 77);
        p("@Articulo", 3, 1, 1042), p("@Familia1", 2, 1, std::int16_t{5}), p("@Familia2", 2, 1, std::int16_t{6});
        p("@Familia3", 2, 1, std::int16_t{7}), p("@Nivel", 16, 1, nivel), p("@Niveles", 16, 1, niveles);
        p("@EmpFamilia1", 11, 1, !titulos[0].empty()), p("@EmpFamilia2", 11, 1, !titulos[1].empty());
        p("@EmpFamilia3", 11, 1, !titulos[2].empty());
        p("@Dto", 6, 2, Nulo{});
        guion->EsperaProcedimiento("KVP_DevDtoDescuentosFamilias", parametros, salida);
        guion->YFalla(2812, "no existe");
        familia.Dev_Descuento_Activo();
        guion->EsperaProcedimiento("KVP_DevDtoDescuentosFamilias", parametros, salida);
        EXPECT_EQ(8.25, familia.Dev_Descuento_Activo());
        EXPECT_EQ(std::nullopt, familia.Fallo()) << "el de la vez anterior se olvida";
        parametros.pop_back();
        p("@Unidades", 6, 1, Currency::DeDouble(2.5)), p("@Dto", 6, 2, Nulo{});
        guion->EsperaProcedimiento("KVP_DevDtoClientesGrupos", parametros, salida);
        EXPECT_EQ(Currency::DeDouble(8.25), objeto.Dev_Descuento_Activo(77, Currency::DeDouble(2.5)));
    };
    probar({"Sección", "", ""}, 2, 1);
    probar({"Sección", "Familia", ""}, 3, 2);
    probar({"", "Familia", "Subfamilia"}, 4, 3);
    probar({"Sección", "", "Subfamilia"}, 4, 3);
}

// A context of the host's own, whose failures are none of the component's.
struct EmpresaQueFalla : EmpresaFija {
    std::string CaptionFamilia(std::int16_t) const override { throw std::runtime_error("sin títulos"); }
};

// Told afterwards to whoever wants to explain the 0.
TEST_F(Descuentos, Activo_CallaLosFallos) {
    for (const char* procedimiento : {"KVP_DevDtoDescuentosFamilias", "KVP_DevDtoClientesGrupos"}) {
        guion->EsperaProcedimiento(procedimiento, {}, {});
        guion->YFalla(2812, "no existe");
    }
    for (const char* fallo : {"no existe", "sin títulos"}) {
        EXPECT_EQ(0, familia.Dev_Descuento_Activo());
        EXPECT_EQ(fallo, familia.Fallo());
        EXPECT_EQ(Currency(), objeto.Dev_Descuento_Activo(31, Currency::DeEntero(1)));
        EXPECT_EQ(fallo, objeto.Fallo());
        familia.cEmpresa(std::make_shared<EmpresaQueFalla>());
        objeto.cEmpresa(std::make_shared<EmpresaQueFalla>());
    }
}

TEST_F(Descuentos, CalculaNivel) {
    struct Caso {
        std::string clave;
        std::int16_t niveles;
        std::array<int, 5> campos;
    };
    for (const Caso& caso : {Caso{"1042-4-3-12-7", 3, {4, 1042, 3, 12, 7}},
                             {"1042-4-3-12-7", 2, {4, 0, 3, 12, 7}},
                             {"0-2-3-12-0", 3, {2, 0, 3, 12, 0}},
                             {" 5 - 4 - 1 - 2 - 3 ", 3, {4, 5, 1, 2, 3}},
                             {"7-4", 3, {4, 7, 0, 7, 4}},
                             {"", 3, {0, 0, 0, 0, 0}},
                             {"4", 3, {4, 0, 0, 0, 4}},
                             {"11111-4-x-2y-3", 3, {4, 11111, 0, 2, 3}},
                             {"1042-4e-1-2-3", 3, {4, 1042, 1, 2, 3}}}) {
        const auto calcular = [&](auto& o) {
            o.NumNiveles = caso.niveles;
            o.Calcula_Nivel(caso.clave);
            return std::array<int, 5>{o.Nivel, o.Cod_Articulo, o.Familia_1, o.Familia_2, o.Familia_3};
        };
        EXPECT_EQ(caso.campos, calcular(objeto)) << caso.clave;
        EXPECT_EQ(caso.campos, calcular(familia)) << caso.clave;
    }
    const std::string largo(254, ' ');
    objeto.Calcula_Nivel(largo + "-4");
    for (const std::string& mala :
         {std::string("1-256-1-1-1"), std::string("1-4-1-1-32768"), std::string("99999999999-4-1-1-1"), largo + " -4"})
        EsperarError(kErrDesbordamiento, "", [&] { objeto.Calcula_Nivel(mala); });
}

}  // namespace
}  // namespace kv::prueba
