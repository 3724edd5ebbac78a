#pragma once

#include <cstdint>
#include <optional>

#include "kvdatosart/application/Sesion.h"
#include "kvdatosart/application/Tabla.h"
#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"

namespace kv::aplicacion {

/// A scheduled change of an article's price in a tariff, from a day on.
struct ClaveCambio {
    std::int32_t articulo = 0;
    std::int16_t tarifa = 0;
    /// First day of the new price.
    Fecha desde;
    /// Variant, 0 for none.
    std::uint8_t cualidadX = 0;
};

struct PeticionCambios {
    std::optional<std::int32_t> articulo;
    std::optional<std::int16_t> tarifa;
    /// Only those that begin between both days, inclusive.
    std::optional<Fecha> desde;
    std::optional<Fecha> hasta;
};
/// Of a row of the changes, for people: programado, ya entró, retirado, no toma parte.
const char* SituacionCambio(Recordset& fila, Fecha hoy);

/// By article, tariff, variant and day, then in the order in which they were recorded. Only reads. Rechazo, impossible:
/// the last day before the first; negative: no such article or tariff, or there are none.
Tabla VerCambios(const Sesion& sesion, const PeticionCambios& peticion);

struct PeticionPonerCambio : ClaveCambio {
    Currency precio;
    /// Even if its day has come, or another one of the same article, tariff and variant begins on it: of two, the last
    /// recorded counts.
    bool forzar = false;
};
struct PeticionQuitarCambio : ClaveCambio {
    /// Its own code, when several begin on that day.
    std::optional<std::int32_t> codigo;
};
struct RespuestaCambio {
    ClaveCambio clave;
    std::int32_t codigo;
    /// None when it was taken away.
    std::optional<Currency> precio;
};
/// Rechazo, impossible: a price that is not above 0, which the look-ups pass over; negative: no such article or tariff,
/// its day has come or has a change already and it is not forced, or has one of that very price.
RespuestaCambio PonerCambio(const Sesion& sesion, const PeticionPonerCambio& peticion);
/// Rechazo, negative: there is none; impossible: there are several, and it is not said which.
RespuestaCambio QuitarCambio(const Sesion& sesion, const PeticionQuitarCambio& peticion);

}  // namespace kv::aplicacion
