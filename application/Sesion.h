#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/db/Connection.h"
#include "kvdatosart/db/cEmpresa.h"

namespace kv {
struct Puesto;
}

namespace kv::aplicacion {

/// Where and when a person asks: an open database, a company and a day that stays the same while the session lasts.
/// One session serves one thread.
class Sesion {
  public:
    Sesion(std::shared_ptr<Connection> conexion, std::shared_ptr<kv::cEmpresa> empresa, Fecha hoy)
        : conexion_(std::move(conexion)), empresa_(std::move(empresa)), hoy_(hoy) {}

    Connection& Cnx() const { return *conexion_; }
    /// Not to be asked of a session without a company, which lists companies only.
    const kv::cEmpresa& Emp() const { return *empresa_; }
    Fecha Hoy() const { return hoy_; }

    /// Gives an object of the component this database and company.
    template <class Objeto>
    void Inyectar(Objeto& objeto) const {
        objeto.Conexion(conexion_);
        objeto.cEmpresa(empresa_);
    }

    /// Where the price lists and histories of this session are made.
    kv::Puesto EnPuesto() const;

    /// Whether a query has a row.
    bool Hay(std::string_view sql) const;

  private:
    std::shared_ptr<Connection> conexion_;
    std::shared_ptr<kv::cEmpresa> empresa_;
    Fecha hoy_;
};

/// The name of the session's company; empty when it has none. Only reads.
std::string NombreEmpresa(const Sesion& sesion);

/// The company of a session to be. Rechazo of "empresa" when there is none of that code.
std::shared_ptr<kv::cEmpresa> LeerEmpresa(Connection& conexion, std::int16_t codigo);

}  // namespace kv::aplicacion
