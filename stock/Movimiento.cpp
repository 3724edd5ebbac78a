#include "kvdatosart/stock/Movimiento.h"

#include "kvdatosart/db/ValoresSql.h"

namespace kv {
namespace {

double ConSigno(std::int16_t op, double cantidad) {
    return op == kOpVenta || op == kOpSalida8 || op == kOpSalida13 ? -cantidad : cantidad;
}

}  // namespace

Movimiento::Movimiento(std::int16_t intOp, double dblUnidades, double dblPeso, double dblNeto, Fecha dteFecha)
    : op(intOp),
      unidades(ConSigno(intOp, dblUnidades)),
      peso(ConSigno(intOp, dblPeso)),
      neto(dblNeto),
      fecha(dteFecha) {}

std::string Movimiento::FragmentoPrecio() const {
    return neto > 0 ? TextoSql(", PU_Compra =", SqlDoble(neto)) : std::string();
}

Fragmentos::Fragmentos(const Movimiento& movimiento, const FilaStock& fila) {
    const TextoNumero fecha = SqlFecha(movimiento.fecha);
    if (movimiento.EsEntradaConCoste()) medio = TextoSql(", P_Medio =", SqlDoble(fila.PMedio));
    if (movimiento.EsVenta()) venta = TextoSql(", FUlt_Venta ='", fecha, "'");
    const bool habia = fila.stock > 0;
    const bool queda = fila.stock + movimiento.unidades > 0;
    if (!habia && queda) {
        inicio = TextoSql(", FIni_Existencias ='", fecha, "'");
        fin = ", FFin_Existencias =''";
    } else if (habia && !queda) {
        inicio = ", FIni_Existencias =''";
        fin = TextoSql(", FFin_Existencias ='", fecha, "'");
    }
}

FechasNuevas::FechasNuevas(const Movimiento& movimiento) {
    const std::string fecha = SqlFecha(movimiento.fecha).Cadena();
    (movimiento.unidades > 0 ? inicio : fin) = fecha;
    if (movimiento.EsVenta()) venta = fecha;
    if (movimiento.EsRecepcionConPrecio()) compra = fecha;
}

double CosteNuevo(const Movimiento& movimiento) {
    const bool entrada = movimiento.op == kOpEntradaConPrecio && movimiento.neto > 0;
    return entrada || movimiento.EsRecepcionConPrecio() ? movimiento.neto : 0;
}

}  // namespace kv
