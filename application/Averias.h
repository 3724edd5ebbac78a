#pragma once

#include <stdexcept>

#include "kvdatosart/application/Bases.h"
#include "kvdatosart/base/RuntimeError.h"

namespace kv::aplicacion {

/// A failure of the database as people need it: which one, what happened and what to do, with the engine's own text
/// after it. In the text, {espera} stands for the field of that name, as in a Rechazo.
class Averia : public std::runtime_error {
  public:
    Averia(const OrigenBase& origen, const RuntimeError& error);
};

}  // namespace kv::aplicacion
