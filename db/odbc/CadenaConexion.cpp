#include "kvdatosart/db/odbc/CadenaConexion.h"

#include <algorithm>
#include <array>

#include "kvdatosart/db/Nombres.h"

namespace kv {
namespace {

bool EsSecreta(std::string_view clave) {
    constexpr auto kPalabras = std::to_array<std::string_view>({"pwd", "password", "secret", "token"});
    const std::string minusculas = Minusculas(clave);
    return std::any_of(kPalabras.begin(), kPalabras.end(),
                       [&](std::string_view palabra) { return minusculas.find(palabra) != std::string::npos; });
}

std::string_view SinBlancos(std::string_view texto) {
    while (!texto.empty() && texto.front() == ' ') texto.remove_prefix(1);
    while (!texto.empty() && texto.back() == ' ') texto.remove_suffix(1);
    return texto;
}

// End of the value that starts at `desde`: the semicolon after it, or the end of the text. Between braces a semicolon
// belongs to the value, and a doubled closing brace stands for one.
std::size_t FinValor(std::string_view cadena, std::size_t desde) {
    std::size_t pos = cadena.find_first_not_of(' ', desde);
    if (pos != std::string_view::npos && cadena[pos] == '{') {
        for (++pos; pos < cadena.size(); ++pos) {
            if (cadena[pos] != '}') continue;
            if (pos + 1 == cadena.size() || cadena[pos + 1] != '}') break;
            ++pos;
        }
    }
    return std::min(cadena.find(';', std::min(pos, cadena.size())), cadena.size());
}

void AgregarFormas(std::vector<std::string>& secretos, std::string_view valor) {
    valor = SinBlancos(valor);
    secretos.emplace_back(valor);
    if (valor.empty() || valor.front() != '{') return;
    valor.remove_prefix(1);
    if (!valor.empty() && valor.back() == '}') valor.remove_suffix(1);
    secretos.emplace_back(valor);
    std::string sencillo(valor);
    for (std::size_t pos = sencillo.find("}}"); pos != std::string::npos; pos = sencillo.find("}}", pos + 1))
        sencillo.erase(pos, 1);
    secretos.push_back(std::move(sencillo));
}

}  // namespace

std::vector<std::string> Secretos(std::string_view cadena) {
    std::vector<std::string> secretos;
    for (std::size_t pos = 0; pos < cadena.size();) {
        const std::size_t igual = cadena.find('=', pos);
        if (igual == std::string_view::npos) break;
        const std::size_t fin = FinValor(cadena, igual + 1);
        const std::string_view clave = SinBlancos(cadena.substr(pos, igual - pos));
        if (EsSecreta(clave)) AgregarFormas(secretos, cadena.substr(igual + 1, fin - igual - 1));
        pos = fin + 1;
    }
    std::erase(secretos, std::string());
    std::sort(secretos.begin(), secretos.end(),
              [](const std::string& a, const std::string& b) { return a.size() > b.size(); });
    return secretos;
}

std::string Tapar(std::string_view texto, const std::vector<std::string>& secretos) {
    std::string tapado;
    while (!texto.empty()) {
        const auto secreto =
            std::find_if(secretos.begin(), secretos.end(), [&](const std::string& s) { return texto.starts_with(s); });
        tapado += secreto != secretos.end() ? std::string_view("***") : texto.substr(0, 1);
        texto.remove_prefix(secreto != secretos.end() ? secreto->size() : 1);
    }
    return tapado;
}

}  // namespace kv
