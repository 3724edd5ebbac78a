#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

#include "kvdatosart/application/EstadoFijo.h"
#include "kvdatosart/application/Listas.h"
#include "kvdatosart/host/cli/Trabajo.h"

namespace kv::host {

/// What says which lines a price list has: for every command that makes one.
struct OpcionesLista {
    /// As many as processors when it is left out.
    std::optional<std::int16_t> trabajadores;

    /// Adds its options to a command; they are read into `peticion`.
    void Anadir(CLI::App& orden, aplicacion::PeticionListaPrecios& peticion);
    std::size_t Trabajadores() const;
};

/// The state that a list is made from: the base of the options, with its company. It is told on standard error when it
/// may move. With a trace there is one worker, which reports to it.
aplicacion::EstadoFijo AbrirEstado(const OpcionesComunes& comunes, std::size_t trabajadores, Traza* traza);

/// Runs `obra` with the trace that was asked for, sums that up and ends the command with the code that `obra` gives. A
/// failure of the base is an Averia; that who reads standard output went away is none.
void Obrar(const OpcionesComunes& comunes, const std::function<int(Traza*)>& obra);

}  // namespace kv::host
