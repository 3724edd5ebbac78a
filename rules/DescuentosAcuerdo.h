#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/db/Recordset.h"

namespace kv {

/// Kinds of a discount, in the columns `TDto1` to `TDto5`. A row may hold any other number: it is kept as it is, and
/// neither changes a price nor shows in a text.
inline constexpr std::int16_t kDtoPorcentaje = 0;
/// An amount off.
inline constexpr std::int16_t kDtoImporte = 1;
/// So many units paid, so many given free.
inline constexpr std::int16_t kDtoOferta = 2;

/// Columns of one of an agreement's five discounts.
struct ColumnasDescuento {
    std::string_view tipo;
    std::string_view importe;
    std::string_view cantidad;
    std::string_view cascada;
    std::string_view entrada;
    std::string_view salida;
};

inline constexpr std::array<ColumnasDescuento, 5> kDescuentosAcuerdo = {{
    {"TDto1", "ImporteDto1", "CantidadDto1", "Aplicar_Cascada1", "FechaEntrada1", "FechaSalida1"},
    {"TDto2", "ImporteDto2", "CantidadDto2", "Aplicar_Cascada2", "FechaEntrada2", "FechaSalida2"},
    {"TDto3", "ImporteDto3", "CantidadDto3", "Aplicar_Cascada3", "FechaEntrada3", "FechaSalida3"},
    {"TDto4", "ImporteDto4", "CantidadDto4", "Aplicar_Cascada4", "FechaEntrada4", "FechaSalida4"},
    {"TDto5", "ImporteDto5", "CantidadDto5", "Aplicar_Cascada5", "FechaEntrada5", "FechaSalida5"},
}};

/// True when the discount of the current row applies on the day: an amount other than 0 and the day between its two
/// days, inclusive. A NULL in any of the three makes it not apply.
bool DescuentoVigente(Recordset& rs, const ColumnasDescuento& columnas, Fecha dia);

}  // namespace kv
