#pragma once

#include <cstdint>

namespace kv {

/// The HRESULT of an error number: a failure code of a provider stays as it is, the runtime's own small numbers (1 to
/// 65535) become 0x800A0000 + n, and a number that is no failure becomes the internal error's.
constexpr std::int32_t HresultDeNumero(std::int32_t numero) {
    constexpr std::uint32_t kControl = 0x800A0000U;
    constexpr std::uint32_t kInterno = 51;
    if (numero < 0) return numero;
    const bool pequeno = numero > 0 && numero <= 0xFFFF;
    return static_cast<std::int32_t>(kControl + (pequeno ? static_cast<std::uint32_t>(numero) : kInterno));
}

}  // namespace kv
