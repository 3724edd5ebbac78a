#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "kvdatosart/application/Bases.h"
#include "kvdatosart/base/Fecha.h"

namespace kv::host {

/// The words of the program's command line from the last to the first, as CLI11 takes them. The dashes before a command
/// that is tried are doubled: an option of several values takes the first ones for its own end.
std::vector<std::string> PalabrasAlReves(int argc, const char* const* argv);

/// A command that is tried, and how a failure of it is told.
struct OrdenEnsayada {
    std::vector<std::string> palabras;
    std::string donde;
};

/// The commands of a file, one a line: words between blanks, or between quotes of either kind. Empty lines and those
/// that begin with # are skipped, and so is the program's own name at the beginning. Rechazo of "ordenDe" with the line
/// of quotes that do not end and when there is none; std::runtime_error when the file cannot be read.
std::vector<OrdenEnsayada> LeerOrdenes(const std::string& fichero);

/// Runs a command that writes on this base, which it may not name itself, without showing its answer. Its Rechazo, and
/// one for a command that is misspelt or does not write, say which command it was.
void EjecutarEn(const aplicacion::OrigenBase& base, std::int16_t empresa, Fecha hoy, const OrdenEnsayada& orden);

}  // namespace kv::host
