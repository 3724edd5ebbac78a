#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "application/Sesion.h"

namespace kv::aplicacion {

/// Something that makes prices or stock surprising.
struct Hallazgo {
    std::string_view que;
    /// Names and values of the row's key.
    std::string clave;
    /// Why it matters.
    std::string_view porque;
};

/// Everything of the kind in the tables of a company; only reads. `avance` hears before each check how many are done
/// and how many there are. A database failure reaches the caller.
std::vector<Hallazgo> Revisar(const Sesion& sesion, const std::function<void(std::size_t, std::size_t)>& avance);

}  // namespace kv::aplicacion
