#include "db/sqlite/ErrorSqlite.h"

#include <sqlite3.h>

#include <string>

#include "base/RuntimeError.h"

namespace kv {

void LanzarErrorSqlite(sqlite3* base, std::string_view texto) {
    std::string descripcion = sqlite3_errmsg(base);
    if (!texto.empty()) descripcion += "; sentencia: " + std::string(texto);
    throw RuntimeError(sqlite3_extended_errcode(base), "SQLite", std::move(descripcion));
}

}  // namespace kv
