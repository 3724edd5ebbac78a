#pragma once

#include <array>
#include <string>
#include <vector>

#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"

namespace kv::bench {

/// How a column is read into the reader's own variables.
enum class Lectura : std::uint8_t { Entero, Dinero, Real, Texto, Dia };

struct ColumnaLeida {
    std::string nombre;
    Lectura lectura;
};

/// One of the look-ups of a typical article load: its statement for an article and a customer, and what is read.
struct Consulta {
    std::string (*texto)(int articulo, int cliente);
    std::vector<ColumnaLeida> columnas;
};

inline constexpr std::size_t kConsultas = 18;

/// The look-ups in the order of a load.
const std::array<Consulta, kConsultas>& Consultas();

/// Where every reader leaves what it reads; a sum keeps the compiler from dropping the reading.
struct Destino {
    std::int64_t suma = 0;
    /// Values other than NULL that were read.
    std::int64_t leidos = 0;
    std::vector<std::string> textos = std::vector<std::string>(200);
};

}  // namespace kv::bench
