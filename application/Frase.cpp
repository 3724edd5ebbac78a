#include "kvdatosart/application/Frase.h"

#include <string_view>

namespace kv::aplicacion {
namespace {

constexpr std::string_view kNumero = "{}";
constexpr std::string_view kImporte = "{$}";

// `escribir` says a number, given whether it is an amount.
template <class Escribir>
std::string Entera(const Frase& frase, Escribir escribir) {
    std::string entera = frase.texto;
    std::size_t desde = 0;
    for (const Currency numero : frase.numeros) {
        desde = entera.find('{', desde);
        const bool importe = entera.compare(desde, kImporte.size(), kImporte) == 0;
        const std::string escrito = escribir(numero, importe);
        entera.replace(desde, (importe ? kImporte : kNumero).size(), escrito);
        desde += escrito.size();
    }
    return entera;
}

}  // namespace

std::string ImporteParaGente(Currency importe, char separador) {
    const std::string texto = importe.ATexto(separador).Cadena();
    const std::size_t coma = texto.find(separador);
    if (coma == std::string::npos) return texto + separador + "00";
    return texto.size() - coma == 2 ? texto + '0' : texto;
}

std::string Frase::ParaGente(char separador) const {
    return Entera(*this, [separador](Currency numero, bool importe) {
        return importe ? ImporteParaGente(numero, separador) : numero.ATexto(separador).Cadena();
    });
}

std::string Frase::ParaProgramas() const {
    return Entera(*this, [](Currency numero, bool) { return numero.ATexto('.').Cadena(); });
}

}  // namespace kv::aplicacion
