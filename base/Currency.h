#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

#include "kvdatosart/base/TextoNumero.h"

namespace kv {

/// A fixed-point amount with four decimals in 64 bits (money, quantities, prices, percentages).
/// Every operation raises error 6 when its result does not fit, NaN included.
class Currency {
  public:
    constexpr Currency() = default;

    /// From its count of ten-thousandths: 12.5 is 125000.
    static constexpr Currency DeDiezmilesimas(std::int64_t diezmilesimas) { return Currency(diezmilesimas); }
    /// From a whole number of units.
    static Currency DeEntero(std::int64_t unidades);
    /// Rounded half to even at the fourth decimal.
    static Currency DeDouble(double valor);
    /// From plain decimal text (sign, digits, one point or comma), rounded half to even at the fourth decimal.
    /// Error 13 when the text is no number.
    static Currency DeTexto(std::string_view texto);

    constexpr std::int64_t Diezmilesimas() const { return diezmilesimas_; }
    double ADouble() const { return static_cast<double>(diezmilesimas_) / 10000.0; }
    /// Default text: up to four decimals without trailing zeros, `separador` before them.
    TextoNumero ATexto(char separador) const;
    /// Text with exactly `decimales` decimals; what stands beyond them is cut, so round first. Decimals from 0 up.
    std::string ATextoFijo(int decimales, char separador) const;

    /// Rounded half away from zero to `decimales` decimals; 4 or more leave it as it is, a negative count is error 5.
    Currency RedondearAlejando(int decimales) const;

    Currency operator-() const;
    Currency& operator+=(Currency otro);
    Currency& operator-=(Currency otro);
    friend Currency operator+(Currency a, Currency b) { return a += b; }
    friend Currency operator-(Currency a, Currency b) { return a -= b; }
    /// The exact product, rounded half to even at the fourth decimal.
    friend Currency operator*(Currency a, Currency b);

    friend constexpr auto operator<=>(Currency, Currency) = default;

  private:
    explicit constexpr Currency(std::int64_t diezmilesimas) : diezmilesimas_(diezmilesimas) {}

    std::int64_t diezmilesimas_ = 0;
};

}  // namespace kv
