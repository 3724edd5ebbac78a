#pragma once

#include <functional>
#include <string_view>

#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/db/Connection.h"

namespace kv {

/// Runs one batch of an administrative script, which may hold several statements.
using EjecutarLote = std::function<void(std::string_view lote)>;

/// Makes the suite's tables and procedures in a SQL Server database and fills them as `CargarDemostracion` does, in one
/// transaction: all of it or nothing. `ejecutarLote` runs batches on the database of `conexion`. A database that holds
/// companies is error 5 and is not touched; so is one whose collation tells letter case apart or does not keep accents
/// and the euro sign, in which the suite could not work.
void CrearDemostracionServidor(Connection& conexion, const EjecutarLote& ejecutarLote, Fecha hoy);

}  // namespace kv
