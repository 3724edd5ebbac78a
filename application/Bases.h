#pragma once

#include <memory>
#include <string>

#include "base/Fecha.h"
#include "db/Connection.h"

namespace kv::aplicacion {

/// Where the data is: the file of an embedded database or, when that is empty, the ODBC connection string of a server.
struct OrigenBase {
    std::string fichero;
    std::string odbc;
};

enum class Acceso { Leer, Escribir };

/// Opens it. A server does not know about `acceso`: its permissions decide. The adapter's error when it cannot.
std::shared_ptr<Connection> AbrirBase(const OrigenBase& origen, Acceso acceso);

/// Makes the demonstration database, whole or not at all, in a file that does not exist or in an empty database of a
/// server; future prices count from `hoy`. The adapter's error when it cannot.
void CrearDemo(const OrigenBase& origen, Fecha hoy);

}  // namespace kv::aplicacion
