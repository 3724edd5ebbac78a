#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "kvdatosart/application/Sesion.h"
#include "kvdatosart/application/Tabla.h"
#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/rules/ObservadorCadena.h"

namespace kv::aplicacion {

/// The agreements of an article with all their levels and discounts, in the order of nodes and days; those of a node,
/// and those in force on a day, when they are given.
Tabla ListarAcuerdos(const Sesion& sesion, std::int32_t articulo, const std::optional<NivelesCadena>& nodo = {},
                     const std::optional<Fecha>& fecha = {});

}  // namespace kv::aplicacion
