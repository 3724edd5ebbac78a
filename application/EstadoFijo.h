#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "kvdatosart/application/Bases.h"
#include "kvdatosart/application/Sesion.h"
#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/catalog/Tasacion.h"

namespace kv::aplicacion {

/// A base as it stands at one moment, for as long as this lives: what a list is made from. Whoever writes meanwhile is
/// not held up and not seen.
struct EstadoFijo {
    /// Connections with their company: one, or one for who asks and one for each worker.
    std::vector<Puesto> puestos;
    Fecha hoy;
    /// The server cannot promise one state: what others write may be seen halfway through.
    bool seMueve = false;

    /// The first connection as a session, for questions before and after the list.
    aplicacion::Sesion Sesion() const { return {puestos.front().conexion, puestos.front().empresa, hoy}; }
};

/// Opens it for so many workers; a server and a file that nobody can write have one. `alEsperar` as in `AbrirBase`.
/// Rechazo of "empresa" when there is none of that code; the adapter's error when it cannot be opened.
EstadoFijo FijarEstado(const OrigenBase& origen, std::int16_t empresa, Fecha hoy, std::size_t trabajadores,
                       const std::function<void()>& alEsperar = {});

}  // namespace kv::aplicacion
