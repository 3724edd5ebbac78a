#include "db/BibliotecaComun.h"

#include <atomic>
#include <ctime>
#include <iostream>
#include <locale>

#include "base/RuntimeError.h"

namespace kv {
namespace {

// The separator of the user's locale, read once without touching the process's own locale.
char SeparadorDelSistema() {
    try {
        return std::use_facet<std::numpunct<char>>(std::locale("")).decimal_point() == ',' ? ',' : '.';
    } catch (const std::runtime_error&) {
        return '.';  // The environment names a locale that this system does not have.
    }
}

std::atomic<char>& Separador() {
    static std::atomic<char> separador = SeparadorDelSistema();
    return separador;
}

std::shared_ptr<BibliotecaComun>& Sustituta() {
    static std::shared_ptr<BibliotecaComun> sustituta;
    return sustituta;
}

}  // namespace

TextoNumero BibliotecaComun::LiteralFecha(Fecha fecha) const {
    return fecha.ATexto();
}
TextoNumero BibliotecaComun::FormatoSql(Currency valor) const {
    return valor.ATexto('.');
}
TextoNumero BibliotecaComun::FormatoSql(double valor) const {
    return TextoDouble(valor, '.');
}

std::string BibliotecaComun::FormatoPantalla(Currency valor, std::int16_t decimales) const {
    return valor.ATextoFijo(decimales, SeparadorDecimal());
}

Currency BibliotecaComun::Redondear(Currency valor, std::int16_t decimales) const {
    return valor.RedondearAlejando(decimales);
}

Fecha BibliotecaComun::Hoy() const {
    const std::time_t ahora = std::time(nullptr);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &ahora);
#else
    localtime_r(&ahora, &local);
#endif
    return Fecha::DeAmd(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

char BibliotecaComun::SeparadorDecimal() const {
    return Separador();
}

void BibliotecaComun::MensajeCritico(std::string_view texto, std::string_view titulo) {
    std::cerr << titulo << ' ' << texto << std::endl;
}

BibliotecaComun& Biblioteca() {
    static BibliotecaComun omision;
    BibliotecaComun* sustituta = Sustituta().get();
    return sustituta != nullptr ? *sustituta : omision;
}

std::shared_ptr<BibliotecaComun> CambiarBiblioteca(std::shared_ptr<BibliotecaComun> nueva) {
    std::swap(Sustituta(), nueva);
    return nueva;
}

void FijarSeparadorDecimal(char separador) {
    if (separador != '.' && separador != ',') LanzarError(kErrLlamadaInvalida, "el separador decimal es . o ,");
    Separador() = separador;
}

}  // namespace kv
