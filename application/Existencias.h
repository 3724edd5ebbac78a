#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "kvdatosart/application/Sesion.h"
#include "kvdatosart/application/Tabla.h"
#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"

namespace kv::aplicacion {

/// Whose stock it is: an article in a warehouse, or one of its variants there.
struct ClaveExistencias {
    std::int32_t articulo = 0;
    std::int16_t almacen = 1;
};
struct ClaveVariante : ClaveExistencias {
    /// Both 0 for the article itself; both other than 0 for a variant.
    std::uint8_t cualidadX = 0;
    std::uint8_t cualidadY = 0;
};

/// What there is of an article, warehouse by warehouse.
struct RespuestaExistencias {
    Tabla almacenes;
    Tabla variantes;
    Tabla ubicaciones;
};

struct PeticionExistencias {
    std::int32_t articulo = 0;
    /// Whoever reads the answer may see costs; else they are NULL.
    bool conCoste = true;
};
/// Only reads. Rechazo, negative: no warehouse has it.
RespuestaExistencias VerExistencias(const Sesion& sesion, const PeticionExistencias& peticion);

enum class TipoMovimiento : std::uint8_t { Compra, Venta, Devolucion, Entrada, Salida };
/// As people write it.
std::string_view NombreDe(TipoMovimiento tipo);

/// A movement to post. Units and weight are positive whatever its kind.
struct PeticionMovimiento : ClaveVariante {
    TipoMovimiento tipo = TipoMovimiento::Compra;
    Currency unidades;
    Currency peso;
    /// Net unit cost of a purchase or entry.
    Currency coste;
    /// The session's day when it is left out.
    std::optional<Fecha> fecha;
    /// Carry the dates to the masters of article and warehouse.
    bool fichas = false;
    /// Take a sale on a day to come.
    bool forzar = false;
};
struct RespuestaMovimiento {
    PeticionMovimiento hecho;
    /// After the movement.
    double existencias;
    double costeMedio;
    RespuestaExistencias quedan;
};

// What writes does so in one transaction and answers with what there is then. Rechazo, negative: no such article or
// warehouse.

/// Rechazo, impossible: no units, a negative weight or cost, one quality without the other, a sale to come that is
/// not forced.
RespuestaMovimiento MoverExistencias(const Sesion& sesion, const PeticionMovimiento& peticion);

struct PeticionBloqueo : ClaveExistencias {
    bool bloqueado = true;
};
RespuestaExistencias BloquearExistencias(const Sesion& sesion, const PeticionBloqueo& peticion);

struct PeticionCoste : ClaveExistencias {
    Currency coste;
};
/// Sets purchase price and average cost. Rechazo, impossible: a negative cost.
RespuestaExistencias PonerCoste(const Sesion& sesion, const PeticionCoste& peticion);

/// Signed increments. Rechazo, impossible: none of both, or one quality without the other.
struct PeticionPendiente : ClaveVariante {
    Currency recibir;
    Currency servir;
};
RespuestaExistencias SumarPendiente(const Sesion& sesion, const PeticionPendiente& peticion);

/// A signed increment of what a location holds. Its path has up to five levels of ten characters; Rechazo, impossible:
/// a text that no statement can carry.
struct PeticionUbicacion : ClaveExistencias {
    std::array<std::string, 5> niveles;
    Currency unidades;
};
RespuestaExistencias SumarEnUbicacion(const Sesion& sesion, const PeticionUbicacion& peticion);

}  // namespace kv::aplicacion
