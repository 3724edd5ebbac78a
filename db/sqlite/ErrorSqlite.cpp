#include "kvdatosart/db/sqlite/ErrorSqlite.h"

#include <sqlite3.h>

#include "kvdatosart/base/RuntimeError.h"

namespace kv {

void LanzarErrorSqlite(sqlite3* base, std::string_view texto) {
    std::string descripcion = sqlite3_errmsg(base);
    if (!texto.empty()) descripcion += "; sentencia: " + std::string(texto);
    throw RuntimeError(sqlite3_extended_errcode(base), "SQLite", std::move(descripcion));
}

void FicheroNoSirve(int numero, const std::string& ruta, const std::string& motivo) {
    throw RuntimeError(numero, "SQLite", "«" + ruta + "» " + motivo);
}

void OtraVersion(const std::string& ruta, std::int32_t version, std::int32_t necesaria) {
    std::string motivo =
        "tiene la versión de esquema " + std::to_string(version) + " y hace falta la " + std::to_string(necesaria);
    if (version > 0 && version < necesaria) motivo += "; «kvdatosart actualizar --base " + ruta + "» la pone al día";
    FicheroNoSirve(SQLITE_SCHEMA, ruta, motivo);
}

}  // namespace kv
