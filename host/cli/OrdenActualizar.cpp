#include <CLI/CLI.hpp>
#include <memory>

#include "kvdatosart/application/Averias.h"
#include "kvdatosart/application/Bases.h"
#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/host/Salida.h"
#include "kvdatosart/host/cli/OpcionesSalida.h"
#include "kvdatosart/host/cli/Ordenes.h"
#include "kvdatosart/host/cli/Trabajo.h"

namespace kv::host {
namespace {

struct PeticionActualizar {
    aplicacion::OrigenBase base;
    OpcionesSalida salida;
};

void Actualizar(const PeticionActualizar& peticion) {
    peticion.salida.Exigir();
    const aplicacion::OrigenBase base = OHabitual(peticion.base);
    if (base.fichero.empty()) aplicacion::RechazarImposible("", "falta {base} FICHERO");
    bool cambiada = false;
    try {
        cambiada = aplicacion::ActualizarBase(base.fichero);
    } catch (const RuntimeError& error) {
        throw aplicacion::Averia(base, error);
    }
    Documento documento(SeparadorDeGente());
    documento.Decir(cambiada ? "Actualizada la base «" + base.fichero + "»"
                             : "La base «" + base.fichero + "» ya está al día");
    documento.Dato("base", "Base", base.fichero);
    documento.Dato("cambiada", "Cambiada", cambiada, aplicacion::ClaseDato::Logico);
    peticion.salida.Escribir(documento, true);
}

}  // namespace

void AnadirActualizar(CLI::App& programa) {
    CLI::App* orden = programa.add_subcommand(
        "actualizar", "Pone al día las tablas de un fichero que hizo una versión anterior del programa");
    const auto peticion = std::make_shared<PeticionActualizar>();
    AnadirBase(*orden, peticion->base.fichero);
    peticion->salida.Anadir(*orden);
    orden->callback([peticion] { Actualizar(*peticion); });
}

}  // namespace kv::host
