#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <thread>

#include "kvdatosart/db/sqlite/ConexionSqlite.h"
#include "kvdatosart/tests/comun/ContratoAdaptador.h"
#include "kvdatosart/tests/comun/Errores.h"
#include "kvdatosart/tests/comun/FicheroTemporal.h"
#include "kvdatosart/tests/comun/LeerValor.h"

namespace kv::prueba {
namespace {

constexpr IdentidadBase kIdentidad{0x4B56, 3};

constexpr const char* kGuion = R"(
CREATE TABLE Contrato (Codigo int NOT NULL PRIMARY KEY, Importe money, Activo bit, Octeto tinyint, Corto smallint,
    Doble float, Fecha date, Texto varchar(50), Nula int) WITHOUT ROWID;
INSERT INTO Contrato VALUES (1, 12.3456, 1, 200, -5, 0.1, '2026-03-05', 'ñ € x ', NULL);
INSERT INTO Contrato VALUES (2, -0.5, 0, 0, 7, 2.5, '1900-01-01', '', 9);
CREATE TABLE Procedimientos (Nombre varchar(60) NOT NULL PRIMARY KEY, Cuerpo varchar(4000) NOT NULL);
INSERT INTO Procedimientos VALUES ('Doblar', 'SELECT Importe * @Veces AS Dto FROM Contrato WHERE Codigo = @Cliente');
INSERT INTO Procedimientos VALUES ('Salidas',
    'SELECT @Numero AS S0, 2 AS S1, 5 AS S2, 1 AS S3, ''2026-03-05'' AS S4, ''ñ'' AS S5, NULL AS S6');
)";

void Nada(Connection&) {}

struct Base {
    CarpetaTemporal carpeta;
    std::string ruta = carpeta.Fichero("base.kv");
    Base() { ConexionSqlite::Crear(ruta, kIdentidad, kGuion, Nada); }
    std::shared_ptr<ConexionSqlite> Abrir(ConexionSqlite::Modo modo = ConexionSqlite::Modo::LecturaEscritura) const {
        return ConexionSqlite::Abrir(ruta, kIdentidad, modo);
    }
};

std::shared_ptr<Connection> Conectar() {
    // The folder lives as long as the connection.
    struct Abierta {
        Base base;
        std::shared_ptr<ConexionSqlite> conexion = base.Abrir();
    };
    const auto abierta = std::make_shared<Abierta>();
    return {abierta, abierta->conexion.get()};
}

INSTANTIATE_TEST_SUITE_P(Sqlite, ContratoAdaptador, testing::Values(AdaptadorProbado{"sqlite", Conectar}));

TEST(ConexionSqlite, CadaTextoSePreparaUnaVez_YSeOlvidanLosMasViejosSinPerderNada) {
    const Base base;
    const auto conexion = base.Abrir();
    std::unique_ptr<Recordset> abierto;
    AbrirLectura(abierto, *conexion, "SELECT Codigo FROM Contrato ORDER BY Codigo");
    const auto cuantas = [&](const std::string& donde) {
        return ALong(LeerValor(*conexion, "SELECT COUNT(*) AS N FROM Contrato WHERE " + donde));
    };
    for (int i = 0; i < 50; ++i) {
        EXPECT_EQ(i == 1 ? 1 : 0, cuantas("Codigo =" + std::to_string(i) + " AND Fecha >='05/03/2026'"));
        EXPECT_EQ(i == 12 ? 1 : 0, cuantas("Importe =" + std::to_string(i) + ".3456"));
    }
    EXPECT_EQ(3U, conexion->Preparaciones());
    EXPECT_EQ(1, cuantas("Codigo =1 AND  Fecha >='05/03/2026'"));
    EXPECT_EQ(4U, conexion->Preparaciones());
    for (const char* abierta : {"Texto ='O'Brien'", "Texto ='x", "[Texto ='x'", "\"Texto ='x'"})
        EsperarError(1, "SQLite", [&] { cuantas(std::string("Codigo =1 AND ") + abierta); });
    EXPECT_EQ(4U, conexion->Preparaciones()) << "lo que la base rechaza no se guarda";
    for (int i = 0; i < 500; ++i) ASSERT_EQ(1, cuantas("Codigo + " + std::to_string(i) + " =" + std::to_string(i + 1)));
    EXPECT_EQ(Valor(std::int64_t{3000000001}),
              LeerValor(*conexion, "SELECT Codigo + 3000000000 AS Suma FROM Contrato WHERE Codigo =1"));
    abierto->MoveNext();
    EXPECT_EQ(2, ALong(abierto->Fields("Codigo").Value()));
}

TEST(ConexionSqlite, UnFalloMuestraSuPropioTexto_NoElDeLaPrimeraVez) {
    const Base base;
    const auto conexion = base.Abrir();
    for (const char* valores : {"(1, '05/03/2026')", "(2, '06/03/2026')"}) {
        const std::string texto = std::string("INSERT INTO Contrato (Codigo, Fecha) VALUES ") + valores;
        const std::string fallo = FalloDe([&] { conexion->Ejecutar(texto); });
        EXPECT_TRUE(fallo.ends_with("; sentencia: " + texto)) << fallo;
    }
}

TEST(ConexionSqlite, Procedimiento_EntradasPorNombreYSalidas) {
    const Base base;
    const auto conexion = base.Abrir();
    const auto comando = conexion->CrearCommand();
    comando->CommandType = CommandType::adCmdStoredProc;
    comando->CommandText = "doblar";
    using D = ParameterDirection;
    comando->Parameters.Append({"Return", DataType::adInteger, D::adParamReturnValue, 0, Nulo{}});
    comando->Parameters.Append({"@Cliente", DataType::adInteger, D::adParamInput, 0, std::int32_t{1}});
    comando->Parameters.Append({"@Veces", DataType::adInteger, D::adParamInput, 0, 2.5});
    comando->Parameters.Append({"@SinUso", DataType::adInteger, D::adParamInput, 0, std::int32_t{5}});
    comando->Parameters.Append({"@Dto", DataType::adCurrency, D::adParamOutput, 0, Nulo{}});
    comando->Execute(CommandType::adOptionUnspecified);
    EXPECT_EQ(Currency::DeDouble(30.864), ACurrency(comando->Parameters.Item("@dto").Value));
    EXPECT_EQ(Valor(std::int32_t{0}), comando->Parameters.Item("Return").Value);
    comando->CommandText = "NoHay";
    EsperarError(1, "SQLite", [&] { comando->Execute(CommandType::adOptionUnspecified); });
}

TEST(ConexionSqlite, FicherosQueNoSirven_DicenCualYPorQue) {
    const Base base;
    std::ofstream(base.carpeta.Fichero("texto.kv")) << std::string(5000, 'x');
    std::ofstream(base.carpeta.Fichero("vacio.kv")).flush();
    const auto rechaza = [&](const char* fichero, int numero, const std::string& motivo, int aplicacion = 0,
                             int version = 3) {
        const std::string ruta = base.carpeta.Fichero(fichero);
        const IdentidadBase identidad{kIdentidad.aplicacion + aplicacion, version};
        const auto abrir = [&] { ConexionSqlite::Abrir(ruta, identidad, ConexionSqlite::Modo::SoloLectura); };
        EXPECT_EQ(std::to_string(numero) + "|SQLite|«" + ruta + "»" + motivo, FalloDe(abrir));
    };
    rechaza("falta.kv", 14, " no existe");
    rechaza(".", 14, " no es un fichero");
    rechaza("texto.kv", 26, " no es una base de datos");
    rechaza("vacio.kv", 26, " no es una base de datos de KVDatosArt");
    rechaza("base.kv", 26, " no es una base de datos de KVDatosArt", 1);
    rechaza("base.kv", 17, " tiene la versión de esquema 3 y hace falta la 2", 0, 2);
    rechaza("base.kv", 17,
            " tiene la versión de esquema 3 y hace falta la 4; «kvdatosart actualizar --base " + base.ruta +
                "» la pone al día",
            0, 4);
}

TEST(ConexionSqlite, CrearQueFalla_NoDejaNada) {
    const CarpetaTemporal carpeta;
    const std::string ruta = carpeta.Fichero("nueva.kv");
    EXPECT_THROW(ConexionSqlite::Crear(ruta, kIdentidad, "CREATE TABLE Mal (", Nada), RuntimeError);
    EXPECT_THROW(ConexionSqlite::Crear(ruta, kIdentidad, kGuion,
                                       [](Connection& c) { c.Ejecutar("INSERT INTO NoHay (A) VALUES (1)"); }),
                 RuntimeError);
    EXPECT_EQ(0U, carpeta.CuantosFicheros());
    ConexionSqlite::Crear(ruta, kIdentidad, kGuion, Nada);
    EXPECT_EQ(1U, carpeta.CuantosFicheros());
    EXPECT_THROW(ConexionSqlite::Crear(ruta, kIdentidad, kGuion, Nada), RuntimeError);
}

TEST(ConexionSqlite, SoloLectura_SoloPregunta) {
    const Base base;
    const auto lee = base.Abrir(ConexionSqlite::Modo::SoloLectura);
    constexpr std::int32_t kErrVedado = 23;
    for (const std::string& sentencia :
         {std::string("DELETE FROM Contrato"), std::string("INSERT INTO Contrato (Codigo) VALUES (3)"),
          std::string("CREATE TEMP TABLE T (A int)"), std::string("DROP TABLE Contrato"),
          std::string("PRAGMA query_only = OFF"), "ATTACH '" + base.ruta + "' AS otra", std::string("VACUUM")})
        EsperarError(kErrVedado, "SQLite", [&] { lee->Ejecutar(sentencia); });
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, *lee, "SELECT COUNT(*) AS Cuantos FROM Contrato");
    EXPECT_EQ(2, ALong(rs->Fields("Cuantos").Value()));
}

#ifndef NDEBUG
TEST(ConexionSqliteDeathTest, DosHilosALaVez_AcabaConUnMensaje) {
    const Base base;
    const auto usar = [](ConexionSqlite& conexion) {
        for (int i = 0; i < 1000000; ++i) conexion.Ejecutar("SELECT COUNT(*) FROM Contrato");
    };
    const auto entreDos = [&] {
        const auto conexion = base.Abrir();
        std::thread otro(usar, std::ref(*conexion));
        usar(*conexion);
        otro.join();
    };
    EXPECT_DEATH(entreDos(), "dos hilos usan a la vez la misma conexión");
}
#endif

}  // namespace
}  // namespace kv::prueba
