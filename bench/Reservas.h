#pragma once

#include <cstdint>

namespace kv::bench {

/// Allocations of the whole program so far, those of its libraries through `new` included.
std::uint64_t Reservas();

/// Keeps freed memory instead of giving it back to the system page by page: SQLite frees and takes a page cache slot at
/// every look-up, and where it lies on the heap would decide which reader pays for it.
void EstabilizarMonton();

}  // namespace kv::bench
