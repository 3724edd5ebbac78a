#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "kvdatosart/application/Sesion.h"
#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/rules/ObservadorCadena.h"

namespace kv::aplicacion {

// What the component takes as it comes and a person can only have mistyped. Each one names the request's field in its
// Rechazo.

// Negative: the database has no such thing.

void ExigirArticulo(const Sesion& sesion, std::int32_t codigo);
void ExigirCliente(const Sesion& sesion, std::int32_t codigo);
void ExigirAlmacen(const Sesion& sesion, std::int16_t codigo);
void ExigirTarifa(const Sesion& sesion, std::int16_t codigo);
void ExigirGrupo(const Sesion& sesion, std::int16_t codigo);
/// A line that is not sold at cost, for whoever may not see costs: neither tariff -1 nor a customer who buys at cost.
void ExigirSinCoste(const Sesion& sesion, std::int32_t cliente, std::int16_t tarifa);
/// A node of a chain that has customers.
void ExigirNodo(const Sesion& sesion, const NivelesCadena& nodo);

// Impossible: no request can have that value.

void ExigirNoNegativo(const char* campo, Currency valor);
/// 0 to 100.
void ExigirPorcentaje(const char* campo, Currency valor);
/// Last day not before the first, in the fields "desde" and "hasta".
void ExigirPlazo(Fecha desde, Fecha hasta);
/// A day that has come, unless it is forced.
void ExigirPasada(const char* campo, Fecha fecha, Fecha hoy, bool forzar);
/// A text that a statement of the component carries as it is: no quote, no control character and at most `largo`
/// characters. May be empty.
void ExigirTexto(const std::string& campo, const std::string& texto, std::size_t largo);

/// " AND Cod_Nivel1 =1 ...": the ten levels of a node in columns that begin with `prefijo`.
std::string CondicionNodo(std::string_view prefijo, const NivelesCadena& nodo);

}  // namespace kv::aplicacion
