#include "kvdatosart/base/TextoNumero.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "kvdatosart/base/RuntimeError.h"

namespace kv {
namespace {

constexpr int kDigitosDouble = 15;
constexpr int kDigitosSingle = 7;

void AgregarExponente(TextoNumero& texto, int exponente) {
    texto.Agregar('E');
    texto.Agregar(exponente < 0 ? '-' : '+');
    const int absoluto = std::abs(exponente);
    if (absoluto < 10) texto.Agregar('0');
    texto.AgregarEntero(absoluto);
}

void AgregarPlano(TextoNumero& texto, std::string_view digitos, int exponente, char separador) {
    if (exponente < 0) {
        texto.Agregar('0');
        texto.Agregar(separador);
        for (int i = exponente + 1; i < 0; ++i) texto.Agregar('0');
        texto.Agregar(digitos);
        return;
    }
    const auto enteros = static_cast<std::size_t>(exponente) + 1;
    if (digitos.size() <= enteros) {
        texto.Agregar(digitos);
        for (std::size_t i = digitos.size(); i < enteros; ++i) texto.Agregar('0');
        return;
    }
    texto.Agregar(digitos.substr(0, enteros));
    texto.Agregar(separador);
    texto.Agregar(digitos.substr(enteros));
}

// The significant digits of a positive number, without trailing zeros, and its decimal exponent.
struct Cifras {
    std::array<char, 24> digitos;
    std::size_t cuantos = 0;
    int exponente = 0;
};

Cifras Descomponer(double positivo, int significativos) {
    std::array<char, 40> cientifico;
    const auto fin = std::to_chars(cientifico.data(), cientifico.data() + cientifico.size(), positivo,
                                   std::chars_format::scientific, significativos - 1)
                         .ptr;
    const char* e = std::find(cientifico.data(), fin, 'e');
    Cifras cifras;
    for (const char* p = cientifico.data(); p != e; ++p)
        if (*p != '.') cifras.digitos[cifras.cuantos++] = *p;
    while (cifras.cuantos > 1 && cifras.digitos[cifras.cuantos - 1] == '0') --cifras.cuantos;
    std::from_chars(e + (e[1] == '+' ? 2 : 1), fin, cifras.exponente);
    return cifras;
}

TextoNumero TextoReal(double valor, int significativos, char separador) {
    if (!std::isfinite(valor)) LanzarError(kErrDesbordamiento);
    TextoNumero texto;
    if (valor == 0.0) {
        texto.Agregar('0');
        return texto;
    }
    if (valor < 0) texto.Agregar('-');
    const Cifras cifras = Descomponer(std::fabs(valor), significativos);
    const std::string_view digitos(cifras.digitos.data(), cifras.cuantos);
    if (cifras.exponente >= -4 && cifras.exponente < significativos) {
        AgregarPlano(texto, digitos, cifras.exponente, separador);
        return texto;
    }
    texto.Agregar(digitos.front());
    if (digitos.size() > 1) {
        texto.Agregar(separador);
        texto.Agregar(digitos.substr(1));
    }
    AgregarExponente(texto, cifras.exponente);
    return texto;
}

}  // namespace

TextoNumero TextoDouble(double valor, char separador) {
    return TextoReal(valor, kDigitosDouble, separador);
}

TextoNumero TextoSingle(float valor, char separador) {
    return TextoReal(valor, kDigitosSingle, separador);
}

}  // namespace kv
