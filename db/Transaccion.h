#pragma once

#include "kvdatosart/db/Connection.h"

namespace kv {

/// A transaction for the life of this object: rolled back unless it was committed. Whatever reads before it writes
/// stands in one, movements of stock above all (`clsAlmacen_Articulo::Act_Stock`): two posters without it both read the
/// row before either writes it, and the average cost of the first is lost.
class Transaccion {
  public:
    explicit Transaccion(Connection& conexion) : conexion_(conexion) { conexion_.BeginTrans(); }
    ~Transaccion() {
        if (!abierta_) return;
        try {
            conexion_.RollbackTrans();
        } catch (...) {
            // Whatever it is, a destructor lets nothing out; the failure that brought us here is the one to report.
        }
    }
    Transaccion(const Transaccion&) = delete;
    Transaccion& operator=(const Transaccion&) = delete;

    /// A failure of the commit raises, and the transaction is rolled back at the end.
    void Confirmar() {
        conexion_.CommitTrans();
        abierta_ = false;
    }

  private:
    Connection& conexion_;
    bool abierta_ = true;
};

}  // namespace kv
