#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kvdatosart/base/Valor.h"
#include "kvdatosart/db/Connection.h"

namespace kv::aplicacion {

/// What a datum means, for whoever writes it: how it is aligned, how many decimals it shows, how it is said.
enum class ClaseDato : std::uint8_t {
    Texto,
    /// A number that names something; never added up, never with decimals.
    Codigo,
    /// Money: a price, a cost, an amount.
    Importe,
    /// Units, weights, counts.
    Cantidad,
    /// Percent, 0 to 100.
    Porcentaje,
    /// A day; the days that mean none (01/01/1900 and earlier) are still days here.
    Fecha,
    /// True or false.
    Logico,
};

/// One column of a listing: where it comes from, what programs call it and what people call it.
struct ColumnaTabla {
    /// As the statement names it ("Cod_Articulo", "a.Descripcion AS Nombre"); empty when it is worked out.
    std::string_view columna;
    /// camelCase ASCII, unique in its table.
    std::string_view clave;
    /// Spanish, short enough for the head of a column.
    std::string_view rotulo;
    ClaseDato clase = ClaseDato::Texto;
};

using FilaTabla = std::vector<Valor>;

/// A listing: each row has one value for each column, in order; NULL is a value that is not there.
struct Tabla {
    /// What programs call the list, camelCase ASCII.
    std::string_view clave;
    std::span<const ColumnaTabla> columnas;
    std::vector<FilaTabla> filas = {};
};

/// Reads "SELECT (the columns) " and `resto` ("FROM ... WHERE ..."); only for tables whose columns are all read. A
/// database failure reaches the caller.
Tabla LeerTabla(Connection& conexion, std::string_view clave, std::span<const ColumnaTabla> columnas,
                std::string_view resto);
/// The rows of an open recordset that has all those columns, whatever else it has.
Tabla LeerTabla(Recordset& rs, std::string_view clave, std::span<const ColumnaTabla> columnas);

}  // namespace kv::aplicacion
