#include "kvdatosart/db/Tokens.h"

#include <algorithm>
#include <array>
#include <string>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/Nombres.h"

namespace kv {
namespace {

// What a character can be, one bit each; read by the hundred in every statement.
constexpr unsigned char kDeNombre = 1;
constexpr unsigned char kCifra = 2;
constexpr unsigned char kBlanco = 4;

constexpr auto kClases = [] {
    std::array<unsigned char, 256> clases{};
    for (unsigned c = 'a'; c <= 'z'; ++c) clases[c] = clases[c - 0x20U] = kDeNombre;
    for (unsigned c = '0'; c <= '9'; ++c) clases[c] = kDeNombre | kCifra;
    for (const unsigned c : {'_', '@', '#', '$'}) clases[c] = kDeNombre;
    for (const unsigned c : {' ', '\t', '\n', '\r'}) clases[c] = kBlanco;
    for (unsigned c = 0x80; c <= 0xFF; ++c) clases[c] = kDeNombre;
    return clases;
}();

bool EsDe(unsigned char clase, char c) {
    return (kClases[static_cast<unsigned char>(c)] & clase) != 0;
}
bool EsCifra(char c) {
    return EsDe(kCifra, c);
}

// Words that begin a statement of their own wherever they stand outside parentheses; SELECT, the last one, unless it
// belongs to a UNION.
constexpr auto kComienzos = std::to_array<std::string_view>(
    {"INSERT",   "UPDATE",  "DELETE",   "EXEC",   "EXECUTE", "DROP",  "CREATE", "ALTER",
     "TRUNCATE", "MERGE",   "DECLARE",  "GRANT",  "REVOKE",  "BEGIN", "COMMIT", "ROLLBACK",
     "USE",      "WAITFOR", "SHUTDOWN", "BACKUP", "RESTORE", "KILL",  "PRINT",  "IF",
     "WHILE",    "ATTACH",  "DETACH",   "PRAGMA", "VACUUM",  "GO",    "SELECT"});

// For each letter the lengths of the words that have it first, or last, one bit each: dismisses most names without a
// comparison.
using LargosPorLetra = std::array<std::uint32_t, 32>;
constexpr LargosPorLetra LargosCon(bool primera) {
    LargosPorLetra largos{};
    for (const std::string_view palabra : kComienzos)
        largos[(primera ? palabra.front() : palabra.back()) & 0x1F] |= 1U << palabra.size();
    return largos;
}
constexpr LargosPorLetra kLargosPrimera = LargosCon(true);
constexpr LargosPorLetra kLargosUltima = LargosCon(false);

bool PuedeComenzar(std::string_view nombre) {
    const std::size_t largo = nombre.size();
    const std::uint32_t largos = kLargosPrimera[static_cast<unsigned char>(nombre.front()) & 0x1FU] &
                                 kLargosUltima[static_cast<unsigned char>(nombre.back()) & 0x1FU];
    return largo < 32 && (largos >> largo & 1U) != 0;
}

// True for a name that begins a second statement behind `anterior`.
bool EsComienzo(const Token& token, const Token& anterior) {
    if (token.tipo != Token::Tipo::Nombre || !PuedeComenzar(token.texto) || anterior.Es('.')) return false;
    if (token.EsPalabra(kComienzos.back())) return !anterior.EsPalabra("UNION") && !anterior.EsPalabra("ALL");
    return std::any_of(kComienzos.begin(), kComienzos.end(), [&](std::string_view palabra) {
        return palabra.size() == token.texto.size() && MismoNombre(palabra, token.texto);
    });
}

// End, past `cierre`, of what opens at `desde`; npos when it never closes. Doubled, it closes nothing.
std::size_t FinDelimitado(std::string_view texto, std::size_t desde, char cierre) {
    std::size_t pos = desde + 1;
    for (;;) {
        pos = texto.find(cierre, pos);
        if (pos == std::string_view::npos) return pos;
        if (pos + 1 >= texto.size() || texto[pos + 1] != cierre) return pos + 1;
        pos += 2;
    }
}

// End of the comment that opens at `desde`, with those inside it; the end of the text when it never closes.
std::size_t FinComentario(std::string_view texto, std::size_t desde) {
    int abiertos = 0;
    for (std::size_t pos = desde; pos + 1 < texto.size(); ++pos) {
        const std::string_view par = texto.substr(pos, 2);
        if (par != "/*" && par != "*/") continue;
        abiertos += par == "/*" ? 1 : -1;
        ++pos;
        if (abiertos == 0) return pos + 1;
    }
    return texto.size();
}

[[noreturn]] void RechazarSegunda(std::string_view texto) {
    throw RuntimeError(kErrVariasSentencias, "KVDatosArt",
                       "El texto contiene más de una sentencia y no se ejecuta: " + std::string(texto));
}

}  // namespace

bool EsDeNombre(char c) {
    return EsDe(kDeNombre, c);
}

bool Token::EsPalabra(std::string_view palabra) const {
    return tipo == Tipo::Nombre && MismoNombre(texto, palabra);
}

std::size_t FinNumero(std::string_view texto, std::size_t desde) {
    std::size_t pos = desde;
    bool cifras = false;
    for (; pos < texto.size() && EsCifra(texto[pos]); ++pos) cifras = true;
    if (pos < texto.size() && texto[pos] == '.') {
        ++pos;
        for (; pos < texto.size() && EsCifra(texto[pos]); ++pos) cifras = true;
    }
    if (!cifras) return desde;
    if (pos < texto.size() && (texto[pos] == 'E' || texto[pos] == 'e')) {
        std::size_t exponente = pos + 1;
        if (exponente < texto.size() && (texto[exponente] == '+' || texto[exponente] == '-')) ++exponente;
        const std::size_t primera = exponente;
        while (exponente < texto.size() && EsCifra(texto[exponente])) ++exponente;
        if (exponente > primera) pos = exponente;
    }
    return pos;
}

std::size_t FinCadena(std::string_view texto, std::size_t desde) {
    return FinDelimitado(texto, desde, '\'');
}

void LectorTokens::SaltarBlancos() {
    while (pos_ < texto_.size()) {
        if (EsDe(kBlanco, texto_[pos_])) {
            ++pos_;
        } else if (texto_[pos_] == '-' && texto_.compare(pos_, 2, "--") == 0) {
            pos_ = std::min(texto_.find('\n', pos_), texto_.size());
        } else if (texto_[pos_] == '/' && texto_.compare(pos_, 2, "/*") == 0) {
            pos_ = FinComentario(texto_, pos_);
        } else {
            return;
        }
    }
}

std::size_t LectorTokens::FinNombre(std::size_t desde) const {
    while (desde < texto_.size() && EsDe(kDeNombre, texto_[desde])) ++desde;
    return desde;
}

Token LectorTokens::Delimitado(Token::Tipo tipo, char cierre) {
    const std::size_t inicio = pos_;
    const std::size_t fin = FinDelimitado(texto_, inicio, cierre);
    pos_ = std::min(fin, texto_.size());
    return {fin == std::string_view::npos ? Token::Tipo::SinCerrar : tipo, texto_.substr(inicio, pos_ - inicio)};
}

Token LectorTokens::Siguiente() {
    SaltarBlancos();
    if (pos_ >= texto_.size()) return {};
    const char c = texto_[pos_];
    if (c == '\'') return Delimitado(Token::Tipo::Cadena, '\'');
    if (c == '[' || c == '"') return Delimitado(Token::Tipo::Nombre, c == '[' ? ']' : '"');
    const std::size_t inicio = pos_;
    Token::Tipo tipo = Token::Tipo::Simbolo;
    if (EsDe(kDeNombre, c) && !EsCifra(c)) {
        tipo = Token::Tipo::Nombre;
        pos_ = FinNombre(pos_);
    } else if (const std::size_t fin = FinNumero(texto_, pos_); fin != pos_) {
        tipo = Token::Tipo::Numero;
        pos_ = fin;
    } else {
        ++pos_;
    }
    return {tipo, texto_.substr(inicio, pos_ - inicio)};
}

bool LectorTokens::TomarNumeroTrasSigno(Token& signo) {
    const std::size_t fin = FinNumero(texto_, pos_);
    if (fin == pos_) return false;
    signo = {Token::Tipo::Numero, texto_.substr(pos_ - 1, fin - pos_ + 1)};
    pos_ = fin;
    return true;
}

void ExigirUnaSentencia(std::string_view texto) {
    LectorTokens lector(texto);
    int profundidad = 0;
    bool acabada = false;
    bool primera = true;
    Token anterior;
    for (Token token = lector.Siguiente(); token.tipo != Token::Tipo::Fin; token = lector.Siguiente()) {
        if (acabada) RechazarSegunda(texto);
        if (token.tipo == Token::Tipo::Simbolo) {
            const char simbolo = token.texto.front();
            profundidad += (simbolo == '(' ? 1 : 0) - (simbolo == ')' ? 1 : 0);
            acabada = simbolo == ';';
        } else if (!primera && profundidad <= 0 && EsComienzo(token, anterior)) {
            RechazarSegunda(texto);
        }
        primera = false;
        anterior = token;
    }
}

}  // namespace kv
