#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace kv {

/// The same bytes, as many as a number of this type has.
template <class Pieza>
bool MismaPieza(const char* a, const char* b) {
    Pieza x{};
    Pieza y{};
    std::memcpy(&x, a, sizeof x);
    std::memcpy(&y, b, sizeof y);
    return x == y;
}

/// a == b for texts of the same length without a call, for short ones: names are compared by the hundred.
inline bool MismosOctetos(std::string_view a, std::string_view b) {
    const std::size_t largo = a.size();
    // The last piece overlaps the one before it. Most names of columns are two.
    if (largo >= 8) {
        if (!MismaPieza<std::uint64_t>(a.data() + largo - 8, b.data() + largo - 8)) return false;
        if (!MismaPieza<std::uint64_t>(a.data(), b.data())) return false;
        for (std::size_t pos = 8; pos + 8 < largo; pos += 8)
            if (!MismaPieza<std::uint64_t>(a.data() + pos, b.data() + pos)) return false;
        return true;
    }
    if (largo >= 4)
        return MismaPieza<std::uint32_t>(a.data(), b.data()) &&
               MismaPieza<std::uint32_t>(a.data() + largo - 4, b.data() + largo - 4);
    for (std::size_t i = 0; i < largo; ++i)
        if (a[i] != b[i]) return false;
    return true;
}

/// a == b.
inline bool Identicos(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    return a.size() > 64 ? std::memcmp(a.data(), b.data(), a.size()) == 0 : MismosOctetos(a, b);
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
