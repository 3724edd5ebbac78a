#include <spawn.h>

#include "kvdatosart/host/cli/Navegador.h"

extern char** environ;

namespace kv::host {

bool AbrirNavegador(const std::string& direccion) {
    std::string programa = "xdg-open";
    std::string destino = direccion;
    char* const argumentos[] = {programa.data(), destino.data(), nullptr};
    pid_t proceso = 0;
    return posix_spawnp(&proceso, "xdg-open", nullptr, nullptr, argumentos, environ) == 0;
}

}  // namespace kv::host
