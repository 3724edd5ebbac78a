#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

#include "db/odbc/ConexionOdbc.h"
#include "schema/DemostracionServidor.h"
#include "schema/Lotes.h"
#include "tests/comun/BaseDemo.h"
#include "tests/comun/ConexionGuion.h"
#include "tests/comun/EmpresaFija.h"
#include "tests/comun/Errores.h"
#include "tests/odbc/BasesOdbc.h"
#include "tests/servidor/Escenarios.h"
#include "tests/servidor/ServidorTds.h"

namespace kv::prueba {
namespace {

// Leaves a server's database without the suite's tables, so that they can be made anew. It must be empty, or one that
// this function took before, which it knows by the table KV_BaseDePruebas; any other, and any table that is not the
// suite's, is refused and nothing is touched.
void VaciarBasePrestada(Connection& conexion) {
    const auto esquema = TablasDelEsquema();
    std::vector<std::string> tablas;
    bool marcada = false;
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, conexion, "SELECT TABLE_NAME FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_TYPE = 'BASE TABLE'");
    for (; !rs->Eof(); rs->MoveNext()) {
        const std::string tabla = AString(rs->Fields("TABLE_NAME").Value(), '.');
        if (tabla == "KV_BaseDePruebas")
            marcada = true;
        else if (esquema.contains(tabla))
            tablas.push_back(tabla);
        else
            LanzarError(kErrLlamadaInvalida, "la base de datos tiene una tabla ajena, «" + tabla + "», y no se toca");
    }
    if (!marcada && !tablas.empty())
        LanzarError(kErrLlamadaInvalida, "la base de datos no está vacía ni la hicieron las pruebas, y no se toca");
    if (!marcada) conexion.Ejecutar("CREATE TABLE KV_BaseDePruebas (Codigo int NOT NULL)");
    for (const std::string& tabla : tablas) conexion.Ejecutar("DROP TABLE " + tabla);
}

TEST(BasePrestada, SoloSeVaciaLaVaciaOLaDeOtraVez) {
    struct Caso {
        std::vector<ConexionGuion::Fila> tablas;
        const char* hace;
    };
    for (const Caso& caso : {Caso{{{"Clientes"}}, nullptr},
                             {{{"KV_BaseDePruebas"}, {"Clientes"}, {"Nominas"}}, nullptr},
                             {{}, "CREATE TABLE KV_BaseDePruebas (Codigo int NOT NULL)"},
                             {{{"KV_BaseDePruebas"}, {"Clientes"}}, "DROP TABLE Clientes"}}) {
        ConexionGuion c;
        c.EsperaConsulta("SELECT TABLE_NAME FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_TYPE = 'BASE TABLE'",
                         {"TABLE_NAME"}, caso.tablas);
        if (caso.hace == nullptr) {
            EsperarError(kErrLlamadaInvalida, "", [&] { VaciarBasePrestada(c); });
        } else {
            c.EsperaEjecucion(caso.hace);
            VaciarBasePrestada(c);
        }
    }
}

// Makes the demonstration on an empty server and does the same work there and on an embedded database.
void Comparar(const std::shared_ptr<ConexionOdbc>& servidor, Fecha hoy) {
    const BibliotecaDePrueba biblioteca(hoy);
    const EjecutarLote lote = [&](std::string_view texto) { servidor->EjecutarLote(texto); };
    VaciarBasePrestada(*servidor);
    CrearDemostracionServidor(*servidor, lote, hoy);
    // The script changes nothing when it runs again, and the demonstration is not written over.
    for (const std::string_view texto : LotesDe(EsquemaSqlServer())) lote(texto);
    EsperarError(kErrLlamadaInvalida, "KVDatosArt", [&] { CrearDemostracionServidor(*servidor, lote, hoy); });

    const BaseDePrueba embebida(BaseDePrueba::Datos::Demostracion, hoy);
    Pareja pareja(embebida.AbrirSinDisco(), servidor);
    const auto semilla = SemillaDePrueba();
    std::cout << "KV_SEMILLA=" << semilla << " repite estos casos\n";
    Azar azar(semilla, hoy);
    CompararTodo(pareja, azar);
    EXPECT_EQ(0U, pareja.NumeroDiferencias()) << pareja.Informe();
    std::cout << pareja.Casos() << " casos, " << pareja.Rechazos() << " con error en los dos\n";
    EXPECT_GT(pareja.Casos(), 7000);
    // Refusals are compared too, and there must be some.
    EXPECT_GT(pareja.Rechazos(), 100);
}

TEST(Servidor, ContestaComoLaBaseEmbebida) {
    const char* cadena = std::getenv("KV_ODBC_PRUEBAS");
    if (cadena == nullptr || *cadena == '\0')
        GTEST_SKIP()
            << "no hay servidor: KV_ODBC_PRUEBAS='DRIVER=...;SERVER=...;DATABASE=...' scripts/test.sh lo prueba"
               " (la base de datos ha de estar vacía, y se vacía)";
    Comparar(std::make_shared<ConexionOdbc>(cadena), BibliotecaComun().Hoy());
}

TEST(FreeTds, ElControladorNoCambiaNada) {
    const std::string controlador = Controlador("libtdsodbc.so");
    if (controlador.empty()) GTEST_SKIP() << "no hay controlador FreeTDS (tdsodbc)";
    const Fecha hoy = Fecha::DeAmd(2026, 11, 21);
    const BaseDePrueba base(BaseDePrueba::Datos::Ninguno, hoy);
    ServidorTds servidor(base.AbrirSinDisco());
    Comparar(std::make_shared<ConexionOdbc>("Driver=" + controlador +
                                            ";Server=127.0.0.1;Port=" + std::to_string(servidor.Puerto()) +
                                            ";TDS_Version=7.4;Database=tienda;UID=usuario;PWD=clave"),
             hoy);
    EXPECT_EQ("", servidor.Queja());
}

}  // namespace
}  // namespace kv::prueba
