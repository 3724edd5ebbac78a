#pragma once

#include <cstdint>
#include <string_view>

#include "kvdatosart/base/Currency.h"
#include "kvdatosart/rules/ObservadorCadena.h"

namespace kv {

/// Where a candidate tariff comes from, in the order in which they are tried.
enum class OrigenTarifa : std::uint8_t { Pedida, PromocionCliente, Cliente, Empresa };

/// One look-up of a tariff price.
struct TarifaProbada {
    OrigenTarifa origen;
    std::int16_t tarifa;
    bool porCualidad;
    /// Among the scheduled changes rather than the current prices.
    bool programada;
    bool hallada;
    Currency pvp;
};

/// The sources that may set the price, in the order in which a load asks them.
enum class FuentePrecio : std::uint8_t {
    Tarifa,
    Coste,
    CosteTipoCliente,
    PrecioCliente,
    PrecioBaseCadena,
    ConvenioPvp,
    NetoCadena,
    Redondeo
};

/// What one source did to the price.
struct PasoPrecio {
    FuentePrecio fuente;
    /// The source had something to say.
    bool hallada;
    /// It set the price.
    bool aplicada;
    double antes;
    double despues;
};

enum class FuenteDescuento : std::uint8_t { Grupo, Familia };

/// Follows a load while it decides the price. It only listens: the load sends the same statements and reaches the
/// same result with and without it.
class ObservadorCarga : public ObservadorCadena {
  public:
    virtual void Tarifa(const TarifaProbada& tarifa) = 0;
    virtual void Paso(const PasoPrecio& paso) = 0;
    /// One discount look-up and the percentage that it gave, 0 when none.
    virtual void DescuentoLinea(FuenteDescuento fuente, Currency porcentaje) = 0;
    /// One discount look-up whose procedure failed, told in place of the percentage: the load goes on as if there were
    /// none. `fallo` is the failure's text.
    virtual void DescuentoFallido(FuenteDescuento fuente, std::string_view procedimiento, std::string_view fallo) = 0;
};

}  // namespace kv
