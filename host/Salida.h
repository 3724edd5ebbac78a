#pragma once

#include <string_view>

#include "kvdatosart/host/EscribirTexto.h"

namespace kv::host {

/// A narrower terminal is written as if it were as wide as this.
inline constexpr std::size_t kAnchoMinimo = 20;

/// How people read what goes to standard output: the terminal's columns (80 when it does not say, no limit through a
/// pipe), colour on a terminal unless NO_COLOR or TERM=dumb says otherwise.
Presentacion PresentacionDeSalida();
/// What the user's system puts before the decimals, whatever the component goes by.
char SeparadorDeGente();

/// Writes to standard output. A reader that went away (`| head`) is no failure: what is left is dropped.
/// std::runtime_error, with the reason, when it cannot be written.
void EscribirSalida(std::string_view texto);

}  // namespace kv::host
