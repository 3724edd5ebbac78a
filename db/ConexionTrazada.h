#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "kvdatosart/db/Connection.h"

namespace kv {

/// One operation that passed through a traced connection.
struct OperacionTrazada {
    /// Open, Execute, Command, BeginTrans, CommitTrans or RollbackTrans.
    std::string_view clase;
    /// The statement or the procedure's name; empty for transactions.
    std::string_view texto;
    std::chrono::nanoseconds tiempo{};
    /// Open: whether there was a row.
    bool hayFila = false;
    /// Execute: records affected, -1 when the caller did not ask.
    std::int32_t afectados = -1;
    /// Empty when it did not fail.
    std::string error;
};

/// Passes everything on to another connection and reports each operation once it has ended, failed ones included.
class ConexionTrazada : public Connection {
  public:
    using Informe = std::function<void(const OperacionTrazada&)>;

    ConexionTrazada(std::shared_ptr<Connection> interior, Informe informe)
        : interior_(std::move(interior)), informe_(std::move(informe)) {}

    void Execute(std::string_view texto, std::int32_t* afectados, CommandType opciones) override;
    void BeginTrans() override;
    void CommitTrans() override;
    void RollbackTrans() override;
    std::unique_ptr<Recordset> CrearRecordset() override;
    std::unique_ptr<Command> CrearCommand() override;

  private:
    class RecordsetTrazado;
    class CommandTrazado;

    template <class Accion>
    void Medir(OperacionTrazada operacion, Accion&& accion);

    std::shared_ptr<Connection> interior_;
    Informe informe_;
};

}  // namespace kv
