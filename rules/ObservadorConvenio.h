#pragma once

#include <array>
#include <cstdint>

#include "base/Currency.h"
#include "base/Fecha.h"

namespace kv {

/// A node of the chain hierarchy: ten level codes from the top down, unused deeper levels 0.
using NivelesCadena = std::array<std::int16_t, 10>;

/// What one discount of an agreement did to a price.
struct DescuentoAplicado {
    std::int16_t tipo;
    Currency importe;
    Currency cantidad;
    bool cascada;
    /// What it was taken on.
    Currency base;
    /// The amount taken off, or the new price of a quantity offer, before and after rounding.
    Currency sinRedondear;
    Currency redondeado;
    Currency antes;
    Currency despues;
};

/// Listens to the chain agreements while they price an article. It changes neither statements nor results.
class ObservadorConvenio {
  public:
    virtual ~ObservadorConvenio() = default;

    /// A node was asked for its agreed base price; `base` is 0 when its agreement has none.
    virtual void NodoBase(const NivelesCadena& nodo, bool hallado, Currency base) = 0;
    /// A node was asked for its discounts.
    virtual void NodoDescuentos(const NivelesCadena& nodo, bool hallado, int aplicables) = 0;
    virtual void DescuentoCadena(const DescuentoAplicado& descuento) = 0;
};

}  // namespace kv
