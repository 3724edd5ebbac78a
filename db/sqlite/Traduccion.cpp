#include "kvdatosart/db/sqlite/Traduccion.h"

#include "kvdatosart/db/Tokens.h"

namespace kv {
namespace {

// Walks the tokens once and writes the translated text.
class Traductor {
  public:
    Traductor(std::string_view texto, const std::vector<Literal>& literales)
        : texto_(texto), literales_(literales), lector_(texto) {}

    Traduccion Traducir() {
        for (Token token = lector_.Siguiente(); token.tipo != Token::Tipo::Fin; token = lector_.Siguiente()) {
            CopiarHueco(token.texto.data());
            Copiar(token);
            Recordar(token);
        }
        CopiarHueco(texto_.data() + texto_.size());
        if (!limites_.empty()) CerrarLimite();
        return std::move(resultado_);
    }

  private:
    struct Limite {
        int profundidad;
        std::string cuantos;
    };

    const char* Fin(const Token& token) const { return token.texto.data() + token.texto.size(); }

    // What stands before a token. A comment becomes a blank: for SQLite one within another would end before it does.
    void CopiarHueco(const char* fin) {
        const auto hasta = static_cast<std::size_t>(fin - texto_.data());
        const std::string_view hueco = texto_.substr(copiado_, hasta - copiado_);
        resultado_.texto.append(hueco.find_first_of("-/") == std::string_view::npos ? hueco : " ");
        copiado_ = hasta;
    }

    // Copies the token, or what takes its place.
    void Copiar(Token& token) {
        if (EsLiteralSiguiente(token)) {
            resultado_.destinos.push_back({ColumnaDeLiteral()});
            SustituirHasta(literales_[siguiente_].texto, "?");
            // The sign of a negative number was a token of its own.
            while (Fin(token) < literales_[siguiente_].texto.data() + literales_[siguiente_].texto.size())
                token = lector_.Siguiente();
            token.tipo = Token::Tipo::Numero;
            ++siguiente_;
            return;
        }
        if (anterior_.EsPalabra("SELECT") && token.EsPalabra("TOP")) {
            TomarLimite(token);
            return;
        }
        if (token.EsPalabra("ISNULL")) {
            SustituirHasta(token.texto, "IFNULL");
            return;
        }
        if (token.Es('(')) ++profundidad_;
        if (token.Es(')')) {
            if (!limites_.empty() && limites_.back().profundidad == profundidad_) {
                CopiarHasta(token.texto.data());
                CerrarLimite();
            }
            --profundidad_;
        }
        CopiarHasta(Fin(token));
    }

    bool EsLiteralSiguiente(const Token& token) const {
        return siguiente_ < literales_.size() && token.texto.data() == literales_[siguiente_].texto.data();
    }

    void CopiarHasta(const char* fin) {
        const auto hasta = static_cast<std::size_t>(fin - texto_.data());
        resultado_.texto.append(texto_.substr(copiado_, hasta - copiado_));
        copiado_ = hasta;
    }

    void SustituirHasta(std::string_view trozo, std::string_view por) {
        CopiarHasta(trozo.data());
        resultado_.texto.append(por);
        copiado_ += trozo.size();
    }

    // A TOP without a number behind it is left to the database to refuse.
    void TomarLimite(Token& token) {
        LectorTokens adelante = lector_;
        Token fin = adelante.Siguiente();
        const bool conParentesis = fin.Es('(');
        if (conParentesis) fin = adelante.Siguiente();
        const Token cuantos = fin;
        if (conParentesis) fin = adelante.Siguiente();
        if (cuantos.tipo != Token::Tipo::Numero || (conParentesis && !fin.Es(')'))) {
            CopiarHasta(Fin(token));
            return;
        }
        CopiarHasta(token.texto.data());
        limites_.push_back({profundidad_, std::string(cuantos.texto)});
        copiado_ = static_cast<std::size_t>(Fin(fin) - texto_.data());
        lector_ = adelante;
        token = fin;
    }

    void CerrarLimite() {
        resultado_.texto += " LIMIT " + limites_.back().cuantos;
        limites_.pop_back();
    }

    // Notes the tables, the columns of an insert and the name that the next literal may meet.
    void Recordar(const Token& token) {
        if (token.tipo == Token::Tipo::Nombre) {
            const bool trasTabla = anterior_.EsPalabra("FROM") || anterior_.EsPalabra("JOIN") ||
                                   anterior_.EsPalabra("INTO") || anterior_.EsPalabra("UPDATE");
            if (trasTabla) resultado_.tablas.emplace_back(token.texto);
            if (token.EsPalabra("VALUES"))
                enValores_ = true;
            else if (anterior_.EsPalabra("INTO"))
                enLista_ = true;
            else if (enLista_)
                lista_.emplace_back(token.texto);
            if (!EsConector(token)) nombre_ = std::string(token.texto);
        }
        if (token.Es(')')) enLista_ = false;
        // A row of values starts over; a comma between the arguments of a function parts no values.
        if (enValores_ && profundidad_ == 1 && token.Es('(')) valor_ = 0;
        if (enValores_ && profundidad_ == 1 && token.Es(',')) ++valor_;
        anterior_ = token;
    }

    static bool EsConector(const Token& token) {
        return token.EsPalabra("AND") || token.EsPalabra("OR") || token.EsPalabra("WHERE") || token.EsPalabra("SET");
    }

    std::string ColumnaDeLiteral() const {
        if (!enValores_) return nombre_;
        return valor_ < lista_.size() ? lista_[valor_] : std::string();
    }

    std::string_view texto_;
    const std::vector<Literal>& literales_;
    LectorTokens lector_;
    Traduccion resultado_;
    std::size_t copiado_ = 0;
    std::size_t siguiente_ = 0;
    Token anterior_;
    int profundidad_ = 0;
    std::vector<Limite> limites_;
    std::string nombre_;
    bool enLista_ = false;
    bool enValores_ = false;
    std::vector<std::string> lista_;
    std::size_t valor_ = 0;
};

}  // namespace

Traduccion Traducir(std::string_view texto, const std::vector<Literal>& literales) {
    ExigirUnaSentencia(texto);
    return Traductor(texto, literales).Traducir();
}

}  // namespace kv
