// What a driver hands over for a value, sound or not: it becomes a value or an error, never a read out of its room.
// The driver is this file: it stands in for the two calls that fill a value.
#include <algorithm>
#include <cstring>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/odbc/CeldaOdbc.h"
#include "kvdatosart/fuzz/Exigir.h"

namespace kv::difuso {
namespace {

struct Entrega {
    const std::uint8_t* datos;
    std::size_t largo;
    SQLLEN indicador;
} entrega;

// As a driver does it: no more than fits, and the whole length in the indicator.
SQLRETURN Entregar(SQLPOINTER sitio, SQLLEN cabe, SQLLEN* indicador) {
    std::memcpy(sitio, entrega.datos, std::min(entrega.largo, static_cast<std::size_t>(cabe)));
    *indicador = entrega.indicador;
    return SQL_SUCCESS;
}

void Leer(CeldaOdbc& celda, LecturaOdbc lectura) {
    Valor valor = std::string("lo de antes");
    try {
        if (celda.Cabe()) celda.Poner(lectura, valor);
    } catch (const RuntimeError& error) {
        Exigir(error.numero == kErrDesbordamiento || error.numero == kErrLlamadaInvalida || error.numero == kErrTipo,
               "errores 5, 6 o 13", error.descripcion);
    }
}

}  // namespace
}  // namespace kv::difuso

extern "C" SQLRETURN SQL_API SQLGetData(SQLHSTMT, SQLUSMALLINT, SQLSMALLINT, SQLPOINTER sitio, SQLLEN cabe,
                                        SQLLEN* indicador) {
    return kv::difuso::Entregar(sitio, cabe, indicador);
}
extern "C" SQLRETURN SQL_API SQLBindCol(SQLHSTMT, SQLUSMALLINT, SQLSMALLINT, SQLPOINTER sitio, SQLLEN cabe,
                                        SQLLEN* indicador) {
    return kv::difuso::Entregar(sitio, cabe, indicador);
}

int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t largo) {
    using namespace kv;
    using namespace kv::difuso;
    if (largo < 4) return 0;
    const auto lectura = static_cast<LecturaOdbc>(datos[0] % (static_cast<int>(LecturaOdbc::Texto) + 1));
    const SQLLEN indicadores[] = {static_cast<SQLLEN>(largo - 4), SQL_NULL_DATA, SQL_NO_TOTAL, datos[3],
                                  static_cast<SQLLEN>(datos[3]) << 24};
    entrega = {datos + 4, largo - 4, indicadores[datos[1] % std::size(indicadores)]};
    const Asidero ninguno;
    CeldaOdbc pedida;
    if (lectura != LecturaOdbc::Texto) {
        pedida.Pedir(ninguno, 1, lectura);
        Leer(pedida, lectura);
    }
    CeldaOdbc enlazada;
    enlazada.Enlazar(ninguno, 1, {"Columna", true, lectura, datos[2]});
    Leer(enlazada, lectura);
    return 0;
}
