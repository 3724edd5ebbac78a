#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "base/Currency.h"
#include "base/Fecha.h"
#include "db/Connection.h"
#include "db/ValoresSql.h"

namespace kv::demo {

/// Writes demonstration rows with plain INSERT statements that every database takes.
class Escritor {
  public:
    Escritor(Connection& conexion, Fecha hoy) : conexion_(conexion), hoy_(hoy) {}

    Fecha Hoy() const { return hoy_; }

    /// One row: whole numbers, amounts as text with a decimal point ("12.50"), texts and dates.
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
    void Valor(int valor) { Agregar(sql_, SqlEntero(valor)); }
    void Valor(Currency valor) { Agregar(sql_, SqlCurrencyConPunto(valor)); }
    void Valor(Fecha valor) { Agregar(sql_, "'", SqlFecha(valor), "'"); }
    void Valor(std::string_view valor) { Agregar(sql_, "'", valor, "'"); }

    Connection& conexion_;
    Fecha hoy_;
    std::string sql_;
};

/// Amount from hundredths: 1250 is 12.50.
inline Currency Centimos(std::int64_t centimos) {
    return Currency::DeDiezmilesimas(centimos * 100);
}

inline constexpr int kEmpresa = 1;

// The parts of the demonstration, each a group of tables.
void EscribirArticulos(Escritor& escritor);
void EscribirClientes(Escritor& escritor);
void EscribirReglas(Escritor& escritor);

}  // namespace kv::demo
