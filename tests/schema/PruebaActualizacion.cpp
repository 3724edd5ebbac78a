#include <gtest/gtest.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/wait.h>

#include <fstream>
#include <map>
#include <optional>
#include <sstream>

#include "kvdatosart/component/clsDatosArt.h"
#include "kvdatosart/db/EmpresaTabla.h"
#include "kvdatosart/tests/comun/BaseDemo.h"
#include "kvdatosart/tests/comun/Errores.h"

namespace kv::prueba {
namespace {

const Fecha kHoy = Fecha::DeAmd(2027, 2, 10);
constexpr IdentidadBase kVersion1{kAplicacionEsquema, 1};
constexpr IdentidadBase kVersion2{kAplicacionEsquema, 2};

std::string EsquemaVersion1() {
    std::ostringstream texto;
    texto << std::ifstream(KV_ESQUEMA_VERSION1).rdbuf();
    return texto.str();
}

/// Everything that a file holds: its version, each object and each row, in an order of their own.
std::map<std::string, std::string> Contenido(const std::string& ruta) {
    sqlite3* base = nullptr;
    EXPECT_EQ(SQLITE_OK, sqlite3_open_v2(ruta.c_str(), &base, SQLITE_OPEN_READWRITE, nullptr));
    std::map<std::string, std::string> contenido;
    const auto leer = [&](const std::string& sql, std::string& destino) {
        const auto anotar = [](void* texto, int columnas, char** valores, char**) {
            for (int i = 0; i < columnas; ++i)
                *static_cast<std::string*>(texto) += std::string(valores[i] == nullptr ? "NULL" : valores[i]) + '|';
            return 0;
        };
        EXPECT_EQ(SQLITE_OK, sqlite3_exec(base, sql.c_str(), anotar, &destino, nullptr)) << sqlite3_errmsg(base);
    };
    std::string tablas;
    leer("SELECT name FROM sqlite_schema WHERE type = 'table' ORDER BY name", tablas);
    std::istringstream nombres(tablas);
    for (std::string tabla; std::getline(nombres, tabla, '|');)
        leer("SELECT * FROM \"" + tabla + "\" ORDER BY 1, 2", contenido["tabla " + tabla]);
    leer("SELECT name, sql FROM sqlite_schema ORDER BY name", contenido["esquema"]);
    leer("PRAGMA user_version", contenido["version"]);
    leer("PRAGMA integrity_check", contenido["integridad"]);
    sqlite3_close(base);
    return contenido;
}

class Actualizacion : public testing::Test {
  protected:
    /// A file with the demonstration's rows and these besides, as the first version of the program made it.
    std::string Version1(const std::string& ademas = {}) {
        const std::string ruta = carpeta.Fichero("antigua.kv");
        std::filesystem::remove(ruta);
        ConexionSqlite::Crear(ruta, kVersion1, EsquemaVersion1() + ademas,
                              [](Connection& conexion) { CargarDemostracion(conexion, kHoy); });
        return ruta;
    }
    static bool Actualizar(const std::string& ruta) {
        return ConexionSqlite::Actualizar(ruta, kVersion2, EsquemaSqlite());
    }

