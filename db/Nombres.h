#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace kv {

/// a == b, without a call for the short texts that names and literals are: they are compared by the hundred.
inline bool Identicos(std::string_view a, std::string_view b) {
    const std::size_t largo = a.size();
    if (largo != b.size()) return false;
    if (largo > 64) return std::memcmp(a.data(), b.data(), largo) == 0;
    if (largo < sizeof(std::uint64_t)) {
        for (std::size_t i = 0; i < largo; ++i)
            if (a[i] != b[i]) return false;
        return true;
    }
    const auto distintos = [&](std::size_t pos) {
        std::uint64_t x = 0;
        std::uint64_t y = 0;
        std::memcpy(&x, a.data() + pos, sizeof x);
        std::memcpy(&y, b.data() + pos, sizeof y);
        return x != y;
    };
    for (std::size_t pos = 0; pos + sizeof(std::uint64_t) < largo; pos += sizeof(std::uint64_t))
        if (distintos(pos)) return false;
    return !distintos(largo - sizeof(std::uint64_t));
}

/// True when two column or parameter names are the same without regard to the case of their ASCII letters.
inline bool MismoNombre(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    if (Identicos(a, b)) return true;
    for (std::size_t i = 0; i < a.size(); ++i) {
        const unsigned char x = static_cast<unsigned char>(a[i]);
        const unsigned char y = static_cast<unsigned char>(b[i]);
        if (x == y) continue;
        const unsigned char minuscula = x | 0x20U;
        if (minuscula != (y | 0x20U) || minuscula < 'a' || minuscula > 'z') return false;
    }
    return true;
}

/// `texto` with its ASCII letters in lower case.
inline std::string Minusculas(std::string_view texto) {
    std::string minusculas(texto);
    for (char& c : minusculas)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
    return minusculas;
}

}  // namespace kv
