#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "application/Averias.h"
#include "application/Bases.h"
#include "host/cli/Ordenes.h"

namespace kv::host {
namespace {

void Actualizar(const std::string& fichero) {
    bool hecho = false;
    try {
        hecho = aplicacion::ActualizarBase(fichero);
    } catch (const RuntimeError& error) {
        throw aplicacion::Averia({fichero, {}, {}}, error);
    }
    std::cout << (hecho ? "Actualizada la base «" + fichero + "»\n" : "La base «" + fichero + "» ya está al día\n");
}

}  // namespace

void AnadirActualizar(CLI::App& programa) {
    CLI::App* orden = programa.add_subcommand(
        "actualizar", "Pone al día las tablas de un fichero que hizo una versión anterior del programa");
    const auto fichero = std::make_shared<std::string>();
    orden->add_option("--base", *fichero, "Fichero de la base de datos")->required()->type_name("FICHERO");
    orden->callback([fichero] { Actualizar(*fichero); });
}

}  // namespace kv::host
