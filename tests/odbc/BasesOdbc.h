#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "kvdatosart/db/odbc/ConexionOdbc.h"

namespace kv::prueba {

/// Why a database cannot be tried on this machine, or how to connect to it.
struct BaseOdbc {
    std::string falta;
    std::string cadena;

    std::shared_ptr<ConexionOdbc> Conectar() const {
        return std::make_shared<ConexionOdbc>(cadena, DialectoOdbc::Otro);
    }
};

/// The server that scripts/postgres.sh started, as the file named by KV_POSTGRES says.
inline BaseOdbc Postgres() {
    const std::string falta = "falta: ";
    const char* fichero = std::getenv("KV_POSTGRES");
    if (fichero == nullptr) return {"KV_POSTGRES no dice dónde está el PostgreSQL de las pruebas", ""};
    std::string linea;
    std::ifstream entrada(fichero);
    if (!std::getline(entrada, linea)) linea = falta + "no se puede leer " + fichero;
    return linea.starts_with(falta) ? BaseOdbc{linea.substr(falta.size()), ""} : BaseOdbc{"", linea};
}

/// The path of a driver's library; empty when it is not installed.
inline std::string Controlador(const std::string& biblioteca) {
    std::error_code ignorado;
    for (const auto& carpeta : std::filesystem::directory_iterator("/usr/lib"))
        if (const auto ruta = carpeta.path() / "odbc" / biblioteca; std::filesystem::exists(ruta, ignorado))
            return ruta.string();
    return {};
}

}  // namespace kv::prueba
