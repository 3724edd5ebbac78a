#pragma once

#include <windows.h>

namespace kv {

/// Registers the class and its type library for the machine, or for the user when the machine's registry may not be
/// written. A failure leaves nothing registered.
HRESULT Registrar();

/// Removes every key that Registrar makes, of the machine and of the user. Missing keys are no failure.
HRESULT QuitarRegistro();

}  // namespace kv
