#pragma once

#include "kvdatosart/tests/servidor/Pareja.h"

namespace kv::prueba {

// The same random work on both databases of a pair that holds the demonstration data. Each notes its differences in
// the pair.

/// Whole article loads with their sales parent, and bare tariff prices.
void CompararCargas(Pareja& pareja, Azar& azar, int veces);
/// Stock movements and every other method of the warehouse, some inside transactions that end either way.
void CompararExistencias(Pareja& pareja, Azar& azar, int veces);
/// Customer prices and sales statistics, family and group discounts, chain agreements.
void CompararReglas(Pareja& pareja, Azar& azar, int veces);
/// Customers: browsing, writing, telephones, dates, queries and deletions, some of which fail midway.
void CompararClientes(Pareja& pareja, Azar& azar, int veces);

/// What the application asks and does with statements of its own: searches, checks before writing, agreements one by
/// one.
void CompararAplicacion(Pareja& pareja, Azar& azar, int veces);

/// Which row of several wins, asked of both procedures of one database; what it writes for that is rolled back.
void ProbarProcedimientos(const std::shared_ptr<Connection>& conexion);

/// All of the comparisons above, loads again on what it leaves, and in the end every table.
void CompararTodo(Pareja& pareja, Azar& azar);

}  // namespace kv::prueba
