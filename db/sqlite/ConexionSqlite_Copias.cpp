#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/sqlite/ConexionSqlite.h"
#include "kvdatosart/db/sqlite/ErrorSqlite.h"
#include "kvdatosart/db/sqlite/FicheroNuevo.h"
#include "kvdatosart/db/sqlite/InteriorSqlite.h"

namespace kv {
namespace {

// Pages copied between two questions whether to go on.
constexpr int kPaginasPorPaso = 2000;

// The transaction begins to see the base with its first reading.
constexpr const char* kVerAhora = "BEGIN; SELECT 1 FROM sqlite_schema LIMIT 1;";

void CopiarPaginas(sqlite3* desde, sqlite3* hasta, const std::function<bool()>& sigue) {
    sqlite3_backup* copia = sqlite3_backup_init(hasta, "main", desde, "main");
    if (copia == nullptr) LanzarErrorSqlite(hasta, "");
    int resultado = SQLITE_OK;
    bool cortada = false;
    while (resultado == SQLITE_OK && !cortada) {
        resultado = sqlite3_backup_step(copia, kPaginasPorPaso);
        cortada = resultado == SQLITE_OK && sigue && !sigue();
    }
    sqlite3_backup_finish(copia);
    if (cortada) throw RuntimeError(SQLITE_INTERRUPT, "SQLite", "copia interrumpida");
    if (resultado != SQLITE_DONE) throw RuntimeError(resultado, "SQLite", sqlite3_errstr(resultado));
}

}  // namespace

std::vector<std::shared_ptr<ConexionSqlite>> ConexionSqlite::AbrirMismoEstado(const std::string& ruta,
                                                                              const IdentidadBase& identidad,
                                                                              std::size_t cuantas,
                                                                              const EsperaBloqueo& espera) {
    std::vector<std::shared_ptr<ConexionSqlite>> conexiones;
    const auto anadir = [&](std::size_t mas) {
        for (; mas > 0; --mas) {
            conexiones.push_back(Abrir(ruta, identidad, Modo::SoloLectura, espera));
            conexiones.back()->interior_->Guion(kVerAhora);
        }
    };
    // A base that cannot be written takes any transaction, and holds nobody off by it.
    const auto guarda = cuantas > 1 ? Abrir(ruta, identidad, Modo::LecturaEscritura, espera) : nullptr;
    if (!guarda || sqlite3_db_readonly(guarda->interior_->Base(), "main") != 0) {
        anadir(1);
        return conexiones;
    }
    guarda->BeginTrans();
    anadir(cuantas);
    guarda->RollbackTrans();
    return conexiones;
}

std::shared_ptr<ConexionSqlite> ConexionSqlite::Temporal() {
    const auto interior = std::make_shared<Interior>("", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    interior->Guion("PRAGMA journal_mode = OFF;");
    return std::shared_ptr<ConexionSqlite>(new ConexionSqlite(interior));
}

void ConexionSqlite::Copiar(const std::string& origen, const IdentidadBase& identidad, const std::string& destino,
                            const std::function<bool()>& sigue) {
    const auto desde = Abrir(origen, identidad, Modo::SoloLectura)->interior_;
    FicheroNuevo fichero(destino, Lectores::SoloSuDueno);
    // A state that stands still: a commit of somebody else would make the copy begin again.
    desde->Guion(kVerAhora);
    const auto paginas = static_cast<std::uintmax_t>(desde->Pragma("page_count"));
    fichero.ExigirSitio(paginas * static_cast<std::uintmax_t>(desde->Pragma("page_size")));
    {
        Interior hasta(fichero.Ruta(), SQLITE_OPEN_READWRITE);
        // The file is thrown away when anything fails: no journal; what it holds at the end is synced.
        hasta.Guion("PRAGMA journal_mode = OFF; PRAGMA synchronous = FULL;");
        CopiarPaginas(desde->Base(), hasta.Base(), sigue);
    }
    fichero.Guardar();
}

}  // namespace kv
