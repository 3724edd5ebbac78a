#include "kvdatosart/host/EscribirFichero.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <stdexcept>

namespace kv::host {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Falla(const std::string& ruta, int error) {
    const std::string motivo = error == ENOSPC || error == EDQUOT ? "el disco está lleno" : std::strerror(error);
    throw std::runtime_error("«" + ruta + "» no se puede escribir: " + motivo);
}

bool EscribirTodo(int descriptor, std::string_view texto) {
    while (!texto.empty()) {
        const ssize_t escritos = write(descriptor, texto.data(), texto.size());
        if (escritos > 0) texto.remove_prefix(static_cast<std::size_t>(escritos));
        if (escritos <= 0 && errno != EINTR) return false;
    }
    return true;
}

}  // namespace

void EscribirFichero(const std::string& ruta, std::string_view texto) {
    std::error_code ignorado;
    // What a link names is written, and not the link.
    const fs::path destino = fs::exists(ruta, ignorado) ? fs::canonical(ruta) : fs::path(ruta);
    if (fs::exists(destino, ignorado) && !fs::is_regular_file(destino, ignorado))
        throw std::runtime_error("«" + ruta + "» no es un fichero");
    const std::string provisional = destino.string() + "." + std::to_string(getpid());
    const int descriptor = open(provisional.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0) Falla(ruta, errno);
    const bool escrito = EscribirTodo(descriptor, texto) && fsync(descriptor) == 0;
    const int error = errno;
    close(descriptor);
    if (escrito && rename(provisional.c_str(), destino.c_str()) == 0) return;
    const int deNombre = errno;
    unlink(provisional.c_str());
    Falla(ruta, escrito ? deNombre : error);
}

}  // namespace kv::host
