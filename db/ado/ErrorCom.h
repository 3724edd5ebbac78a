#pragma once

#include <windows.h>

namespace kv {

/// Raises the failure of a COM call as a RuntimeError: its number is the HRESULT, its source and text those of the
/// thread's error object, or the code and `origen` when the call left none.
[[noreturn]] void LanzarErrorCom(HRESULT hr, const char* origen);

/// Nothing for a success; LanzarErrorCom for a failure.
inline void Comprobar(HRESULT hr, const char* origen) {
    if (FAILED(hr)) LanzarErrorCom(hr, origen);
}

}  // namespace kv
