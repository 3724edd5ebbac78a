#pragma once

#include <memory>
#include <utility>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/Connection.h"
#include "kvdatosart/db/cEmpresa.h"

namespace kv {

/// The two references that every class of the component is given before any other call. Both are shared with the
/// host and set only; using one that was never set is error 91.
class Inyectado {
  public:
    /// The open database connection.
    void Conexion(std::shared_ptr<Connection> conexion) { conexion_ = std::move(conexion); }
    /// The company in whose name the object works.
    void cEmpresa(std::shared_ptr<kv::cEmpresa> empresa) { empresa_ = std::move(empresa); }

  protected:
    Connection& Cnx() const {
        if (!conexion_) LanzarError(kErrObjetoNoEstablecido, "Conexion");
        return *conexion_;
    }
    const kv::cEmpresa& Emp() const {
        if (!empresa_) LanzarError(kErrObjetoNoEstablecido, "cEmpresa");
        return *empresa_;
    }
    /// Hands both references on to an object that this one creates.
    void Inyectar(Inyectado& otro) const {
        otro.Conexion(conexion_);
        otro.cEmpresa(empresa_);
    }

  private:
    std::shared_ptr<Connection> conexion_;
    std::shared_ptr<kv::cEmpresa> empresa_;
};

}  // namespace kv
