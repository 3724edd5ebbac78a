#include <gtest/gtest.h>
#include <sys/mount.h>

#include <atomic>
#include <fstream>
#include <thread>

#include "kvdatosart/db/sqlite/ConexionSqlite.h"
#include "kvdatosart/tests/comun/Errores.h"
#include "kvdatosart/tests/comun/FicheroTemporal.h"
#include "kvdatosart/tests/comun/LeerValor.h"

namespace kv::prueba {
namespace {

using Modo = ConexionSqlite::Modo;
using std::chrono::milliseconds;

constexpr IdentidadBase kIdentidad{0x4B56, 3};
constexpr const char* kGuion = "CREATE TABLE T (Codigo int NOT NULL PRIMARY KEY) WITHOUT ROWID;";
constexpr std::int32_t kErrOcupada = 5;
constexpr std::int32_t kErrSoloLectura = 8;
constexpr std::int32_t kErrNoAbre = 14;

void Nada(Connection&) {}

void Escribir(const std::string& ruta, const std::string& texto) {
    std::ofstream(ruta) << texto;
}

std::int32_t CuantasFilas(Connection& conexion) {
    return ALong(LeerValor(conexion, "SELECT COUNT(*) AS N FROM T"));
}

TEST(EsperaBloqueo, SeRindeAlAcabarse_OAvisaUnaVezYSigue) {
    const CarpetaTemporal carpeta;
    const std::string ruta = carpeta.Fichero("base.kv");
    ConexionSqlite::Crear(ruta, kIdentidad, kGuion, Nada);
    const auto otro = ConexionSqlite::Abrir(ruta, kIdentidad, Modo::LecturaEscritura);
    otro->BeginTrans();
    int avisos = 0;
    const auto abrir = [&](milliseconds maxima) {
        return ConexionSqlite::Abrir(ruta, kIdentidad, Modo::LecturaEscritura, {maxima, [&] { ++avisos; }});
    };
    const auto impaciente = abrir(milliseconds(50));
    EsperarError(kErrOcupada, "SQLite", [&] { impaciente->BeginTrans(); });
    EXPECT_EQ(0, avisos);
    const auto paciente = abrir(milliseconds(60000));
    std::atomic<bool> soltada = false;
    std::thread soltar([&] {
        std::this_thread::sleep_for(milliseconds(1500));
        soltada = true;
        otro->RollbackTrans();
    });
    paciente->BeginTrans();
    soltar.join();
    EXPECT_TRUE(soltada);
    EXPECT_EQ(1, avisos);
    paciente->RollbackTrans();
}

TEST(Crear, DosALaVez_UnoEnteroYElOtroRechazado) {
    const CarpetaTemporal carpeta;
    const std::string ruta = carpeta.Fichero("base.kv");
    ConexionSqlite::Crear(ruta, kIdentidad, kGuion, [&](Connection& conexion) {
        conexion.Ejecutar("INSERT INTO T VALUES (1)");
        try {
            ConexionSqlite::Crear(ruta, kIdentidad, kGuion, Nada);
            ADD_FAILURE() << "creada dos veces";
        } catch (const RuntimeError& error) {
            EXPECT_EQ("«" + ruta + "» se está creando ya desde otro sitio", error.descripcion);
        }
        conexion.Ejecutar("INSERT INTO T VALUES (2)");
    });
    EXPECT_EQ(2, CuantasFilas(*ConexionSqlite::Abrir(ruta, kIdentidad, Modo::SoloLectura)));
}

TEST(Crear, LoQueDejoUnProcesoMuerto_SeToma) {
    const CarpetaTemporal carpeta;
    const std::string ruta = carpeta.Fichero("base.kv");
    for (const char* resto : {".creando", ".creando-wal", ".creando-shm", ".creando-journal"})
        Escribir(ruta + resto, std::string(9000, 'x'));
    ConexionSqlite::Crear(ruta, kIdentidad, kGuion, Nada);
    EXPECT_EQ(0, CuantasFilas(*ConexionSqlite::Abrir(ruta, kIdentidad, Modo::SoloLectura)));
    EXPECT_EQ(1U, carpeta.CuantosFicheros());
}

TEST(Crear, LoQueAparecioMientras_NoSeToca) {
    const CarpetaTemporal carpeta;
    const std::string ruta = carpeta.Fichero("base.kv");
    EsperarError(kErrNoAbre, "SQLite", [&] {
        ConexionSqlite::Crear(ruta, kIdentidad, kGuion, [&](Connection&) { Escribir(ruta, "ajeno"); });
    });
    EXPECT_EQ(5U, std::filesystem::file_size(ruta));
    EXPECT_EQ(1U, carpeta.CuantosFicheros());
}

/// A file system of its own that becomes read-only when it is told to.
class Medio {
  public:
    Medio() : montado_(mount("none", punto.Fichero("").c_str(), "tmpfs", 0, "size=4m") == 0) {}
    ~Medio() {
        if (montado_) umount(punto.Fichero("").c_str());
    }
    Medio(const Medio&) = delete;
    Medio& operator=(const Medio&) = delete;

    bool Montado() const { return montado_; }
    void Proteger(bool si) const {
        ASSERT_EQ(0, mount("none", punto.Fichero("").c_str(), "", MS_REMOUNT | (si ? MS_RDONLY : 0), ""));
    }
    CarpetaTemporal punto;

  private:
    bool montado_;
};

TEST(MedioSoloLectura, SeLee_SalvoConUnDiarioAlLado) {
    const Medio medio;
    if (!medio.Montado()) GTEST_SKIP() << "montar un medio pide ser administrador";
    const std::string ruta = medio.punto.Fichero("base 50%?#.kv");
    ConexionSqlite::Crear(ruta, kIdentidad, kGuion,
                          [](Connection& conexion) { conexion.Ejecutar("INSERT INTO T VALUES (1)"); });
    medio.Proteger(true);
    EXPECT_EQ(1, CuantasFilas(*ConexionSqlite::Abrir(ruta, kIdentidad, Modo::SoloLectura)));
    const auto escribe = ConexionSqlite::Abrir(ruta, kIdentidad, Modo::LecturaEscritura);
    EsperarError(kErrSoloLectura, "SQLite", [&] { escribe->Ejecutar("INSERT INTO T VALUES (2)"); });
    medio.Proteger(false);
    Escribir(ruta + "-wal", "");
    medio.Proteger(true);
    EXPECT_EQ(1, CuantasFilas(*ConexionSqlite::Abrir(ruta, kIdentidad, Modo::SoloLectura)));
    medio.Proteger(false);
    Escribir(ruta + "-wal", "cambios");
    medio.Proteger(true);
    EsperarError(kErrNoAbre, "SQLite", [&] { ConexionSqlite::Abrir(ruta, kIdentidad, Modo::SoloLectura); });
}

}  // namespace
}  // namespace kv::prueba
