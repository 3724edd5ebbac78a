#pragma once

#include "db/Connection.h"

namespace kv::prueba {

/// Leaves a server's database without the suite's tables, so that they can be made anew. It must be empty, or one that
/// this function took before, which it knows by the table `KV_BaseDePruebas`; any other, and any table that is not the
/// suite's, is error 5 and nothing is touched.
void VaciarBasePrestada(Connection& conexion);

}  // namespace kv::prueba
