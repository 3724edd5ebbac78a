#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kv {

/// The words of what a person looks for, without letter case and accents; those between blanks.
std::vector<std::string> PalabrasBuscadas(std::string_view busca);

/// Whether a text holds every word of `PalabrasBuscadas`, wherever it stands.
bool ContienePalabras(std::string_view texto, const std::vector<std::string>& palabras);

}  // namespace kv
