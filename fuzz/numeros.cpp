// Texts and bits as numbers and days: what is read is what plain arithmetic reads, and what is written reads back.
#include <cmath>
#include <cstring>
#include <optional>

#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/base/TextoNumero.h"
#include "kvdatosart/base/Valor.h"
#include "kvdatosart/fuzz/Exigir.h"

namespace kv::difuso {
namespace {

// Wider than any of the numbers that are checked with it.
__extension__ using Ancho = __int128;

template <class F>
auto Intentar(F&& leer) -> std::optional<decltype(leer())> {
    try {
        return leer();
    } catch (const RuntimeError& error) {
        Exigir(error.numero == kErrTipo || error.numero == kErrDesbordamiento || error.numero == kErrLlamadaInvalida,
               "errores 5, 6 o 13", error.descripcion);
        return std::nullopt;
    }
}

// Ten-thousandths of a plain decimal text, half to even; nothing when it is none or has more than 30 digits.
std::optional<Ancho> Diezmilesimas(std::string_view texto) {
    while (!texto.empty() && texto.front() == ' ') texto.remove_prefix(1);
    while (!texto.empty() && texto.back() == ' ') texto.remove_suffix(1);
    const bool negativo = !texto.empty() && texto.front() == '-';
    if (!texto.empty() && (texto.front() == '-' || texto.front() == '+')) texto.remove_prefix(1);
    const std::size_t coma = std::min(texto.find_first_of(".,"), texto.size());
    std::string cifras(texto.substr(0, coma));
    std::string decimales(texto.substr(std::min(coma + 1, texto.size())));
    if (cifras.size() + decimales.size() == 0 || cifras.size() > 20 || decimales.size() > 10) return std::nullopt;
    decimales.resize(10, '0');
    Ancho valor = 0;
    for (const char c : cifras + decimales) {
        if (c < '0' || c > '9') return std::nullopt;
        valor = valor * 10 + (c - '0');
    }
    Ancho entero = valor / 1000000;
    const Ancho resto = valor % 1000000;
    if (resto > 500000 || (resto == 500000 && entero % 2 != 0)) ++entero;
    return negativo ? -entero : entero;
}

void ProbarDinero(const std::string& texto) {
    const auto dinero = Intentar([&] { return Currency::DeTexto(texto); });
    if (const auto exacto = Diezmilesimas(texto)) {
        const bool cabe = *exacto >= INT64_MIN && *exacto <= INT64_MAX;
        Exigir(dinero.has_value() == cabe, "se lee lo que cabe", texto);
        if (cabe) Exigir(dinero->Diezmilesimas() == *exacto, "al par en la cuarta cifra", texto);
    }
    if (!dinero) return;
    for (const char separador : {'.', ','})
        Exigir(Currency::DeTexto(dinero->ATexto(separador)) == *dinero, "ida y vuelta del dinero", texto);
}

void ProbarDia(const std::string& texto) {
    const auto dia = Intentar([&] { return Fecha::DeTexto(texto); });
    if (!dia) return;
    Exigir(Fecha::DeTexto(dia->ATexto()) == *dia && Fecha::DeTexto(dia->AIso()) == *dia, "ida y vuelta del día", texto);
    Exigir(Fecha::DeOle(dia->AOle()) == *dia, "ida y vuelta de la fecha en número", texto);
}

// Exact ten-thousandths of a double, half to even; nothing beyond 64 bits.
std::optional<std::int64_t> Exactas(double valor) {
    int exponente = 0;
    auto mantisa = static_cast<std::int64_t>(std::ldexp(std::frexp(valor, &exponente), 53));
    exponente -= 53;
    Ancho producto = static_cast<Ancho>(mantisa) * 10000;
    if (exponente > 60) return std::nullopt;
    if (exponente >= 0) {
        if (producto != 0 && exponente > 20) return std::nullopt;
        producto <<= exponente;
    } else if (exponente < -120) {
        producto = 0;
    } else {
        const Ancho uno = static_cast<Ancho>(1) << -exponente;
        Ancho suelo = producto >> -exponente;
        const Ancho doble = (producto - suelo * uno) * 2;
        if (doble > uno || (doble == uno && (suelo & 1) != 0)) ++suelo;
        producto = suelo;
    }
    if (producto < INT64_MIN || producto > INT64_MAX) return std::nullopt;
    return static_cast<std::int64_t>(producto);
}

void ProbarReal(double valor) {
    const auto dinero = Intentar([&] { return Currency::DeDouble(valor).Diezmilesimas(); });
    Exigir(dinero == (std::isfinite(valor) ? Exactas(valor) : std::nullopt), "el real exacto, al par",
           std::to_string(valor));
    const auto texto = Intentar([&] { return TextoDouble(valor, '.').Cadena(); });
    if (!texto) return;
    const double leido = std::strtod(texto->c_str(), nullptr);
    // The largest ones round up to more than there is.
    if (!std::isfinite(leido)) return;
    Exigir(TextoDouble(leido, '.').Cadena() == *texto, "el texto de un real se lee como él mismo", *texto);
    Exigir(std::abs(leido - valor) <= std::abs(valor) * 1e-14, "quince cifras", *texto);
    Intentar([&] { return Fecha::DeOle(valor); });
}

}  // namespace
}  // namespace kv::difuso

int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t largo) {
    using namespace kv::difuso;
    const std::string texto = Texto(datos, largo);
    ProbarDinero(texto);
    ProbarDia(texto);
    const kv::Valor valor = texto;
    Intentar([&] { return kv::AInteger(valor); });
    Intentar([&] { return kv::AByte(valor); });
    Intentar([&] { return kv::ABoolean(valor); });
    Intentar([&] { return kv::ASingle(valor); });
    if (largo >= sizeof(double)) {
        double real = 0;
        std::memcpy(&real, datos, sizeof real);
        ProbarReal(real);
    }
    ProbarReal(std::strtod(texto.c_str(), nullptr));
    return 0;
}
