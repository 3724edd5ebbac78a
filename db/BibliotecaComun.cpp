#include "kvdatosart/db/BibliotecaComun.h"

#include <atomic>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/Sistema.h"

namespace kv {
namespace {

// The one that the host set, 0 while it set none.
std::atomic<char> separadorFijado{0};

std::shared_ptr<BibliotecaComun>& Sustituta() {
    static std::shared_ptr<BibliotecaComun> sustituta;
    return sustituta;
}

thread_local std::optional<Fecha> hoyDelHilo;

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
    return FechaDelSistema();
}

char BibliotecaComun::SeparadorDecimal() const {
    const char fijado = separadorFijado.load(std::memory_order_relaxed);
    return fijado != 0 ? fijado : SeparadorDelSistema();
}

void BibliotecaComun::MensajeCritico(std::string_view texto, std::string_view titulo) {
    MostrarMensajeCritico(texto, titulo);
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

Fecha Hoy() {
    return hoyDelHilo ? *hoyDelHilo : Biblioteca().Hoy();
}

HoyFijado::HoyFijado(Fecha hoy) : anterior_(hoyDelHilo) {
    hoyDelHilo = hoy;
}

HoyFijado::~HoyFijado() {
    hoyDelHilo = anterior_;
}

void FijarSeparadorDecimal(char separador) {
    if (separador != '.' && separador != ',') LanzarError(kErrLlamadaInvalida, "el separador decimal es . o ,");
    separadorFijado = separador;
}

}  // namespace kv
