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
#include "kvdatosart/tests/servidor/Escenarios.h"
#include "kvdatosart/tests/servidor/ServidorTds.h"

namespace kv::prueba {
namespace {

const Fecha kHoy = Fecha::DeAmd(2026, 11, 21);

struct Plantada {
    const char* sentencia;
    const char* informe;
    void (*comparar)(Pareja&, Azar&) = [](Pareja& pareja, Azar& azar) { pareja.CompararTablas(azar); };
};

TEST(Pareja, UnaDiferenciaPlantada_SeCuenta) {
    const BibliotecaDePrueba biblioteca(kHoy);
    const BaseDePrueba base(BaseDePrueba::Datos::Demostracion, kHoy);
    const Plantada kCasos[] = {
        {"UPDATE Articulos_Tarifas SET Pvp =89.9501 WHERE Cod_Articulo =101 AND Cod_Tarifa =1",
         "1 diferencias en 40 casos\n  Articulos_Tarifas: 1 101 1 pvp: 89.95 dinero <> 89.9501 dinero\n"},
        {"UPDATE Almacen_Articulos SET P_Medio =52.34560000001 WHERE Cod_Articulo =101 AND Cod_Empresa =1",
         "Almacen_Articulos: 1 1 101 p_medio: 52.3456 real <> 52.34560000001 real"},
        {"UPDATE Almacenes SET Nombre ='Web ' WHERE Cod_Empresa =2", "«Web» <> «Web »"},
        {"UPDATE Clientes SET FAlta =NULL WHERE Codigo =5", "falta: 06/06/2020 fecha <> NULL"},
        {"UPDATE Facturas SET Fecha ='02/02/2024' WHERE Codigo =1", "01/02/2024 fecha <> 02/02/2024 fecha"},
        {"UPDATE Articulos SET DStock =0 WHERE Codigo =102", "dstock: Verdadero lógico <> Falso lógico"},
        {"DELETE FROM Presup", "Presup: 1 1 codigo: 1 entero <> nada"},
        {"INSERT INTO Presup (Cod_Empresa, Codigo) VALUES (1, 2)", "Presup: 1 2 codigo: nada <> 2 entero"},
        {"UPDATE Articulos_Tarifas SET Pvp = Pvp + 1",
         ": Pvp: ", [](Pareja& pareja, Azar& azar) { CompararCargas(pareja, azar, 150); }},
        {"UPDATE Clientes SET Grupo_Dto =0",
         "activo: ", [](Pareja& pareja, Azar& azar) { CompararReglas(pareja, azar, 400); }},
        {"DELETE FROM Almacen_Articulos",
         "stock: ", [](Pareja& pareja, Azar& azar) { CompararExistencias(pareja, azar, 20); }},
        {"DROP TABLE Clientes_Notas", "error: nada <> «de la base de datos»",
         [](Pareja& pareja, Azar& azar) { CompararClientes(pareja, azar, 40); }},
    };
    for (const Plantada& caso : kCasos) {
        SCOPED_TRACE(caso.sentencia);
        const BaseDePrueba una(base);
        const BaseDePrueba otra(base);
        otra.AbrirSinDisco()->Ejecutar(caso.sentencia);
        Pareja pareja(una.AbrirSinDisco(), otra.AbrirSinDisco());
        Azar azar(7, kHoy);
        caso.comparar(pareja, azar);
        EXPECT_NE(std::string::npos, pareja.Informe().find(caso.informe)) << pareja.Informe();
    }
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

// A server may end a transaction by itself, in a deadlock for one: it can be rolled back still, and the next one is
// one.
void PerderUnaTransaccion(ConexionOdbc& servidor) {
    const auto nombres = [&] {
        std::unique_ptr<Recordset> rs;
        AbrirLectura(rs, servidor, "SELECT COUNT(*) AS Cuantas FROM Empresas WHERE Nombre = 'Perdida'");
        return ALong(rs->Fields("Cuantas").Value());
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
    EXPECT_NE(std::string::npos,
              fallo.find("|ODBC|Se ha perdido la conexión y nada dice si la transacción quedó confirmada"))
        << fallo;
}

}  // namespace
}  // namespace kv::prueba
