#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"

namespace kv {

// How values are written into statements. Text goes between single quotes as it is: an embedded quote is not doubled
// and makes the statement fail.

/// Codes of every kind: plain decimal digits.
inline TextoNumero SqlEntero(std::int32_t valor) {
    return TextoEntero(valor);
}
/// Default text of a Double with a decimal point whatever the regional separator. NaN and infinity raise error 6.
TextoNumero SqlDoble(double valor);
/// Default text of a Currency, which carries the regional decimal separator: on a host with a decimal comma the
/// statement carries that comma.
TextoNumero SqlCurrency(Currency valor);
/// A Currency with a decimal point on every host.
TextoNumero SqlCurrencyConPunto(Currency valor);
/// Through the common library's number formatter.
TextoNumero SqlNumero(Currency valor);
TextoNumero SqlNumero(double valor);
/// Default text of a date (dd/mm/yyyy), without quotes.
TextoNumero SqlFecha(Fecha valor);
/// Through the common library's date-literal routine, without quotes.
TextoNumero SqlFechaLiteral(Fecha valor);
/// -1 or 0.
TextoNumero SqlBooleano(bool valor);
/// 1 or 0.
TextoNumero SqlBooleanoAbsoluto(bool valor);

// The length of a fragment is known when it is compiled, and so is how it is copied.
template <std::size_t N>
constexpr std::size_t LargoSql(const char (&)[N]) {
    return N - 1;
}
constexpr std::size_t LargoSql(std::string_view trozo) {
    return trozo.size();
}
template <std::size_t N>
char* PonerSql(char* sitio, const char (&fragmento)[N]) {
    std::memcpy(sitio, fragmento, N - 1);
    return sitio + N - 1;
}
inline char* PonerSql(char* sitio, std::string_view trozo) {
    const std::size_t largo = trozo.size();
    // Most values are codes of a few digits, which need no call.
    if (largo >= 1 && largo <= 3) {
        sitio[0] = trozo[0];
        sitio[largo / 2] = trozo[largo / 2];
        sitio[largo - 1] = trozo[largo - 1];
        return sitio + largo;
    }
    return std::copy(trozo.begin(), trozo.end(), sitio);
}

/// Makes a text that much longer and tells where it went on.
char* Alargar(std::string& sql, std::size_t cuanto);

/// Appends fragments and values in order: one growth of the text for all of them.
template <class... Partes>
void Agregar(std::string& sql, const Partes&... partes) {
    char* sitio = Alargar(sql, (LargoSql(partes) + ... + 0U));
    ((sitio = PonerSql(sitio, partes)), ...);
}

/// A statement from its fragments and values in order.
template <class... Partes>
std::string TextoSql(const Partes&... partes) {
    std::string sql;
    Agregar(sql, partes...);
    return sql;
}

}  // namespace kv
