#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "kvdatosart/db/Connection.h"

namespace kv {

/// What the session of an ODBC connection is brought to when it opens.
enum class DialectoOdbc : std::uint8_t {
    /// SQL Server and whatever speaks its language: day/month/year dates and the ANSI settings of the suite's own
    /// connections, checked before the connection is used.
    TransactSql,
    /// A database of another kind: the session is used as it stands.
    Otro
};

/// Number of a failure whose driver gives none.
inline constexpr std::int32_t kErrOdbcSinNumero = -2147467259;
/// BeginTrans inside a transaction, and CommitTrans or RollbackTrans outside one: the providers' own numbers.
inline constexpr std::int32_t kErrTransaccionAbierta = -2147168237;
inline constexpr std::int32_t kErrSinTransaccion = -2147168242;
/// A session that reads dates or text in another way than the component writes them.
inline constexpr std::int32_t kErrSesionInservible = 3706;

/// A database behind an ODBC driver. The component's text is sent as it is, one round trip a statement, and its rows
/// are read whole, so that any number of recordsets can be open at once; every cursor is a forward-only, read-only
/// one. Money and decimals come back as Currency, exactly; dates as days, whatever their time; unknown column types
/// are error 13. A lost connection is an error: nothing is ever sent twice.
/// Errors carry the driver's native number (kErrOdbcSinNumero when it is 0), the source "ODBC", every diagnostic
/// record with its state, number and text, and the statement. The password is in none of them.
class ConexionOdbc : public Connection {
  public:
    /// Connects with an ODBC connection string ("DRIVER=...;SERVER=...;UID=...;PWD=..."), UTF-8; encryption is asked
    /// for in it, as the driver offers it. A server whose session cannot be brought to `dialecto` is refused with
    /// kErrSesionInservible.
    explicit ConexionOdbc(const std::string& cadena, DialectoOdbc dialecto = DialectoOdbc::TransactSql);
    /// A transaction that is still open is rolled back.
    ~ConexionOdbc() override;

    void Execute(std::string_view texto, std::int32_t* afectados, CommandType opciones) override;
    /// Until its end the session does not commit by itself. Error kErrTransaccionAbierta inside a transaction.
    void BeginTrans() override;
    /// Both leave autocommit as BeginTrans found it. Error kErrSinTransaccion outside a transaction.
    void CommitTrans() override;
    void RollbackTrans() override;

    std::unique_ptr<Recordset> CrearRecordset() override;
    std::unique_ptr<Command> CrearCommand() override;

    /// Runs a batch of a script of our own (tables, procedures), which may hold several statements, and drops what it
    /// returns. Never for a text that carries values from outside.
    void EjecutarLote(std::string_view lote);

    class Interior;

  private:
    std::shared_ptr<Interior> interior_;
};

}  // namespace kv
