#pragma once

#include <cstdint>

namespace kv {

/// What a database file must be to be opened as ours.
struct IdentidadBase {
    /// SQLite's application id, written when the file is made.
    std::int32_t aplicacion = 0;
    /// Schema version.
    std::int32_t version = 0;
};

}  // namespace kv
