#include "tests/odbc/BasesOdbc.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace kv::prueba {

BaseOdbc Postgres() {
    constexpr const char* kFalta = "falta: ";
    const char* fichero = std::getenv("KV_POSTGRES");
    if (fichero == nullptr) return {"KV_POSTGRES no dice dónde está el PostgreSQL de las pruebas", ""};
    std::string linea;
    std::ifstream entrada(fichero);
    if (!std::getline(entrada, linea)) return {std::string("no se puede leer ") + fichero, ""};
    if (linea.starts_with(kFalta)) return {linea.substr(std::string(kFalta).size()), ""};
    return {"", linea};
}

std::string Controlador(const std::string& biblioteca) {
    for (const auto& carpeta : std::filesystem::directory_iterator("/usr/lib")) {
        const std::filesystem::path ruta = carpeta.path() / "odbc" / biblioteca;
        std::error_code ignorado;
        if (std::filesystem::exists(ruta, ignorado)) return ruta.string();
    }
    return {};
}

}  // namespace kv::prueba
