#pragma once

#include <chrono>
#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

#include "kvdatosart/base/TextoNumero.h"

namespace kv {

/// A calendar day from 01/01/0100 to 31/12/9999, without time or zone. A fresh one is 30/12/1899, the zero date.
class Fecha {
  public:
    constexpr Fecha() = default;

    /// Error 5 when the day does not exist or lies outside the range.
    static Fecha DeAmd(int anio, int mes, int dia);
    /// Reads dd/mm/yyyy (day and month of one or two digits) or yyyy-mm-dd; a time part after a blank or a T is
    /// ignored. Error 13 for anything else, an impossible day included.
    static Fecha DeTexto(std::string_view texto);
    /// From days since 30/12/1899; the time fraction is dropped (negative dates count it away from zero). Less than
    /// half a millisecond before midnight is the next day: dates got by arithmetic fall short by as much. Error 6
    /// outside the range, NaN included.
    static Fecha DeOle(double dias);

    int Anio() const;
    int Mes() const;
    int Dia() const;
    /// Days since 30/12/1899.
    double AOle() const;
    /// dd/mm/yyyy: two, two and four digits on every host.
    TextoNumero ATexto() const;
    /// yyyy-mm-dd.
    TextoNumero AIso() const;

    /// The day `dias` later (earlier when negative). Error 6 outside the range.
    Fecha operator+(int dias) const;

    friend constexpr auto operator<=>(Fecha, Fecha) = default;

  private:
    explicit constexpr Fecha(std::chrono::sys_days dia) : dia_(dia) {}
    static Fecha DeDias(std::chrono::sys_days dia);

    std::chrono::sys_days dia_ = std::chrono::sys_days(std::chrono::days(-25569));
};

}  // namespace kv
