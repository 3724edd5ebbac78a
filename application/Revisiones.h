#pragma once

#include <functional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "kvdatosart/application/Sesion.h"
#include "kvdatosart/application/Tabla.h"

namespace kv::aplicacion {

/// Something that makes prices or stock surprising.
struct Hallazgo {
    std::string_view que;
    /// What the row is known by: columns of `ColumnasHallazgo` and their values.
    std::vector<std::pair<const ColumnaTabla*, Valor>> clave;
    /// Why it matters.
    std::string_view porque;
};

/// Every column that a finding may be known by, each once.
std::span<const ColumnaTabla> ColumnasHallazgo();

/// Everything of the kind in the tables of a company; only reads. `avance` hears before each check how many are done
/// and how many there are. A database failure reaches the caller.
std::vector<Hallazgo> Revisar(const Sesion& sesion, const std::function<void(std::size_t, std::size_t)>& avance);

}  // namespace kv::aplicacion
