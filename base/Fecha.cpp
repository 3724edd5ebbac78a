#include "kvdatosart/base/Fecha.h"

#include <array>
#include <charconv>
#include <cmath>

#include "kvdatosart/base/RuntimeError.h"

namespace kv {
namespace {

using std::chrono::day;
using std::chrono::days;
using std::chrono::month;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr sys_days kPrimera = year(100) / 1 / 1;
constexpr sys_days kUltima = year(9999) / 12 / 31;
constexpr sys_days kCeroOle = year(1899) / 12 / 30;
// The part of a day that is left half a millisecond before its end.
constexpr double kCasiMedianoche = 1.0 - 0.0005 / 86400.0;

[[noreturn]] void NoEsFecha(std::string_view texto) {
    LanzarError(kErrTipo, "«" + std::string(texto) + "» no es una fecha");
}

// The number that these digits make; -1 when they make none.
int NumeroDe(std::string_view cifras, std::size_t masCifras) {
    int valor = -1;
    if (cifras.empty() || cifras.size() > masCifras || cifras.front() < '0' || cifras.front() > '9') return -1;
    const auto leido = std::from_chars(cifras.data(), cifras.data() + cifras.size(), valor);
    return leido.ptr == cifras.data() + cifras.size() ? valor : -1;
}

// Takes the number before the next separator and the separator off; -1 when there is no such number.
int TomarNumero(std::string_view& resto, char separador, std::size_t masCifras) {
    const auto fin = resto.find(separador);
    if (fin == std::string_view::npos) return -1;
    const int valor = NumeroDe(resto.substr(0, fin), masCifras);
    resto.remove_prefix(fin + 1);
    return valor;
}

// The number of `cuantas` digits at `desde`; -1 when they are not all digits.
int Cifras(std::string_view texto, std::size_t desde, std::size_t cuantas) {
    int valor = 0;
    for (std::size_t i = desde; i < desde + cuantas; ++i) {
        if (texto[i] < '0' || texto[i] > '9') return -1;
        valor = valor * 10 + (texto[i] - '0');
    }
    return valor;
}

struct Amd {
    int anio = -1;
    int mes = -1;
    int dia = -1;
};

// The two shapes that databases and statements use, with all their digits.
Amd LeerCompleta(std::string_view texto) {
    if (texto.size() != 10) return {};
    if (texto[4] == '-' && texto[7] == '-') return {Cifras(texto, 0, 4), Cifras(texto, 5, 2), Cifras(texto, 8, 2)};
    if (texto[2] == '/' && texto[5] == '/') return {Cifras(texto, 6, 4), Cifras(texto, 3, 2), Cifras(texto, 0, 2)};
    return {};
}

// Any of the shapes, with one or two digits for day and month.
Amd LeerSuelta(std::string_view resto) {
    const bool iso = resto.find('-') != std::string_view::npos;
    const char separador = iso ? '-' : '/';
    const int primero = TomarNumero(resto, separador, iso ? 4 : 2);
    const int mes = TomarNumero(resto, separador, 2);
    const int ultimo = NumeroDe(resto, iso ? 2 : 4);
    return iso ? Amd{primero, mes, ultimo} : Amd{ultimo, mes, primero};
}

void AgregarDos(TextoNumero& texto, unsigned valor) {
    texto.Agregar(static_cast<char>('0' + valor / 10));
    texto.Agregar(static_cast<char>('0' + valor % 10));
}

void AgregarAnio(TextoNumero& texto, year anio) {
    const auto cifras = static_cast<unsigned>(static_cast<int>(anio));
    AgregarDos(texto, cifras / 100);
    AgregarDos(texto, cifras % 100);
}

}  // namespace

Fecha Fecha::DeDias(sys_days dia) {
    if (dia < kPrimera || dia > kUltima) LanzarError(kErrDesbordamiento, "fecha fuera del intervalo 0100 a 9999");
    return Fecha(dia);
}

Fecha Fecha::DeAmd(int anio, int mes, int dia) {
    const year_month_day fecha{year(anio), month(static_cast<unsigned>(mes)), day(static_cast<unsigned>(dia))};
    if (anio < 100 || anio > 9999 || mes < 1 || mes > 12 || dia < 1 || dia > 31 || !fecha.ok())
        LanzarError(kErrLlamadaInvalida, "la fecha no existe");
    return Fecha(sys_days(fecha));
}

Fecha Fecha::DeTexto(std::string_view texto) {
    std::string_view resto = texto;
    while (!resto.empty() && resto.front() == ' ') resto.remove_prefix(1);
    resto = resto.substr(0, resto.find_first_of(" T"));
    Amd leida = LeerCompleta(resto);
    if (leida.anio < 0) leida = LeerSuelta(resto);
    if (leida.anio < 100 || leida.mes < 1 || leida.mes > 12 || leida.dia < 1) NoEsFecha(texto);
    const year_month_day fecha{year(leida.anio), month(static_cast<unsigned>(leida.mes)),
                               day(static_cast<unsigned>(leida.dia))};
    if (!fecha.ok()) NoEsFecha(texto);
    return Fecha(sys_days(fecha));
}

Fecha Fecha::DeOle(double dias_) {
    double enteros = std::trunc(dias_);
    if (std::abs(dias_ - enteros) > kCasiMedianoche) enteros += 1;
    // The comparison is false for NaN.
    if (!(enteros >= -700000.0 && enteros <= 3000000.0)) LanzarError(kErrDesbordamiento);
    return DeDias(kCeroOle + days(static_cast<int>(enteros)));
}

int Fecha::Anio() const {
    return static_cast<int>(year_month_day(dia_).year());
}
int Fecha::Mes() const {
    return static_cast<int>(static_cast<unsigned>(year_month_day(dia_).month()));
}
int Fecha::Dia() const {
    return static_cast<int>(static_cast<unsigned>(year_month_day(dia_).day()));
}

double Fecha::AOle() const {
    return static_cast<double>((dia_ - kCeroOle).count());
}

TextoNumero Fecha::ATexto() const {
    const year_month_day fecha(dia_);
    TextoNumero texto;
    AgregarDos(texto, static_cast<unsigned>(fecha.day()));
    texto.Agregar('/');
    AgregarDos(texto, static_cast<unsigned>(fecha.month()));
    texto.Agregar('/');
    AgregarAnio(texto, fecha.year());
    return texto;
}

TextoNumero Fecha::AIso() const {
    const year_month_day fecha(dia_);
    TextoNumero texto;
    AgregarAnio(texto, fecha.year());
    texto.Agregar('-');
    AgregarDos(texto, static_cast<unsigned>(fecha.month()));
    texto.Agregar('-');
    AgregarDos(texto, static_cast<unsigned>(fecha.day()));
    return texto;
}

Fecha Fecha::operator+(int dias_) const {
    return DeDias(dia_ + days(dias_));
}

}  // namespace kv
