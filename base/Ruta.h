#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kv {

/// The file that a UTF-8 name means; what a path makes of a plain text is the code page's on Windows.
inline std::filesystem::path RutaDe(std::string_view utf8) {
    return std::u8string(utf8.begin(), utf8.end());
}

/// The UTF-8 name of a file, with '/' between its folders.
inline std::string NombreDeRuta(const std::filesystem::path& ruta) {
    const std::u8string utf8 = ruta.generic_u8string();
    return {utf8.begin(), utf8.end()};
}

}  // namespace kv
