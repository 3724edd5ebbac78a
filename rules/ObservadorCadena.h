#pragma once

#include <array>
#include <cstdint>

#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Valor.h"

namespace kv {

/// A node of the chain hierarchy: ten level codes from the top down, unused deeper levels 0.
using NivelesCadena = std::array<std::int16_t, 10>;

/// First and last day of an agreement, as its row holds them.
struct DiasAcuerdo {
    Valor entrada;
    Valor salida;
};

/// What one discount of an agreement did to a price.
struct DescuentoAplicado {
    /// One of `DescuentosAcuerdo.h`; any other leaves the price as it was.
    std::int16_t tipo = 0;
    Currency importe;
    Currency cantidad;
    bool cascada = false;
    /// What it was taken on.
    Currency base;
    /// The amount taken off, or the new price of a quantity offer, before and after rounding.
    Currency sinRedondear;
    Currency redondeado;
    Currency antes;
    Currency despues;
};

/// Listens to the chain agreements while they price an article. It changes neither statements nor results.
class ObservadorCadena {
  public:
    virtual ~ObservadorCadena() = default;

    /// A node was asked for its agreed base price: the days of the agreement that it has on the day, null for none;
    /// `base` is 0 when that agreement has none.
    virtual void NodoBase(const NivelesCadena& nodo, const DiasAcuerdo* acuerdo, Currency base) = 0;
    /// A node was asked for its discounts; `aplicables` of its agreement's five apply on the day.
    virtual void NodoDescuentos(const NivelesCadena& nodo, const DiasAcuerdo* acuerdo, int aplicables) = 0;
    virtual void DescuentoCadena(const DescuentoAplicado& descuento) = 0;
};

}  // namespace kv
