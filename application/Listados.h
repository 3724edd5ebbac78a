#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "kvdatosart/application/Descuentos.h"
#include "kvdatosart/application/Sesion.h"
#include "kvdatosart/application/Tabla.h"
#include "kvdatosart/rules/ObservadorCadena.h"

namespace kv::aplicacion {

/// What people look for in a master: all of it, or the rows that have these words in their code and names.
struct PeticionListado {
    /// Words in any order, without regard to case or accents; empty lists everything.
    std::string texto;
    /// Rows that are shown.
    std::optional<std::int32_t> limite;
};

struct RespuestaListado {
    /// In the order of codes, up to the limit.
    Tabla tabla;
    /// Rows that there are in all.
    std::size_t hallados;
};

// All of them only read, and answer the same on every database. Rechazo, negative: there is none.

struct PeticionArticulos : PeticionListado {
    /// Those of this family and what is below it.
    std::optional<Familias> familia;
};
RespuestaListado ListarArticulos(const Sesion& sesion, const PeticionArticulos& peticion);

struct PeticionClientes : PeticionListado {
    /// Those of this group of discounts.
    std::optional<std::int16_t> grupo;
    /// Those of this node of a chain and what is below it.
    std::optional<NivelesCadena> nodo;
};
RespuestaListado ListarClientes(const Sesion& sesion, const PeticionClientes& peticion);

RespuestaListado ListarTarifas(const Sesion& sesion, const PeticionListado& peticion);
RespuestaListado ListarAlmacenes(const Sesion& sesion, const PeticionListado& peticion);
/// Groups of customers.
RespuestaListado ListarGrupos(const Sesion& sesion, const PeticionListado& peticion);
/// Nodes of the chains, with the customers at or below each and the agreements that stand on it.
RespuestaListado ListarCadenas(const Sesion& sesion, const PeticionListado& peticion);
/// Needs no company in the session.
RespuestaListado ListarEmpresas(const Sesion& sesion, const PeticionListado& peticion);

}  // namespace kv::aplicacion
