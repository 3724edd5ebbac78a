#include "kvdatosart/db/odbc/LectorResultado.h"

#include <algorithm>
#include <array>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/Nombres.h"
#include "kvdatosart/db/odbc/ErrorOdbc.h"

namespace kv {
namespace {

constexpr SQLSMALLINT kMaximoNombre = 1024;

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

// A result with more rows than these is read through bound columns, and one of the same columns as the last from its
// second row on; it leaves them bound for the next.
constexpr std::size_t kFilasSueltas = 2;
// Wider text is asked for piece by piece.
constexpr std::size_t kMaximoEnlazado = 255;

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
    resultado.columnas = Columnas(columnas);
    if (columnas == 0) return false;
    const bool repetidas = resultado.columnas == leidas_;
    if (!repetidas) Desenlazar();
    leidas_ = resultado.columnas;
    LeerFilas(resultado, repetidas ? 1 : kFilasSueltas);
    return true;
}

void LectorResultado::LeerFilas(Resultado& resultado, std::size_t sueltas) {
    for (;;) {
        const SQLRETURN fila = SQLFetch(sentencia_->Get());
        if (fila == SQL_NO_DATA) return;
        Comprobar(fila);
        LeerFila(resultado);
        if (resultado.filas == sueltas && enlazadas_.empty()) Enlazar(resultado.columnas);
    }
}

void LectorResultado::Enlazar(const std::shared_ptr<const ColumnasOdbc>& columnas) {
    const bool estrechas = std::all_of(columnas->begin(), columnas->end(), [](const ColumnaOdbc& c) {
        return c.lectura != LecturaOdbc::Texto || (c.ancho > 0 && c.ancho <= kMaximoEnlazado);
    });
    if (!estrechas) return;
    // Bound to none until all of them are: a failure halfway is undone by the next reading.
    leidas_.reset();
    enlazadas_.resize(columnas->size());
    for (std::size_t i = 0; i < columnas->size(); ++i)
        Comprobar(enlazadas_[i].Enlazar(*sentencia_, static_cast<SQLUSMALLINT>(i + 1), (*columnas)[i]));
    leidas_ = columnas;
}

void LectorResultado::Desenlazar() {
    if (enlazadas_.empty()) return;
    SQLFreeStmt(sentencia_->Get(), SQL_UNBIND);
    enlazadas_.clear();
}

std::shared_ptr<const ColumnasOdbc> LectorResultado::Columnas(SQLSMALLINT cuantas) {
    auto conocidas = formas_.Buscar(texto_);
    if (conocidas && conocidas->size() == static_cast<std::size_t>(cuantas)) return conocidas;
    auto columnas = std::make_shared<ColumnasOdbc>();
    for (SQLUSMALLINT i = 1; i <= cuantas; ++i) {
        ColumnaOdbc columna = Describir(i);
        columna.primera = std::none_of(columnas->begin(), columnas->end(), [&](const ColumnaOdbc& otra) {
            return MismoNombre(otra.nombre, columna.nombre);
        });
        columnas->push_back(std::move(columna));
    }
    formas_.Recordar(columnas);
    return columnas;
}

ColumnaOdbc LectorResultado::Describir(SQLUSMALLINT posicion) {
    ColumnaOdbc columna;
    SQLSMALLINT unidades = 0;
    SQLSMALLINT tipo = 0;
    SQLSMALLINT decimales = 0;
    SQLSMALLINT admiteNulo = 0;
    SQLULEN ancho = 0;
    // No database has names as long as the room.
    Comprobar(SQLDescribeColW(sentencia_->Get(), posicion, hueco_.data(), kMaximoNombre, &unidades, &tipo, &ancho,
                              &decimales, &admiteNulo));
    DeAncho(hueco_.data(), static_cast<std::size_t>(std::clamp<int>(unidades, 0, kMaximoNombre - 1)), columna.nombre);
    columna.lectura = LecturaDe(tipo, columna.nombre);
    columna.ancho = ancho;
    return columna;
}

void LectorResultado::LeerFila(Resultado& resultado) {
    const std::size_t cuantas = resultado.columnas->size();
    const std::size_t primero = resultado.filas * cuantas;
    if (resultado.valores.size() < primero + cuantas) resultado.valores.resize(primero + cuantas);
    for (std::size_t i = 0; i < cuantas; ++i) {
        const ColumnaOdbc& columna = (*resultado.columnas)[i];
        try {
            LeerValor(i, columna, resultado.valores[primero + i]);
        } catch (const RuntimeError& error) {
            if (error.origen == "ODBC") throw;
            throw RuntimeError(error.numero, error.origen, error.descripcion + " (columna " + columna.nombre + ")");
        }
    }
    ++resultado.filas;
}

void LectorResultado::LeerValor(std::size_t indice, const ColumnaOdbc& columna, Valor& valor) {
    const auto posicion = static_cast<SQLUSMALLINT>(indice + 1);
    if (!enlazadas_.empty() && enlazadas_[indice].Cabe()) return enlazadas_[indice].Poner(columna.lectura, valor);
    if (columna.lectura == LecturaOdbc::Texto) return LeerTexto(posicion, valor);
    Comprobar(celda_.Pedir(*sentencia_, posicion, columna.lectura));
    celda_.Poner(columna.lectura, valor);
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
