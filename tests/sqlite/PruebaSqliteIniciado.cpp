#include <gtest/gtest.h>
#include <sqlite3.h>

#include "kvdatosart/db/sqlite/ConexionSqlite.h"
#include "kvdatosart/tests/comun/FicheroTemporal.h"
#include "kvdatosart/tests/comun/LeerValor.h"

namespace kv::prueba {
namespace {

// A program of its own: SQLite starts once for the whole process.
TEST(SqliteIniciado, PorElAnfitrion_TrabajaSinLosAjustesDelAdaptador) {
    ASSERT_EQ(SQLITE_OK, sqlite3_initialize());
    ASSERT_EQ(SQLITE_MISUSE, sqlite3_config(SQLITE_CONFIG_PAGECACHE, nullptr, 0, 0));
    constexpr IdentidadBase kIdentidad{0x4B56, 3};
    const CarpetaTemporal carpeta;
    const std::string ruta = carpeta.Fichero("base.kv");
    ConexionSqlite::Crear(ruta, kIdentidad, "CREATE TABLE T (Codigo int, Nombre varchar(9))", [](Connection& conexion) {
        for (int i = 0; i < 50; ++i)
            conexion.Ejecutar("INSERT INTO T (Codigo, Nombre) VALUES (" + std::to_string(i) + ", 'fila')");
    });
    const auto conexion = ConexionSqlite::Abrir(ruta, kIdentidad, ConexionSqlite::Modo::SoloLectura);
    EXPECT_EQ(Valor(std::int32_t{49}), LeerValor(*conexion, "SELECT TOP 1 Codigo FROM T ORDER BY Codigo DESC"));
}

}  // namespace
}  // namespace kv::prueba
