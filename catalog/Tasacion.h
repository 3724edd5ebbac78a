#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/catalog/MotivoPrecio.h"
#include "kvdatosart/component/clsDatosArt.h"
#include "kvdatosart/db/Connection.h"
#include "kvdatosart/db/cEmpresa.h"

namespace kv {

/// A database connection and the company on it. Each thread needs its own of both.
struct Puesto {
    std::shared_ptr<Connection> conexion;
    std::shared_ptr<cEmpresa> empresa;
};

/// A sales line to price; the terms are those of `clsDatosArt::Cargar`.
struct Pregunta {
    std::int32_t articulo = 0;
    std::int32_t cliente = 0;
    Fecha fecha;
    /// -1 sells at cost.
    std::int16_t tarifa = 0;
    std::int16_t almacen = 1;
    /// Decimals of the price and of the net.
    std::int16_t decimales = 2;
    Currency unidades = Currency::DeEntero(1);
    std::uint8_t cualidadX = 0;
    std::uint8_t cualidadY = 0;
};

/// What a line comes to.
struct Tasacion {
    /// Result of the load, `kArticuloNoExiste` among them.
    std::int16_t estado = kArticuloNoExiste;
    /// Why the line could not be priced; empty when it could. The prices are then 0 and mean nothing.
    std::string fallo;
    /// Unit price before the line's discount (percent), and after it. A price of 0 is no price.
    Currency pvp;
    Currency descuento;
    Currency neto;
    MotivoPrecio motivo;

    std::string descripcion;
    std::array<std::int16_t, 3> familia{};
    /// Units per box.
    Currency uxb;
    /// Unit cost in the warehouse.
    Currency coste;
    /// What the chain agreement gave, for people; empty when the customer has no chain.
    std::string convenio;
    /// Available units in the warehouse.
    Currency existencias;
    /// Locked in the warehouse, for sale or in the catalogue, or discontinued.
    bool bloqueado = false;

    bool SinPrecio() const { return fallo.empty() && pvp == Currency(); }
};

/// Prices a line with an object of its own: a load leaves what it does not read as it finds it. Whatever the load
/// raises becomes the line's `fallo`, and so does a discount procedure that fails; a database that fails otherwise is
/// for the caller to find out.
Tasacion Tasar(const Puesto& puesto, const Pregunta& pregunta);

}  // namespace kv
