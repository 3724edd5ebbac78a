#pragma once

#include <windows.h>

#include <string>

namespace kv {

/// "Error 0x" and the eight digits of the code, for failures that bring no text.
std::string TextoDelCodigo(HRESULT hr);

/// Raises the failure of a COM call as a RuntimeError: its number is the HRESULT, its source and text those of the
/// thread's error object, or the code and `origen` when the call left none.
[[noreturn]] void LanzarErrorCom(HRESULT hr, const char* origen);

/// Empties the thread's error object, so that a failure that leaves none of its own is not told with an older text.
void OlvidarError();

/// Nothing for a success; LanzarErrorCom for a failure.
inline void Comprobar(HRESULT hr, const char* origen) {
    if (FAILED(hr)) LanzarErrorCom(hr, origen);
}

}  // namespace kv
