#pragma once

#include <string>

namespace kv::bench {

inline constexpr int kClientes = 5000;

/// Makes a database file of the suite's schema with this many articles, priced, stocked and partly under agreements.
void CrearBaseGrande(const std::string& ruta, int articulos);

}  // namespace kv::bench
