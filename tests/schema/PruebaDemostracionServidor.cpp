#include <gtest/gtest.h>

#include "kvdatosart/schema/DemostracionServidor.h"
#include "kvdatosart/schema/Lotes.h"
#include "kvdatosart/tests/comun/ConexionGuion.h"
#include "kvdatosart/tests/comun/Errores.h"

namespace kv::prueba {
namespace {

const Fecha kHoy = Fecha::DeAmd(2026, 11, 21);

using Filas = std::vector<ConexionGuion::Fila>;

// Asks the database what it is: how it compares and spells texts, whether it has the table, whether that has rows.
void Preguntar(ConexionGuion& guion, Filas texto, std::optional<Valor> tabla) {
    guion.EsperaConsulta("SELECT 'ñ€' AS Texto WHERE 'a' = 'A'", {"Texto"}, std::move(texto));
    if (!tabla) return;
    guion.EsperaConsulta("SELECT OBJECT_ID('Empresas', 'U') AS Tabla", {"Tabla"}, {{*tabla}});
    if (!EsNulo(*tabla)) guion.EsperaConsulta("SELECT TOP 1 Codigo FROM Empresas", {"Codigo"}, {{1}});
}

TEST(Lotes, SePartenEnLasLineasQueSoloDicenGo) {
    using Lista = std::vector<std::string_view>;
    EXPECT_EQ((Lista{"SELECT 1\nSELECT 2", "SELECT 'GO' -- GO\nGOTO x", "fin"}),
              LotesDe("\nSELECT 1\nSELECT 2\nGO\n\n go \r\nSELECT 'GO' -- GO\nGOTO x\n\tGo\nfin"));
    EXPECT_EQ(Lista{}, LotesDe("GO\n \nGO"));
}

TEST(DemostracionServidor, BaseQueNoSirve_NoSeToca) {
    const auto rechaza = [](const char* cual, Filas texto, std::optional<Valor> tabla) {
        SCOPED_TRACE(cual);
        ConexionGuion guion;
        Preguntar(guion, std::move(texto), std::move(tabla));
        const auto lote = [](std::string_view) { ADD_FAILURE() << "un lote"; };
        EsperarError(kErrLlamadaInvalida, "KVDatosArt", [&] { CrearDemostracionServidor(guion, lote, kHoy); });
    };
    rechaza("distingue mayúsculas", {}, {});
    rechaza("otra página", {{"n?"}}, {});
    rechaza("con empresas", {{"ñ€"}}, 77);
}

TEST(DemostracionServidor, FalloAMitad_NoDejaNada) {
    ConexionGuion guion;
    Preguntar(guion, {{"ñ€"}}, Nulo{});
    guion.EsperaBeginTrans();
    guion.EsperaRollbackTrans();
    int lotes = 0;
    const auto fallar = [&](std::string_view) {
        if (++lotes == 5) throw RuntimeError(262, "Servidor", "CREATE TABLE permission denied");
    };
    EsperarError(262, "", [&] { CrearDemostracionServidor(guion, fallar, kHoy); });
    EXPECT_EQ(5, lotes);
}

}  // namespace
}  // namespace kv::prueba
