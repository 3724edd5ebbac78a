#include "db/Tokens.h"

#include <algorithm>
#include <array>
#include <string>

#include "base/RuntimeError.h"
#include "db/Nombres.h"

namespace kv {
namespace {

bool EsCifra(char c) {
    return c >= '0' && c <= '9';
}

bool EsDeNombre(char c) {
    const auto u = static_cast<unsigned char>(c);
    const unsigned char minuscula = u | 0x20U;
    return (minuscula >= 'a' && minuscula <= 'z') || EsCifra(c) || c == '_' || c == '@' || c == '#' || c == '$' ||
           u >= 0x80U;
}

bool EsBlanco(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// Words that begin a statement of their own wherever they stand outside parentheses.
constexpr auto kComienzos = std::to_array<std::string_view>(
    {"INSERT",  "UPDATE", "DELETE", "EXEC",  "EXECUTE", "DROP",     "CREATE", "ALTER",   "TRUNCATE", "MERGE",
     "DECLARE", "GRANT",  "REVOKE", "BEGIN", "COMMIT",  "ROLLBACK", "USE",    "WAITFOR", "SHUTDOWN", "BACKUP",
     "RESTORE", "KILL",   "PRINT",  "IF",    "WHILE",   "ATTACH",   "DETACH", "PRAGMA",  "VACUUM",   "GO"});

// For each initial letter the lengths of its words, one bit each: dismisses most names without a comparison.
constexpr auto kLargos = [] {
    std::array<std::uint32_t, 26> largos{};
    for (const std::string_view palabra : kComienzos)
        largos[static_cast<std::size_t>(palabra.front() - 'A')] |= 1U << palabra.size();
    return largos;
}();

bool EsComienzo(const Token& token) {
    const auto letra = static_cast<std::size_t>((static_cast<unsigned char>(token.texto.front()) | 0x20) - 'a');
    const std::size_t largo = token.texto.size();
    if (letra >= kLargos.size() || largo >= 32 || (kLargos[letra] >> largo & 1U) == 0) return false;
    return std::any_of(kComienzos.begin(), kComienzos.end(),
                       [&](std::string_view palabra) { return token.EsPalabra(palabra); });
}

[[noreturn]] void RechazarSegunda(std::string_view texto) {
    throw RuntimeError(kErrVariasSentencias, "KVDatosArt",
                       "El texto contiene más de una sentencia y no se ejecuta: " + std::string(texto));
}

}  // namespace

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
    std::size_t pos = desde + 1;
    for (;;) {
        pos = texto.find('\'', pos);
        if (pos == std::string_view::npos) return pos;
        if (pos + 1 >= texto.size() || texto[pos + 1] != '\'') return pos + 1;
        pos += 2;
    }
}

void LectorTokens::SaltarBlancos() {
    while (pos_ < texto_.size()) {
        if (EsBlanco(texto_[pos_])) {
            ++pos_;
        } else if (texto_[pos_] == '-' && texto_.compare(pos_, 2, "--") == 0) {
            pos_ = std::min(texto_.find('\n', pos_), texto_.size());
        } else if (texto_[pos_] == '/' && texto_.compare(pos_, 2, "/*") == 0) {
            const auto cierre = texto_.find("*/", pos_ + 2);
            pos_ = cierre == std::string_view::npos ? texto_.size() : cierre + 2;
        } else {
            return;
        }
    }
}

std::size_t LectorTokens::FinNombre(std::size_t desde) const {
    while (desde < texto_.size() && EsDeNombre(texto_[desde])) ++desde;
    return desde;
}

std::size_t LectorTokens::FinDelimitado(char cierre) const {
    const auto fin = cierre == '\'' ? FinCadena(texto_, pos_) : texto_.find(cierre, pos_ + 1);
    if (fin == std::string_view::npos)
        throw RuntimeError(kErrTipo, "KVDatosArt", "Comilla sin cerrar en: " + std::string(texto_));
    return cierre == '\'' ? fin : fin + 1;
}

Token LectorTokens::Siguiente() {
    SaltarBlancos();
    if (pos_ >= texto_.size()) return {};
    const char c = texto_[pos_];
    const std::size_t inicio = pos_;
    Token::Tipo tipo = Token::Tipo::Simbolo;
    if (c == '\'') {
        tipo = Token::Tipo::Cadena;
        pos_ = FinDelimitado('\'');
    } else if (c == '[' || c == '"') {
        tipo = Token::Tipo::Nombre;
        pos_ = FinDelimitado(c == '[' ? ']' : '"');
    } else if (FinNumero(texto_, pos_) != pos_) {
        tipo = Token::Tipo::Numero;
        pos_ = FinNumero(texto_, pos_);
    } else if (EsDeNombre(c)) {
        tipo = Token::Tipo::Nombre;
        pos_ = FinNombre(pos_);
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
        if (token.Es('(')) ++profundidad;
        if (token.Es(')')) --profundidad;
        if (token.Es(';')) acabada = true;
        const bool calificado = anterior.Es('.');
        if (!primera && profundidad <= 0 && !calificado && token.tipo == Token::Tipo::Nombre) {
            if (EsComienzo(token)) RechazarSegunda(texto);
            // A SELECT outside parentheses belongs to a UNION or begins a statement of its own.
            if (token.EsPalabra("SELECT") && !anterior.EsPalabra("UNION") && !anterior.EsPalabra("ALL"))
                RechazarSegunda(texto);
        }
        primera = false;
        anterior = token;
    }
}

}  // namespace kv
