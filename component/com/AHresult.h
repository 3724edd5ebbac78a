#pragma once

#include <windows.h>

namespace kv {

/// To be called inside a handler: leaves the failure being handled as the thread's error object (source and text) and
/// returns its HRESULT.
HRESULT AHresult() noexcept;

}  // namespace kv
