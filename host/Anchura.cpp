#include "kvdatosart/host/Anchura.h"

#include <utf8proc.h>

#include <algorithm>

namespace kv::host {
namespace {

constexpr std::string_view kIlegible = "\xEF\xBF\xBD";
// Asks for the picture of a character that also has a plain form.
constexpr utf8proc_int32_t kComoEmoji = 0xFE0F;

struct Caracter {
    std::string_view texto;
    /// -1 when the byte is no UTF-8.
    utf8proc_int32_t codigo = -1;
};

// Takes the first character away from `resto`, which is not empty.
Caracter Tomar(std::string_view& resto) {
    Caracter caracter;
    const auto leidos = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(resto.data()),
                                         static_cast<utf8proc_ssize_t>(resto.size()), &caracter.codigo);
    const std::size_t bytes = leidos > 0 ? static_cast<std::size_t>(leidos) : 1;
    caracter.texto = resto.substr(0, bytes);
    resto.remove_prefix(bytes);
    return caracter;
}

/// What is drawn as one sign.
struct Signo {
    std::string_view texto;
    std::size_t ancho = 0;
};

Signo TomarSigno(std::string_view& resto) {
    const std::string_view desde = resto;
    utf8proc_int32_t estado = 0;
    int ancho = 0;
    for (utf8proc_int32_t anterior = -1; !resto.empty();) {
        std::string_view siguiente = resto;
        const Caracter caracter = Tomar(siguiente);
        if (anterior >= 0 && utf8proc_grapheme_break_stateful(anterior, caracter.codigo, &estado)) break;
        ancho += caracter.codigo == kComoEmoji ? 1 : utf8proc_charwidth(caracter.codigo);
        anterior = caracter.codigo;
        resto = siguiente;
        if (anterior < 0) break;
    }
    return {desde.substr(0, desde.size() - resto.size()), static_cast<std::size_t>(std::clamp(ancho, 0, 2))};
}

/// Lines that fill up with words.
class Relleno {
  public:
    explicit Relleno(std::size_t ancho) : ancho_(ancho) {}

    void Palabra(std::string_view palabra) {
        const std::size_t larga = Anchura(palabra);
        if (usado_ > 0 && usado_ + 1 + larga <= ancho_) {
            lineas_.back() += ' ';
            ++usado_;
        } else if (usado_ > 0) {
            Nueva();
        }
        while (!palabra.empty()) {
            const Signo signo = TomarSigno(palabra);
            if (usado_ > 0 && usado_ + signo.ancho > ancho_) Nueva();
            lineas_.back() += signo.texto;
            usado_ += signo.ancho;
        }
    }
    std::vector<std::string> Lineas() && { return std::move(lineas_); }

  private:
    void Nueva() {
        lineas_.emplace_back();
        usado_ = 0;
    }

    std::size_t ancho_;
    std::size_t usado_ = 0;
    std::vector<std::string> lineas_ = {""};
};

}  // namespace

std::string Mostrable(std::string_view texto) {
    std::string limpio;
    while (!texto.empty()) {
        const Caracter caracter = Tomar(texto);
        if (caracter.codigo < 0)
            limpio += kIlegible;
        else if (utf8proc_category(caracter.codigo) == UTF8PROC_CATEGORY_CC)
            limpio += ' ';
        else
            limpio += caracter.texto;
    }
    return limpio;
}

std::size_t Anchura(std::string_view texto) {
    std::size_t ancho = 0;
    while (!texto.empty()) ancho += TomarSigno(texto).ancho;
    return ancho;
}

std::vector<std::string> EnLineas(std::string_view texto, std::size_t ancho) {
    if (Anchura(texto) <= ancho) return {std::string(texto)};
    Relleno relleno(ancho);
    while (!texto.empty()) {
        const std::size_t blanco = std::min(texto.find(' '), texto.size());
        if (blanco > 0) relleno.Palabra(texto.substr(0, blanco));
        texto.remove_prefix(std::min(blanco + 1, texto.size()));
    }
    return std::move(relleno).Lineas();
}

std::string Completado(std::string_view texto, std::size_t ancho) {
    const std::size_t usado = Anchura(texto);
    return std::string(texto) + std::string(ancho > usado ? ancho - usado : 0, ' ');
}

}  // namespace kv::host
