#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "db/Connection.h"

namespace kv {

/// What a database file must be to be opened as ours.
struct IdentidadBase {
    /// SQLite's application id, written when the file is made.
    std::int32_t aplicacion = 0;
    /// Schema version.
    std::int32_t version = 0;
};

/// The embedded database: one SQLite file behind the ADO-shaped interface. It takes the component's own text:
/// `TOP`, `ISNULL(`, dates as dd/mm/yyyy in quotes (an empty one is 01/01/1900), and refuses a second statement.
/// Columns declared money, bit, date... come back as Currency, Boolean, Date. Whatever is committed is on disk.
/// Stored procedures are rows of the table `Procedimientos` (Nombre, Cuerpo): one SELECT that uses the parameters by
/// name and whose columns are called like the output parameters without the at sign.
/// Errors carry SQLite's extended code, the source "SQLite" and the statement's text.
class ConexionSqlite : public Connection {
  public:
    enum class Modo : std::uint8_t { SoloLectura, LecturaEscritura };

    /// Opens an existing file. A missing file, one that is no such database or one of another schema version is a
    /// clear error that names the file, and the command that helps an older one; nothing is created or changed.
    static std::shared_ptr<ConexionSqlite> Abrir(const std::string& ruta, const IdentidadBase& identidad, Modo modo);

    /// Makes a new file with the tables of `guion`, lets `llenar` fill it, and gives it its name only when all went
    /// well: nothing remains of a failed attempt. Error when the file exists.
    static void Crear(const std::string& ruta, const IdentidadBase& identidad, std::string_view guion,
                      const std::function<void(Connection&)>& llenar);

    /// Brings a file of an older schema version to the one of `identidad`, whose tables are those of `guion`: in one
    /// transaction, so that the file is whole in its old version or in the new one whatever happens. False, and nothing
    /// done, when it has that version already. Error that names the file when it is no such database, when it is newer,
    /// and when a text or a column of it does not fit in the new tables: it says which, and nothing changes.
    static bool Actualizar(const std::string& ruta, const IdentidadBase& identidad, const std::string& guion);

    ~ConexionSqlite() override;

    void Execute(std::string_view texto, std::int32_t* afectados, CommandType opciones) override;
    void BeginTrans() override;
    void CommitTrans() override;
    void RollbackTrans() override;
    std::unique_ptr<Recordset> CrearRecordset() override;
    std::unique_ptr<Command> CrearCommand() override;

    /// Statements prepared so far: it stands still while the same templates come back.
    std::uint64_t Preparaciones() const;

  private:
    class Interior;
    class RecordsetSqlite;
    class CommandSqlite;
    class Actualizacion;

    explicit ConexionSqlite(std::shared_ptr<Interior> interior);

    // Recordsets and commands share it, so that one that outlives its connection still has the file open.
    std::shared_ptr<Interior> interior_;
};

}  // namespace kv
