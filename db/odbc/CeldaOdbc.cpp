#include "kvdatosart/db/odbc/CeldaOdbc.h"

#include <cstring>

#include "kvdatosart/base/RuntimeError.h"

namespace kv {
namespace {

SQLSMALLINT TipoC(LecturaOdbc lectura) {
    switch (lectura) {
        case LecturaOdbc::Logico:
            return SQL_C_BIT;
        case LecturaOdbc::Octeto:
            // Signed with some drivers, unsigned with others: asked for with room for both.
        case LecturaOdbc::Corto:
            return SQL_C_SSHORT;
        case LecturaOdbc::Largo:
            return SQL_C_SLONG;
        case LecturaOdbc::Grande:
            return SQL_C_SBIGINT;
        case LecturaOdbc::Simple:
            return SQL_C_FLOAT;
        case LecturaOdbc::Doble:
            return SQL_C_DOUBLE;
        case LecturaOdbc::Dinero:
            // Digit by digit: a floating-point number would not hold them all.
            return SQL_C_CHAR;
        case LecturaOdbc::Dia:
            return SQL_C_TYPE_DATE;
        case LecturaOdbc::DiaYHora:
            return SQL_C_TYPE_TIMESTAMP;
        case LecturaOdbc::Texto:
            break;
    }
    return SQL_C_WCHAR;
}

template <class Nativo>
Fecha ADia(const Nativo& nativo) {
    return Fecha::DeAmd(nativo.year, nativo.month, nativo.day);
}

}  // namespace

void PonerTexto(Valor& valor, const SQLWCHAR* ancho, std::size_t unidades) {
    std::string* cadena = std::get_if<std::string>(&valor);
    DeAncho(ancho, unidades, cadena != nullptr ? *cadena : valor.emplace<std::string>());
}

SQLRETURN CeldaOdbc::Pedir(const Asidero& sentencia, SQLUSMALLINT posicion, LecturaOdbc lectura) {
    return SQLGetData(sentencia.Get(), posicion, TipoC(lectura), datos_.data(), static_cast<SQLLEN>(datos_.size()),
                      &indicador_);
}

SQLRETURN CeldaOdbc::Enlazar(const Asidero& sentencia, SQLUSMALLINT posicion, const ColumnaOdbc& columna) {
    esTexto_ = columna.lectura == LecturaOdbc::Texto;
    if (!esTexto_)
        return SQLBindCol(sentencia.Get(), posicion, TipoC(columna.lectura), datos_.data(),
                          static_cast<SQLLEN>(datos_.size()), &indicador_);
    // A character may take two units.
    texto_.resize(columna.ancho * 2 + 1);
    return SQLBindCol(sentencia.Get(), posicion, SQL_C_WCHAR, texto_.data(),
                      static_cast<SQLLEN>(texto_.size() * sizeof(SQLWCHAR)), &indicador_);
}

bool CeldaOdbc::Cabe() const {
    if (indicador_ == SQL_NULL_DATA) return true;
    const std::size_t sitio = esTexto_ ? (texto_.size() - 1) * sizeof(SQLWCHAR) : datos_.size() - 1;
    return indicador_ >= 0 && static_cast<std::size_t>(indicador_) <= sitio;
}

template <class Nativo>
Nativo CeldaOdbc::Como() const {
    Nativo nativo;
    std::memcpy(&nativo, datos_.data(), sizeof nativo);
    return nativo;
}

void CeldaOdbc::Poner(LecturaOdbc lectura, Valor& valor) const {
    if (indicador_ == SQL_NULL_DATA) {
        valor = Nulo{};
        return;
    }
    switch (lectura) {
        case LecturaOdbc::Logico:
            valor = Como<SQLCHAR>() != 0;
            return;
        case LecturaOdbc::Octeto: {
            const auto corto = Como<SQLSMALLINT>();
            if (corto >= 0 && corto <= 255)
                valor = static_cast<std::uint8_t>(corto);
            else
                valor = static_cast<std::int16_t>(corto);
            return;
        }
        case LecturaOdbc::Corto:
            valor = static_cast<std::int16_t>(Como<SQLSMALLINT>());
            return;
        case LecturaOdbc::Largo:
            valor = static_cast<std::int32_t>(Como<SQLINTEGER>());
            return;
        case LecturaOdbc::Grande:
            valor = static_cast<std::int64_t>(Como<SQLBIGINT>());
            return;
        case LecturaOdbc::Simple:
            valor = static_cast<float>(Como<SQLREAL>());
            return;
        case LecturaOdbc::Doble:
            valor = static_cast<double>(Como<SQLDOUBLE>());
            return;
        case LecturaOdbc::Dinero:
            if (!Cabe()) LanzarError(kErrDesbordamiento, "número de demasiadas cifras");
            valor = Currency::DeTexto({datos_.data(), static_cast<std::size_t>(indicador_)});
            return;
        case LecturaOdbc::Dia:
            valor = ADia(Como<SQL_DATE_STRUCT>());
            return;
        case LecturaOdbc::DiaYHora:
            valor = ADia(Como<SQL_TIMESTAMP_STRUCT>());
            return;
        case LecturaOdbc::Texto:
            PonerTexto(valor, texto_.data(), static_cast<std::size_t>(indicador_) / sizeof(SQLWCHAR));
            return;
    }
}

}  // namespace kv
