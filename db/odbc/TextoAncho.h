#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "kvdatosart/db/odbc/Nativo.h"

namespace kv {

/// UTF-16 as the driver manager takes it, without a closing zero.
using TextoAncho = std::vector<SQLWCHAR>;

/// Writes `utf8` over `ancho`, which keeps its room. Error 13 when it is no UTF-8.
void AAncho(std::string_view utf8, TextoAncho& ancho);

/// Writes `unidades` units of UTF-16 over `utf8`, which keeps its room. Half a surrogate pair becomes U+FFFD.
void DeAncho(const SQLWCHAR* ancho, std::size_t unidades, std::string& utf8);

}  // namespace kv
