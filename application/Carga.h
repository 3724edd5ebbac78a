#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "kvdatosart/application/Explicacion.h"
#include "kvdatosart/application/Sesion.h"
#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/component/clsDatosArt.h"

namespace kv::aplicacion {

/// A sales line to price. What is left out comes from the company and, the day, from the session.
struct PeticionCarga {
    std::int32_t articulo = 0;
    std::int32_t cliente = 0;
    std::optional<Fecha> fecha;
    /// -1 sells at cost; 0 asks for none, so that the customer's come first.
    std::optional<std::int16_t> tarifa;
    std::int16_t almacen = 1;
    /// Of the price, 0 to 4.
    std::optional<std::int16_t> decimales;
    Currency unidades = Currency::DeEntero(1);
    /// Variant, 0 for none.
    std::uint8_t cualidadX = 0;
    std::uint8_t cualidadY = 0;
    /// Load the sales parent too.
    bool padre = false;
    /// Tell where the price comes from.
    bool explica = false;
    /// Whoever reads the answer may see costs.
    bool conCoste = true;
};

struct RespuestaCarga {
    /// kCargado, kSinStock or kBloqueadoEnAlmacen.
    std::int16_t estado;
    /// Everything that the load reads.
    std::unique_ptr<const clsDatosArt> articulo;
    /// The price less the line's discount; none when it does not fit.
    std::optional<Currency> neto;
    /// As it was asked: whether the cost may be told.
    bool conCoste;
    /// Was asked for; null when the article has none. Its code is 0 when the catalogue does not have it.
    bool conPadre;
    std::shared_ptr<const clsDatosArt> padre;
    /// Was asked for.
    bool conExplicacion;
    std::vector<PasoExplicado> explicacion;
};

/// Only reads. Rechazo, negative: no such article, customer, warehouse or tariff; a line that is sold at cost when
/// costs are not to be seen.
RespuestaCarga Cargar(const Sesion& sesion, const PeticionCarga& peticion);

}  // namespace kv::aplicacion
