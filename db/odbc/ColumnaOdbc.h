#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
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
    /// False when a column before it has the same name: a reading by name does not reach it.
    bool primera = true;
    LecturaOdbc lectura = LecturaOdbc::Texto;
    /// Characters that fit it, as the database says; 0 when it does not.
    std::size_t ancho = 0;
};

using ColumnasOdbc = std::vector<ColumnaOdbc>;

}  // namespace kv
