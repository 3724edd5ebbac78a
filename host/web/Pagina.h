#pragma once

#include <string>

namespace kv::host {

/// A file of the simulator's page by its path ("/pagina.js"); null when it has no such file.
const std::string* FicheroDePagina(const std::string& ruta);

}  // namespace kv::host
