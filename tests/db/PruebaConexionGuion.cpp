#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "kvdatosart/db/ConexionTrazada.h"
#include "kvdatosart/db/EmpresaTabla.h"
#include "kvdatosart/tests/comun/ConexionGuion.h"
#include "kvdatosart/tests/comun/Errores.h"

namespace kv::prueba {
namespace {

Parameter Entero(Valor valor) {
    return {"@A", DataType::adInteger, ParameterDirection::adParamInputOutput, 0, std::move(valor)};
}

/// Calls a procedure with one parameter; the value that it leaves there.
Valor Llamar(Connection& conexion, const Parameter& parametro) {
    const auto comando = conexion.CrearCommand();
    comando->CommandType = CommandType::adCmdStoredProc;
    comando->CommandTimeout = 500;
    comando->CommandText = "P";
    comando->Parameters.Append(parametro);
    comando->Execute(CommandType::adOptionUnspecified);
    EsperarError(kErrElementoNoEncontrado, "", [&] { comando->Parameters.Item("@B"); });
    return comando->Parameters.Item("@a").Value;
}

TEST(ConexionGuion, LoQueNoEsElGuion_Falla) {
    ConexionGuion guion;
    std::unique_ptr<Recordset> rs;
    guion.EsperaConsulta("SELECT 1").cursor = 1;
    EXPECT_NONFATAL_FAILURE(EsperarError(-1, "ConexionGuion", [&] { AbrirLectura(rs, guion, "SELECT  1"); }),
                            "|SELECT  1|");
    EXPECT_NONFATAL_FAILURE(AbrirEdicion(rs, guion, "SELECT 1"), "LockType");
    EXPECT_NONFATAL_FAILURE(rs.reset(), "sin cerrar");
    EXPECT_NONFATAL_FAILURE(EsperarError(-1, "", [&] { guion.Ejecutar("DELETE FROM T"); }), "inesperada");
    guion.EsperaEjecucion("B");
    EXPECT_NONFATAL_FAILURE(guion.EjecutarContando("B"), "afectados");
    guion.EsperaProcedimiento("P", {Entero(std::int32_t{1})}, {});
    EXPECT_NONFATAL_FAILURE(Llamar(guion, Entero(std::int16_t{1})), "parámetros de P");
    guion.EsperaCommitTrans();
    EXPECT_NONFATAL_FAILURE(guion.Terminar(), "paso sin ejecutar");
}

TEST(ConexionTrazada, InformaDeCadaOperacionYDejaPasarTodo) {
    const auto guion = std::make_shared<ConexionGuion>();
    guion->EsperaBeginTrans();
    guion->EsperaConsulta("A", {"Uno"}, {{std::int32_t{1}}});
    guion->EsperaEscritura("B", 2);
    guion->EsperaEjecucion("C");
    guion->YFalla(7, "no");
    guion->EsperaProcedimiento("P", {Entero(std::int32_t{1})}, {Entero(std::int32_t{5})});
    guion->EsperaRollbackTrans();
    guion->EsperaCommitTrans();
    std::vector<std::string> visto;
    ConexionTrazada trazada(guion, [&](const OperacionTrazada& o) {
        visto.push_back(std::string(o.clase) + "|" + std::string(o.texto) + "|" + (o.hayFila ? "fila" : "") +
                        std::to_string(o.afectados) + o.error + (o.tiempo.count() > 0 ? "" : " en ningún tiempo"));
    });
    trazada.BeginTrans();
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, trazada, "A");
    EXPECT_EQ(1, ALong(rs->Fields("uno").Value()));
    EXPECT_EQ(ObjectState::adStateOpen, rs->State());
    EXPECT_EQ(1, rs->NumeroCampos());
    EXPECT_EQ("Uno", rs->NombreCampo(0));
    EsperarError(kErrElementoNoEncontrado, "", [&] { rs->Fields("Dos"); });
    rs->MoveNext();
    EXPECT_TRUE(rs->Eof());
    EsperarError(kErrSinRegistro, "", [&] { rs->Fields("Uno"); });
    rs->Close();
    EsperarError(kErrObjetoCerrado, "", [&] { rs->Eof(); });
    EXPECT_EQ(2, trazada.EjecutarContando("B"));
    EsperarError(7, "Proveedor", [&] { trazada.Ejecutar("C"); });
    EXPECT_EQ(Valor(std::int32_t{5}), Llamar(trazada, Entero(std::int32_t{1})));
    trazada.RollbackTrans();
    trazada.CommitTrans();
    EXPECT_EQ((std::vector<std::string>{"BeginTrans||-1", "Open|A|fila-1", "Execute|B|2", "Execute|C|-1no",
                                        "Command|P|-1", "RollbackTrans||-1", "CommitTrans||-1"}),
              visto);
}

TEST(EmpresaTabla, CadaColumnaEnSuMiembro) {
    ConexionGuion guion;
    const std::string suya = "SELECT * FROM Empresas WHERE Codigo =7";
    const std::string parametros = "SELECT Numero, Valor FROM Empresas_Parametros WHERE Cod_Empresa =7";
    guion.EsperaConsulta(suya);
    EXPECT_EQ(nullptr, EmpresaTabla::Leer(guion, 7));
    for (const bool si : {true, false}) {
        guion.EsperaConsulta(suya,
                             Palabras("Nombre Cod_EmpresaArticulos Cod_EmpresaClientes Cod_EmpresaExtra Tarifa"
                                      " VenderSinStock CosteUltimaCompra DecPrecios DecImportes DecCostes"
                                      " CaptionFamilia1 CaptionFamilia2 CaptionFamilia3"),
                             {{"Duero", 11, 12, 13, 14, si, !si, 2, 3, 4, "Sección", "Familia", "Subfamilia"}});
        guion.EsperaConsulta(parametros, {"Numero", "Valor"}, {{1, "x"}, {2, Nulo{}}});
        const auto e = EmpresaTabla::Leer(guion, 7);
        EXPECT_EQ("Duero", e->Nombre());
        EXPECT_EQ(
            (std::vector{7, 11, 12, 13, 14, 2, 3, 4}),
            (std::vector<int>{e->CodEmpresa(), e->CodEmpresaArticulos(), e->CodEmpresaClientes(), e->CodEmpresaExtra(),
                              e->TarifaEmpresa(), e->DecPrecios(), e->DecImportes(), e->DecCostes()}));
        EXPECT_EQ(si, e->VenderSinStock());
        EXPECT_EQ(!si, e->CosteUltimaCompra());
        EXPECT_EQ("Sección, Familia, Subfamilia",
                  e->CaptionFamilia(0) + ", " + e->CaptionFamilia(1) + ", " + e->CaptionFamilia(2));
        for (const std::int16_t malo : {std::int16_t{-1}, std::int16_t{3}})
            EsperarError(kErrSubindice, "", [&] { (void)e->CaptionFamilia(malo); });
        EXPECT_EQ(Valor("x"), e->Parametro(1));
        EXPECT_EQ(Valor(Nulo{}), e->Parametro(2));
        EXPECT_EQ(Valor(Nulo{}), e->Parametro(3));
    }
}

}  // namespace
}  // namespace kv::prueba
