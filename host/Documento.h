#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "kvdatosart/application/Tabla.h"
#include "kvdatosart/base/Valor.h"

namespace kv::host {

/// A single answer, one datum under the other. NULL is a datum that is not there.
struct Ficha {
    std::vector<aplicacion::ColumnaTabla> columnas;
    std::vector<Valor> valores;
};

/// A listing under its title; an empty one is an answer too.
struct Cuadro {
    aplicacion::Tabla tabla;
    /// For people, above the table; none when empty.
    std::string titulo;
    /// The row that people have to see first.
    std::optional<std::size_t> destacada = {};
    /// What people read as one sentence and programs as its fields is two listings.
    enum class Para { Todos, Gente, Programas } para = Para::Todos;
};

/// A text for people only.
struct Linea {
    std::string texto;
};

/// What a command answers, kept as values. Each writer says it in its own way: `ATexto`, `AJson`, `ACsv`.
class Documento {
  public:
    /// `separador` stands before the decimals that people read.
    explicit Documento(char separador = '.') : separador_(separador) {}

    using Bloque = std::variant<Ficha, Cuadro, Linea>;

    /// One datum of the sheet: what programs and people call it, as a column's. Data that follow one another are one
    /// sheet.
    void Dato(std::string_view clave, std::string_view rotulo, Valor valor,
              aplicacion::ClaseDato clase = aplicacion::ClaseDato::Texto);
    void Anadir(Cuadro listado) { bloques_.emplace_back(std::move(listado)); }
    void Decir(std::string texto) { bloques_.emplace_back(Linea{std::move(texto)}); }

    const std::vector<Bloque>& Bloques() const { return bloques_; }

    char Separador() const { return separador_; }

  private:
    char separador_;
    std::vector<Bloque> bloques_;
};

/// Whether a day only says that there is none: 01/01/1900 and earlier never was, 31/12/2050 never comes.
bool EsNingunDia(Fecha dia);

}  // namespace kv::host
