#pragma once

#include <string>
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

/// While it lives, nothing goes to standard output. One at a time.
class SinSalida {
  public:
    SinSalida();
    ~SinSalida();
    SinSalida(const SinSalida&) = delete;
    SinSalida& operator=(const SinSalida&) = delete;
};

/// Writes to standard output. A reader that went away (`| head`) is no failure: what is left is dropped, and the answer
/// is false. std::runtime_error, with the reason, when it cannot be written.
bool EscribirSalida(std::string_view texto);
/// Why the system does not write, in Spanish where people meet it: a full disk.
std::string MotivoDeEscritura(int error);

}  // namespace kv::host
