#include "kvdatosart/db/UsoUnico.h"

#include <cstdio>
#include <cstdlib>

namespace kv {

bool UsoUnico::Tomar() {
    static thread_local const char yo = 0;
    const void* dueno = nullptr;
    if (dueno_.compare_exchange_strong(dueno, &yo)) return true;
    if (dueno == &yo) return false;
    std::fputs("KVDatosArt: dos hilos usan a la vez la misma conexión; cada hilo necesita la suya\n", stderr);
    std::abort();
}

}  // namespace kv
