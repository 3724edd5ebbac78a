#include "kvdatosart/application/Historias.h"

#include <algorithm>
#include <memory>

#include "kvdatosart/application/Comprobaciones.h"
#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/db/Transaccion.h"
#include "kvdatosart/db/ValoresSql.h"

namespace kv::aplicacion {
namespace {

void Comprobar(const Sesion& sesion, const PeticionHistoriaDe& peticion) {
    if (!peticion.desde && peticion.hasta < sesion.Hoy())
        RechazarImposible("hasta",
                          "el " + peticion.hasta.ATexto().Cadena() + " ya ha pasado; se espera también {desde}");
    ExigirPlazo(peticion.desde.value_or(sesion.Hoy()), peticion.hasta);
    ExigirArticulo(sesion, peticion.articulo);
    ExigirCliente(sesion, peticion.cliente);
    ExigirAlmacen(sesion, peticion.almacen);
    if (peticion.tarifa.value_or(0) > 0) ExigirTarifa(sesion, *peticion.tarifa);
    if (!peticion.conCoste)
        ExigirSinCoste(sesion, peticion.cliente, peticion.tarifa.value_or(sesion.Emp().TarifaEmpresa()));
}

Pregunta Terminos(const Sesion& sesion, const PeticionHistoriaDe& peticion) {
    Pregunta terminos;
    terminos.articulo = peticion.articulo;
    terminos.cliente = peticion.cliente;
    terminos.tarifa = peticion.tarifa.value_or(sesion.Emp().TarifaEmpresa());
    terminos.almacen = peticion.almacen;
    terminos.decimales = peticion.decimales.value_or(sesion.Emp().DecPrecios());
    terminos.unidades = peticion.unidades;
    terminos.cualidadX = peticion.cualidadX;
    terminos.cualidadY = peticion.cualidadY;
    return terminos;
}

std::string NombreCliente(const Sesion& sesion, std::int32_t cliente) {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, sesion.Cnx(),
                 TextoSql("SELECT Nombre FROM Clientes WHERE Cod_Empresa =",
                          SqlEntero(sesion.Emp().CodEmpresaClientes()), " AND Codigo =", SqlEntero(cliente)));
    return AString(rs->Fields("Nombre").Value(), '.');
}

bool HaFallado(const TramoHistoria& tramo) {
    return !tramo.tasacion.fallo.empty();
}

}  // namespace

bool RespuestaHistoria::ConPrecio() const {
    const auto sinPrecio = [](const TramoHistoria& tramo) { return tramo.tasacion.SinPrecio(); };
    return std::none_of(tramos.begin(), tramos.end(), HaFallado) &&
           !std::all_of(tramos.begin(), tramos.end(), sinPrecio);
}

RespuestaHistoria HistoriaDe(const Sesion& sesion, const PeticionHistoriaDe& peticion) {
    const Transaccion unEstado(sesion.Cnx());
    Comprobar(sesion, peticion);
    std::vector<TramoHistoria> tramos = HacerHistoria(
        sesion.EnPuesto(),
        {Terminos(sesion, peticion), peticion.desde.value_or(sesion.Hoy()), peticion.hasta, sesion.Hoy()});
    // Raises when it was not the line that failed but the database.
    std::string nombre = NombreCliente(sesion, peticion.cliente);
    return {peticion.articulo, tramos.front().tasacion.descripcion, peticion.cliente, std::move(nombre), sesion.Hoy(),
            std::move(tramos)};
}

}  // namespace kv::aplicacion
