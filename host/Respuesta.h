#pragma once

#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "application/Tabla.h"
#include "base/Currency.h"
#include "base/Fecha.h"
#include "base/Valor.h"

namespace kv::host {

/// What a command answers, written once for people (text) and for programs (JSON). Sheets, tables and plain lines
/// appear in the order in which they were added.
class Respuesta {
  public:
    /// One datum of the sheet: its name in JSON, its caption for people, its value. A NULL is shown as a dash.
    void Dato(const std::string& nombre, const std::string& etiqueta, const Valor& valor);
    /// A text for people only.
    void Linea(const std::string& texto);

    /// Starts a table called `nombre` in JSON. Rows follow with `Fila`.
    void Tabla(const std::string& nombre, std::vector<std::string> columnas);
    void Fila(const std::vector<Valor>& valores);
    /// A listing with its rows.
    void Anadir(const aplicacion::Tabla& tabla);

    void Escribir(std::ostream& salida, bool json) const;

  private:
    struct Bloque {
        enum class Clase { Dato, Linea, Tabla } clase;
        std::string nombre;
        std::string texto;
        std::vector<std::string> columnas;
        std::vector<std::vector<std::string>> celdas;
        std::vector<bool> numericas;
    };

    void EscribirTexto(std::ostream& salida) const;

    std::vector<Bloque> bloques_;
    nlohmann::ordered_json json_ = nlohmann::ordered_json::object();
};

/// Number of characters that a UTF-8 text takes on a terminal.
std::size_t AnchoVisible(std::string_view texto);

}  // namespace kv::host
