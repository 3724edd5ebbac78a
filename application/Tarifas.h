#pragma once

#include <cstdint>
#include <optional>

#include "kvdatosart/application/Sesion.h"
#include "kvdatosart/application/Tabla.h"
#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"

namespace kv::aplicacion {

/// The price of an article in one tariff, without a customer.
struct PeticionPvp {
    std::int32_t articulo = 0;
    std::int16_t tarifa = 0;
    /// The session's day when it is left out.
    std::optional<Fecha> fecha;
    /// Variant, 0 for none.
    std::uint8_t cualidadX = 0;
    /// On a future day, go by the scheduled changes even in a company that has them off.
    bool forzar = false;
};

struct RespuestaPvp {
    std::int32_t articulo;
    std::uint8_t cualidadX;
    Fecha fecha;
    Currency pvp;
    std::int16_t tarifa;
};

/// Only reads. Rechazo, negative: no such article or tariff, or the article has no price in it.
RespuestaPvp PrecioTarifa(const Sesion& sesion, const PeticionPvp& peticion);

/// The prices of an article in every tariff, its variants' too, with the changes to come.
struct PeticionTarifasDe {
    std::int32_t articulo = 0;
    std::optional<std::int16_t> tarifa;
    /// Last day of the changes that are shown.
    std::optional<Fecha> fecha;
};
/// Only reads. Rechazo, negative: no such article or tariff, or it has no prices.
Tabla TarifasDe(const Sesion& sesion, const PeticionTarifasDe& peticion);

}  // namespace kv::aplicacion
