#pragma once

#include <sqlite3.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace kv::prueba {

using Filas = std::vector<std::vector<std::string>>;

/// The rows of a statement of SQLite's own on a database file, past the adapter, with every value as text.
inline Filas LeerFilas(const std::string& ruta, const std::string& sql) {
    sqlite3* base = nullptr;
    sqlite3_open_v2(ruta.c_str(), &base, SQLITE_OPEN_READONLY, nullptr);
    const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> cierre(base, sqlite3_close);
    sqlite3_stmt* sentencia = nullptr;
    if (sqlite3_prepare_v2(base, sql.c_str(), -1, &sentencia, nullptr) != SQLITE_OK)
        throw std::runtime_error(sql + ": " + sqlite3_errmsg(base));
    const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> fin(sentencia, sqlite3_finalize);
    Filas filas;
    while (sqlite3_step(sentencia) == SQLITE_ROW) {
        std::vector<std::string>& fila = filas.emplace_back();
        for (int i = 0; i < sqlite3_column_count(sentencia); ++i) {
            const auto* texto = reinterpret_cast<const char*>(sqlite3_column_text(sentencia, i));
            fila.emplace_back(texto == nullptr ? "" : texto);
        }
    }
    return filas;
}

}  // namespace kv::prueba
