#include "kvdatosart/application/Existencias.h"
#include "kvdatosart/host/cli/Orden.h"
#include "kvdatosart/host/cli/Ordenes.h"

namespace kv::host {
namespace {

using aplicacion::Acceso;

template <class Peticion>
Orden<Peticion> Escritura(CLI::App& stock, const char* nombre, const char* ayuda) {
    Orden<Peticion> orden(stock, nombre, ayuda);
    orden.Exige("articulo", &Peticion::articulo, "N", "Código del artículo")
        .Admite("almacen", &Peticion::almacen, "N", "Almacén (1 si no se dice)");
    return orden;
}

template <class Peticion>
Orden<Peticion>& ConCualidades(Orden<Peticion>& orden) {
    return orden.Admite("cualidadX", &Peticion::cualidadX, "N", "Cualidad X de la variante")
        .Admite("cualidadY", &Peticion::cualidadY, "N", "Cualidad Y de la variante");
}

void AnadirVer(CLI::App& stock) {
    using Peticion = aplicacion::PeticionExistencias;
    Orden<Peticion>(stock, "ver", "Muestra un artículo en todos los almacenes")
        .Exige("articulo", &Peticion::articulo, "N", "Código del artículo")
        .Responde(Acceso::Leer, aplicacion::VerExistencias);
}

void AnadirMover(CLI::App& stock) {
    using Peticion = aplicacion::PeticionMovimiento;
    auto mover = Escritura<Peticion>(stock, "mover", "Contabiliza un movimiento");
    mover.Exige("tipo", &Peticion::tipo, "TIPO", "compra, venta, devolucion (de una venta), entrada o salida")
        .Exige("unidades", &Peticion::unidades, "X", "Unidades, siempre positivas")
        .Admite("peso", &Peticion::peso, "X", "Peso")
        .Admite("coste", &Peticion::coste, "X", "Coste unitario neto de una compra o entrada")
        .Admite("fecha", &Peticion::fecha, "FECHA", "Hoy si no se dice")
        .Marca("fichas", &Peticion::fichas, "Lleva las fechas a las fichas del artículo y del almacén")
        .Marca("forzar", &Peticion::forzar, "Una venta, aunque su día no haya llegado");
    ConCualidades(mover).Responde(Acceso::Escribir, aplicacion::MoverExistencias);
}

void AnadirBloqueo(CLI::App& stock, const char* nombre, const char* ayuda, bool bloqueado) {
    auto orden = Escritura<aplicacion::PeticionBloqueo>(stock, nombre, ayuda);
    orden.Pedida().bloqueado = bloqueado;
    orden.Responde(Acceso::Escribir, aplicacion::BloquearExistencias);
}

void AnadirCoste(CLI::App& stock) {
    using Peticion = aplicacion::PeticionCoste;
    Escritura<Peticion>(stock, "coste", "Pone el precio de compra y el coste medio")
        .Exige("coste", &Peticion::coste, "X", "Coste unitario")
        .Responde(Acceso::Escribir, aplicacion::PonerCoste);
}

void AnadirPendiente(CLI::App& stock) {
    using Peticion = aplicacion::PeticionPendiente;
    auto orden = Escritura<Peticion>(stock, "pendiente", "Suma a lo pendiente de recibir o de servir");
    orden.Admite("recibir", &Peticion::recibir, "X", "Unidades, con su signo")
        .Admite("servir", &Peticion::servir, "X", "Unidades, con su signo");
    ConCualidades(orden).Responde(Acceso::Escribir, aplicacion::SumarPendiente);
}

void AnadirUbicacion(CLI::App& stock) {
    using Peticion = aplicacion::PeticionUbicacion;
    auto orden = Escritura<Peticion>(stock, "ubicacion", "Suma a las existencias de una ubicación");
    orden.Exige("unidades", &Peticion::unidades, "X", "Unidades, con su signo");
    for (std::size_t i = 0; i < orden.Pedida().niveles.size(); ++i)
        Opcion(orden.App(), "ubic" + std::to_string(i + 1), orden.Pedida().niveles[i], "TEXTO",
               "Nivel de la ubicación");
    orden.Responde(Acceso::Escribir, aplicacion::SumarEnUbicacion);
}

}  // namespace

void AnadirStock(CLI::App& programa) {
    CLI::App* stock = programa.add_subcommand("stock", "Existencias, movimientos, costes, bloqueos y ubicaciones");
    stock->require_subcommand(1);
    AnadirVer(*stock);
    AnadirMover(*stock);
    AnadirBloqueo(*stock, "bloquear", "Bloquea un artículo en un almacén", true);
    AnadirBloqueo(*stock, "desbloquear", "Lo desbloquea", false);
    AnadirCoste(*stock);
    AnadirPendiente(*stock);
    AnadirUbicacion(*stock);
}

}  // namespace kv::host
