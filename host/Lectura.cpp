#include "kvdatosart/host/Lectura.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <nlohmann/json.hpp>

#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/base/RuntimeError.h"

namespace kv::host {
namespace {

[[noreturn]] void Rechazar(const std::string& opcion, const std::string& texto, const std::string& espera) {
    aplicacion::RechazarImposible(opcion, "«" + texto + "» no vale; se espera " + espera);
}

// What precedes the decimal comma, without its sign.
std::string_view ParteEntera(std::string_view texto) {
    if (texto.starts_with('-') || texto.starts_with('+')) texto.remove_prefix(1);
    return texto.substr(0, texto.find(','));
}

// Groups of three digits with a point before each, after one to three digits that do not begin with 0: how many
// points, and 0 for anything else.
std::size_t PuntosDeMillar(std::string_view entera) {
    const std::size_t primero = std::min(entera.find('.'), entera.size());
    if (primero < 1 || primero > 3 || entera.front() == '0' || (entera.size() - primero) % 4 != 0) return 0;
    for (std::size_t i = 0; i < entera.size(); ++i) {
        const bool punto = i >= primero && (i - primero) % 4 == 0;
        if (punto ? entera[i] != '.' : entera[i] < '0' || entera[i] > '9') return 0;
    }
    return (entera.size() - primero) / 4;
}

// 1.000 is a thousand for who writes points between thousands and one for who writes decimals with a point.
bool PuedeSerUnMillar(const std::string& texto) {
    return texto.find(',') == std::string::npos && PuntosDeMillar(ParteEntera(texto)) == 1;
}

// 1.000,5 and 1.000.000 have one meaning.
bool EsConMillares(const std::string& texto) {
    return PuntosDeMillar(ParteEntera(texto)) > 0;
}

std::string SinPuntos(std::string texto) {
    std::erase(texto, '.');
    return texto;
}

}  // namespace

void ExigirUtf8(int argc, const char* const* argv) {
    for (int i = 1; i < argc; ++i) {
        try {
            (void)nlohmann::json(argv[i]).dump();
        } catch (const nlohmann::json::type_error&) {
            // The text itself may be a connection string with its password.
            const std::string anterior = i > 1 ? argv[i - 1] : "";
            const bool esOpcion = anterior.starts_with("--") && anterior.find('=') == std::string::npos;
            aplicacion::RechazarImposible("", "el argumento " + std::to_string(i) +
                                                  (esOpcion ? ", tras " + anterior + "," : "") + " no es texto UTF-8");
        }
    }
}

void ExigirLleno(const std::string& campo, const std::string& texto) {
    if (texto.empty()) Rechazar(campo, texto, "un valor, o que no se dé");
}

std::int32_t LeerEntero(const std::string& opcion, const std::string& texto, std::int32_t minimo, std::int32_t maximo) {
    std::int32_t valor = 0;
    const char* fin = texto.data() + texto.size();
    const auto leido = std::from_chars(texto.data(), fin, valor);
    if (leido.ec != std::errc() || leido.ptr != fin || valor < minimo || valor > maximo)
        Rechazar(opcion, texto, "un número entero de " + std::to_string(minimo) + " a " + std::to_string(maximo));
    return valor;
}

std::int16_t LeerCodigo(const std::string& opcion, const std::string& texto, std::int16_t minimo) {
    return static_cast<std::int16_t>(LeerEntero(opcion, texto, minimo, std::numeric_limits<std::int16_t>::max()));
}

Fecha LeerFecha(const std::string& opcion, const std::string& texto) {
    try {
        if (texto.find_first_of(" T") == std::string::npos) return Fecha::DeTexto(texto);
    } catch (const RuntimeError&) {
        // Told below, together with what is expected.
    }
    Rechazar(opcion, texto, "una fecha dd/mm/aaaa o aaaa-mm-dd que exista");
}

Currency LeerImporte(const std::string& opcion, const std::string& texto) {
    if (PuedeSerUnMillar(texto)) {
        std::string conComa = texto;
        std::replace(conComa.begin(), conComa.end(), '.', ',');
        Rechazar(opcion, texto, SinPuntos(texto) + " o " + conComa + ", que no se confunden");
    }
    const std::string numero = EsConMillares(texto) ? SinPuntos(texto) : texto;
    const auto decimales = numero.find_first_of(".,");
    try {
        const bool preciso = decimales == std::string::npos || numero.size() - decimales - 1 <= 4;
        if (preciso && numero.find(' ') == std::string::npos) return Currency::DeTexto(numero);
    } catch (const RuntimeError&) {
        // Told below, together with what is expected.
    }
    Rechazar(opcion, texto, "un número de 15 cifras y cuatro decimales como mucho");
}

}  // namespace kv::host
