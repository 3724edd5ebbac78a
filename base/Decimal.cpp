#include "kvdatosart/base/Decimal.h"

#include <algorithm>
#include <limits>
#include <string>

#include "kvdatosart/base/RuntimeError.h"

namespace kv {
namespace {

bool SoloCifras(std::string_view texto) {
    return std::all_of(texto.begin(), texto.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string_view SinBlancos(std::string_view texto) {
    while (!texto.empty() && texto.front() == ' ') texto.remove_prefix(1);
    while (!texto.empty() && texto.back() == ' ') texto.remove_suffix(1);
    return texto;
}

void AgregarCifra(std::uint64_t& valor, char cifra) {
    constexpr std::uint64_t kTope = std::numeric_limits<std::uint64_t>::max();
    const auto unidad = static_cast<std::uint64_t>(cifra - '0');
    if (valor > (kTope - unidad) / 10) LanzarError(kErrDesbordamiento);
    valor = valor * 10 + unidad;
}

bool RedondeaArriba(std::string_view sobrante, bool impar) {
    if (sobrante.empty() || sobrante.front() < '5') return false;
    if (sobrante.front() > '5') return true;
    const bool mitadExacta = sobrante.find_first_not_of('0', 1) == std::string_view::npos;
    return !mitadExacta || impar;
}

}  // namespace

Decimal LeerDecimal(std::string_view texto) {
    std::string_view resto = SinBlancos(texto);
    Decimal decimal;
    if (!resto.empty() && (resto.front() == '-' || resto.front() == '+')) {
        decimal.negativo = resto.front() == '-';
        resto.remove_prefix(1);
    }
    const auto separador = resto.find_first_of(".,");
    decimal.entera = resto.substr(0, separador);
    if (separador != std::string_view::npos) decimal.fraccion = resto.substr(separador + 1);
    const bool vacio = decimal.entera.empty() && decimal.fraccion.empty();
    if (vacio || !SoloCifras(decimal.entera) || !SoloCifras(decimal.fraccion))
        LanzarError(kErrTipo, "«" + std::string(texto) + "» no es un número");
    return decimal;
}

std::uint64_t EscalarAlPar(const Decimal& decimal, int decimales) {
    std::uint64_t valor = 0;
    for (const char cifra : decimal.entera) AgregarCifra(valor, cifra);
    const auto guardadas = static_cast<std::size_t>(decimales);
    for (std::size_t i = 0; i < guardadas; ++i)
        AgregarCifra(valor, i < decimal.fraccion.size() ? decimal.fraccion[i] : '0');
    if (decimal.fraccion.size() <= guardadas) return valor;
    if (RedondeaArriba(decimal.fraccion.substr(guardadas), valor % 2 == 1)) {
        if (valor == std::numeric_limits<std::uint64_t>::max()) LanzarError(kErrDesbordamiento);
        ++valor;
    }
    return valor;
}

}  // namespace kv
