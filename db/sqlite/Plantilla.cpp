#include "kvdatosart/db/sqlite/Plantilla.h"

#include <cstring>

#include "kvdatosart/db/Nombres.h"
#include "kvdatosart/db/Tokens.h"

namespace kv {
namespace {

bool EsComparacion(const Token& token) {
    return token.Es('=') || token.Es('<') || token.Es('>');
}

bool EsSigno(const Token& token) {
    return token.Es('-') || token.Es('+');
}

// Where the statement is, as far as it decides which literals may change.
class Lugar {
  public:
    bool AdmiteLiteral() const {
        if (EsComparacion(anterior_)) return true;
        if (valores_) return anterior_.Es('(') || anterior_.Es(',');
        return asignando_ && anterior_.Es('+');
    }

    void Avanzar(const Token& token) {
        if (token.tipo == Token::Tipo::Nombre) {
            if (token.EsPalabra("VALUES"))
                valores_ = true;
            else if (token.EsPalabra("SET"))
                asignando_ = true;
            else if (token.EsPalabra("WHERE"))
                asignando_ = false;
        }
        anterior_ = token;
    }

  private:
    Token anterior_;
    bool valores_ = false;
    bool asignando_ = false;
};

constexpr std::uint64_t kSemilla = 0xcbf29ce484222325ULL;

// Eight bytes at a time: the text of a load has hundreds of them.
std::uint64_t Mezclar(std::uint64_t huella, std::string_view texto) {
    constexpr std::uint64_t kPrimo = 0x9e3779b97f4a7c15ULL;
    std::size_t pos = 0;
    for (; pos + 8 <= texto.size(); pos += 8) {
        std::uint64_t trozo = 0;
        std::memcpy(&trozo, texto.data() + pos, 8);
        huella = (huella ^ trozo) * kPrimo;
        huella ^= huella >> 29U;
    }
    for (; pos < texto.size(); ++pos) huella = (huella ^ static_cast<unsigned char>(texto[pos])) * kPrimo;
    return huella;
}

// End of the number that starts at `inicio`; `inicio` itself when there is none. Most are short codes.
const char* FinDeNumero(const char* inicio, const char* fin) {
    const char* cifras = inicio != fin && (*inicio == '-' || *inicio == '+') ? inicio + 1 : inicio;
    const char* pos = cifras;
    while (pos != fin && *pos >= '0' && *pos <= '9') ++pos;
    if (pos != cifras && (pos == fin || (*pos != '.' && (*pos | 0x20) != 'e'))) return pos;
    const std::string_view resto(cifras, static_cast<std::size_t>(fin - cifras));
    const std::size_t largo = FinNumero(resto, 0);
    return largo == 0 ? inicio : cifras + largo;
}

// End of the string literal that starts at `inicio`; `inicio` itself when there is none.
const char* FinDeCadena(const char* inicio, const char* fin) {
    if (inicio == fin || *inicio != '\'') return inicio;
    const std::size_t largo = FinCadena({inicio, static_cast<std::size_t>(fin - inicio)}, 0);
    return largo == std::string_view::npos ? inicio : inicio + largo;
}

}  // namespace

void BuscarLiterales(std::string_view texto, std::vector<Literal>& literales) {
    literales.clear();
    LectorTokens lector(texto);
    Lugar lugar;
    for (Token token = lector.Siguiente(); token.tipo != Token::Tipo::Fin; token = lector.Siguiente()) {
        if (lugar.AdmiteLiteral()) {
            if (EsSigno(token)) lector.TomarNumeroTrasSigno(token);
            if (token.tipo == Token::Tipo::Numero || token.tipo == Token::Tipo::Cadena)
                literales.push_back({token.texto, token.tipo == Token::Tipo::Cadena});
        }
        lugar.Avanzar(token);
    }
}

Plantilla::Plantilla(std::string_view texto, const std::vector<Literal>& literales) {
    std::size_t pos = 0;
    for (const Literal& literal : literales) {
        const auto donde = static_cast<std::size_t>(literal.texto.data() - texto.data());
        tramos_.push_back({static_cast<std::uint32_t>(donde - pos), literal.cadena});
        fijo_.append(texto.substr(pos, donde - pos));
        pos = donde + literal.texto.size();
    }
    final_ = static_cast<std::uint32_t>(fijo_.size());
    fijo_.append(texto.substr(pos));
}

bool Plantilla::Coincide(std::string_view texto, std::vector<Literal>& literales) const {
    literales.resize(tramos_.size());
    const char* pos = texto.data();
    const char* const fin = pos + texto.size();
    const char* fijo = fijo_.data();
    Literal* literal = literales.data();
    for (const Tramo& tramo : tramos_) {
        if (static_cast<std::size_t>(fin - pos) < tramo.largo || !Identicos({pos, tramo.largo}, {fijo, tramo.largo}))
            return false;
        pos += tramo.largo;
        fijo += tramo.largo;
        const char* const inicio = pos;
        pos = tramo.cadena ? FinDeCadena(pos, fin) : FinDeNumero(pos, fin);
        if (pos == inicio) return false;
        *literal++ = {{inicio, static_cast<std::size_t>(pos - inicio)}, tramo.cadena};
    }
    return Identicos({pos, static_cast<std::size_t>(fin - pos)}, std::string_view(fijo_).substr(final_));
}

std::uint64_t Plantilla::Huella(std::string_view texto, const std::vector<Literal>& literales) {
    std::uint64_t huella = kSemilla;
    std::size_t pos = 0;
    for (const Literal& literal : literales) {
        const auto donde = static_cast<std::size_t>(literal.texto.data() - texto.data());
        huella = Mezclar(huella, texto.substr(pos, donde - pos));
        huella = Mezclar(huella, literal.cadena ? "\1" : "\2");
        pos = donde + literal.texto.size();
    }
    return Mezclar(huella, texto.substr(pos));
}

}  // namespace kv
