#pragma once

#include <cstdint>
#include <fstream>
#include <string>

#include "kvdatosart/catalog/Comparacion.h"

namespace kv::host {

/// Reads a list that was written earlier as JSON, a line at a time. Failures are std::runtime_error and name the file
/// and its line.
class LectorListaJson {
  public:
    explicit LectorListaJson(const std::string& ruta);

    /// The next line; false after the last one.
    bool Siguiente(ClaveComparada& clave, PrecioComparado& precio);

  private:
    [[noreturn]] void Fallar(const std::string& motivo) const;

    std::string ruta_;
    std::ifstream fichero_;
    std::string texto_;
    std::uint64_t linea_ = 0;
};

}  // namespace kv::host
