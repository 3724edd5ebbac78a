#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

#include "db/odbc/ConexionOdbc.h"
#include "schema/DemostracionServidor.h"
#include "schema/Lotes.h"
#include "tests/comun/BaseDemo.h"
#include "tests/comun/EmpresaFija.h"
#include "tests/comun/Errores.h"
#include "tests/servidor/BasePrestada.h"
#include "tests/servidor/Escenarios.h"

namespace kv::prueba {
namespace {

TEST(Servidor, ContestaComoLaBaseEmbebida) {
    const char* cadena = std::getenv("KV_ODBC_PRUEBAS");
    if (cadena == nullptr || *cadena == '\0')
        GTEST_SKIP()
            << "no hay servidor: KV_ODBC_PRUEBAS='DRIVER=...;SERVER=...;DATABASE=...' scripts/test.sh lo prueba"
               " (la base de datos ha de estar vacía, y se vacía)";
    const Fecha hoy = BibliotecaComun().Hoy();
    const BibliotecaDePrueba biblioteca(hoy);
    const auto servidor = std::make_shared<ConexionOdbc>(cadena);
    const EjecutarLote lote = [&](std::string_view texto) { servidor->EjecutarLote(texto); };
    VaciarBasePrestada(*servidor);
    CrearDemostracionServidor(*servidor, lote, hoy);
    // The script changes nothing when it runs again, and the demonstration is not written over.
    for (const std::string_view texto : LotesDe(EsquemaSqlServer())) lote(texto);
    EsperarError(kErrLlamadaInvalida, "KVDatosArt", [&] { CrearDemostracionServidor(*servidor, lote, hoy); });

    const BaseDePrueba embebida(BaseDePrueba::Datos::Demostracion, hoy);
    Pareja pareja(embebida.Abrir(), servidor);
    const auto semilla = SemillaDePrueba();
    std::cout << "KV_SEMILLA=" << semilla << " repite estos casos\n";
    Azar azar(semilla);
    CompararTodo(pareja, azar, hoy);
    EXPECT_EQ(0U, pareja.NumeroDiferencias()) << pareja.Informe();
    std::cout << pareja.Casos() << " casos, " << pareja.Rechazos() << " con error en los dos\n";
}

}  // namespace
}  // namespace kv::prueba
