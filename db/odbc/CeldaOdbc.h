#pragma once

#include <array>
#include <cstddef>

#include "kvdatosart/base/Valor.h"
#include "kvdatosart/db/odbc/Asidero.h"
#include "kvdatosart/db/odbc/ColumnaOdbc.h"
#include "kvdatosart/db/odbc/TextoAncho.h"

namespace kv {

/// One value as the driver hands it over: asked for column by column, or filled by the driver with every row once it
/// is bound, which it must then outlive.
class CeldaOdbc {
  public:
    /// Asks for a value that is no text.
    SQLRETURN Pedir(const Asidero& sentencia, SQLUSMALLINT posicion, LecturaOdbc lectura);
    /// Binds it to a column, with room for the column's whole width when that is text.
    SQLRETURN Enlazar(const Asidero& sentencia, SQLUSMALLINT posicion, const ColumnaOdbc& columna);

    /// Whether the value fitted; text may be longer than its column says.
    bool Cabe() const;
    /// The value; NULL included. Error 6 for decimals out of the range of Currency, error 5 for a date out of Fecha's.
    void Poner(LecturaOdbc lectura, Valor& valor) const;

  private:
    template <class Nativo>
    Nativo Como() const;

    SQLLEN indicador_ = SQL_NULL_DATA;
    // The digits of a decimal number are the longest that is not text.
    alignas(8) std::array<char, 256> datos_;
    TextoAncho texto_;
    bool esTexto_ = false;
};

/// Writes text over a value, which keeps the room of the text that it held.
void PonerTexto(Valor& valor, const SQLWCHAR* ancho, std::size_t unidades);

}  // namespace kv
