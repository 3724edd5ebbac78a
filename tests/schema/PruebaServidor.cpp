#include <gtest/gtest.h>

#include "schema/DemostracionServidor.h"
#include "schema/Lotes.h"
#include "tests/comun/ConexionGuion.h"
#include "tests/comun/Errores.h"

namespace kv::prueba {
namespace {

constexpr const char* kIntercalacion = "SELECT 'ñ€' AS Texto WHERE 'a' = 'A'";
constexpr const char* kTabla = "SELECT OBJECT_ID('Empresas', 'U') AS Tabla";
constexpr const char* kEmpresas = "SELECT TOP 1 Codigo FROM Empresas";
const Valor kTexto = std::string("ñ€");

void Crear(Connection& conexion, const EjecutarLote& lote) {
    CrearDemostracionServidor(conexion, lote, Fecha::DeAmd(2026, 11, 21));
}

TEST(Lotes, SePartenEnLasLineasQueSoloDicenGo) {
    using Lista = std::vector<std::string_view>;
    EXPECT_EQ((Lista{"SELECT 1\nSELECT 2", "SELECT 'GO' -- GO\nGOTO x", "fin"}),
              LotesDe("\nSELECT 1\nSELECT 2\nGO\n\n go \r\nSELECT 'GO' -- GO\nGOTO x\n\tGo\nfin"));
    EXPECT_EQ(Lista{}, LotesDe("GO\n \nGO"));
}

TEST(DemostracionServidor, BaseQueNoSirve_NoSeToca) {
    const auto rechaza = [](ConexionGuion& guion) {
        EsperarError(kErrLlamadaInvalida, "KVDatosArt",
                     [&] { Crear(guion, [](std::string_view) { ADD_FAILURE() << "lote"; }); });
    };
    ConexionGuion mayusculas;
    mayusculas.EsperaConsulta(kIntercalacion);
    rechaza(mayusculas);
    ConexionGuion otraPagina;
    otraPagina.EsperaConsulta(kIntercalacion, {"Texto"}, {{std::string("n?")}});
    rechaza(otraPagina);
    ConexionGuion conEmpresas;
    conEmpresas.EsperaConsulta(kIntercalacion, {"Texto"}, {{kTexto}});
    conEmpresas.EsperaConsulta(kTabla, {"Tabla"}, {{std::int32_t{77}}});
    conEmpresas.EsperaConsulta(kEmpresas, {"Codigo"}, {{std::int16_t{1}}});
    rechaza(conEmpresas);
}

TEST(DemostracionServidor, FalloAMitad_NoDejaNada) {
    ConexionGuion guion;
    guion.EsperaConsulta(kIntercalacion, {"Texto"}, {{kTexto}});
    guion.EsperaConsulta(kTabla, {"Tabla"}, {{Nulo{}}});
    guion.EsperaBeginTrans();
    guion.EsperaRollbackTrans();
    int lotes = 0;
    EsperarError(262, "", [&] {
        Crear(guion, [&](std::string_view) {
            if (++lotes == 5) throw RuntimeError(262, "Servidor", "CREATE TABLE permission denied");
        });
    });
    EXPECT_EQ(5, lotes);
}

}  // namespace
}  // namespace kv::prueba
