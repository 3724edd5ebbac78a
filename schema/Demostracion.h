#pragma once

#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/db/Connection.h"

namespace kv {

/// Fills an empty database with a shop chain for demonstrations and tests, in one transaction: two companies, three
/// warehouses, five tariffs, more than three hundred articles and sixty customers, with an article for every way in
/// which a price is reached. The same rows for the same `hoy`, from which scheduled changes count.
/// Fails as the database does, with nothing written.
void CargarDemostracion(Connection& conexion, Fecha hoy);

/// The same rows inside a transaction that the caller has open.
void EscribirDemostracion(Connection& conexion, Fecha hoy);

}  // namespace kv