    CarpetaTemporal carpeta;
};

TEST_F(Actualizacion, DeUnFicheroDeLaVersion1_EsComoUnoNuevo) {
    const std::string ruta = Version1();
    const std::string aviso = "17|SQLite|«" + ruta +
                              "» tiene la versión de esquema 1 y hace falta la 2; «kvdatosart actualizar --base " +
                              ruta + "» la pone al día";
    EXPECT_EQ(aviso, FalloDe([&] { ConexionSqlite::Abrir(ruta, kVersion2, ConexionSqlite::Modo::SoloLectura); }));
    EXPECT_TRUE(Actualizar(ruta));
    const BaseDePrueba nueva(BaseDePrueba::Datos::Demostracion, kHoy);
    EXPECT_EQ(Contenido(nueva.Ruta()), Contenido(ruta));
    EXPECT_FALSE(Actualizar(ruta));
    clsDatosArt articulo;
    const auto conexion = ConexionSqlite::Abrir(ruta, kVersion2, ConexionSqlite::Modo::SoloLectura);
    articulo.Conexion(conexion);
    articulo.cEmpresa(EmpresaTabla::Leer(*conexion, 1));
    articulo.Cargar(101, 1, kHoy, 1, 1, 2, Currency::DeEntero(1));
    EXPECT_EQ("Taladro percutor 750 W con maletín", articulo.Descripcion);
}

TEST_F(Actualizacion, LoQueOtrosAnadieron_Sigue) {
    const std::string ajeno =
        "CREATE TABLE Ajena (Codigo int, Articulo int); INSERT INTO Ajena VALUES (1, 101);"
        "CREATE INDEX IX_Ajeno ON Clientes (Provincia);"
        "CREATE TRIGGER TR_Ajeno AFTER DELETE ON Articulos BEGIN INSERT INTO Ajena VALUES (2, old.Codigo); END;"
        "CREATE VIEW V_Ajena AS SELECT a.Codigo, Descripcion FROM Articulos, Ajena a WHERE Articulos.Codigo = Articulo;"
        "INSERT INTO Procedimientos VALUES ('Ajeno', 'SELECT 1 AS Uno');";
    const std::string ruta = Version1(ajeno);
    const auto antes = Contenido(ruta);
    EXPECT_TRUE(Actualizar(ruta));
    const auto despues = Contenido(ruta);
    EXPECT_EQ(antes.at("tabla Ajena"), despues.at("tabla Ajena"));
    EXPECT_NE(std::string::npos, despues.at("tabla Procedimientos").find("SELECT 1 AS Uno"));
    for (const char* objeto : {"IX_Ajeno ON Clientes", "TR_Ajeno AFTER DELETE ON Articulos", "FROM Articulos, Ajena a"})
        EXPECT_NE(std::string::npos, despues.at("esquema").find(objeto)) << objeto;
    EXPECT_EQ(std::string::npos, despues.at("esquema").find("Anterior"));
}

TEST_F(Actualizacion, LoQueNoCabe_SeNombraYNadaCambia) {
    const struct {
        const char* ademas;
        const char* motivo;
    } casos[] = {
        {"INSERT INTO Clientes (Cod_Empresa, Codigo, F_Via, Serie) VALUES (2, 7, 'Ñandúñandúñ', 'ABCDE'), (2, 9, '', "
         "'ABCDEF')",
         "Clientes (Cod_Empresa 2, Codigo 7): F_Via tiene 11 caracteres y caben 10;"
         " Clientes (Cod_Empresa 2, Codigo 9): Serie tiene 6 caracteres y caben 5"},
        {"ALTER TABLE Tarifas ADD COLUMN Color varchar(9)", "Tarifas: la columna Color no está en la nueva"},
    };
    for (const auto& caso : casos) {
        const std::string ruta = Version1(caso.ademas);
        const auto antes = Contenido(ruta);
        EXPECT_EQ("19|SQLite|«" + ruta + "» no se actualiza, y queda como estaba: " + caso.motivo,
                  FalloDe([&] { Actualizar(ruta); }));
        EXPECT_EQ(antes, Contenido(ruta));
    }
}

TEST_F(Actualizacion, FicheroMasNuevo_SeRechaza) {
    const std::string ruta = carpeta.Fichero("nueva.kv");
    ConexionSqlite::Crear(ruta, {kAplicacionEsquema, 3}, EsquemaSqlite(), [](Connection&) {});
    EXPECT_EQ("17|SQLite|«" + ruta + "» tiene la versión de esquema 3 y hace falta la 2",
              FalloDe([&] { Actualizar(ruta); }));
}

// A process that dies at any moment leaves one version or the other, whole.
TEST_F(Actualizacion, MuerteAMitad_DejaUnaVersionEntera) {
    // Enough rows for SQLite to write them before it commits.
    const std::string original = Version1(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 12000)"
        " INSERT INTO Clientes_Notas (Cod_Empresa, Cod_Cliente, Codigo, Texto) SELECT 3, i, 1, hex(zeroblob(99)) FROM "
        "n;");
    const std::string ruta = carpeta.Fichero("muerta.kv");
    int aMedioEscribir = 0;
    const auto escrito = [&] {
        std::error_code sinFichero;
        const auto octetos = std::filesystem::file_size(ruta + "-wal", sinFichero);
        return sinFichero ? 0 : octetos;
    };
    // Dies as soon as so much is written, or ends by itself.
    const auto actualizarOtroProceso = [&](std::optional<std::uintmax_t> octetos) {
        for (const char* final_ : {"", "-wal", "-shm"}) std::filesystem::remove(ruta + final_);
        std::filesystem::copy_file(original, ruta);
        const pid_t proceso = fork();
        if (proceso == 0) _exit(Actualizar(ruta) ? 0 : 1);
        bool acabado = false;
        while (octetos && !acabado && escrito() < *octetos) acabado = waitpid(proceso, nullptr, WNOHANG) == proceso;
        if (octetos && !acabado) kill(proceso, SIGKILL);
        if (!acabado) waitpid(proceso, nullptr, 0);
        if (escrito() > 0) ++aMedioEscribir;
    };
    const auto antes = Contenido(original);
    actualizarOtroProceso({});
    const auto despues = Contenido(ruta);
    EXPECT_EQ("2|", despues.at("version"));
    for (std::uintmax_t octetos = 0; octetos < 3'000'000; octetos += 300'000) {
        actualizarOtroProceso(octetos);
        const auto queda = Contenido(ruta);
        EXPECT_TRUE(queda == antes || queda == despues) << octetos << ": " << queda.at("version");
    }
    EXPECT_GT(aMedioEscribir, 0);
}

}  // namespace
}  // namespace kv::prueba
