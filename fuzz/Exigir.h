#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace kv::difuso {

/// Ends the program, as a sanitizer does, when what must hold does not; `detalle` is shown with `regla`.
inline void Exigir(bool cumplido, const char* regla, std::string_view detalle) {
    if (cumplido) return;
    std::fprintf(stderr, "NO SE CUMPLE: %s\n%.*s\n", regla, static_cast<int>(detalle.size()), detalle.data());
    std::abort();
}

/// The bytes of a case as text.
inline std::string Texto(const std::uint8_t* datos, std::size_t largo) {
    return {reinterpret_cast<const char*>(datos), largo};
}

}  // namespace kv::difuso

/// One case, as the fuzzer and the replaying of the seeds call it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t largo);
