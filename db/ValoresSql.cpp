#include "kvdatosart/db/ValoresSql.h"

#include "kvdatosart/db/BibliotecaComun.h"

namespace kv {

TextoNumero SqlDoble(double valor) {
    return TextoDouble(valor, '.');
}

// Quirk (0004): without the comma replacement, as the plain conversion of the runtime writes it.
TextoNumero SqlCurrency(Currency valor) {
    return valor.ATexto(Biblioteca().SeparadorDecimal());
}

TextoNumero SqlCurrencyConPunto(Currency valor) {
    return valor.ATexto('.');
}

TextoNumero SqlNumero(Currency valor) {
    return Biblioteca().FormatoSql(valor);
}
TextoNumero SqlNumero(double valor) {
    return Biblioteca().FormatoSql(valor);
}

TextoNumero SqlFecha(Fecha valor) {
    return valor.ATexto();
}
TextoNumero SqlFechaLiteral(Fecha valor) {
    return Biblioteca().LiteralFecha(valor);
}

TextoNumero SqlBooleano(bool valor) {
    return TextoNumero(valor ? "-1" : "0");
}
TextoNumero SqlBooleanoAbsoluto(bool valor) {
    return TextoNumero(valor ? "1" : "0");
}

char* Alargar(std::string& sql, std::size_t cuanto) {
    const std::size_t antes = sql.size();
    sql.resize(antes + cuanto);
    return sql.data() + antes;
}

}  // namespace kv
