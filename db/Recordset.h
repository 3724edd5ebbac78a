#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "kvdatosart/base/Valor.h"
#include "kvdatosart/db/Ado.h"

namespace kv {

class Connection;

/// A column of the current row. Holds a reference into its recordset: read it before MoveNext or Close.
class Field {
  public:
    explicit Field(const Valor& valor) : valor_(valor) {}
    const Valor& Value() const { return valor_; }

  private:
    const Valor& valor_;
};

/// The rows of a query, read in order. Made by its Connection; may be opened, closed and opened again.
/// Any failure of the database is a RuntimeError with the provider's number, source and text.
class Recordset {
  public:
    Recordset() = default;
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;
    virtual ~Recordset() = default;

    /// Runs `source` on `conexion`, which must be the connection that made this recordset, and stands on the first
    /// row. Opening an open recordset is error 3705 of ADO's adapters; close it first.
    virtual void Open(std::string_view source, Connection& conexion, CursorType cursor, LockType bloqueo,
                      CommandType opciones) = 0;
    /// True when there is no current row. Error 3704 when closed.
    virtual bool Eof() = 0;
    /// The column or alias `nombre` of the current row, without regard to letter case. Error 3265 when the query has
    /// no such column, 3021 without a current row, 3704 when closed.
    Field Fields(std::string_view nombre) { return Field(LeerCampo(nombre)); }
    virtual void MoveNext() = 0;
    /// Error 3704 when it is closed already.
    virtual void Close() = 0;
    virtual ObjectState State() const = 0;

    // For hosts that show whole rows.
    virtual std::int32_t NumeroCampos() = 0;
    /// Name of the column at `posicion`, from 0. Error 3265 outside.
    virtual std::string_view NombreCampo(std::int32_t posicion) = 0;

  protected:
    /// The value stays valid until MoveNext, Close or the next reading of the same column.
    virtual const Valor& LeerCampo(std::string_view nombre) = 0;
};

/// A recordset variable that creates itself on first use: opens `texto` forward-only and read-only, as text.
void AbrirLectura(std::unique_ptr<Recordset>& rs, Connection& conexion, std::string_view texto);

/// The same with a keyset cursor and a pessimistic lock, for screens that edit what they show.
void AbrirEdicion(std::unique_ptr<Recordset>& rs, Connection& conexion, std::string_view texto);

}  // namespace kv
