#include "kvdatosart/application/Cambios.h"
#include "kvdatosart/host/cli/Orden.h"
#include "kvdatosart/host/cli/Ordenes.h"

namespace kv::host {
namespace {

using aplicacion::Acceso;
using aplicacion::PeticionPonerCambio;
using aplicacion::PeticionQuitarCambio;

template <class Peticion>
Orden<Peticion> DeUno(CLI::App& cambios, const char* nombre, const char* ayuda) {
    Orden<Peticion> orden(cambios, nombre, ayuda);
    orden.Exige("articulo", &Peticion::articulo, "N", "Código del artículo")
        .Exige("tarifa", &Peticion::tarifa, "N", "Código de la tarifa")
        .Exige("desde", &Peticion::desde, "FECHA", "Primer día del precio nuevo")
        .Admite("cualidadX", &Peticion::cualidadX, "N", "Cualidad X de la variante");
    return orden;
}

}  // namespace

void AnadirCambios(CLI::App& programa) {
    CLI::App* cambios = programa.add_subcommand("cambios", "Cambios programados de las tarifas");
    cambios->require_subcommand(1);
    using Peticion = aplicacion::PeticionCambios;
    Orden<Peticion>(*cambios, "ver", "Los que hay, con los que ya entraron")
        .Admite("articulo", &Peticion::articulo, "N", "Solo los de este artículo")
        .Admite("tarifa", &Peticion::tarifa, "N", "Solo los de esta tarifa")
        .Admite("desde", &Peticion::desde, "FECHA", "Solo los que entran desde ese día")
        .Admite("hasta", &Peticion::hasta, "FECHA", "Solo los que entran hasta ese día")
        .Responde(Acceso::Leer, aplicacion::VerCambios);
    DeUno<PeticionPonerCambio>(*cambios, "poner", "Programa un precio desde un día")
        .Exige("precio", &PeticionPonerCambio::precio, "X", "Precio unitario")
        .Marca("forzar", &PeticionPonerCambio::forzar, "Aunque el día haya llegado o ya tenga otro, que deja de valer")
        .Responde(Acceso::Escribir, aplicacion::PonerCambio, "Cambio programado");
    DeUno<PeticionQuitarCambio>(*cambios, "quitar", "Quita uno")
        .Admite("codigo", &PeticionQuitarCambio::codigo, "N", "El suyo, si hay varios ese día")
        .Responde(Acceso::Escribir, aplicacion::QuitarCambio, "Cambio quitado");
}

}  // namespace kv::host
