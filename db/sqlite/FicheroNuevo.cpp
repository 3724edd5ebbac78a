#include "kvdatosart/db/sqlite/FicheroNuevo.h"

#include <sqlite3.h>

#include <system_error>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/base/Ruta.h"
#include "kvdatosart/db/sqlite/ErrorSqlite.h"

namespace kv {
namespace {

namespace fs = std::filesystem;

bool Existe(const std::string& ruta) {
    std::error_code error;
    return fs::exists(RutaDe(ruta), error);
}

void Borrar(const std::string& ruta) {
    std::error_code ignorado;
    fs::remove(RutaDe(ruta), ignorado);
}

void BorrarDiarios(const std::string& ruta) {
    for (const char* final_ : {"-wal", "-shm", "-journal"}) Borrar(ruta + final_);
}

}  // namespace

FicheroNuevo::FicheroNuevo(const std::string& destino, Lectores lectores)
    : destino_(destino), ruta_(destino + ".creando") {
    if (Existe(destino)) FicheroNoSirve(SQLITE_CANTOPEN, destino, "ya existe y no se toca");
    while (!Tomar(lectores)) asido_.reset();
    // Whoever held it until now has just given it its name.
    const bool yaExiste = Existe(destino);
    if (yaExiste || !asido_->Vaciar()) {
        Soltar();
        FicheroNoSirve(SQLITE_CANTOPEN, destino, yaExiste ? "ya existe y no se toca" : "no se puede crear");
    }
    BorrarDiarios(ruta_);
}

// False when the file that was opened lost its name before it was held: its holder ended in between.
bool FicheroNuevo::Tomar(Lectores lectores) {
    try {
        asido_.emplace(RutaDe(ruta_), lectores);
    } catch (const std::system_error& error) {
        throw RuntimeError(SQLITE_CANTOPEN, "SQLite", "No se puede abrir «" + ruta_ + "»: " + error.code().message());
    }
    if (!asido_->Asir()) FicheroNoSirve(SQLITE_CANTOPEN, destino_, "se está creando ya desde otro sitio");
    return asido_->TieneSuNombre();
}

FicheroNuevo::~FicheroNuevo() {
    Soltar();
}

// The name goes before the lock does.
void FicheroNuevo::Soltar() {
    if (!guardado_) {
        Borrar(ruta_);
        BorrarDiarios(ruta_);
    }
    asido_.reset();
}

void FicheroNuevo::ExigirSitio(std::uintmax_t bytes) const {
    std::error_code error;
    const std::uintmax_t libres = fs::space(RutaDe(ruta_), error).available;
    if (error || libres >= bytes) return;
    FicheroNoSirve(SQLITE_FULL, destino_,
                   "no cabe: la copia ocupa " + std::to_string(bytes) + " bytes y quedan " + std::to_string(libres));
}

void FicheroNuevo::Guardar() {
    try {
        if (!asido_->Renombrar(RutaDe(destino_))) FicheroNoSirve(SQLITE_CANTOPEN, destino_, "ya existe y no se toca");
    } catch (const std::system_error& error) {
        FicheroNoSirve(SQLITE_CANTOPEN, destino_, "no se puede crear: " + error.code().message());
    }
    guardado_ = true;
}

}  // namespace kv
