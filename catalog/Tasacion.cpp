#include "kvdatosart/catalog/Tasacion.h"

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/catalog/Neto.h"

namespace kv {
namespace {

void PonerArticulo(Tasacion& tasacion, clsDatosArt& a) {
    tasacion.descripcion = std::move(a.Descripcion);
    tasacion.familia = {a.Familia_1, a.Familia_2, a.Familia_3};
    tasacion.uxb = a.UxB;
    tasacion.convenio = std::move(a.Convenio);
    tasacion.existencias = a.Stock;
    tasacion.bloqueado = a.Bloqueado || a.BloqueadoVenta || a.BloqueadoGral || a.MotivoBaja != 0;
}

void PonerPrecio(Tasacion& tasacion, const clsDatosArt& a, std::int16_t decimales) {
    tasacion.coste = Currency::DeDouble(a.PCosto);
    const Currency pvp = Currency::DeDouble(a.Pvp);
    const Currency descuento = Currency::DeDouble(static_cast<double>(a.PDescuento));
    tasacion.neto = Neto(pvp, descuento, decimales);
    tasacion.pvp = pvp;
    tasacion.descuento = descuento;
}

}  // namespace

Tasacion Tasar(const Puesto& puesto, const Pregunta& pregunta) {
    clsDatosArt articulo;
    articulo.Conexion(puesto.conexion);
    articulo.cEmpresa(puesto.empresa);
    articulo.CualidadX = pregunta.cualidadX;
    articulo.CualidadY = pregunta.cualidadY;
    OyenteMotivo oyente;
    articulo.Observador(&oyente);
    Tasacion tasacion;
    try {
        tasacion.estado = articulo.Cargar(pregunta.articulo, pregunta.cliente, pregunta.fecha, pregunta.tarifa,
                                          pregunta.almacen, pregunta.decimales, pregunta.unidades);
        tasacion.fallo = oyente.FalloDescuento();
        if (tasacion.fallo.empty()) PonerPrecio(tasacion, articulo, pregunta.decimales);
        tasacion.motivo = oyente.Motivo();
    } catch (const RuntimeError& error) {
        tasacion.fallo = error.descripcion;
    }
    PonerArticulo(tasacion, articulo);
    return tasacion;
}

}  // namespace kv
