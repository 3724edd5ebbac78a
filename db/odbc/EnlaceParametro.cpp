#include "kvdatosart/db/odbc/EnlaceParametro.h"

#include <algorithm>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/BibliotecaComun.h"

namespace kv {
namespace {

// The longest text that is no long one in the database.
constexpr std::size_t kTextoNormal = 4000;

SQLSMALLINT DireccionOdbc(ParameterDirection direccion) {
    switch (direccion) {
        case ParameterDirection::adParamInput:
            return SQL_PARAM_INPUT;
        case ParameterDirection::adParamInputOutput:
            return SQL_PARAM_INPUT_OUTPUT;
        default:
            return SQL_PARAM_OUTPUT;
    }
}

SQL_TIMESTAMP_STRUCT ADiaNativo(Fecha fecha) {
    SQL_TIMESTAMP_STRUCT dia{};
    dia.year = static_cast<SQLSMALLINT>(fecha.Anio());
    dia.month = static_cast<SQLUSMALLINT>(fecha.Mes());
    dia.day = static_cast<SQLUSMALLINT>(fecha.Dia());
    return dia;
}

}  // namespace

EnlaceParametro::EnlaceParametro(const Parameter& parametro)
    : tipo_(parametro.Type), direccion_(parametro.Direction), forma_(FormaDe(parametro.Type)) {
    const bool entra =
        direccion_ == ParameterDirection::adParamInput || direccion_ == ParameterDirection::adParamInputOutput;
    const Valor valor = entra ? parametro.Value : Valor(Nulo{});
    if (tipo_ == DataType::adVarChar)
        PonerTexto(valor, static_cast<std::size_t>(std::max(parametro.Size, 0)));
    else if (!EsNulo(valor))
        Poner(valor);
}

EnlaceParametro::Forma EnlaceParametro::FormaDe(DataType tipo) {
    switch (tipo) {
        case DataType::adSmallInt:
        case DataType::adTinyInt:
            return {SQL_C_SSHORT, SQL_SMALLINT, 5, 0};
        case DataType::adInteger:
            return {SQL_C_SLONG, SQL_INTEGER, 10, 0};
        case DataType::adSingle:
            return {SQL_C_FLOAT, SQL_REAL, 7, 0};
        case DataType::adDouble:
            return {SQL_C_DOUBLE, SQL_DOUBLE, 15, 0};
        case DataType::adCurrency:
            return {SQL_C_CHAR, SQL_DECIMAL, 19, 4};
        case DataType::adDate:
            return {SQL_C_TYPE_TIMESTAMP, SQL_TYPE_TIMESTAMP, 23, 3};
        case DataType::adBoolean:
            return {SQL_C_BIT, SQL_BIT, 1, 0};
        case DataType::adVarChar:
            return {SQL_C_WCHAR, SQL_WVARCHAR, kTextoNormal, 0};
    }
    LanzarError(kErrTipo, "parámetro de tipo ADO " + std::to_string(static_cast<int>(tipo)));
}

void EnlaceParametro::Poner(const Valor& valor) {
    indicador_ = 0;
    switch (tipo_) {
        case DataType::adInteger:
            largo_ = ALong(valor);
            break;
        case DataType::adSingle:
            simple_ = ASingle(valor);
            break;
        case DataType::adDouble:
            doble_ = ADouble(valor);
            break;
        case DataType::adCurrency: {
            const TextoNumero texto = ACurrency(valor).ATexto('.');
            const std::string_view cifras = texto;
            std::copy(cifras.begin(), cifras.end(), cifras_.begin());
            indicador_ = static_cast<SQLLEN>(cifras.size());
            break;
        }
        case DataType::adDate:
            dia_ = ADiaNativo(ADate(valor));
            break;
        case DataType::adBoolean:
            logico_ = ABoolean(valor) ? 1 : 0;
            break;
        default:
            corto_ = AInteger(valor);
            break;
    }
}

void EnlaceParametro::PonerTexto(const Valor& valor, std::size_t sitio) {
    if (!EsNulo(valor)) {
        AAncho(AString(valor, Biblioteca().SeparadorDecimal()), texto_);
        indicador_ = static_cast<SQLLEN>(texto_.size() * sizeof(SQLWCHAR));
    }
    const std::size_t unidades = std::max(texto_.size(), sitio != 0 ? sitio : kTextoNormal);
    forma_.ancho = unidades;
    if (unidades > kTextoNormal) forma_.tipoSql = SQL_WLONGVARCHAR;
    texto_.resize(unidades + 1);
}

SQLPOINTER EnlaceParametro::Datos() {
    switch (forma_.tipoC) {
        case SQL_C_SLONG:
            return &largo_;
        case SQL_C_FLOAT:
            return &simple_;
        case SQL_C_DOUBLE:
            return &doble_;
        case SQL_C_CHAR:
            return cifras_.data();
        case SQL_C_TYPE_TIMESTAMP:
            return &dia_;
        case SQL_C_BIT:
            return &logico_;
        case SQL_C_WCHAR:
            return texto_.data();
        default:
            return &corto_;
    }
}

SQLLEN EnlaceParametro::Sitio() const {
    if (forma_.tipoC == SQL_C_CHAR) return static_cast<SQLLEN>(cifras_.size());
    if (forma_.tipoC == SQL_C_WCHAR) return static_cast<SQLLEN>(texto_.size() * sizeof(SQLWCHAR));
    return 0;
}

SQLRETURN EnlaceParametro::Enlazar(SQLHSTMT sentencia, SQLUSMALLINT posicion) {
    return SQLBindParameter(sentencia, posicion, DireccionOdbc(direccion_), forma_.tipoC, forma_.tipoSql, forma_.ancho,
                            forma_.decimales, Datos(), Sitio(), &indicador_);
}

Valor EnlaceParametro::Recoger() const {
    if (indicador_ == SQL_NULL_DATA) return Nulo{};
    switch (tipo_) {
        case DataType::adInteger:
            return static_cast<std::int32_t>(largo_);
        case DataType::adSingle:
            return simple_;
        case DataType::adDouble:
            return doble_;
        case DataType::adCurrency: {
            const auto largo = std::clamp<SQLLEN>(indicador_, 0, static_cast<SQLLEN>(cifras_.size()));
            return Currency::DeTexto({cifras_.data(), static_cast<std::size_t>(largo)});
        }
        case DataType::adDate:
            return Fecha::DeAmd(dia_.year, dia_.month, dia_.day);
        case DataType::adBoolean:
            return logico_ != 0;
        case DataType::adVarChar: {
            std::string texto;
            const auto unidades = static_cast<std::size_t>(std::max<SQLLEN>(indicador_, 0)) / sizeof(SQLWCHAR);
            DeAncho(texto_.data(), std::min(unidades, texto_.size() - 1), texto);
            return texto;
        }
        default:
            return static_cast<std::int16_t>(corto_);
    }
}

}  // namespace kv
