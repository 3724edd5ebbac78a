#include "kvdatosart/db/sqlite/FicheroNuevo.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/sqlite/ErrorSqlite.h"

namespace kv {
namespace {

bool SonElMismo(int descriptor, const std::string& ruta) {
    struct stat abierto {};
    struct stat conNombre {};
    return fstat(descriptor, &abierto) == 0 && stat(ruta.c_str(), &conNombre) == 0 &&
           abierto.st_ino == conNombre.st_ino && abierto.st_dev == conNombre.st_dev;
}

bool Existe(const std::string& ruta) {
    std::error_code error;
    return std::filesystem::exists(ruta, error);
}

void BorrarDiarios(const std::string& ruta) {
    std::error_code ignorado;
    for (const char* final_ : {"-wal", "-shm", "-journal"}) std::filesystem::remove(ruta + final_, ignorado);
}

}  // namespace

FicheroNuevo::FicheroNuevo(const std::string& destino) : destino_(destino), ruta_(destino + ".creando") {
    if (Existe(destino)) FicheroNoSirve(SQLITE_CANTOPEN, destino, "ya existe y no se toca");
    while (!Tomar()) close(descriptor_);
    // Whoever held it until now has just given it its name.
    const bool yaExiste = Existe(destino);
    if (yaExiste || ftruncate(descriptor_, 0) != 0) {
        Soltar();
        FicheroNoSirve(SQLITE_CANTOPEN, destino, yaExiste ? "ya existe y no se toca" : "no se puede crear");
    }
    BorrarDiarios(ruta_);
}

// False when the file that was opened lost its name before it was held: its holder ended in between.
bool FicheroNuevo::Tomar() {
    descriptor_ = open(ruta_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (descriptor_ < 0)
        throw RuntimeError(SQLITE_CANTOPEN, "SQLite",
                           "No se puede abrir «" + ruta_ + "»: " + std::generic_category().message(errno));
    if (flock(descriptor_, LOCK_EX | LOCK_NB) != 0) {
        close(descriptor_);
        FicheroNoSirve(SQLITE_CANTOPEN, destino_, "se está creando ya desde otro sitio");
    }
    return SonElMismo(descriptor_, ruta_);
}

FicheroNuevo::~FicheroNuevo() {
    Soltar();
}

// The name goes before the lock does.
void FicheroNuevo::Soltar() {
    std::error_code ignorado;
    if (!guardado_) {
        std::filesystem::remove(ruta_, ignorado);
        BorrarDiarios(ruta_);
    }
    close(descriptor_);
}

void FicheroNuevo::Guardar() {
    if (renameat2(AT_FDCWD, ruta_.c_str(), AT_FDCWD, destino_.c_str(), RENAME_NOREPLACE) != 0) {
        // File systems that cannot promise it say so in this way.
        if (errno != EINVAL || Existe(destino_)) FicheroNoSirve(SQLITE_CANTOPEN, destino_, "ya existe y no se toca");
        std::filesystem::rename(ruta_, destino_);
    }
    guardado_ = true;
}

bool EnMedioSoloLectura(const std::string& ruta) {
    struct statvfs sistema {};
    return statvfs(ruta.c_str(), &sistema) == 0 && (sistema.f_flag & ST_RDONLY) != 0;
}

}  // namespace kv
