#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kvdatosart/application/Tabla.h"
#include "kvdatosart/host/EscribirTexto.h"

namespace kv::host {

/// A column of a table for people, with the texts of its cells.
struct ColumnaRejilla {
    std::string rotulo;
    bool derecha = false;
    /// Below this its cells go on to a second line, and not only its heading.
    std::size_t comodo = 0;
    /// Below this it cannot be read.
    std::size_t minimo = 0;
    std::size_t ancho = 0;
    /// Digits after the separator and this itself, for which the cells leave room.
    std::size_t fraccion = 0;
    std::vector<std::string> celdas;
};

/// The rows of a table, each column as wide as what it holds and its decimals one under the other.
std::vector<ColumnaRejilla> EnColumnas(std::span<const aplicacion::ColumnaTabla> columnas,
                                       std::span<const aplicacion::FilaTabla> filas, char separador);
/// Narrows the widest columns, first those with a long heading, until all fit; false when they cannot.
bool Encajar(std::vector<ColumnaRejilla>& columnas, std::size_t ancho);
/// Lays further rows of the table out as `modelo`, the columns of earlier ones: no wider, and aligned with them.
std::vector<ColumnaRejilla> ComoEllas(const std::vector<ColumnaRejilla>& modelo,
                                      std::span<const aplicacion::ColumnaTabla> columnas,
                                      std::span<const aplicacion::FilaTabla> filas, char separador);

/// Writes rows of cells, each in its column; what does not fit goes on below.
class Rejilla {
  public:
    Rejilla(std::string& salida, const Presentacion& presentacion) : salida_(salida), presentacion_(presentacion) {}

    struct Celda {
        const std::string& texto;
        std::size_t ancho;
        bool derecha;
    };
    /// `margen` stands before each line; `destacada` gives them colour.
    void Fila(const std::vector<Celda>& celdas, std::string_view margen, bool destacada);
    void Fila(const std::vector<ColumnaRejilla>& columnas, std::size_t fila, std::string_view margen, bool destacada);
    void Cabecera(const std::vector<ColumnaRejilla>& columnas, std::string_view margen);
    /// One row as a sheet: a line for each column.
    void Hoja(std::span<const aplicacion::ColumnaTabla> columnas, std::span<const Valor> valores, char separador,
              const std::string& margen, bool destacada);

  private:
    std::string& salida_;
    const Presentacion& presentacion_;
};

}  // namespace kv::host
