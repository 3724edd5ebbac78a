#pragma once

#include <cstdint>
#include <optional>

#include "kvdatosart/application/Sesion.h"
#include "kvdatosart/application/Tabla.h"
#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"

namespace kv::aplicacion {

/// A sale to add to the day's statistics of a customer; negative for a return.
struct PeticionVenta {
    std::int32_t articulo = 0;
    std::int32_t cliente = 0;
    std::int16_t almacen = 1;
    Currency unidades;
    Currency importe;
    /// 0 takes it from the warehouse.
    Currency coste;
    /// The session's day when it is left out.
    std::optional<Fecha> fecha;
    /// Variant, 0 for none.
    std::uint8_t cualidadX = 0;
    std::uint8_t cualidadY = 0;
    /// Take a day to come.
    bool forzar = false;
};

/// Adds it in one transaction and answers with the statistics of that day. Rechazo, negative: no such article, customer
/// or warehouse; impossible: a day to come that is not forced.
Tabla AcumularVenta(const Sesion& sesion, const PeticionVenta& peticion);

}  // namespace kv::aplicacion
