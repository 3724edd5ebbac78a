#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>
#include <utility>

#include "kvdatosart/db/FicheroAsido.h"

namespace kv {
namespace {

constexpr mode_t kTodos = 0666;
constexpr mode_t kDueno = 0600;

}  // namespace

FicheroAsido::FicheroAsido(std::filesystem::path ruta, Lectores lectores) : ruta_(std::move(ruta)) {
    const mode_t permisos = lectores == Lectores::SoloSuDueno ? kDueno : kTodos;
    const int descriptor = open(ruta_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, permisos);
    if (descriptor < 0) throw std::system_error(errno, std::generic_category());
    // One that was there may be open to more.
    if (lectores == Lectores::SoloSuDueno) (void)fchmod(descriptor, permisos);
    asidero_ = descriptor;
}

FicheroAsido::~FicheroAsido() {
    close(static_cast<int>(asidero_));
}

bool FicheroAsido::Asir() {
    return flock(static_cast<int>(asidero_), LOCK_EX | LOCK_NB) == 0;
}

bool FicheroAsido::TieneSuNombre() const {
    struct stat abierto {};
    struct stat conNombre {};
    return fstat(static_cast<int>(asidero_), &abierto) == 0 && stat(ruta_.c_str(), &conNombre) == 0 &&
           abierto.st_ino == conNombre.st_ino && abierto.st_dev == conNombre.st_dev;
}

bool FicheroAsido::Vaciar() {
    return ftruncate(static_cast<int>(asidero_), 0) == 0;
}

void FicheroAsido::Escribir(std::string_view texto) {
    while (!texto.empty()) {
        const ssize_t escritos = write(static_cast<int>(asidero_), texto.data(), texto.size());
        if (escritos >= 0)
            texto.remove_prefix(static_cast<std::size_t>(escritos));
        else if (errno != EINTR)
            throw std::system_error(errno, std::generic_category());
    }
}

void FicheroAsido::Sincronizar() {
    if (fsync(static_cast<int>(asidero_)) != 0) throw std::system_error(errno, std::generic_category());
}

void FicheroAsido::Sustituir(const std::filesystem::path& destino) {
    std::filesystem::rename(ruta_, destino);
    // The name is on disk too; a file system that does not sync folders is no reason to fail.
    const std::filesystem::path carpeta = destino.has_parent_path() ? destino.parent_path() : ".";
    const int descriptor = open(carpeta.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    (void)fsync(descriptor);
    close(descriptor);
}

bool FicheroAsido::Renombrar(const std::filesystem::path& destino) {
    if (renameat2(AT_FDCWD, ruta_.c_str(), AT_FDCWD, destino.c_str(), RENAME_NOREPLACE) == 0) return true;
    if (errno == EEXIST) return false;
    // File systems that cannot promise it say so in this way.
    if (errno != EINVAL) throw std::system_error(errno, std::generic_category());
    if (std::filesystem::exists(destino)) return false;
    std::filesystem::rename(ruta_, destino);
    return true;
}

bool EnMedioSoloLectura(const std::filesystem::path& ruta) {
    struct statvfs sistema {};
    return statvfs(ruta.c_str(), &sistema) == 0 && (sistema.f_flag & ST_RDONLY) != 0;
}

}  // namespace kv
