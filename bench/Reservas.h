#pragma once

#include <cstdint>

namespace kv::bench {

/// Allocations of the whole program so far, those of its libraries through `new` included.
std::uint64_t Reservas();

}  // namespace kv::bench
