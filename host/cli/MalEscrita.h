#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace kv::host {

/// What is wrong with a command line that the parser did not take, in Spanish; a misspelt option or command with the
/// nearest one that there is.
std::string EnCastellano(const CLI::ParseError& error, const CLI::App& programa);

}  // namespace kv::host
