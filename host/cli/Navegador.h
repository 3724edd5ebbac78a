#pragma once

#include <string>

namespace kv::host {

/// Opens an address with whatever the desktop opens addresses with, which goes on without us. False when there is no
/// such thing.
bool AbrirNavegador(const std::string& direccion);

}  // namespace kv::host
