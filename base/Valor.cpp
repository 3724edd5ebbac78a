#include "kvdatosart/base/Valor.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <type_traits>

#include "kvdatosart/base/Decimal.h"
#include "kvdatosart/base/RuntimeError.h"

namespace kv {
namespace {

template <class T>
constexpr bool kEsEntero = std::is_integral_v<T> && !std::is_same_v<T, bool>;

double DoubleDeTexto(const std::string& texto) {
    std::string punto = texto;
    for (char& c : punto)
        if (c == ',') c = '.';
    const auto primero = punto.find_first_not_of(' ');
    const auto ultimo = punto.find_last_not_of(' ');
    if (primero == std::string::npos) LanzarError(kErrTipo, "un texto vacío no es un número");
    const bool conMas = punto[primero] == '+';
    const char* inicio = punto.data() + primero + (conMas ? 1 : 0);
    const char* fin = punto.data() + ultimo + 1;
    // The library would also read a second sign, "inf" and "nan".
    const bool otraCosa = punto.find_first_not_of("0123456789.+-eE ") != std::string::npos;
    if (otraCosa || (conMas && *inicio == '-')) LanzarError(kErrTipo, "«" + texto + "» no es un número");
    double valor = 0;
    const auto leido = std::from_chars(inicio, fin, valor);
    if (leido.ec == std::errc::result_out_of_range) LanzarError(kErrDesbordamiento);
    if (leido.ec != std::errc() || leido.ptr != fin) LanzarError(kErrTipo, "«" + texto + "» no es un número");
    return valor;
}

// Half to even; the result is checked against the range of the wanted type by the caller.
std::int64_t EnteroDeCurrency(Currency valor) {
    constexpr std::int64_t kEscala = 10000;
    const std::int64_t unidades = valor.Diezmilesimas() / kEscala;
    const std::int64_t resto = valor.Diezmilesimas() % kEscala;
    const std::int64_t doble = std::abs(resto) * 2;
    if (doble < kEscala || (doble == kEscala && unidades % 2 == 0)) return unidades;
    return resto < 0 ? unidades - 1 : unidades + 1;
}

std::int64_t EnteroDeDouble(double valor) {
    const double suelo = std::floor(valor);
    const double resto = valor - suelo;
    const bool arriba = resto > 0.5 || (resto == 0.5 && std::fmod(suelo, 2.0) != 0.0);
    const double redondeado = arriba ? suelo + 1 : suelo;
    if (!(redondeado >= -0x1p63 && redondeado < 0x1p63)) LanzarError(kErrDesbordamiento);
    return static_cast<std::int64_t>(redondeado);
}

struct AEntero64 {
    std::int64_t operator()(Nulo) const { LanzarError(kErrNulo); }
    std::int64_t operator()(bool v) const { return v ? -1 : 0; }
    std::int64_t operator()(float v) const { return EnteroDeDouble(v); }
    std::int64_t operator()(double v) const { return EnteroDeDouble(v); }
    std::int64_t operator()(Currency v) const { return EnteroDeCurrency(v); }
    std::int64_t operator()(Fecha v) const { return EnteroDeDouble(v.AOle()); }
    std::int64_t operator()(const std::string& v) const { return EnteroDeDouble(DoubleDeTexto(v)); }
    template <class T>
    requires kEsEntero<T> std::int64_t operator()(T v) const { return v; }
};

template <class T>
T EnteroEnRango(const Valor& valor) {
    if (const T* igual = std::get_if<T>(&valor)) return *igual;
    const std::int64_t entero = std::visit(AEntero64{}, valor);
    if (entero < std::numeric_limits<T>::min() || entero > std::numeric_limits<T>::max())
        LanzarError(kErrDesbordamiento, TextoEntero(entero).Cadena());
    return static_cast<T>(entero);
}

struct ADoubleVisita {
    double operator()(Nulo) const { LanzarError(kErrNulo); }
    double operator()(bool v) const { return v ? -1.0 : 0.0; }
    double operator()(float v) const { return v; }
    double operator()(double v) const { return v; }
    double operator()(Currency v) const { return v.ADouble(); }
    double operator()(Fecha v) const { return v.AOle(); }
    double operator()(const std::string& v) const { return DoubleDeTexto(v); }
    template <class T>
    requires kEsEntero<T>
    double operator()(T v) const { return static_cast<double>(v); }
};

struct ACurrencyVisita {
    Currency operator()(Nulo) const { LanzarError(kErrNulo); }
    Currency operator()(bool v) const { return Currency::DeEntero(v ? -1 : 0); }
    Currency operator()(float v) const { return Currency::DeDouble(v); }
    Currency operator()(double v) const { return Currency::DeDouble(v); }
    Currency operator()(Currency v) const { return v; }
    Currency operator()(Fecha v) const { return Currency::DeDouble(v.AOle()); }
    Currency operator()(const std::string& v) const { return Currency::DeTexto(v); }
    template <class T>
    requires kEsEntero<T> Currency operator()(T v) const { return Currency::DeEntero(v); }
};

bool BooleanDeTexto(const std::string& texto) {
    if (texto == "True" || texto == "Verdadero") return true;
    if (texto == "False" || texto == "Falso") return false;
    return DoubleDeTexto(texto) != 0.0;
}

}  // namespace

bool EsNulo(const Valor& valor) {
    return std::holds_alternative<Nulo>(valor);
}

std::int16_t AInteger(const Valor& valor) {
    return EnteroEnRango<std::int16_t>(valor);
}

std::int32_t ALong(const Valor& valor) {
    return EnteroEnRango<std::int32_t>(valor);
}

std::uint8_t AByte(const Valor& valor) {
    if (const bool* logico = std::get_if<bool>(&valor)) return *logico ? 255 : 0;
    return EnteroEnRango<std::uint8_t>(valor);
}

bool ABoolean(const Valor& valor) {
    if (const bool* logico = std::get_if<bool>(&valor)) return *logico;
    if (const std::string* texto = std::get_if<std::string>(&valor)) return BooleanDeTexto(*texto);
    return std::visit(ADoubleVisita{}, valor) != 0.0;
}

float ASingle(const Valor& valor) {
    const double doble = std::visit(ADoubleVisita{}, valor);
    if (std::fabs(doble) > static_cast<double>(std::numeric_limits<float>::max())) LanzarError(kErrDesbordamiento);
    return static_cast<float>(doble);
}

double ADouble(const Valor& valor) {
    return std::visit(ADoubleVisita{}, valor);
}

Currency ACurrency(const Valor& valor) {
    if (const Currency* igual = std::get_if<Currency>(&valor)) return *igual;
    return std::visit(ACurrencyVisita{}, valor);
}

std::string AString(const Valor& valor, char separador) {
    struct Visita {
        char separador;
        std::string operator()(Nulo) const { LanzarError(kErrNulo); }
        std::string operator()(bool v) const { return v ? "Verdadero" : "Falso"; }
        // A Single shows the seven digits that it really holds.
        std::string operator()(float v) const { return TextoSingle(v, separador).Cadena(); }
        std::string operator()(double v) const { return TextoDouble(v, separador).Cadena(); }
        std::string operator()(Currency v) const { return v.ATexto(separador).Cadena(); }
        std::string operator()(Fecha v) const { return v.ATexto().Cadena(); }
        std::string operator()(const std::string& v) const { return v; }
        std::string operator()(std::uint8_t v) const { return TextoEntero(v).Cadena(); }
        std::string operator()(std::int16_t v) const { return TextoEntero(v).Cadena(); }
        std::string operator()(std::int32_t v) const { return TextoEntero(v).Cadena(); }
        std::string operator()(std::int64_t v) const { return TextoEntero(v).Cadena(); }
    };
    return std::visit(Visita{separador}, valor);
}

Fecha ADate(const Valor& valor) {
    if (const Fecha* fecha = std::get_if<Fecha>(&valor)) return *fecha;
    if (const std::string* texto = std::get_if<std::string>(&valor)) return Fecha::DeTexto(*texto);
    return Fecha::DeOle(std::visit(ADoubleVisita{}, valor));
}

}  // namespace kv
