#include "catalog/Busqueda.h"

#include <algorithm>
#include <sstream>

namespace kv {
namespace {

// The letter without its accent of the second byte of a UTF-8 character of the block from À to ÿ; 0 when it is another.
char SinAcento(unsigned char segundo) {
    // clang-format off
    static constexpr char kLetras[] =
        "aaaaaa\0ceeeeiiii" "\0nooooo\0\0uuuuy\0\0" "aaaaaa\0ceeeeiiii" "\0nooooo\0\0uuuuy\0y";
    // clang-format on
    return segundo >= 0x80 && segundo <= 0xBF ? kLetras[segundo - 0x80] : '\0';
}

std::string Plegar(std::string_view texto) {
    std::string plegado;
    plegado.reserve(texto.size());
    for (std::size_t i = 0; i < texto.size(); ++i) {
        const char c = texto[i];
        if (c == '\xC3' && i + 1 < texto.size()) {
            if (const char letra = SinAcento(static_cast<unsigned char>(texto[i + 1]))) {
                plegado += letra;
                ++i;
                continue;
            }
        }
        plegado += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return plegado;
}

}  // namespace

std::vector<std::string> PalabrasBuscadas(std::string_view busca) {
    std::istringstream entrada(Plegar(busca));
    std::vector<std::string> palabras;
    for (std::string palabra; entrada >> palabra;) palabras.push_back(palabra);
    return palabras;
}

bool ContienePalabras(std::string_view texto, const std::vector<std::string>& palabras) {
    const std::string plegado = Plegar(texto);
    return std::all_of(palabras.begin(), palabras.end(),
                       [&](const std::string& palabra) { return plegado.find(palabra) != std::string::npos; });
}

}  // namespace kv
