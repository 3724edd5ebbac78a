#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "kvdatosart/application/Sesion.h"
#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/catalog/Historia.h"

namespace kv::aplicacion {

/// A sales line whose price is followed from one day to another, both inclusive. What is left out comes from the
/// company and the session.
struct PeticionHistoriaDe {
    std::int32_t articulo = 0;
    std::int32_t cliente = 0;
    /// The session's day when it is left out.
    std::optional<Fecha> desde;
    /// Without end when it is left out.
    Fecha hasta = Fecha::DeAmd(2050, 12, 31);
    /// -1 sells at cost; 0 asks for none, so that the customer's come first.
    std::optional<std::int16_t> tarifa;
    std::int16_t almacen = 1;
    /// Of the price, 0 to 4.
    std::optional<std::int16_t> decimales;
    Currency unidades = Currency::DeEntero(1);
    /// Variant, 0 for none.
    std::uint8_t cualidadX = 0;
    std::uint8_t cualidadY = 0;
    /// Whoever reads the answer may see costs.
    bool conCoste = true;
};

struct RespuestaHistoria {
    std::int32_t articulo;
    std::string descripcion;
    std::int32_t cliente;
    std::string nombre;
    Fecha hoy;
    /// They touch each other, from the first day to the last; one at least. Those of days before today say what
    /// today's tariffs give, and not what was charged.
    std::vector<TramoHistoria> tramos;

    /// A day with a price is among them, and none that could not be priced.
    bool ConPrecio() const;
};

/// Only reads, on one state of the base. Rechazo, impossible: a last day before the first; negative: no such article,
/// customer, warehouse or tariff; a line that is sold at cost when costs are not to be seen.
RespuestaHistoria HistoriaDe(const Sesion& sesion, const PeticionHistoriaDe& peticion);

}  // namespace kv::aplicacion
