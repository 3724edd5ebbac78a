#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <stdexcept>

#include "kvdatosart/db/ConexionTrazada.h"
#include "kvdatosart/db/EmpresaTabla.h"
#include "kvdatosart/db/Nombres.h"
#include "kvdatosart/db/odbc/ConexionOdbc.h"
#include "kvdatosart/schema/DemostracionServidor.h"
#include "kvdatosart/schema/Lotes.h"
#include "kvdatosart/tests/comun/BaseDemo.h"
#include "kvdatosart/tests/comun/ConexionGuion.h"
#include "kvdatosart/tests/comun/EmpresaFija.h"
#include "kvdatosart/tests/comun/Errores.h"
#include "kvdatosart/tests/odbc/BasesOdbc.h"
#include "kvdatosart/tests/servidor/Pareja.h"
#include "kvdatosart/tests/servidor/ServidorTds.h"

namespace kv::prueba {
namespace {

const Fecha kHoy = Fecha::DeAmd(2026, 11, 21);

// Of what is written, of what is missing, and of each kind of work.
TEST(Pareja, UnaDiferenciaPlantada_SeCuenta) {
    const BibliotecaDePrueba biblioteca(kHoy);
    const BaseDePrueba base(BaseDePrueba::Datos::Demostracion, kHoy);
    const auto plantar = [&](const char* sentencia, const char* informe, auto comparar) {
        const BaseDePrueba una(base);
        const BaseDePrueba otra(base);
        otra.AbrirSinDisco()->Ejecutar(sentencia);
        Pareja pareja(una.AbrirSinDisco(), otra.AbrirSinDisco());
        Azar azar(7, kHoy);
        comparar(pareja, azar);
        EXPECT_NE(std::string::npos, pareja.Informe().find(informe)) << sentencia << '\n' << pareja.Informe();
    };
    const auto tablas = [](Pareja& pareja, Azar& azar) { pareja.CompararTablas(azar); };
    plantar("UPDATE Articulos_Tarifas SET Pvp =89.9501 WHERE Cod_Articulo =101 AND Cod_Tarifa =1",
            "1 diferencias en 40 casos\n  Articulos_Tarifas: 1 101 1 pvp: 89.95 dinero <> 89.9501 dinero\n", tablas);
    plantar("UPDATE Almacen_Articulos SET P_Medio =52.34560000001 WHERE Cod_Articulo =101 AND Cod_Empresa =1",
            "Almacen_Articulos: 1 1 101 p_medio: 52.3456 real <> 52.34560000001 real", tablas);
    plantar("UPDATE Almacenes SET Nombre ='Web ' WHERE Cod_Empresa =2", "«Web» <> «Web »", tablas);
    plantar("UPDATE Clientes SET FAlta =NULL WHERE Codigo =5", "falta: 06/06/2020 fecha <> NULL", tablas);
    plantar("DELETE FROM Presup", "Presup: 1 1 codigo: 1 entero <> nada", tablas);
    plantar("UPDATE Articulos_Tarifas SET Pvp = Pvp + 1",
            ": Pvp: ", [](auto& p, auto& a) { CompararCargas(p, a, 150); });
    plantar("UPDATE Clientes SET Grupo_Dto =0", "activo: ", [](auto& p, auto& a) { CompararReglas(p, a, 400); });
    plantar("DELETE FROM Almacen_Articulos", "stock: ", [](auto& p, auto& a) { CompararExistencias(p, a, 20); });
    plantar("DROP TABLE Clientes_Notas", "error: nada <> «de la base de datos»",
            [](auto& p, auto& a) { CompararClientes(p, a, 40); });
}

// Leaves a server's database without the suite's tables, so that they can be made anew. It must be empty, or one that
// this function took before, which it knows by the table KV_BaseDePruebas; any other, and any table that is not the
// suite's, is refused and nothing is touched.
void VaciarBasePrestada(Connection& conexion) {
    const auto esquema = ObjetosDelEsquema();
    std::vector<std::string> tablas;
    bool marcada = false;
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, conexion, "SELECT TABLE_NAME FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_TYPE = 'BASE TABLE'");
    for (; !rs->Eof(); rs->MoveNext()) {
        const std::string tabla = AString(rs->Fields("TABLE_NAME").Value(), '.');
        if (MismoNombre(tabla, "KV_BaseDePruebas"))
            marcada = true;
        else if (std::any_of(esquema.begin(), esquema.end(),
                             [&](const auto& propia) { return MismoNombre(tabla, propia.first); }))
            tablas.push_back(tabla);
        else
            LanzarError(kErrLlamadaInvalida, "la base de datos tiene una tabla ajena, «" + tabla + "», y no se toca");
    }
    rs->Close();
    if (!marcada && !tablas.empty())
        LanzarError(kErrLlamadaInvalida, "la base de datos no está vacía ni la hicieron las pruebas, y no se toca");
    if (!marcada) conexion.Ejecutar("CREATE TABLE KV_BaseDePruebas (Codigo int NOT NULL)");
    for (const std::string& tabla : tablas) conexion.Ejecutar("DROP TABLE " + tabla);
}

TEST(BasePrestada, SoloSeVaciaLaVaciaOLaDeOtraVez) {
    const auto vacia = [](std::vector<ConexionGuion::Fila> tablas, const char* hace) {
        ConexionGuion c;
        c.EsperaConsulta("SELECT TABLE_NAME FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_TYPE = 'BASE TABLE'",
                         {"TABLE_NAME"}, std::move(tablas));
        if (hace != nullptr) c.EsperaEjecucion(hace);
        const std::string fallo = FalloDe([&] { VaciarBasePrestada(c); });
        EXPECT_EQ(hace == nullptr ? "5" : "", fallo.substr(0, fallo.find('|')));
    };
    vacia({{"Clientes"}}, nullptr);
    vacia({{"KV_BaseDePruebas"}, {"Clientes"}, {"Nominas"}}, nullptr);
    vacia({}, "CREATE TABLE KV_BaseDePruebas (Codigo int NOT NULL)");
    vacia({{"KV_BaseDePruebas"}, {"Clientes"}}, "DROP TABLE Clientes");
}

// A server may end a transaction by itself, in a deadlock for one: it can be rolled back still, and the next one is
// one.
void PerderUnaTransaccion(ConexionOdbc& servidor) {
    const auto nombres = [&] {
        return ALong(LeerValor(servidor, "SELECT COUNT(*) AS Cuantas FROM Empresas WHERE Nombre = 'Perdida'"));
    };
    servidor.BeginTrans();
    servidor.EjecutarLote("ROLLBACK TRANSACTION");
    EXPECT_NO_THROW(servidor.RollbackTrans());
    servidor.BeginTrans();
    servidor.Ejecutar("UPDATE Empresas SET Nombre = 'Perdida'");
    EXPECT_LT(0, nombres());
    servidor.RollbackTrans();
    EXPECT_EQ(0, nombres());
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
    ProbarProcedimientos(servidor);
    PerderUnaTransaccion(*servidor);

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

class FreeTds : public testing::Test {
  protected:
    void SetUp() override {
        if (controlador.empty()) GTEST_SKIP() << "no hay controlador FreeTDS (tdsodbc)";
    }

    const std::string controlador = Controlador("libtdsodbc.so");
    const BaseDePrueba base{BaseDePrueba::Datos::Ninguno, kHoy};
};

TEST_F(FreeTds, ElControladorNoCambiaNada) {
    ServidorTds servidor(base.AbrirSinDisco());
    Comparar(std::make_shared<ConexionOdbc>(servidor.Cadena(controlador)), kHoy);
    EXPECT_EQ("", servidor.Queja());
}

TEST_F(FreeTds, SinElOrdenDeFechasNoHaySesion) {
    using Fechas = ServidorTds::Fechas;
    const ServidorTds porDebajo(base.AbrirSinDisco(), Fechas::PorDebajo);
    EXPECT_NO_THROW(ConexionOdbc(porDebajo.Cadena(controlador)));
    const ServidorTds ajeno(base.AbrirSinDisco(), Fechas::SiempreMesDia);
    EsperarError(kErrSesionInservible, "ODBC", [&] { ConexionOdbc(ajeno.Cadena(controlador)); });
}

// A server that goes away when it is asked to commit.
struct SeCortaAlConfirmar : ConexionTrazada {
    explicit SeCortaAlConfirmar(std::shared_ptr<Connection> interior)
        : ConexionTrazada(std::move(interior), [](const OperacionTrazada&) {}) {}
    void CommitTrans() override { throw std::runtime_error("cortada"); }
};

TEST_F(FreeTds, ConexionQueMuereAlConfirmar_NoSeSabeQueFueDeLaTransaccion) {
    const ServidorTds servidor(std::make_shared<SeCortaAlConfirmar>(base.AbrirSinDisco()));
    ConexionOdbc conexion(servidor.Cadena(controlador));
    conexion.BeginTrans();
    conexion.Ejecutar("DELETE FROM Presup");
    const std::string fallo = FalloDe([&] { conexion.CommitTrans(); });
    EXPECT_NE(std::string::npos, fallo.find("|ODBC|Se ha perdido la conexión y nada dice si la ")) << fallo;
}

}  // namespace
}  // namespace kv::prueba
