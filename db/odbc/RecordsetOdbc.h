#pragma once

#include <memory>

#include "kvdatosart/db/odbc/InteriorOdbc.h"

namespace kv {

/// Rows read whole when it opens: the connection is free again at once, and neither it nor another recordset can
/// disturb them. A keyset or a lock is not given, since nothing can be edited through a recordset.
class RecordsetOdbc : public Recordset {
  public:
    explicit RecordsetOdbc(std::shared_ptr<ConexionOdbc::Interior> interior) : interior_(std::move(interior)) {}

    void Open(std::string_view source, Connection& conexion, CursorType cursor, LockType bloqueo,
              CommandType opciones) override;
    bool Eof() override;
    void MoveNext() override;
    void Close() override;
    ObjectState State() const override;
    std::int32_t NumeroCampos() override;
    std::string_view NombreCampo(std::int32_t posicion) override;

  protected:
    const Valor& LeerCampo(std::string_view nombre) override;

  private:
    const Resultado& Abierto() const;
    const Resultado& ConFila() const;
    /// The column that a reading of `nombre` means; as many as there are columns for none.
    std::size_t Posicion(const ColumnasOdbc& columnas, std::string_view nombre) const;

    std::shared_ptr<ConexionOdbc::Interior> interior_;
    Resultado resultado_;
    bool abierto_ = false;
    std::size_t fila_ = 0;
    // The column that is looked at first: rows are mostly read from left to right.
    std::size_t siguiente_ = 0;
};

}  // namespace kv
