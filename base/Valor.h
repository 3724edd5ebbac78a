#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"

namespace kv {

/// NULL of the database.
struct Nulo {
    friend constexpr bool operator==(Nulo, Nulo) = default;
};

/// The value of a field, a parameter or a company parameter, as the database typed it. Text is UTF-8.
using Valor = std::variant<Nulo, bool, std::uint8_t, std::int16_t, std::int32_t, std::int64_t, float, double, Currency,
                           Fecha, std::string>;

bool EsNulo(const Valor& valor);

// Conversions to the component's types. All of them raise 94 for NULL, 13 for a value of another kind (text that is
// no number, a number asked as a date) and 6 for a value out of range. A number with decimals becomes a whole number
// rounded half to even; a Boolean becomes -1 or 0, but 1 or 0 is never read as one.

std::int16_t AInteger(const Valor& valor);
std::int32_t ALong(const Valor& valor);
/// A true Boolean becomes 255.
std::uint8_t AByte(const Valor& valor);
/// False for a zero number, true for any other; text is read as a number or as True, False, Verdadero, Falso.
bool ABoolean(const Valor& valor);
float ASingle(const Valor& valor);
double ADouble(const Valor& valor);
/// Rounded half to even at the fourth decimal.
Currency ACurrency(const Valor& valor);
/// The default text: numbers with `separador` before their decimals, dates as dd/mm/yyyy, Verdadero or Falso.
std::string AString(const Valor& valor, char separador);
/// Dates, text that holds one, and numbers as days since 30/12/1899.
Fecha ADate(const Valor& valor);

}  // namespace kv
