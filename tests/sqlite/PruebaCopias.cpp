#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <set>
#include <thread>

#include "kvdatosart/db/sqlite/ConexionSqlite.h"
#include "kvdatosart/tests/comun/Errores.h"
#include "kvdatosart/tests/comun/FicheroTemporal.h"
#include "kvdatosart/tests/comun/LeerValor.h"

namespace kv::prueba {
namespace {

namespace fs = std::filesystem;

constexpr IdentidadBase kIdentidad{0x4B56, 3};

// Two rows that every commit changes together, beside enough pages for a copy of several pieces.
struct Base {
    CarpetaTemporal carpeta;
    std::string ruta = carpeta.Fichero("base.kv");
    Base() {
        ConexionSqlite::Crear(
            ruta, kIdentidad,
            "CREATE TABLE Par (Codigo int NOT NULL PRIMARY KEY, Valor int NOT NULL, Relleno text) WITHOUT ROWID;"
            "INSERT INTO Par VALUES (1, 0, NULL), (2, 0, NULL);"
            "WITH RECURSIVE n(i) AS (SELECT 3 UNION ALL SELECT i + 1 FROM n WHERE i < 3000)"
            " INSERT INTO Par SELECT i, 0, hex(zeroblob(3000)) FROM n;",
            [](Connection&) {});
    }
    std::shared_ptr<ConexionSqlite> Abrir(const std::string& fichero = "base.kv") const {
        return ConexionSqlite::Abrir(carpeta.Fichero(fichero), kIdentidad, ConexionSqlite::Modo::LecturaEscritura);
    }
};

int Valor1(Connection& conexion, int codigo = 1) {
    return ALong(LeerValor(conexion, "SELECT Valor FROM Par WHERE Codigo =" + std::to_string(codigo)));
}

/// Somebody who commits all the time.
class Escritor {
  public:
    explicit Escritor(const Base& base)
        : hilo_([this, conexion = base.Abrir()] {
              conexion->Ejecutar("PRAGMA synchronous = OFF");
              for (int i = 1; !fin_; ++i) {
                  conexion->BeginTrans();
                  for (const char* codigo : {"1", "2"})
                      conexion->Ejecutar("UPDATE Par SET Valor =" + std::to_string(i) + " WHERE Codigo =" + codigo);
                  conexion->CommitTrans();
                  escritas_ = i;
                  std::this_thread::sleep_for(std::chrono::milliseconds(1));
              }
          }) {}
    ~Escritor() {
        fin_ = true;
        hilo_.join();
    }
    /// Waits for a commit that begins after now.
    void EsperarOtra() const {
        for (const int ya = escritas_; escritas_ < ya + 2;) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }

  private:
    std::atomic<bool> fin_ = false;
    std::atomic<int> escritas_ = 0;
    std::thread hilo_;
};

TEST(MismoEstado, TodasLasConexionesVenLoMismo_MientrasOtroEscribe) {
    const Base base;
    const Escritor escritor(base);
    std::set<int> estados;
    for (const std::size_t cuantas : {1U, 2U, 5U}) {
        for (int vez = 0; vez < 8; ++vez) {
            escritor.EsperarOtra();
            const auto conexiones = ConexionSqlite::AbrirMismoEstado(base.ruta, kIdentidad, cuantas);
            ASSERT_EQ(cuantas, conexiones.size());
            escritor.EsperarOtra();
            const int estado = Valor1(*conexiones[0]);
            for (const auto& conexion : conexiones)
                for (const int codigo : {1, 2}) ASSERT_EQ(estado, Valor1(*conexion, codigo));
            estados.insert(estado);
        }
    }
    EXPECT_LT(15U, estados.size());
    EXPECT_THROW(ConexionSqlite::AbrirMismoEstado(base.ruta, kIdentidad, 2)[1]->Ejecutar("DELETE FROM Par"),
                 RuntimeError);
}

TEST(MismoEstado, BaseQueNoSePuedeEscribir_UnaSola) {
    const Base base;
    const auto abierta = base.Abrir();
    ASSERT_EQ(0, Valor1(*abierta));
    for (const char* final_ : {"", "-wal", "-shm"}) fs::permissions(base.ruta + final_, fs::perms(0444));
    fs::permissions(fs::path(base.ruta).parent_path(), fs::perms(0755));
    const uid_t yo = geteuid();
    // Nobody, since root writes whatever the permissions say.
    const auto ser = [&](uid_t quien) { return yo != 0 || seteuid(quien) == 0; };
    ASSERT_TRUE(ser(65534));
    const auto conexiones = ConexionSqlite::AbrirMismoEstado(base.ruta, kIdentidad, 4);
    ASSERT_TRUE(ser(yo));
    ASSERT_EQ(1U, conexiones.size());
    EXPECT_EQ(0, Valor1(*conexiones[0]));
}

TEST(Copiar, UnEstadoEntero_MientrasOtroEscribe_SoloParaSuDueno) {
    const Base base;
    {
        const Escritor escritor(base);
        for (int i = 0; i < 5; ++i) {
            escritor.EsperarOtra();
            const std::string nombre = "copia" + std::to_string(i);
            int preguntas = 0;
            ConexionSqlite::Copiar(base.ruta, kIdentidad, base.carpeta.Fichero(nombre), [&] {
                escritor.EsperarOtra();
                return ++preguntas < 50;
            });
            EXPECT_EQ(fs::perms(0600), fs::status(base.carpeta.Fichero(nombre)).permissions());
            const auto copia = base.Abrir(nombre);
            EXPECT_EQ(Valor1(*copia), Valor1(*copia, 2));
            EXPECT_EQ(3000, ALong(LeerValor(*copia, "SELECT COUNT(*) AS N FROM Par")));
            EXPECT_EQ("ok", AString(LeerValor(*copia, "PRAGMA integrity_check"), '.'));
            EXPECT_EQ("wal", AString(LeerValor(*copia, "PRAGMA journal_mode"), '.'));
            EXPECT_LE(2, preguntas);
        }
    }
    EXPECT_LT(0, Valor1(*base.Abrir("copia4")));
}

TEST(Copiar, LoQueNoPuedeSer_DicePorQueYNoDejaNada) {
    const Base base;
    std::ofstream(base.carpeta.Fichero("hay.kv")) << "mio";
    const auto copiar = [&](const std::string& destino, bool sigue) {
        return FalloDe([&] { ConexionSqlite::Copiar(base.ruta, kIdentidad, destino, [&] { return sigue; }); });
    };
    EXPECT_EQ("9|SQLite|copia interrumpida", copiar(base.carpeta.Fichero("corta.kv"), false));
    EXPECT_EQ("14|SQLite|«" + base.carpeta.Fichero("hay.kv") + "» ya existe y no se toca",
              copiar(base.carpeta.Fichero("hay.kv"), true));
    EXPECT_EQ("14|SQLite|No se puede abrir «/proc/no/hay.creando»: No such file or directory",
              copiar("/proc/no/hay", true));
    EXPECT_EQ(2U, base.carpeta.CuantosFicheros());
    EXPECT_EQ("", copiar(base.carpeta.Fichero("corta.kv"), true));
}

}  // namespace
}  // namespace kv::prueba
