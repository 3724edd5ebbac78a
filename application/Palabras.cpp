#include "kvdatosart/application/Palabras.h"

#include <utf8proc.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace kv::aplicacion {

std::string Plegar(std::string_view texto) {
    constexpr auto kComo = static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPAT | UTF8PROC_DECOMPOSE |
                                                          UTF8PROC_CASEFOLD | UTF8PROC_STRIPMARK | UTF8PROC_IGNORE);
    utf8proc_uint8_t* plegado = nullptr;
    const utf8proc_ssize_t largo = utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(texto.data()),
                                                static_cast<utf8proc_ssize_t>(texto.size()), &plegado, kComo);
    if (largo < 0) return std::string(texto);
    const std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> dueno(plegado, std::free);
    return {reinterpret_cast<const char*>(plegado), static_cast<std::size_t>(largo)};
}

Palabras::Palabras(std::string_view texto) {
    std::string palabra;
    for (const char c : Plegar(texto) + " ") {
        if (c != ' ' && c != '\t' && c != '\n') {
            palabra += c;
        } else if (!palabra.empty()) {
            palabras_.push_back(std::move(palabra));
            palabra.clear();
        }
    }
}

bool Palabras::Hallan(std::string_view codigo, std::string_view nombre) const {
    if (palabras_.empty()) return true;
    const std::string plegado = Plegar(nombre);
    return std::all_of(palabras_.begin(), palabras_.end(), [&](const std::string& palabra) {
        return codigo.starts_with(palabra) || plegado.find(palabra) != std::string::npos;
    });
}

}  // namespace kv::aplicacion
