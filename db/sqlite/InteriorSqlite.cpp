#include "kvdatosart/db/sqlite/InteriorSqlite.h"

#include <cstdio>
#include <filesystem>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/base/Ruta.h"
#include "kvdatosart/db/FicheroAsido.h"
#include "kvdatosart/db/sqlite/ErrorSqlite.h"

namespace kv {
namespace {

namespace fs = std::filesystem;

// A load and the maintenance of every table together need about sixty templates.
constexpr std::size_t kMaximoPlantillas = 200;

// Without its memory statistics and inner locks: one connection serves one thread. Pages are taken from the heap one by
// one: as SQLite comes, each table of its own that a statement needs for a moment takes room for twenty pages and gives
// it back, and the system's heap gives that on to the system. Refused where the host started SQLite; all works without.
void ConfigurarUnaVez() {
    static const int hecho = [] {
        sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
        sqlite3_config(SQLITE_CONFIG_PAGECACHE, nullptr, 0, 0);
        return sqlite3_initialize();
    }();
    if (hecho != SQLITE_OK) throw RuntimeError(hecho, "SQLite", "No se puede iniciar SQLite");
}

// A base on a medium that nobody can write to is read without its lock files, which cannot be made there. A log beside
// it holds what was committed and not yet written into the base.
std::string UriInmutable(const std::string& ruta) {
    std::error_code error;
    for (const char* diario : {"-wal", "-journal"})
        if (const auto bytes = fs::file_size(RutaDe(ruta + diario), error); !error && bytes > 0)
            FicheroNoSirve(SQLITE_CANTOPEN, ruta,
                           "está en un medio de solo lectura con un diario al lado («" + ruta + diario +
                               "») que guarda cambios: se copian los dos a otro sitio y se abre allí");
    const std::string completa = NombreDeRuta(fs::absolute(RutaDe(ruta)));
    // Where a path begins with a drive, one more bar parts it from the machine's name, which is empty.
    std::string uri = completa.starts_with('/') ? "file://" : "file:///";
    for (const char c : completa) {
        char escapado[4];
        std::snprintf(escapado, sizeof escapado, "%%%02X", static_cast<unsigned char>(c));
        uri += c == '%' || c == '?' || c == '#' ? escapado : std::string(1, c);
    }
    return uri + "?immutable=1";
}

// What a connection that only reads may do, asked when a statement is prepared. A setting and a table's columns can be
// looked at.
int SoloLectura(void*, int accion, const char* que, const char* valor, const char*, const char*) {
    switch (accion) {
        case SQLITE_SELECT:
        case SQLITE_READ:
        case SQLITE_FUNCTION:
        case SQLITE_RECURSIVE:
        case SQLITE_TRANSACTION:
            return SQLITE_OK;
        case SQLITE_PRAGMA:
            return valor == nullptr || std::string_view(que) == "table_info" ? SQLITE_OK : SQLITE_DENY;
        default:
            return SQLITE_DENY;
    }
}

}  // namespace

ConexionSqlite::Interior::Interior(const std::string& ruta, int opciones) {
    ConfigurarUnaVez();
    if (sqlite3_open_v2(ruta.c_str(), &base_, opciones | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr) !=
        SQLITE_OK) {
        const RuntimeError error(sqlite3_extended_errcode(base_), "SQLite",
                                 "No se puede abrir «" + ruta + "»: " + sqlite3_errmsg(base_));
        sqlite3_close(base_);
        throw error;
    }
    sqlite3_busy_handler(base_, &Interior::EsperarCerrojo, this);
    cache_ = std::make_unique<CacheSentencias>(base_, kMaximoPlantillas);
}

std::shared_ptr<ConexionSqlite::Interior> ConexionSqlite::Interior::DeFichero(const std::string& ruta,
                                                                              std::int32_t aplicacion,
                                                                              const EsperaBloqueo& espera) {
    std::error_code error;
    if (!fs::exists(RutaDe(ruta), error)) FicheroNoSirve(SQLITE_CANTOPEN, ruta, "no existe");
    if (!fs::is_regular_file(RutaDe(ruta), error)) FicheroNoSirve(SQLITE_CANTOPEN, ruta, "no es un fichero");
    const auto interior = EnMedioSoloLectura(RutaDe(ruta))
                              ? std::make_shared<Interior>(UriInmutable(ruta), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI)
                              : std::make_shared<Interior>(ruta, SQLITE_OPEN_READWRITE);
    interior->espera_ = espera;
    std::int32_t suya = 0;
    try {
        suya = interior->Pragma("application_id");
    } catch (const RuntimeError& fallo) {
        // A read-only file in a folder that cannot be written, among others.
        if (fallo.numero != SQLITE_NOTADB) FicheroNoSirve(fallo.numero, ruta, "no se puede leer: " + fallo.descripcion);
        FicheroNoSirve(SQLITE_NOTADB, ruta, "no es una base de datos");
    }
    if (suya != aplicacion) FicheroNoSirve(SQLITE_NOTADB, ruta, "no es una base de datos de KVDatosArt");
    return interior;
}

ConexionSqlite::Interior::~Interior() {
    procedimientos_.clear();
    cache_.reset();
    sqlite3_close(base_);
}

// SQLite asks again and again while the lock is held; 0 gives up.
int ConexionSqlite::Interior::EsperarCerrojo(void* interior, int intentos) {
    Interior& yo = *static_cast<Interior*>(interior);
    const auto ahora = std::chrono::steady_clock::now();
    if (intentos == 0) {
        yo.comienzo_ = ahora;
        yo.avisado_ = false;
    }
    const auto pasado = ahora - yo.comienzo_;
    if (pasado >= yo.espera_.maxima) return 0;
    if (pasado >= std::chrono::seconds(1) && !yo.avisado_ && yo.espera_.aviso) {
        yo.avisado_ = true;
        yo.espera_.aviso();
    }
    sqlite3_sleep(intentos < 10 ? intentos + 1 : 25);
    return 1;
}

void ConexionSqlite::Interior::SoloLeer() {
    // The columns of a table are looked up in a table of SQLite's, which is made in its first use.
    Guion("SELECT 1 FROM pragma_table_info('sqlite_schema'); PRAGMA query_only = ON;");
    sqlite3_set_authorizer(base_, SoloLectura, nullptr);
    soloLee_ = true;
}

void ConexionSqlite::Interior::Guion(const std::string& texto) {
    if (sqlite3_exec(base_, texto.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) LanzarErrorSqlite(base_, "");
}

std::int32_t ConexionSqlite::Interior::Pragma(const std::string& nombre) {
    const std::string texto = "PRAGMA " + nombre;
    Sentencia sentencia(base_, texto, texto);
    return sentencia.Avanzar() ? ALong(sentencia.Leer(std::size_t{0})) : 0;
}

Sentencia& ConexionSqlite::Interior::Procedimiento(const std::string& nombre) {
    const auto conocido = procedimientos_.find(nombre);
    if (conocido != procedimientos_.end()) return *conocido->second;
    const std::string texto = "SELECT Cuerpo FROM Procedimientos WHERE Nombre = @Nombre COLLATE NOCASE";
    Sentencia busqueda(base_, texto, texto);
    busqueda.EnlazarNombrado("@Nombre", nombre);
    if (!busqueda.Avanzar())
        throw RuntimeError(SQLITE_ERROR, "SQLite", "No existe el procedimiento almacenado «" + nombre + "»");
    const std::string cuerpo = AString(busqueda.Leer(std::size_t{0}), '.');
    auto sentencia = std::make_unique<Sentencia>(base_, cuerpo, nombre + ": " + cuerpo);
    return *procedimientos_.emplace(nombre, std::move(sentencia)).first->second;
}

}  // namespace kv
