#include "kvdatosart/application/Carga.h"

#include <string>

#include "kvdatosart/application/Comprobaciones.h"
#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/catalog/Neto.h"

namespace kv::aplicacion {
namespace {

// A load takes an unknown customer for one without terms, an unknown warehouse for an empty one
// and an unknown tariff for none; a person who names one has made a mistake.
void Comprobar(const Sesion& sesion, const PeticionCarga& peticion) {
    ExigirCliente(sesion, peticion.cliente);
    ExigirAlmacen(sesion, peticion.almacen);
    if (peticion.tarifa.value_or(0) > 0) ExigirTarifa(sesion, *peticion.tarifa);
}

std::optional<Currency> NetoDe(const clsDatosArt& articulo, std::int16_t decimales) {
    try {
        return Neto(Currency::DeDouble(articulo.Pvp), Currency::DeDouble(articulo.PDescuento), decimales);
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

}  // namespace

RespuestaCarga Cargar(const Sesion& sesion, const PeticionCarga& peticion) {
    Comprobar(sesion, peticion);
    const Fecha fecha = peticion.fecha.value_or(sesion.Hoy());
    const std::int16_t tarifa = peticion.tarifa.value_or(sesion.Emp().TarifaEmpresa());
    const std::int16_t decimales = peticion.decimales.value_or(sesion.Emp().DecPrecios());
    if (!peticion.conCoste) ExigirSinCoste(sesion, peticion.cliente, tarifa);
    auto articulo = std::make_unique<clsDatosArt>();
    sesion.Inyectar(*articulo);
    articulo->CualidadX = peticion.cualidadX;
    articulo->CualidadY = peticion.cualidadY;
    Explicacion explicacion({peticion.articulo, peticion.cliente, fecha, peticion.cualidadX});
    if (peticion.explica) articulo->Observador(&explicacion);
    const std::int16_t estado = articulo->Cargar(peticion.articulo, peticion.cliente, fecha, tarifa, peticion.almacen,
                                                 decimales, peticion.unidades);
    articulo->Observador(nullptr);
    if (estado == kArticuloNoExiste)
        RechazarNegativa("articulo", "no existe el artículo " + std::to_string(peticion.articulo));
    RespuestaCarga respuesta{.estado = estado,
                             .articulo = nullptr,
                             .neto = NetoDe(*articulo, decimales),
                             .conCoste = peticion.conCoste,
                             .conPadre = peticion.padre,
                             .padre = nullptr,
                             .conExplicacion = peticion.explica,
                             .explicacion = {}};
    if (peticion.padre) respuesta.padre = articulo->padre();
    if (peticion.explica) respuesta.explicacion = explicacion.Pasos(sesion);
    respuesta.articulo = std::move(articulo);
    return respuesta;
}

}  // namespace kv::aplicacion
