#pragma once

#include <string_view>

#include "kvdatosart/base/Fecha.h"

namespace kv {

// What the common library takes from the operating system; each has a source file of its own.

/// The date here, by the user's clock.
Fecha FechaDelSistema();
/// The user's decimal separator: ',' or, for any other, '.'.
char SeparadorDelSistema();
/// Shows a critical message and returns when it was read: a message box on Windows, standard error elsewhere.
void MostrarMensajeCritico(std::string_view texto, std::string_view titulo);

}  // namespace kv
