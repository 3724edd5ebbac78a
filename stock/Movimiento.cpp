#include "stock/Movimiento.h"

#include "db/ValoresSql.h"

namespace kv {

bool EsSalida(std::int16_t intOp) {
    return intOp == kOpVenta || intOp == kOpSalida8 || intOp == kOpSalida13;
}

bool EsEntradaConCoste(std::int16_t intOp) {
    return intOp == kOpCompra || intOp == kOpEntradaConPrecio;
}

PeriodoExistencias CambioDePeriodo(double stockAnterior, double unidades, Fecha dteFecha) {
    if (stockAnterior <= 0 && stockAnterior + unidades > 0)
        return {TextoSql(", FIni_Existencias ='", SqlFecha(dteFecha), "'"), ", FFin_Existencias =''"};
    if (stockAnterior > 0 && stockAnterior + unidades <= 0)
        return {", FIni_Existencias =''", TextoSql(", FFin_Existencias ='", SqlFecha(dteFecha), "'")};
    return {};
}

FilaNueva PrepararFilaNueva(std::int16_t intOp, double unidades, double neto, Fecha dteFecha) {
    const std::string fecha = SqlFecha(dteFecha).Cadena();
    FilaNueva fila;
    (unidades > 0 ? fila.inicio : fila.fin) = fecha;
    if (intOp == kOpVenta && unidades < 0) fila.venta = fecha;
    if (intOp == kOpEntradaConPrecio && neto > 0) fila.PMedio = fila.PUC = neto;
    if (intOp == kOpCompra && unidades > 0 && neto > 0) {
        fila.compra = fecha;
        fila.PMedio = fila.PUC = neto;
    }
    return fila;
}

std::string FragmentoVenta(std::int16_t intOp, double unidades, Fecha dteFecha) {
    if (intOp != kOpVenta || unidades >= 0) return {};
    return TextoSql(", FUlt_Venta ='", SqlFecha(dteFecha), "'");
}

}  // namespace kv
