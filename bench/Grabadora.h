#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "kvdatosart/db/Connection.h"

namespace kv::bench {

/// What one load or posting sent and read: each statement with the columns that were read of its row, or the procedure
/// with its parameters. A missing row and a write have no columns.
struct OperacionGrabada {
    std::string texto;
    bool procedimiento = false;
    bool hayFila = false;
    std::vector<std::pair<std::string, Valor>> leidos;
    Parameters parametros;
};

using CargaGrabada = std::vector<OperacionGrabada>;

/// Passes everything on and keeps what passes.
class Grabadora : public Connection {
  public:
    explicit Grabadora(std::shared_ptr<Connection> interior) : interior_(std::move(interior)) {}

    CargaGrabada carga;

    void Execute(std::string_view, std::int32_t*, CommandType) override;
    void BeginTrans() override {}
    void CommitTrans() override {}
    void RollbackTrans() override {}
    std::unique_ptr<Recordset> CrearRecordset() override;
    std::unique_ptr<Command> CrearCommand() override;

  private:
    class Filas;
    class Orden;
    std::shared_ptr<Connection> interior_;
};

/// Answers recorded loads from memory, in their order: the component alone, without a database.
class ConexionMemoria : public Connection {
  public:
    /// The load that comes next.
    void Poner(const CargaGrabada& carga) {
        carga_ = &carga;
        siguiente_ = 0;
    }

    void Execute(std::string_view, std::int32_t*, CommandType) override;
    void BeginTrans() override {}
    void CommitTrans() override {}
    void RollbackTrans() override {}
    std::unique_ptr<Recordset> CrearRecordset() override;
    std::unique_ptr<Command> CrearCommand() override;

  private:
    class Filas;
    class Orden;
    const OperacionGrabada& Tomar(std::string_view texto);

    const CargaGrabada* carga_ = nullptr;
    std::size_t siguiente_ = 0;
};

}  // namespace kv::bench
