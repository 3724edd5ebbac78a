#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"

namespace kv::host {

// What a person writes, read strictly. Each function names the request's field in its Rechazo, which is impossible.

/// Refuses a command line with a text that is no UTF-8; names the argument by its place and by the option before it.
void ExigirUtf8(int argc, const char* const* argv);
/// An option that is given says something.
void ExigirLleno(const std::string& campo, const std::string& texto);
/// A whole number between both limits, inclusive.
std::int32_t LeerEntero(const std::string& opcion, const std::string& texto, std::int32_t minimo, std::int32_t maximo);
/// A code of 16 bits from `minimo` to 32767.
std::int16_t LeerCodigo(const std::string& opcion, const std::string& texto, std::int16_t minimo = 1);
/// dd/mm/aaaa or aaaa-mm-dd.
Fecha LeerFecha(const std::string& opcion, const std::string& texto);
/// A number with at most four decimals after a point or a comma. With a comma, points may part its thousands (1.000,5);
/// without one, a single group of three digits after a point (1.000) may mean two numbers and is refused, but not after
/// a lone 0 or more than three digits.
Currency LeerImporte(const std::string& opcion, const std::string& texto);

}  // namespace kv::host
