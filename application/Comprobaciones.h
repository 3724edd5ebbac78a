#pragma once

#include <cstdint>

#include "application/Sesion.h"

namespace kv::aplicacion {

// What the component takes as it comes and a person can only have mistyped. Each one names the request's field in its
// Rechazo: negative when the database has no such thing.

void ExigirArticulo(const Sesion& sesion, std::int32_t codigo);
void ExigirCliente(const Sesion& sesion, std::int32_t codigo);
void ExigirAlmacen(const Sesion& sesion, std::int16_t codigo);

}  // namespace kv::aplicacion
