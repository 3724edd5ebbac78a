#pragma once

#include <deque>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "kvdatosart/application/Listas.h"
#include "kvdatosart/application/Tabla.h"

namespace kv::aplicacion {

/// The state of a line, for people: disponible, sin existencias, bloqueado o de baja.
const char* EstadoDe(const Tasacion& tasacion);

/// One column that a list can have.
struct ColumnaPosible {
    ColumnaTabla columna;
    /// There unless other columns are asked for.
    bool habitual;
};

/// The lines of a list as rows: what each of its columns says of them. No column shows more than the list may.
class FilasLista {
  public:
    enum class Forma {
        /// A row for each line; several quantities are several columns: `precio10`, "Precio 10 u.".
        Ancha,
        /// A row for each line and quantity.
        Alta,
    };
    using AlRecibir = std::function<void(std::span<const Valor>)>;

    /// All the columns that there are, in their order; those of costs only `conCoste`.
    static std::vector<ColumnaPosible> Posibles(bool conCoste);

    /// `columnas`: their keys in the order wanted; none: the usual ones, or every one in rows by quantity. Rechazo of
    /// "columnas", with the keys that there are, for another one or one twice.
    FilasLista(const PeticionListaPrecios& peticion, const std::vector<std::string>& columnas, Forma forma);

    /// They point into this object.
    std::span<const ColumnaTabla> Columnas() const { return columnas_; }
    /// Hands over the row or rows of a line; each only during the call.
    void Poner(const LineaLista& linea, const AlRecibir& recibe);

  private:
    struct Definicion;
    struct Lugar {
        const Definicion* definicion;
        std::size_t cantidad;
    };

    static std::span<const Definicion> Definiciones();
    static const Definicion& Buscar(const std::string& clave, bool conCoste);
    void Anadir(const Definicion& definicion);

    Forma forma_;
    std::vector<Currency> unidades_;
    std::vector<Lugar> lugares_;
    std::vector<ColumnaTabla> columnas_;
    // The names of columns by quantity; those who stand in them do not move.
    std::deque<std::string> nombres_;
    std::vector<Valor> fila_;
};

}  // namespace kv::aplicacion
