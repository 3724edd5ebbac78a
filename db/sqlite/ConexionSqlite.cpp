#include "kvdatosart/db/sqlite/ConexionSqlite.h"

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/sqlite/CommandSqlite.h"
#include "kvdatosart/db/sqlite/ErrorSqlite.h"
#include "kvdatosart/db/sqlite/FicheroNuevo.h"
#include "kvdatosart/db/sqlite/InteriorSqlite.h"
#include "kvdatosart/db/sqlite/RecordsetSqlite.h"

namespace kv {

ConexionSqlite::ConexionSqlite(std::shared_ptr<Interior> interior) : interior_(std::move(interior)) {}
ConexionSqlite::~ConexionSqlite() = default;

std::shared_ptr<ConexionSqlite> ConexionSqlite::Abrir(const std::string& ruta, const IdentidadBase& identidad,
                                                      Modo modo, const EsperaBloqueo& espera) {
    const auto interior = Interior::DeFichero(ruta, identidad.aplicacion, espera);
    const std::int32_t version = interior->Pragma("user_version");
    if (version != identidad.version) OtraVersion(ruta, version, identidad.version);
    interior->Guion("PRAGMA foreign_keys = ON; PRAGMA synchronous = FULL;");
    if (modo == Modo::SoloLectura) interior->SoloLeer();
    return std::shared_ptr<ConexionSqlite>(new ConexionSqlite(interior));
}

void ConexionSqlite::Crear(const std::string& ruta, const IdentidadBase& identidad, std::string_view guion,
                           const std::function<void(Connection&)>& llenar) {
    FicheroNuevo fichero(ruta);
    {
        const auto interior = std::make_shared<Interior>(fichero.Ruta(), SQLITE_OPEN_READWRITE);
        interior->Guion("PRAGMA journal_mode = WAL; PRAGMA foreign_keys = ON; PRAGMA synchronous = FULL;");
        interior->Guion(std::string(guion));
        interior->Guion("PRAGMA application_id = " + std::to_string(identidad.aplicacion) +
                        "; PRAGMA user_version = " + std::to_string(identidad.version) + ";");
        ConexionSqlite conexion(interior);
        llenar(conexion);
    }
    fichero.Guardar();
}

void ConexionSqlite::Execute(std::string_view texto, std::int32_t* afectados, CommandType opciones) {
    if (opciones != CommandType::adCmdText) LanzarError(kErrLlamadaInvalida, "Execute solo admite texto");
    const UsoUnico::Turno turno(interior_->Uso());
    Sentencia& sentencia = interior_->Cache().Tomar(texto);
    const SueltaSentencia suelta(sentencia);
    while (sentencia.Avanzar(texto)) {
        // Rows that the caller does not want.
    }
    if (afectados != nullptr) *afectados = sentencia.SoloLee() ? 0 : sqlite3_changes(interior_->Base());
}

void ConexionSqlite::BeginTrans() {
    // Taken for writing at once: two sessions that both read before they write would otherwise block each other.
    Ejecutar(interior_->SoloLee() ? "BEGIN" : "BEGIN IMMEDIATE");
}

void ConexionSqlite::CommitTrans() {
    Ejecutar("COMMIT");
}
void ConexionSqlite::RollbackTrans() {
    Ejecutar("ROLLBACK");
}

std::unique_ptr<Recordset> ConexionSqlite::CrearRecordset() {
    return std::make_unique<RecordsetSqlite>(interior_);
}
std::unique_ptr<Command> ConexionSqlite::CrearCommand() {
    return std::make_unique<CommandSqlite>(interior_);
}

std::uint64_t ConexionSqlite::Preparaciones() const {
    return interior_->Cache().Preparaciones();
}

}  // namespace kv
