#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kvdatosart/db/Connection.h"
#include "kvdatosart/db/IdentidadBase.h"

namespace kv {

/// How long a statement waits for a lock that another program holds.
struct EsperaBloqueo {
    std::chrono::milliseconds maxima{10000};
    /// Called once in each wait that lasts longer than a second; may be empty.
    std::function<void()> aviso = {};
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
    /// clear error that names the file, and the command that helps an older one; nothing is created or changed. A file
    /// on a read-only file system can be read, unless a log with changes lies beside it.
    static std::shared_ptr<ConexionSqlite> Abrir(const std::string& ruta, const IdentidadBase& identidad,
                                                 Modo modo = Modo::SoloLectura, const EsperaBloqueo& espera = {});

    /// Makes a new file with the tables of `guion`, lets `llenar` fill it, and gives it its name only when all went
    /// well: nothing remains of a failed attempt, and what one that was killed left is taken over. Error when the file
    /// exists or another program is making it.
    static void Crear(const std::string& ruta, const IdentidadBase& identidad, std::string_view guion,
                      const std::function<void(Connection&)>& llenar);

    /// Brings a file of an older schema version to the one of `identidad`, whose tables are those of `guion`: in one
    /// transaction, so that the file is whole in its old version or in the new one whatever happens. False, and nothing
    /// done, when it has that version already. Error that names the file when it is no such database, when it is newer,
    /// and when a text or a column of it does not fit in the new tables: it says which, and nothing changes.
    static bool Actualizar(const std::string& ruta, const IdentidadBase& identidad, const std::string& guion);

    /// Opens the file `cuantas` times, for reading only, all of them on one state of the base: each connection holds a
    /// transaction that began while nobody could write, and what others commit afterwards none of them sees. One alone
    /// comes back when the base cannot be written, since nothing then holds writers off; who asks for one waits for
    /// nobody. The write-ahead log grows while they live: close them soon. Errors as in `Abrir`.
    static std::vector<std::shared_ptr<ConexionSqlite>> AbrirMismoEstado(const std::string& ruta,
                                                                         const IdentidadBase& identidad,
                                                                         std::size_t cuantas,
                                                                         const EsperaBloqueo& espera = {});

    /// Copies the base in `origen`, as it stands at this moment and while others go on writing, to the new file
    /// `destino`, which only its owner may read. Error when that exists or when the disk has no room for it, before
    /// anything is written. `sigue` is asked now and then; when it says no the copy ends with error 9. The file gets
    /// its name when it is whole and on disk, and nothing remains of a failed attempt.
    static void Copiar(const std::string& origen, const IdentidadBase& identidad, const std::string& destino,
                       const std::function<bool()>& sigue);

    /// An empty database of its own, without a name, gone with its connection. What does not fit into a small cache
    /// lies in a file that nobody else sees.
    static std::shared_ptr<ConexionSqlite> Temporal();

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
