#include <CLI/CLI.hpp>
#include <memory>

#include "kvdatosart/application/Averias.h"
#include "kvdatosart/application/Bases.h"
#include "kvdatosart/host/Salida.h"
#include "kvdatosart/host/cli/OpcionesSalida.h"
#include "kvdatosart/host/cli/Ordenes.h"

namespace kv::host {
namespace {

struct PeticionActualizar {
    std::string fichero;
    OpcionesSalida salida;
};

void Actualizar(const PeticionActualizar& peticion) {
    peticion.salida.Exigir();
    bool cambiada = false;
    try {
        cambiada = aplicacion::ActualizarBase(peticion.fichero);
    } catch (const RuntimeError& error) {
        throw aplicacion::Averia({peticion.fichero, {}, {}}, error);
    }
    Documento documento(SeparadorDeGente());
    documento.Decir(cambiada ? "Actualizada la base «" + peticion.fichero + "»"
                             : "La base «" + peticion.fichero + "» ya está al día");
    documento.Dato("base", "Base", peticion.fichero);
    documento.Dato("cambiada", "Cambiada", cambiada, aplicacion::ClaseDato::Logico);
    peticion.salida.Escribir(documento, true);
}

}  // namespace

void AnadirActualizar(CLI::App& programa) {
    CLI::App* orden = programa.add_subcommand(
        "actualizar", "Pone al día las tablas de un fichero que hizo una versión anterior del programa");
    const auto peticion = std::make_shared<PeticionActualizar>();
    orden->add_option("--base", peticion->fichero, "Fichero de la base de datos")->required()->type_name("FICHERO");
    peticion->salida.Anadir(*orden);
    orden->callback([peticion] { Actualizar(*peticion); });
}

}  // namespace kv::host
