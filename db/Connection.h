#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "kvdatosart/db/Ado.h"
#include "kvdatosart/db/Command.h"
#include "kvdatosart/db/Recordset.h"

namespace kv {

/// An open database connection, in ADO's shape. The host opens, configures and closes it; the component borrows it.
/// One connection, one thread: neither it nor what was made from it (recordsets, commands, the component's objects) may
/// be used by two at the same time. In a debug build the embedded and the ODBC one then end the program with a message.
/// One text holds one statement: a text with a second one is refused with a database error and nothing of it runs.
/// Every database failure is a RuntimeError with the provider's number, source and text.
class Connection {
  public:
    Connection() = default;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    virtual ~Connection() = default;

    /// Runs a statement that returns no rows, or drops the rows that it returns. When `afectados` is given it
    /// receives the number of records affected.
    virtual void Execute(std::string_view texto, std::int32_t* afectados, CommandType opciones) = 0;
    virtual void BeginTrans() = 0;
    virtual void CommitTrans() = 0;
    virtual void RollbackTrans() = 0;

    virtual std::unique_ptr<Recordset> CrearRecordset() = 0;
    virtual std::unique_ptr<Command> CrearCommand() = 0;

    /// Execute with the text option and without asking for the records affected.
    void Ejecutar(std::string_view texto) { Execute(texto, nullptr, CommandType::adCmdText); }
    /// Execute with the text option; returns the records affected.
    std::int32_t EjecutarContando(std::string_view texto);
};

}  // namespace kv
