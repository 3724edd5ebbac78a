#pragma once

#include <string>
#include <string_view>

#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/db/Connection.h"
#include "kvdatosart/db/ValoresSql.h"

namespace kv::demo {

/// Writes demonstration rows with plain INSERT statements that every database takes.
class Escritor {
  public:
    Escritor(Connection& conexion, Fecha hoy) : conexion_(conexion), hoy_(hoy) {}

    /// The day from which scheduled changes count.
    Fecha Hoy() const { return hoy_; }

    /// One row, a value for each column: whole numbers, amounts, days and texts without quotes.
    template <class... Valores>
    void Fila(std::string_view tabla, std::string_view columnas, const Valores&... valores) {
        sql_.clear();
        Agregar(sql_, "INSERT INTO ", tabla, " (", columnas, ") VALUES (");
        std::string_view coma;
        ((Agregar(sql_, coma), Valor(valores), coma = ", "), ...);
        Agregar(sql_, ")");
        conexion_.Ejecutar(sql_);
    }

  private:
    void Valor(bool valor) { Valor(valor ? 1 : 0); }
    void Valor(const char* valor) { Valor(std::string_view(valor)); }
    void Valor(int valor) { Agregar(sql_, SqlEntero(valor)); }
    void Valor(Currency valor) { Agregar(sql_, SqlCurrencyConPunto(valor)); }
    void Valor(Fecha valor) { Agregar(sql_, "'", SqlFecha(valor), "'"); }
    void Valor(std::string_view valor) { Agregar(sql_, "'", valor, "'"); }

    Connection& conexion_;
    Fecha hoy_;
    std::string sql_;
};

}  // namespace kv::demo
