#pragma once

#include <cstdint>
#include <optional>

#include "application/Sesion.h"
#include "application/Tabla.h"
#include "base/Currency.h"
#include "base/Fecha.h"

namespace kv::aplicacion {

/// A customer's own price of an article between two days, both inclusive.
struct ClavePrecio {
    std::int32_t articulo = 0;
    std::int32_t cliente = 0;
    Fecha desde;
    /// Without end when it is left out.
    Fecha hasta = Fecha::DeAmd(2050, 12, 31);
};
struct PeticionPrecio : ClavePrecio {
    Currency precio;
};

struct PeticionPrecios {
    /// Exactly one of them: the customers of an article or the articles of a customer.
    std::optional<std::int32_t> articulo;
    std::optional<std::int32_t> cliente;
};
/// Only reads. Rechazo, negative: there are none.
Tabla ListarPrecios(const Sesion& sesion, const PeticionPrecios& peticion);

// Rechazo, impossible: the last day before the first.

struct RespuestaPrecio {
    ClavePrecio clave;
    /// None when it was taken away.
    std::optional<Currency> precio;
};
RespuestaPrecio PonerPrecio(const Sesion& sesion, const PeticionPrecio& peticion);
/// Rechazo, negative: there is no price of that key.
RespuestaPrecio CambiarPrecio(const Sesion& sesion, const PeticionPrecio& peticion);
RespuestaPrecio QuitarPrecio(const Sesion& sesion, const ClavePrecio& peticion);

}  // namespace kv::aplicacion
