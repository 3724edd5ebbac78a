#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kv {

/// The values of a connection string that nobody may read: those of the attributes whose name speaks of a password, a
/// secret or a token. Both as they stand and without their braces; the longest first.
std::vector<std::string> Secretos(std::string_view cadena);

/// `texto` with every secret replaced by asterisks.
std::string Tapar(std::string_view texto, const std::vector<std::string>& secretos);

}  // namespace kv
