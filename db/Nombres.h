#pragma once

#include <string_view>

namespace kv {

/// True when two column or parameter names are the same without regard to the case of their ASCII letters.
inline bool MismoNombre(std::string_view a, std::string_view b) {
    if (a == b) return true;
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        const unsigned char x = static_cast<unsigned char>(a[i]);
        const unsigned char y = static_cast<unsigned char>(b[i]);
        if (x == y) continue;
        const unsigned char minuscula = x | 0x20U;
        if (minuscula != (y | 0x20U) || minuscula < 'a' || minuscula > 'z') return false;
    }
    return true;
}

}  // namespace kv
