#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "kvdatosart/base/Currency.h"
#include "kvdatosart/db/Connection.h"

namespace kv {

/// Which lines of two lists are the same.
struct ClaveComparada {
    std::int32_t articulo = 0;
    std::int32_t cliente = 0;
    Currency unidades;
};

/// One side of a line.
struct PrecioComparado {
    Currency pvp;
    Currency descuento;
    Currency neto;
    /// Without one, the amounts mean nothing.
    bool conPrecio = true;
    /// What else is to be the same on both sides, for people: why there is no price, or the line's state.
    std::string situacion;
    /// What set the price. It does not count as a difference.
    std::string motivo;
    std::string descripcion;
};

/// A line on which both lists differ, or that only one of them has.
struct LineaComparada {
    ClaveComparada clave;
    std::optional<PrecioComparado> antes;
    std::optional<PrecioComparado> despues;
    /// Of the net prices; none unless both sides have a price, the percentage not on a net of 0 either.
    std::optional<Currency> diferencia;
    std::optional<double> porcentaje;
};

struct RecuentoComparacion {
    std::uint64_t iguales = 0;
    std::uint64_t distintas = 0;
    /// Differ by less than was asked for.
    std::uint64_t menores = 0;
    std::uint64_t soloAntes = 0;
    std::uint64_t soloDespues = 0;

    bool HayDiferencias() const { return distintas + soloAntes + soloDespues != 0; }
};

/// Two lists beside each other: first every line of the one, then every line of the other, in any order; each key once
/// a side. What they hold lies in a table of `mesa`, a database of its own that may be thrown away, and not in memory.
class Comparacion {
  public:
    /// `umbral`: differences of a smaller percentage, up or down, are only counted.
    Comparacion(Connection& mesa, double umbral);

    void Antes(const ClaveComparada& clave, const PrecioComparado& precio);
    void Despues(const ClaveComparada& clave, const PrecioComparado& precio);

    /// What differs, the greatest percentage first, then what has none. Once, after every line.
    RecuentoComparacion Recorrer(const std::function<void(const LineaComparada&)>& linea);

  private:
    std::optional<PrecioComparado> Buscar(const ClaveComparada& clave) const;

    Connection& mesa_;
    double umbral_;
    RecuentoComparacion recuento_;
};

}  // namespace kv
