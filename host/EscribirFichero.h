#pragma once

#include <string>
#include <string_view>

namespace kv::host {

/// Writes a file whole or not at all: beside its place, synced, and given its name only then, in place of the one that
/// had it. std::runtime_error with the name and the reason when it cannot be written, or when the name is not a file's;
/// nothing is left then.
void EscribirFichero(const std::string& ruta, std::string_view texto);

}  // namespace kv::host
