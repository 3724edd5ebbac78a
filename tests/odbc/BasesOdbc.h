#pragma once

#include <memory>
#include <string>

#include "db/odbc/ConexionOdbc.h"

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
BaseOdbc Postgres();

/// The path of a driver's library; empty when it is not installed.
std::string Controlador(const std::string& biblioteca);

}  // namespace kv::prueba
