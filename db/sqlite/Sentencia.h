#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kvdatosart/base/Valor.h"
#include "kvdatosart/db/sqlite/Plantilla.h"
#include "kvdatosart/db/sqlite/TipoColumna.h"

struct sqlite3;
struct sqlite3_stmt;

namespace kv {

/// One prepared statement with its parameters and the values of its current row. It is reused for every text of the
/// same template, and so is the room of its values: reading a field allocates nothing once it has been read before.
class Sentencia {
  public:
    /// Prepares `texto`. Raises SQLite's error, with `original` as the text that it shows.
    Sentencia(sqlite3* base, const std::string& texto, std::string original);

    void Tomar() { enUso_ = true; }
    bool EnUso() const { return enUso_; }
    /// Forgets the current row and lets go of the database.
    void Soltar();

    /// Binds the literals in order; `destinos` tells what each one meets. A parameter that holds the same literal since
    /// the last time, as codes of the company and dates mostly do, is left as it is.
    void Enlazar(const std::vector<Literal>& literales, const std::vector<TipoColumna>& destinos);
    /// Binds a named parameter ("@Cliente"), unless it holds that value since the last time; nothing when the statement
    /// does not use it.
    void EnlazarNombrado(std::string_view nombre, const Valor& valor);
    /// Moves to the next row; false when there is none. Raises SQLite's error with `texto`, the one that is bound now,
    /// or else with the one that it was prepared from.
    bool Avanzar(std::string_view texto);
    bool Avanzar() { return Avanzar(original_); }

    std::int32_t NumeroColumnas() const { return static_cast<std::int32_t>(columnas_.size()); }
    const std::string& NombreColumna(std::int32_t posicion) const;
    /// Value of the column of the current row, without regard to letter case; error 3265 when there is none.
    const Valor& Leer(std::string_view nombre);
    const Valor& Leer(std::size_t columna);
    bool SoloLee() const;

  private:
    struct Finalizar {
        void operator()(sqlite3_stmt* sentencia) const;
    };
    struct Columna {
        std::string nombre;
        int posicion;
        TipoColumna tipo;
        Valor valor;
    };
    /// A column by the name that its reader gives it, which may differ from its own in letter case.
    struct Pedida {
        std::string nombre;
        Columna* columna;
    };
    /// What a parameter holds: the literal that it was bound from, and the text that must outlive the steps.
    struct Enlazado {
        std::string literal;
        std::string cadena;
        std::array<char, 10> fecha;
    };

    /// A named parameter: where it stands, 0 for nowhere, and what it holds.
    struct Nombrado {
        std::string nombre;
        int indice;
        std::optional<Valor> valor;
    };

    void EnlazarLiteral(std::size_t cual, const Literal& literal, TipoColumna destino);
    void EnlazarCadena(int indice, std::string_view literal, TipoColumna destino);
    void EnlazarNumero(int indice, std::string_view literal, TipoColumna destino);
    Nombrado& BuscarNombrado(std::string_view nombre);
    // From now on it is the one bound in that place; those that followed are forgotten.
    Nombrado& AprenderNombrado(std::size_t cual, std::string_view nombre);
    void EnlazarValor(int indice, const Valor& valor);
    Columna& Buscar(std::string_view nombre);
    Columna& Aprender(std::string_view nombre);
    const Valor& Valorar(Columna& columna);
    void Comprobar(int resultado) const;

    sqlite3* base_;
    std::unique_ptr<sqlite3_stmt, Finalizar> sentencia_;
    std::string original_;
    std::vector<Columna> columnas_;
    std::vector<Enlazado> enlazados_;
    // Columns as they were asked for last time, since every reader reads them in its own fixed order.
    std::vector<Pedida> orden_;
    std::vector<Pedida>::iterator siguiente_;
    // In the order in which they were bound last time.
    std::vector<Nombrado> nombrados_;
    std::size_t enlace_ = 0;
    bool enUso_ = false;
};

}  // namespace kv
