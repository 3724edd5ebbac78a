#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "kvdatosart/application/Listas.h"
#include "kvdatosart/application/Tabla.h"
#include "kvdatosart/catalog/Comparacion.h"

namespace kv::aplicacion {

/// A list and what it is compared with.
struct PeticionComparacion : PeticionListaPrecios {
    /// The other side: the same list on another day, in another tariff, for another customer. At least one of them,
    /// unless it is compared with an earlier list.
    std::optional<Fecha> conFecha;
    std::optional<std::int16_t> conTarifa;
    /// Only of a list for one customer, by whose code the lines go.
    std::optional<std::int32_t> conCliente;
    /// Differences of less than so many percent are only counted.
    Currency umbral;
};

/// Gives the lines of a list that was made earlier, one a call; false after the last one.
using ListaAnterior = std::function<bool(ClaveComparada&, PrecioComparado&)>;

/// Who takes what differs.
struct DestinoComparacion {
    /// The lines done so far, of both sides, and all that there are. Raises to end the comparison.
    std::function<void(std::uint64_t, std::uint64_t)> progreso;
    std::function<void(const LineaComparada&)> linea;
};

/// Compares the list with an earlier one, which is then the side before, or, when `anterior` is empty, with the list on
/// the other terms, which are then the side after. Its memory does not grow with the lines. Rechazo as for a list and,
/// impossible: no other side or two kinds of it, another customer for a list that is not for one.
RecuentoComparacion CompararListas(const EstadoFijo& estado, const PeticionComparacion& peticion,
                                   const ListaAnterior& anterior, const DestinoComparacion& destino);

/// What a line of a list is compared by: its prices and, where there is none, why.
PrecioComparado AComparar(const Tasacion& tasacion);

/// The other side for people: "tarifa 2, día 01/01/2027".
std::string TextoOtroLado(const PeticionComparacion& peticion);

/// What differs as rows.
class FilasComparacion {
  public:
    /// `paraGente`: few columns, with the net prices and in one text where they come from.
    FilasComparacion(const PeticionListaPrecios& peticion, bool paraGente);

    std::span<const ColumnaTabla> Columnas() const { return columnas_; }
    /// Good until the next one.
    std::span<const Valor> Fila(const LineaComparada& linea);

  private:
    struct Definicion;

    std::vector<ColumnaTabla> columnas_;
    std::vector<const Definicion*> definiciones_;
    std::vector<Valor> fila_;
};

}  // namespace kv::aplicacion
