#pragma once

#include <cstdint>

#include "kvdatosart/base/Currency.h"

namespace kv {

/// What one unit of a line comes to: its price less the line's discount (percent), which a load leaves to the host.
/// `pvp` × (100 − `descuento`) / 100, half to even at the fourth decimal, then through the common library's rounding
/// to `decimales`. No tax. Error 6 when the product does not fit.
Currency Neto(Currency pvp, Currency descuento, std::int16_t decimales);

}  // namespace kv
