#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kv {

/// How the values of a column are asked for and what they become.
enum class LecturaOdbc : std::uint8_t {
    Logico,
    Octeto,
    Corto,
    Largo,
    Grande,
    Simple,
    Doble,
    Dinero,
    Dia,
    DiaYHora,
    Texto
};

struct ColumnaOdbc {
    std::string nombre;
    /// HuellaNombre of the name.
    std::uint32_t huella = 0;
    LecturaOdbc lectura = LecturaOdbc::Texto;
    /// Characters that fit it, as the database says; 0 when it does not.
    std::size_t ancho = 0;
};

using ColumnasOdbc = std::vector<ColumnaOdbc>;

/// A number that names have in common when they differ at most in the case of ASCII letters.
inline std::uint32_t HuellaNombre(std::string_view nombre) {
    std::uint32_t huella = 0;
    for (const char c : nombre) huella = huella * 31U + (static_cast<unsigned char>(c) | 0x20U);
    return huella;
}

}  // namespace kv
