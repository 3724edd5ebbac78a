// Any text as a statement: its pieces cover it in order, and where it passes as one statement the database's own parser
// finds no second one in what is prepared of it.
#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/Tokens.h"
#include "kvdatosart/db/sqlite/Traduccion.h"
#include "kvdatosart/fuzz/BaseProbada.h"
#include "kvdatosart/fuzz/Exigir.h"

namespace kv::difuso {
namespace {

void ExigirPiezas(const std::string& texto) {
    LectorTokens lector(texto);
    const char* fin = texto.data();
    for (Token token = lector.Siguiente(); token.tipo != Token::Tipo::Fin; token = lector.Siguiente()) {
        Exigir(!token.texto.empty() && token.texto.data() >= fin, "cada pieza sigue a la anterior", texto);
        fin = token.texto.data() + token.texto.size();
    }
    Exigir(fin <= texto.data() + texto.size(), "la última pieza acaba con el texto", texto);
}

// The text as SQLite takes it; empty when it is refused for a second statement.
std::string Aceptada(const std::string& texto) {
    try {
        std::vector<Literal> literales;
        BuscarLiterales(texto, literales);
        return Traducir(texto, literales).texto;
    } catch (const RuntimeError& error) {
        Exigir(error.numero == kErrVariasSentencias, "solo se rechaza por varias sentencias", texto);
        return {};
    }
}

void ExigirUnaSola(const BaseProbada& base, const std::string& texto, const std::string& traducida) {
    const char* resto = traducida.c_str();
    int halladas = 0;
    while (*resto != '\0') {
        sqlite3_stmt* sentencia = nullptr;
        const char* desde = resto;
        if (sqlite3_prepare_v2(base.Get(), desde, -1, &sentencia, &resto) != SQLITE_OK) return;
        halladas += sentencia != nullptr ? 1 : 0;
        sqlite3_finalize(sentencia);
        Exigir(halladas < 2, "la base no ve una segunda sentencia", texto + "\n" + traducida);
    }
}

}  // namespace
}  // namespace kv::difuso

int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t largo) {
    using namespace kv::difuso;
    static const BaseProbada base;
    const std::string texto = Texto(datos, largo);
    ExigirPiezas(texto);
    ExigirUnaSola(base, texto, Aceptada(texto));
    return 0;
}
