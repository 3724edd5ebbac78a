#include "kvdatosart/db/odbc/FormasConocidas.h"

#include <algorithm>

#include "kvdatosart/db/Nombres.h"
#include "kvdatosart/db/Tokens.h"

namespace kv {
namespace {

constexpr std::size_t kMaximo = 256;
constexpr std::chrono::seconds kVigencia{1};

// Where the FROM of the statement itself ends; the end of the text when it has none.
std::size_t FinFrom(std::string_view texto) {
    int profundidad = 0;
    for (std::size_t pos = 0; pos < texto.size(); ++pos) {
        const char c = texto[pos];
        if (c == '(') ++profundidad;
        if (c == ')') --profundidad;
        if (c == '\'') pos = std::min(FinCadena(texto, pos), texto.size()) - 1;
        if (profundidad != 0 || (c | 0x20) != 'f' || pos == 0 || pos + 4 >= texto.size()) continue;
        if (!EsDeNombre(texto[pos - 1]) && MismoNombre(texto.substr(pos, 4), "FROM") && !EsDeNombre(texto[pos + 4]))
            return pos + 4;
    }
    return texto.size();
}

// End of the literal that stands at `pos`, blanks and a sign before it included; `pos` itself when none does.
std::size_t FinLiteral(std::string_view texto, std::size_t pos) {
    std::size_t inicio = std::min(texto.find_first_not_of(' ', pos), texto.size());
    if (inicio < texto.size() && texto[inicio] == '\'') return std::min(FinCadena(texto, inicio), texto.size());
    if (inicio < texto.size() && texto[inicio] == '-') ++inicio;
    const std::size_t fin = FinNumero(texto, inicio);
    return fin == inicio ? pos : fin;
}

}  // namespace

void Moldear(std::string_view texto, std::string& molde) {
    const bool comentario = texto.find("--") != std::string_view::npos || texto.find("/*") != std::string_view::npos;
    std::size_t pos = comentario ? texto.size() : FinFrom(texto);
    molde.clear();
    std::size_t copiado = 0;
    while (pos < texto.size()) {
        const char c = texto[pos++];
        // A literal elsewhere may decide the type of a column.
        if (c == '\'') pos = std::min(FinCadena(texto, pos - 1), texto.size());
        if (c != '=' && c != '<' && c != '>') continue;
        const std::size_t fin = FinLiteral(texto, pos);
        if (fin == pos) continue;
        molde.append(texto.substr(copiado, pos - copiado)).push_back('?');
        copiado = pos = fin;
    }
    molde.append(texto.substr(copiado));
}

std::shared_ptr<const ColumnasOdbc> FormasConocidas::Buscar(std::string_view texto) {
    Moldear(texto, molde_);
    const auto forma = formas_.find(molde_);
    if (forma == formas_.end() || Reloj::now() - forma->second.descrita > kVigencia) return nullptr;
    return forma->second.columnas;
}

void FormasConocidas::Recordar(std::shared_ptr<const ColumnasOdbc> columnas) {
    if (formas_.size() >= kMaximo) formas_.clear();
    formas_[molde_] = {std::move(columnas), Reloj::now()};
}

}  // namespace kv
