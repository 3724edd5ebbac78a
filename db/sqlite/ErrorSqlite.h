#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct sqlite3;

namespace kv {

/// Raises the last failure of `base`: SQLite's extended code as number, "SQLite" as source, its message and the
/// statement's text as description.
[[noreturn]] void LanzarErrorSqlite(sqlite3* base, std::string_view texto);

/// Raises that a file is of no use: its name and why, under one of SQLite's codes.
[[noreturn]] void FicheroNoSirve(int numero, const std::string& ruta, const std::string& motivo);

/// Raises that a file has another schema version than the one that is needed, and which command helps an older one.
[[noreturn]] void OtraVersion(const std::string& ruta, std::int32_t version, std::int32_t necesaria);

}  // namespace kv
