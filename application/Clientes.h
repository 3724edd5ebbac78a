#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "kvdatosart/application/Sesion.h"
#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/customers/clsCliente.h"

namespace kv::aplicacion {

/// A customer by its code.
struct PeticionCliente {
    std::int32_t codigo = 0;
};

struct RespuestaCliente {
    clsCliente ficha;
    std::vector<std::string> telefonos;
};

// Rechazo of "codigo", negative: no such customer.

/// Only reads.
RespuestaCliente VerCliente(const Sesion& sesion, const PeticionCliente& peticion);

/// First and last need no customer to start from.
enum class Paso : std::uint8_t { Primero, Ultimo, Anterior, Siguiente };
struct PeticionRecorrido : PeticionCliente {
    Paso paso = Paso::Primero;
    /// Previous and next in the order of names, else of codes.
    bool porNombre = false;
};
/// Only reads. Rechazo, negative: there is none in that direction.
RespuestaCliente RecorrerClientes(const Sesion& sesion, const PeticionRecorrido& peticion);

struct PeticionEliminarCliente : PeticionCliente {
    /// Even with dependencies; its documents stay.
    bool forzar = false;
};
struct RespuestaEliminado {
    std::int32_t codigo;
};
/// Rechazo, negative: other rows refer to it, as the component's message has told.
RespuestaEliminado EliminarCliente(const Sesion& sesion, const PeticionEliminarCliente& peticion);

struct PeticionResumen : PeticionCliente {
    /// From which code the next free one is looked for.
    std::int32_t minimo = 1;
};
struct RespuestaResumen {
    std::int32_t codigo;
    /// Delivery notes not invoiced yet.
    Currency saldoAlbaranes;
    /// Loyalty points.
    Currency saldoPuntos;
    /// Of any customer of the company.
    bool notasVencidas;
    std::int32_t codigoNuevo;
};
/// Only reads.
RespuestaResumen ResumirCliente(const Sesion& sesion, const PeticionResumen& peticion);

struct PeticionFechaCliente : PeticionCliente {
    /// The session's day when it is left out.
    std::optional<Fecha> fecha;
    /// Take a day to come.
    bool forzar = false;
};
struct RespuestaFechaCliente {
    std::int32_t codigo;
    /// What is written afterwards: never earlier than before, and none where there was none.
    std::optional<Fecha> fecha;
};
/// Moves the last sale, or the last collection, forward. Rechazo, impossible: a day to come that is not forced.
RespuestaFechaCliente AnotarVenta(const Sesion& sesion, const PeticionFechaCliente& peticion);
RespuestaFechaCliente AnotarCobro(const Sesion& sesion, const PeticionFechaCliente& peticion);

}  // namespace kv::aplicacion
