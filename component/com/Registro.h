#pragma once

#include <windows.h>

namespace kv {

/// Registers the class and its type library for the machine, or for the user when the machine's registry may not be
/// written. A failure leaves nothing registered.
HRESULT Registrar();

/// The same for the machine (HKEY_LOCAL_MACHINE) or for the user (HKEY_CURRENT_USER) alone.
HRESULT RegistrarEn(HKEY raiz);

/// Removes every key that Registrar makes, of the machine and of the user; the program identifier stays while the DLL
/// of the other bitness is registered. Missing keys are no failure.
HRESULT QuitarRegistro();

}  // namespace kv
