#pragma once

#include <optional>
#include <string>

#include "kvdatosart/host/Documento.h"
#include "kvdatosart/host/EscribirTexto.h"

namespace CLI {
class App;
}

namespace kv::host {

/// Heads the options that every command takes.
inline constexpr const char* kGrupoComun = "Opciones comunes";

/// How an answer is asked for: for people unless one of the others is.
struct OpcionesSalida {
    bool json = false;
    /// "true" asks for the first table, a name for that one.
    std::string csv;
    /// Columns, 0 for no limit; those of the terminal when it is left out.
    std::optional<std::int32_t> ancho;

    /// Adds --json, --csv and --ancho to a command.
    void Anadir(CLI::App& orden);
    /// Rechazo when two forms are asked for at once.
    void Exigir() const;

    /// How people read what goes to standard output, at the width that was asked for.
    Presentacion Forma() const;
    /// Writes the answer. What was done and cannot be told is said on standard error and is no failure; of a question,
    /// it is a std::runtime_error.
    void Escribir(const Documento& documento, bool hecho) const;

  private:
    std::string Texto(const Documento& documento) const;
};

}  // namespace kv::host
