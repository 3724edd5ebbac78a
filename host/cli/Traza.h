#pragma once

#include <chrono>

#include "kvdatosart/db/ConexionTrazada.h"

namespace kv::host {

/// Writes each operation to standard error as it ends, so that a failing command shows what came before.
class Traza {
  public:
    void operator()(const OperacionTrazada& operacion);
    /// The sum of all.
    void Resumir() const;

  private:
    std::chrono::nanoseconds total_{};
    int cuantas_ = 0;
};

}  // namespace kv::host
