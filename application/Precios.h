#pragma once

#include <cstdint>
#include <optional>

#include "kvdatosart/application/Sesion.h"
#include "kvdatosart/application/Tabla.h"
#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"

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
struct PeticionPonerPrecio : PeticionPrecio {
    /// Even if another one of the same article and customer shares some of its days.
    bool forzar = false;
};

struct PeticionPrecios {
    /// One of them at least: the customers of an article, the articles of a customer, or both.
    std::optional<std::int32_t> articulo;
    std::optional<std::int32_t> cliente;
    /// Only those in force on this day.
    std::optional<Fecha> fecha;
};
/// Only reads. Rechazo, negative: there are none.
Tabla ListarPrecios(const Sesion& sesion, const PeticionPrecios& peticion);

// Rechazo, impossible: the last day before the first, a negative price.

struct RespuestaPrecio {
    ClavePrecio clave;
    /// None when it was taken away.
    std::optional<Currency> precio;
};
/// Rechazo, negative: no such article or customer, a price of that very key, or one that shares days and is not forced.
RespuestaPrecio PonerPrecio(const Sesion& sesion, const PeticionPonerPrecio& peticion);

// Rechazo, negative: there is no price of that key.

RespuestaPrecio CambiarPrecio(const Sesion& sesion, const PeticionPrecio& peticion);
RespuestaPrecio QuitarPrecio(const Sesion& sesion, const ClavePrecio& peticion);

}  // namespace kv::aplicacion
