#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/db/ConexionTrazada.h"
#include "kvdatosart/db/Connection.h"

namespace kv::aplicacion {

/// Where the data is: the file of an embedded database or, when that is empty, the ODBC connection string of a server.
struct OrigenBase {
    std::string fichero;
    std::string odbc;
    /// Seconds that a statement waits for a lock of another program; only for a file.
    std::optional<std::int16_t> espera;
};

enum class Acceso { Leer, Escribir };

/// Opens it. A server does not know about `acceso`: its permissions decide. `alEsperar`, if any, is called in each wait
/// for a lock that lasts longer than a second. The adapter's error when it cannot.
std::shared_ptr<Connection> AbrirBase(const OrigenBase& origen, Acceso acceso,
                                      const std::function<void()>& alEsperar = {});

/// Opens a file so many times for reading, every connection on the state of one moment, which it goes on seeing; one
/// comes back when the file cannot be written. Otherwise as `AbrirBase`.
std::vector<std::shared_ptr<Connection>> AbrirMismoEstado(const OrigenBase& origen, std::size_t cuantas,
                                                          const std::function<void()>& alEsperar = {});

/// Makes the demonstration database, whole or not at all, in a file that does not exist or in an empty database of a
/// server; future prices count from `hoy`, and `informe`, if any, hears each statement with data. The adapter's error
/// when it cannot.
void CrearDemo(const OrigenBase& origen, Fecha hoy, const ConexionTrazada::Informe& informe = {});

/// Copies a file as it stands at this moment, while others go on writing, to the new file `destino`, which only its
/// owner may read; its size in bytes. `sigue` is asked now and then, and ends the copy when it says no. Nothing is left
/// of one that fails. Rechazo of "odbc": a server is not copied; an Averia that names `destino`, and the adapter's
/// error about the base.
std::uint64_t CopiarBase(const OrigenBase& origen, const std::string& destino, const std::function<bool()>& sigue);

/// Brings a file of an older schema version up, whole or not at all; false when it is up to date already. The adapter's
/// error, with nothing changed, when it cannot: it names what does not fit.
bool ActualizarBase(const std::string& fichero);

}  // namespace kv::aplicacion
