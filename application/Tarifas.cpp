#include "application/Tarifas.h"

#include <string>

#include "application/Rechazo.h"
#include "base/RuntimeError.h"
#include "component/clsDatosArt.h"

namespace kv::aplicacion {

RespuestaPvp PrecioTarifa(const Sesion& sesion, const PeticionPvp& peticion) {
    const Fecha fecha = peticion.fecha.value_or(sesion.Hoy());
    clsDatosArt articulo;
    sesion.Inyectar(articulo);
    articulo.Codigo = peticion.articulo;
    articulo.CualidadX = peticion.cualidadX;
    Currency pvp;
    try {
        pvp = articulo.DevPvp(peticion.tarifa, fecha, peticion.forzar);
    } catch (const RuntimeError& error) {
        if (error.numero != kErrObjetoNoEstablecido) throw;
        // The search would go on through a customer's tariffs, and here there is no customer.
        RechazarNegativa("tarifa", "el artículo " + std::to_string(peticion.articulo) +
                                       " no tiene precio en la tarifa " + std::to_string(peticion.tarifa) + " el " +
                                       fecha.ATexto().Cadena());
    }
    return {peticion.articulo, peticion.cualidadX, fecha, pvp, articulo.TarifaPVP};
}

}  // namespace kv::aplicacion
