#pragma once

#include <memory>

#include "kvdatosart/db/sqlite/ConexionSqlite.h"
#include "kvdatosart/db/sqlite/Sentencia.h"

namespace kv {

/// Lets a statement go when its scope ends, however it ends.
class SueltaSentencia {
  public:
    explicit SueltaSentencia(Sentencia& sentencia) : sentencia_(sentencia) {}
    ~SueltaSentencia() { sentencia_.Soltar(); }
    SueltaSentencia(const SueltaSentencia&) = delete;
    SueltaSentencia& operator=(const SueltaSentencia&) = delete;

  private:
    Sentencia& sentencia_;
};

/// Rows of the embedded database, read as they are asked for. Every cursor is a forward-only one.
class ConexionSqlite::RecordsetSqlite : public Recordset {
  public:
    explicit RecordsetSqlite(std::shared_ptr<Interior> interior) : interior_(std::move(interior)) {}
    ~RecordsetSqlite() override;

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
    Sentencia& Abierta();

    std::shared_ptr<Interior> interior_;
    Sentencia* sentencia_ = nullptr;
    bool hayFila_ = false;
};

}  // namespace kv
