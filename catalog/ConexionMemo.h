#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/Connection.h"

namespace kv {

/// A connection in front of another that remembers what the last texts answered: within one state of the base the same
/// text has the same answer, and the lines of a list ask much of it again and again (the customer, its chain). It
/// remembers the columns that were read of queries of no row or one, opened forward-only and read-only; other queries
/// and procedures go through. It belongs inside a transaction that only reads: writes and transactions are error 5.
class ConexionMemo : public Connection {
  public:
    explicit ConexionMemo(std::shared_ptr<Connection> interior) : interior_(std::move(interior)) {}

    void Execute(std::string_view /*texto*/, std::int32_t* /*afectados*/, CommandType /*opciones*/) override {
        Rechazar();
    }
    void BeginTrans() override { Rechazar(); }
    void CommitTrans() override { Rechazar(); }
    void RollbackTrans() override { Rechazar(); }
    std::unique_ptr<Recordset> CrearRecordset() override;
    std::unique_ptr<Command> CrearCommand() override { return interior_->CrearCommand(); }

  private:
    class RecordsetMemo;

    /// One text and its answer.
    struct Recuerdo {
        std::string texto;
        bool completo = false;
        bool hayFila = false;
        // Recordsets that read or write it now: it must not become another text's.
        int enUso = 0;
        // The columns in the order in which they were read; what stands beyond `cuantos` is room of former answers.
        std::vector<std::pair<std::string, Valor>> campos = {};
        std::size_t cuantos = 0;
    };

    [[noreturn]] static void Rechazar() { LanzarError(kErrLlamadaInvalida, "esta conexión solo lee"); }
    Recuerdo& Lugar(std::string_view texto);

    std::shared_ptr<Connection> interior_;
    // More would leave the processor's caches and cost more than they save.
    std::array<Recuerdo, 64> recuerdos_;
};

}  // namespace kv
