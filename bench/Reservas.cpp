#include "kvdatosart/bench/Reservas.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::uint64_t> reservas{0};

}  // namespace

void* operator new(std::size_t bytes) {
    reservas.fetch_add(1, std::memory_order_relaxed);
    if (void* memoria = std::malloc(bytes)) return memoria;
    throw std::bad_alloc();
}
void operator delete(void* memoria) noexcept {
    std::free(memoria);
}
void operator delete(void* memoria, std::size_t) noexcept {
    std::free(memoria);
}

std::uint64_t kv::bench::Reservas() {
    return reservas.load();
}
