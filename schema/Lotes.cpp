#include "kvdatosart/schema/Lotes.h"

#include <algorithm>

#include "kvdatosart/db/Nombres.h"

namespace kv {
namespace {

constexpr std::string_view kBlancos = " \t\r\n";

std::string_view Recortar(std::string_view texto) {
    const std::size_t inicio = texto.find_first_not_of(kBlancos);
    if (inicio == std::string_view::npos) return {};
    return texto.substr(inicio, texto.find_last_not_of(kBlancos) - inicio + 1);
}

}  // namespace

std::vector<std::string_view> LotesDe(std::string_view guion) {
    std::vector<std::string_view> lotes;
    const auto cerrar = [&](std::size_t desde, std::size_t hasta) {
        const std::string_view lote = Recortar(guion.substr(desde, hasta - desde));
        if (!lote.empty()) lotes.push_back(lote);
    };
    std::size_t inicio = 0;
    for (std::size_t linea = 0; linea < guion.size();) {
        const std::size_t fin = std::min(guion.find('\n', linea), guion.size());
        if (MismoNombre(Recortar(guion.substr(linea, fin - linea)), "GO")) {
            cerrar(inicio, linea);
            inicio = std::min(fin + 1, guion.size());
        }
        linea = fin + 1;
    }
    cerrar(inicio, guion.size());
    return lotes;
}

}  // namespace kv
