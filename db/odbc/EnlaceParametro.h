#pragma once

#include <array>

#include "kvdatosart/db/Command.h"
#include "kvdatosart/db/odbc/Nativo.h"
#include "kvdatosart/db/odbc/TextoAncho.h"

namespace kv {

/// One parameter of a call as the driver takes it and leaves it. Must stay where it is from Enlazar to Recoger.
class EnlaceParametro {
  public:
    /// Takes the parameter's value in the form of its ADO type. Money travels as decimal text, so that it stays exact;
    /// adTinyInt as a small integer, since one byte is signed in ADO and unsigned in the database. A value that does
    /// not fit its type raises that conversion's error; a type that is not supported is error 13.
    explicit EnlaceParametro(const Parameter& parametro);

    SQLRETURN Enlazar(SQLHSTMT sentencia, SQLUSMALLINT posicion);
    /// The value that the call left.
    Valor Recoger() const;

  private:
    struct Forma {
        SQLSMALLINT tipoC;
        SQLSMALLINT tipoSql;
        SQLULEN ancho;
        SQLSMALLINT decimales;
    };

    static Forma FormaDe(DataType tipo);
    void Poner(const Valor& valor);
    void PonerTexto(const Valor& valor, std::size_t sitio);
    SQLPOINTER Datos();
    SQLLEN Sitio() const;

    DataType tipo_;
    ParameterDirection direccion_;
    Forma forma_;
    SQLLEN indicador_ = SQL_NULL_DATA;
    SQLSMALLINT corto_ = 0;
    SQLINTEGER largo_ = 0;
    SQLREAL simple_ = 0;
    SQLDOUBLE doble_ = 0;
    SQLCHAR logico_ = 0;
    SQL_TIMESTAMP_STRUCT dia_{};
    std::array<char, 64> cifras_{};
    TextoAncho texto_;
};

}  // namespace kv
