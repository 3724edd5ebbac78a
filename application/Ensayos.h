#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "kvdatosart/application/Bases.h"
#include "kvdatosart/application/Listas.h"
#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/catalog/Comparacion.h"

namespace kv::aplicacion {

/// The lines on which it is to be seen what something that is written would change.
struct PeticionEnsayo {
    OrigenBase base;
    std::int16_t empresa = 1;
    Fecha hoy;
    /// Locked articles and costs always count: nothing of it goes to customers.
    PeticionListaPrecios lista;
    std::size_t trabajadores = 1;
};

/// Who takes part in a trial.
struct PasosEnsayo {
    /// Writes what is tried, to a base that will be thrown away. What it raises ends the trial.
    std::function<void(const OrigenBase& copia)> escribir;
    /// Asked now and then while the base is copied; no ends the trial with an error.
    std::function<bool()> sigue;
    /// Told now and then how many lines are priced, before and after; what it raises ends the trial.
    std::function<void(std::uint64_t hechas, std::uint64_t total)> progreso;
};

struct RespuestaEnsayo {
    RecuentoComparacion recuento;
    /// The lines whose price, discount or state changes, the greatest rise of the net price first, then those without a
    /// percentage.
    std::vector<LineaComparada> lineas;
};

/// Prices the lines on a private copy of the base, lets it be written and prices them again. The base itself is only
/// read; the copy, in the system's folder for temporary files, is gone at the end whatever happens. Rechazo of "odbc":
/// a server is not copied; those of the list; std::runtime_error when there is no place for the copy, the adapter's
/// error when it cannot be made.
RespuestaEnsayo Ensayar(const PeticionEnsayo& peticion, const PasosEnsayo& pasos);

}  // namespace kv::aplicacion
