#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/Valor.h"
#include "db/sqlite/Plantilla.h"
#include "db/sqlite/TipoColumna.h"

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
    /// Binds a named parameter ("@Cliente"); nothing when the statement does not use it.
    void EnlazarNombrado(const std::string& nombre, const Valor& valor);
    /// Moves to the next row; false when there is none. Raises SQLite's error.
    bool Avanzar();

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
    /// What a parameter holds: the literal that it was bound from, and the text that must outlive the steps.
    struct Enlazado {
        std::string literal;
        std::string cadena;
        std::array<char, 10> fecha;
    };

    void EnlazarCadena(int indice, std::string_view literal, TipoColumna destino);
    void EnlazarNumero(int indice, std::string_view literal, TipoColumna destino);
    int IndiceNombrado(const std::string& nombre);
    Columna& Buscar(std::string_view nombre);
    const Valor& Valorar(Columna& columna);
    void Comprobar(int resultado) const;

    sqlite3* base_;
    std::unique_ptr<sqlite3_stmt, Finalizar> sentencia_;
    std::string original_;
    std::vector<Columna> columnas_;
    std::vector<Enlazado> enlazados_;
    // Columns in the order in which they were read last time, since every reader reads them in its own fixed order.
    std::vector<Columna*> orden_;
    std::size_t lectura_ = 0;
    // Named parameters in the order in which they were bound last time, with their positions.
    std::vector<std::pair<std::string, int>> nombrados_;
    std::size_t enlace_ = 0;
    bool enUso_ = false;
};

}  // namespace kv
