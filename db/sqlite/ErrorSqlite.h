#pragma once

#include <string_view>

struct sqlite3;

namespace kv {

/// Raises the last failure of `base`: SQLite's extended code as number, "SQLite" as source, its message and the
/// statement's text as description.
[[noreturn]] void LanzarErrorSqlite(sqlite3* base, std::string_view texto);

}  // namespace kv
