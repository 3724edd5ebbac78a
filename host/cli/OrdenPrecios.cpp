#include "kvdatosart/application/Precios.h"
#include "kvdatosart/host/cli/Orden.h"
#include "kvdatosart/host/cli/Ordenes.h"

namespace kv::host {
namespace {

using aplicacion::Acceso;
using aplicacion::PeticionPonerPrecio;
using aplicacion::PeticionPrecio;

template <class Peticion>
Orden<Peticion> DeUno(CLI::App& precios, const char* nombre, const char* ayuda) {
    Orden<Peticion> orden(precios, nombre, ayuda);
    orden.Exige("articulo", &Peticion::articulo, "N", "Código del artículo")
        .Exige("cliente", &Peticion::cliente, "N", "Código del cliente")
        .Exige("desde", &Peticion::desde, "FECHA", "Primer día")
        .Admite("hasta", &Peticion::hasta, "FECHA", "Último día (31/12/2050 si no se dice)");
    return orden;
}

}  // namespace

void AnadirPrecios(CLI::App& programa) {
    CLI::App* precios = programa.add_subcommand("precios", "Precios propios de los clientes");
    precios->require_subcommand(1);
    using Peticion = aplicacion::PeticionPrecios;
    Orden<Peticion>(*precios, "listar", "Los clientes de un artículo, los artículos de un cliente")
        .Admite("articulo", &Peticion::articulo, "N", "Código del artículo")
        .Admite("cliente", &Peticion::cliente, "N", "Código del cliente")
        .Admite("fecha", &Peticion::fecha, "FECHA", "Solo los vigentes ese día")
        .Responde(Acceso::Leer, aplicacion::ListarPrecios);
    DeUno<PeticionPonerPrecio>(*precios, "poner", "Pone un precio entre dos días")
        .Exige("precio", &PeticionPrecio::precio, "X", "Precio unitario")
        .Marca("forzar", &PeticionPonerPrecio::forzar, "Aunque comparta días con otro")
        .Responde(Acceso::Escribir, aplicacion::PonerPrecio, "Precio puesto");
    DeUno<PeticionPrecio>(*precios, "cambiar", "Cambia el importe de un precio")
        .Exige("precio", &PeticionPrecio::precio, "X", "Precio unitario")
        .Responde(Acceso::Escribir, aplicacion::CambiarPrecio, "Precio cambiado");
    DeUno<aplicacion::ClavePrecio>(*precios, "quitar", "Quita un precio")
        .Responde(Acceso::Escribir, aplicacion::QuitarPrecio, "Precio quitado");
}

}  // namespace kv::host
