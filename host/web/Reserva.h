#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <vector>

#include "kvdatosart/application/Bases.h"
#include "kvdatosart/host/web/Limites.h"

namespace kv::host {

/// Every connection is lent, and none came back in time.
class SinConexiones : public std::runtime_error {
  public:
    SinConexiones() : std::runtime_error("el servidor está ocupado; se vuelve a probar dentro de un momento") {}
};

/// A few connections to one database that only read, each lent to one question at a time.
class Reserva {
  public:
    Reserva(aplicacion::OrigenBase origen, std::size_t cuantas) : origen_(std::move(origen)), libres_(cuantas) {}

    /// The place of a connection, lent for as long as this lives.
    class Prestamo {
      public:
        explicit Prestamo(Reserva& reserva) : reserva_(reserva), conexion_(reserva.Tomar()) {}
        ~Prestamo() { reserva_.Devolver(std::move(conexion_)); }
        Prestamo(const Prestamo&) = delete;
        Prestamo& operator=(const Prestamo&) = delete;

        /// Opens it when it is the first time: the adapter's error.
        const std::shared_ptr<Connection>& Conexion() {
            if (!conexion_) conexion_ = aplicacion::AbrirBase(reserva_.origen_, aplicacion::Acceso::Leer);
            return conexion_;
        }
        /// It failed: the next one opens another.
        void Desechar() { conexion_.reset(); }

      private:
        Reserva& reserva_;
        std::shared_ptr<Connection> conexion_;
    };

  private:
    std::shared_ptr<Connection> Tomar() {
        std::unique_lock seguro(cerrojo_);
        if (!hay_.wait_for(seguro, kMaximoEspera, [this] { return !libres_.empty(); })) throw SinConexiones();
        const auto conexion = std::move(libres_.back());
        libres_.pop_back();
        return conexion;
    }
    void Devolver(std::shared_ptr<Connection> conexion) {
        const std::lock_guard seguro(cerrojo_);
        // Those that are open are taken first.
        libres_.insert(conexion ? libres_.end() : libres_.begin(), std::move(conexion));
        hay_.notify_one();
    }

    const aplicacion::OrigenBase origen_;
    std::mutex cerrojo_;
    std::condition_variable hay_;
    std::vector<std::shared_ptr<Connection>> libres_;
};

}  // namespace kv::host
