#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "kvdatosart/host/LecturaCampos.h"

namespace kv::host {

/// "cualidadX" is "--cualidad-x".
std::string NombreOpcion(const std::string& campo);

/// Adds the option of a field, read into `destino` while the command line is parsed. A text that cannot be read is a
/// Rechazo of the field.
template <class T, class... Resto>
CLI::Option* Opcion(CLI::App& orden, const std::string& campo, T& destino, const char* tipo, const char* ayuda,
                    Resto... resto) {
    const auto leer = [campo, &destino, resto...](const std::string& texto) {
        ExigirLleno(campo, texto);
        Leer(campo, texto, destino, resto...);
    };
    return orden.add_option_function<std::string>(NombreOpcion(campo), leer, ayuda)->type_name(tipo);
}

}  // namespace kv::host
