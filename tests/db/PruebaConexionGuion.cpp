#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "db/ConexionTrazada.h"
#include "tests/comun/ConexionGuion.h"
#include "tests/comun/Errores.h"

namespace kv::prueba {
namespace {

void Abrir(ConexionGuion& guion, std::string_view texto) {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, guion, texto);
}

TEST(ConexionGuion, TextoDistinto_FallaYEnsenaLosDos) {
    ConexionGuion guion;
    guion.EsperaConsulta("SELECT 1");
    EXPECT_NONFATAL_FAILURE(EsperarError(-1, "ConexionGuion", [&] { Abrir(guion, "SELECT  1"); }), "|SELECT  1|");
    Abrir(guion, "SELECT 1");
}

TEST(ConexionGuion, OperacionDeMasOPasoDeMenos_Fallan) {
    ConexionGuion guion;
    EXPECT_NONFATAL_FAILURE(EsperarError(-1, "", [&] { guion.Ejecutar("DELETE FROM T"); }), "inesperada");
    guion.EsperaCommitTrans();
    EXPECT_NONFATAL_FAILURE(guion.Terminar(), "paso sin ejecutar");
}

TEST(ConexionGuion, ConstantesYCuentaDeAfectados_SeComprueban) {
    ConexionGuion guion;
    std::unique_ptr<Recordset> rs;
    guion.EsperaConsulta("A").cursor = CursorType::adOpenKeyset;
    EXPECT_NONFATAL_FAILURE(AbrirEdicion(rs, guion, "A"), "LockType");
    guion.EsperaEjecucion("B");
    EXPECT_NONFATAL_FAILURE(guion.EjecutarContando("B"), "afectados");
    guion.EsperaEscritura("B", 3);
    EXPECT_EQ(3, guion.EjecutarContando("B"));
}

TEST(ConexionGuion, ParametrosDistintos_Fallan) {
    ConexionGuion guion;
    const Parameter esperado{"@A", DataType::adInteger, ParameterDirection::adParamInput, 0, std::int32_t{1}};
    Parameter otro = esperado;
    otro.Value = std::int16_t{1};
    guion.EsperaProcedimiento("P", {esperado}, {});
    const auto comando = guion.CrearCommand();
    comando->CommandType = CommandType::adCmdStoredProc;
    comando->CommandTimeout = 500;
    comando->CommandText = "P";
    comando->Parameters.Append(otro);
    EXPECT_NONFATAL_FAILURE(comando->Execute(CommandType::adOptionUnspecified), "parámetros de P");
    EXPECT_EQ("@A", comando->Parameters.Item("@a").Name);
    EsperarError(kErrElementoNoEncontrado, "", [&] { comando->Parameters.Item("@B"); });
}

TEST(ConexionGuion, FalloPedido_SeLanzaEnSuPaso) {
    ConexionGuion guion;
    guion.EsperaBeginTrans();
    guion.EsperaEjecucion("UPDATE T");
    guion.YFalla(1205, "bloqueo");
    guion.BeginTrans();
    EsperarError(1205, "Proveedor", [&] { guion.Ejecutar("UPDATE T"); });
}

TEST(ConexionGuion, CamposYEstado_ComoAdo) {
    ConexionGuion guion;
    guion.EsperaConsulta("A", {"Uno"}, {{std::int32_t{1}}});
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, guion, "A");
    EXPECT_EQ(1, ALong(rs->Fields("UNO").Value()));
    EsperarError(kErrElementoNoEncontrado, "", [&] { rs->Fields("Dos"); });
    rs->MoveNext();
    EXPECT_TRUE(rs->Eof());
    EsperarError(kErrSinRegistro, "", [&] { rs->Fields("Uno"); });
    rs->Close();
    EsperarError(kErrObjetoCerrado, "", [&] { rs->Eof(); });
}

TEST(ConexionTrazada, InformaDeCadaOperacionYDejaPasarTodo) {
    const auto guion = std::make_shared<ConexionGuion>();
    guion->EsperaBeginTrans();
    guion->EsperaConsulta("A", {"Uno"}, {{std::int32_t{1}}});
    guion->EsperaEscritura("B", 2);
    guion->EsperaEjecucion("C");
    guion->YFalla(7, "no");
    std::vector<std::string> visto;
    ConexionTrazada trazada(guion, [&](const OperacionTrazada& o) {
        visto.push_back(std::string(o.clase) + "|" + std::string(o.texto) + "|" + (o.hayFila ? "fila" : "") +
                        std::to_string(o.afectados) + o.error);
    });
    trazada.BeginTrans();
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, trazada, "A");
    EXPECT_EQ(1, ALong(rs->Fields("uno").Value()));
    EXPECT_EQ(2, trazada.EjecutarContando("B"));
    EsperarError(7, "Proveedor", [&] { trazada.Ejecutar("C"); });
    EXPECT_EQ((std::vector<std::string>{"BeginTrans||-1", "Open|A|fila-1", "Execute|B|2", "Execute|C|-1no"}), visto);
}

}  // namespace
}  // namespace kv::prueba
