#include "kvdatosart/application/CarpetaPrivada.h"

#include <random>
#include <stdexcept>

namespace kv::aplicacion {

namespace fs = std::filesystem;

CarpetaPrivada::CarpetaPrivada(const std::string& que) {
    std::error_code error;
    const fs::path donde = fs::temp_directory_path(error);
    std::random_device azar;
    do ruta_ = donde / ("kvdatosart-" + std::to_string(azar()));
    while (!error && !fs::create_directory(ruta_, error) && !error);
    if (!error) fs::permissions(ruta_, fs::perms::owner_all, error);
    if (error) throw std::runtime_error("no hay dónde hacer " + que + " (TMPDIR dice la carpeta): " + error.message());
}

CarpetaPrivada::~CarpetaPrivada() {
    std::error_code ignorado;
    fs::remove_all(ruta_, ignorado);
}

}  // namespace kv::aplicacion
