#pragma once

#include <CLI/CLI.hpp>
#include <cstddef>
#include <string>

namespace kv::host {

// What the command line admits, told from the one set of texts that the commands bring: on the screen, as a manual
// page and to the shell that completes words.

/// What a command does, its commands and its options, in lines of at most `ancho` columns.
std::string TextoAyuda(const CLI::App& orden, std::size_t ancho);
/// A manual page (troff) with every command.
std::string PaginaManual(const CLI::App& programa);
/// A bash script that completes commands, options and file names.
std::string GuionBash(const CLI::App& programa);

/// What `--help` was asked of: the program or the command that was named.
std::string AyudaPedida(const CLI::App& programa);
/// Adds `ayuda [ORDEN...]`, which also writes the manual page and the bash script.
void AnadirAyuda(CLI::App& programa);

}  // namespace kv::host
