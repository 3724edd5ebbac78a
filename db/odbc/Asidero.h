#pragma once

#include <utility>

#include "kvdatosart/db/odbc/Nativo.h"

namespace kv {

/// Owns one handle of the driver manager: an environment, a connection or a statement.
class Asidero {
  public:
    Asidero() = default;
    /// Asks `padre` for a handle of the given type (SQL_HANDLE_...). A failure carries the parent's diagnostics.
    Asidero(SQLSMALLINT tipo, SQLHANDLE padre, SQLSMALLINT tipoPadre);
    ~Asidero() { Soltar(); }
    Asidero(Asidero&& otro) noexcept : tipo_(otro.tipo_), asidero_(std::exchange(otro.asidero_, nullptr)) {}
    Asidero& operator=(Asidero&& otro) noexcept {
        std::swap(tipo_, otro.tipo_);
        std::swap(asidero_, otro.asidero_);
        return *this;
    }
    Asidero(const Asidero&) = delete;
    Asidero& operator=(const Asidero&) = delete;

    SQLHANDLE Get() const { return asidero_; }
    SQLSMALLINT Tipo() const { return tipo_; }
    void Soltar() noexcept;

  private:
    SQLSMALLINT tipo_ = SQL_HANDLE_ENV;
    SQLHANDLE asidero_ = nullptr;
};

/// Closes the cursor of a statement, with whatever it still holds, when its scope ends.
class CierraCursor {
  public:
    explicit CierraCursor(const Asidero& sentencia) : sentencia_(sentencia) {}
    ~CierraCursor() { SQLFreeStmt(sentencia_.Get(), SQL_CLOSE); }
    CierraCursor(const CierraCursor&) = delete;
    CierraCursor& operator=(const CierraCursor&) = delete;

  private:
    const Asidero& sentencia_;
};

}  // namespace kv
