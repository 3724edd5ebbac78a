#include "db/odbc/LectorResultado.h"

#include <algorithm>
#include <array>

#include "base/RuntimeError.h"
#include "db/odbc/ErrorOdbc.h"

namespace kv {
namespace {

constexpr std::size_t kMaximoNombre = 1024;

LecturaOdbc LecturaDe(SQLSMALLINT tipo, const std::string& columna) {
    switch (tipo) {
        case SQL_BIT:
            return LecturaOdbc::Logico;
        case SQL_TINYINT:
            return LecturaOdbc::Octeto;
        case SQL_SMALLINT:
            return LecturaOdbc::Corto;
        case SQL_INTEGER:
            return LecturaOdbc::Largo;
        case SQL_BIGINT:
            return LecturaOdbc::Grande;
        case SQL_REAL:
            return LecturaOdbc::Simple;
        case SQL_FLOAT:
        case SQL_DOUBLE:
            return LecturaOdbc::Doble;
        case SQL_DECIMAL:
        case SQL_NUMERIC:
            return LecturaOdbc::Dinero;
        case SQL_DATE:
        case SQL_TYPE_DATE:
            return LecturaOdbc::Dia;
        case SQL_TIMESTAMP:
        case SQL_TYPE_TIMESTAMP:
            return LecturaOdbc::DiaYHora;
        case SQL_CHAR:
        case SQL_VARCHAR:
        case SQL_LONGVARCHAR:
        case SQL_WCHAR:
        case SQL_WVARCHAR:
        case SQL_WLONGVARCHAR:
            return LecturaOdbc::Texto;
        default:
            LanzarError(kErrTipo,
                        "la columna " + columna + " es de un tipo ODBC desconocido (" + std::to_string(tipo) + ")");
    }
}

void PonerTexto(Valor& valor, const SQLWCHAR* ancho, std::size_t unidades) {
    std::string* cadena = std::get_if<std::string>(&valor);
    DeAncho(ancho, unidades, cadena != nullptr ? *cadena : valor.emplace<std::string>());
}

template <class Struct>
Fecha ADia(const Struct& nativo) {
    return Fecha::DeAmd(nativo.year, nativo.month, nativo.day);
}

}  // namespace

void LectorResultado::Comprobar(SQLRETURN resultado) const {
    ComprobarOdbc(resultado, *sentencia_, texto_);
}

bool LectorResultado::Leer(const Asidero& sentencia, std::string_view texto, Resultado& resultado) {
    sentencia_ = &sentencia;
    texto_ = texto;
    resultado.filas = 0;
    SQLSMALLINT columnas = 0;
    Comprobar(SQLNumResultCols(sentencia.Get(), &columnas));
    while (columnas == 0) {
        // The count of a write, a setting of the session.
        const SQLRETURN siguiente = SQLMoreResults(sentencia.Get());
        if (siguiente == SQL_NO_DATA) break;
        Comprobar(siguiente);
        Comprobar(SQLNumResultCols(sentencia.Get(), &columnas));
    }
    Describir(columnas, resultado);
    if (columnas == 0) return false;
    for (;;) {
        const SQLRETURN fila = SQLFetch(sentencia.Get());
        if (fila == SQL_NO_DATA) return true;
        Comprobar(fila);
        LeerFila(resultado);
    }
}

void LectorResultado::Describir(SQLSMALLINT cuantas, Resultado& resultado) {
    resultado.columnas.resize(static_cast<std::size_t>(cuantas));
    for (SQLSMALLINT i = 0; i < cuantas; ++i) {
        ColumnaOdbc& columna = resultado.columnas[static_cast<std::size_t>(i)];
        SQLSMALLINT unidades = 0;
        SQLSMALLINT tipo = 0;
        SQLSMALLINT decimales = 0;
        SQLSMALLINT admiteNulo = 0;
        SQLULEN ancho = 0;
        // No database has names as long as the room.
        Comprobar(SQLDescribeColW(sentencia_->Get(), static_cast<SQLUSMALLINT>(i + 1), hueco_.data(),
                                  static_cast<SQLSMALLINT>(kMaximoNombre), &unidades, &tipo, &ancho, &decimales,
                                  &admiteNulo));
        DeAncho(hueco_.data(), std::min<std::size_t>(static_cast<std::size_t>(unidades), kMaximoNombre - 1),
                columna.nombre);
        columna.huella = HuellaNombre(columna.nombre);
        columna.lectura = LecturaDe(tipo, columna.nombre);
    }
}

void LectorResultado::LeerFila(Resultado& resultado) {
    const std::size_t cuantas = resultado.columnas.size();
    const std::size_t primero = resultado.filas * cuantas;
    if (resultado.valores.size() < primero + cuantas) resultado.valores.resize(primero + cuantas);
    for (std::size_t i = 0; i < cuantas; ++i) {
        try {
            LeerValor(static_cast<SQLUSMALLINT>(i + 1), resultado.columnas[i].lectura, resultado.valores[primero + i]);
        } catch (const RuntimeError& error) {
            if (error.origen == "ODBC") throw;
            throw RuntimeError(error.numero, error.origen,
                               error.descripcion + " (columna " + resultado.columnas[i].nombre + ")");
        }
    }
    ++resultado.filas;
}

void LectorResultado::LeerValor(SQLUSMALLINT posicion, LecturaOdbc lectura, Valor& valor) {
    switch (lectura) {
        case LecturaOdbc::Logico:
            return LeerFijo<SQLCHAR>(posicion, SQL_C_BIT, valor, [](SQLCHAR v) { return v != 0; });
        case LecturaOdbc::Octeto:
            // Signed with some drivers, unsigned with others: asked for with room for both.
            return LeerFijo<SQLSMALLINT>(posicion, SQL_C_SSHORT, valor, [](SQLSMALLINT v) -> Valor {
                if (v >= 0 && v <= 255) return static_cast<std::uint8_t>(v);
                return static_cast<std::int16_t>(v);
            });
        case LecturaOdbc::Corto:
            return LeerFijo<SQLSMALLINT>(posicion, SQL_C_SSHORT, valor,
                                         [](SQLSMALLINT v) { return static_cast<std::int16_t>(v); });
        case LecturaOdbc::Largo:
            return LeerFijo<SQLINTEGER>(posicion, SQL_C_SLONG, valor,
                                        [](SQLINTEGER v) { return static_cast<std::int32_t>(v); });
        case LecturaOdbc::Grande:
            return LeerFijo<SQLBIGINT>(posicion, SQL_C_SBIGINT, valor,
                                       [](SQLBIGINT v) { return static_cast<std::int64_t>(v); });
        case LecturaOdbc::Simple:
            return LeerFijo<SQLREAL>(posicion, SQL_C_FLOAT, valor, [](SQLREAL v) { return v; });
        case LecturaOdbc::Doble:
            return LeerFijo<SQLDOUBLE>(posicion, SQL_C_DOUBLE, valor, [](SQLDOUBLE v) { return v; });
        case LecturaOdbc::Dia:
            return LeerFijo<SQL_DATE_STRUCT>(posicion, SQL_C_TYPE_DATE, valor, ADia<SQL_DATE_STRUCT>);
        case LecturaOdbc::DiaYHora:
            return LeerFijo<SQL_TIMESTAMP_STRUCT>(posicion, SQL_C_TYPE_TIMESTAMP, valor, ADia<SQL_TIMESTAMP_STRUCT>);
        case LecturaOdbc::Dinero:
            return LeerDinero(posicion, valor);
        case LecturaOdbc::Texto:
            return LeerTexto(posicion, valor);
    }
}

template <class Nativo, class Poner>
void LectorResultado::LeerFijo(SQLUSMALLINT posicion, SQLSMALLINT tipoC, Valor& valor, Poner&& poner) {
    Nativo nativo{};
    SQLLEN indicador = 0;
    Comprobar(SQLGetData(sentencia_->Get(), posicion, tipoC, &nativo, sizeof nativo, &indicador));
    if (indicador == SQL_NULL_DATA)
        valor = Nulo{};
    else
        valor = poner(nativo);
}

// Digit by digit: a floating-point number would not hold them all.
void LectorResultado::LeerDinero(SQLUSMALLINT posicion, Valor& valor) {
    std::array<char, 512> cifras;
    SQLLEN indicador = 0;
    const SQLRETURN resultado =
        SQLGetData(sentencia_->Get(), posicion, SQL_C_CHAR, cifras.data(), cifras.size(), &indicador);
    Comprobar(resultado);
    if (indicador == SQL_NULL_DATA) {
        valor = Nulo{};
        return;
    }
    if (indicador < 0 || indicador >= static_cast<SQLLEN>(cifras.size()))
        LanzarError(kErrDesbordamiento, "número de demasiadas cifras");
    valor = Currency::DeTexto({cifras.data(), static_cast<std::size_t>(indicador)});
}

void LectorResultado::LeerTexto(SQLUSMALLINT posicion, Valor& valor) {
    constexpr std::size_t kUnidad = sizeof(SQLWCHAR);
    std::size_t leidas = 0;
    for (;;) {
        SQLLEN indicador = 0;
        const std::size_t sitio = hueco_.size() - leidas;
        const SQLRETURN resultado = SQLGetData(sentencia_->Get(), posicion, SQL_C_WCHAR, hueco_.data() + leidas,
                                               static_cast<SQLLEN>(sitio * kUnidad), &indicador);
        if (resultado == SQL_NO_DATA) break;
        Comprobar(resultado);
        if (indicador == SQL_NULL_DATA) {
            valor = Nulo{};
            return;
        }
        const bool cabe = indicador != SQL_NO_TOTAL && static_cast<std::size_t>(indicador) <= (sitio - 1) * kUnidad;
        if (cabe) {
            leidas += static_cast<std::size_t>(indicador) / kUnidad;
            break;
        }
        // The closing zero of a piece gives its place to the next one.
        leidas = hueco_.size() - 1;
        const std::size_t faltan =
            indicador == SQL_NO_TOTAL ? hueco_.size() : static_cast<std::size_t>(indicador) / kUnidad + 1;
        hueco_.resize(leidas + faltan);
    }
    PonerTexto(valor, hueco_.data(), leidas);
}

}  // namespace kv
