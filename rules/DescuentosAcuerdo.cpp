#include "kvdatosart/rules/DescuentosAcuerdo.h"

namespace kv {

bool DescuentoVigente(Recordset& rs, const ColumnasDescuento& columnas, Fecha dia) {
    const Valor& importe = rs.Fields(columnas.importe).Value();
    if (EsNulo(importe) || ACurrency(importe) == Currency()) return false;
    const Valor& entrada = rs.Fields(columnas.entrada).Value();
    if (EsNulo(entrada) || ADate(entrada) > dia) return false;
    const Valor& salida = rs.Fields(columnas.salida).Value();
    return !EsNulo(salida) && ADate(salida) >= dia;
}

}  // namespace kv
