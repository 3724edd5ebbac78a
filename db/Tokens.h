#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace kv {

/// True for what a name that stands without delimiters is made of: letters, digits, _ @ # $ and all beyond ASCII.
bool EsDeNombre(char c);

/// One lexical piece of a statement. Names between brackets or double quotes are names; what opens with a quote or a
/// bracket and never closes is one piece to the end of the text.
struct Token {
    enum class Tipo : std::uint8_t { Fin, Nombre, Numero, Cadena, Simbolo, SinCerrar };
    Tipo tipo = Tipo::Fin;
    /// As it stands in the text, quotes included.
    std::string_view texto;

    bool Es(char simbolo) const { return tipo == Tipo::Simbolo && texto.size() == 1 && texto.front() == simbolo; }
    /// A name, without regard to letter case.
    bool EsPalabra(std::string_view palabra) const;
};

/// Reads a statement piece by piece as the server does; blanks and comments, one within another, are passed over.
class LectorTokens {
  public:
    explicit LectorTokens(std::string_view texto) : texto_(texto) {}

    Token Siguiente();
    /// With the sign just read: makes it part of the number that follows at once. False, and nothing read, when no
    /// number follows.
    bool TomarNumeroTrasSigno(Token& signo);

  private:
    void SaltarBlancos();
    std::size_t FinNombre(std::size_t desde) const;
    Token Delimitado(Token::Tipo tipo, char cierre);

    std::string_view texto_;
    std::size_t pos_ = 0;
};

/// End of the plain number (digits, point, exponent) that starts at `desde`; `desde` itself when there is none.
std::size_t FinNumero(std::string_view texto, std::size_t desde);

/// End, past the closing quote, of the string literal that opens at `desde`; npos when it never closes. A doubled
/// quote belongs to the literal.
std::size_t FinCadena(std::string_view texto, std::size_t desde);

/// Raises a database error (number kErrVariasSentencias) when the text holds more than one statement, whether or not a
/// semicolon parts them. A text that never closes what it opens passes: the database refuses it in its own words.
void ExigirUnaSentencia(std::string_view texto);

/// Number of the error of a text that holds a second statement.
inline constexpr std::int32_t kErrVariasSentencias = 3709;

}  // namespace kv
