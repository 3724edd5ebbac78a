#pragma once

#include <memory>
#include <string>
#include <vector>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/ConexionTrazada.h"

namespace kv::prueba {

/// Passes everything on to a real connection, keeps every text, and makes the operation of one number fail once the
/// database has done it. Transactions do not count.
class ConexionQueFalla : public ConexionTrazada {
  public:
    explicit ConexionQueFalla(std::shared_ptr<Connection> interior, int falla = 0)
        : ConexionTrazada(std::move(interior), [this, falla](const OperacionTrazada& operacion) {
              if (operacion.texto.empty()) return;
              textos.emplace_back(operacion.texto);
              if (static_cast<int>(textos.size()) == falla) throw RuntimeError(1205, "Proveedor", "bloqueo");
          }) {}

    /// Texts in order, procedures by their name.
    std::vector<std::string> textos;
};

}  // namespace kv::prueba
