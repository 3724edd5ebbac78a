#include <iostream>
#include <memory>

#include "application/Averias.h"
#include "application/Bases.h"
#include "application/Tarifas.h"
#include "db/BibliotecaComun.h"
#include "host/cli/Interrupcion.h"
#include "host/cli/Orden.h"
#include "host/cli/Ordenes.h"

namespace kv::host {
namespace {

void CrearDemo(const aplicacion::OrigenBase& base) {
    ExigirUnaBase(base, "FICHERO");
    try {
        const Interrupcion interrupcion;
        aplicacion::CrearDemo(base, Biblioteca().Hoy(), [&](const OperacionTrazada&) { interrupcion.Comprobar(); });
    } catch (const RuntimeError& error) {
        throw aplicacion::Averia(base, error);
    }
    if (base.odbc.empty())
        std::cout << "Creada la base de demostración «" << base.fichero << "»\n";
    else
        std::cout << "Creadas las tablas y los datos de demostración en el servidor\n";
}

}  // namespace

void AnadirCrearDemo(CLI::App& programa) {
    CLI::App* orden = programa.add_subcommand(
        "crear-demo", "Crea una base de datos de demostración en un fichero nuevo o en una base vacía de un servidor");
    const auto base = std::make_shared<aplicacion::OrigenBase>();
    orden->add_option("fichero", base->fichero, "Fichero que se crea; no debe existir")->type_name("FICHERO");
    Opcion(*orden, "odbc", base->odbc, "CADENA", "Cadena de conexión ODBC; no debe tener empresas");
    orden->callback([base] { CrearDemo(*base); });
}

void AnadirDevPvp(CLI::App& programa) {
    using Peticion = aplicacion::PeticionPvp;
    Orden<Peticion>(programa, "devpvp", "Precio de tarifa de un artículo en una fecha")
        .Exige("articulo", &Peticion::articulo, "N", "Código del artículo")
        .Exige("tarifa", &Peticion::tarifa, "N", "Código de la tarifa")
        .Admite("fecha", &Peticion::fecha, "FECHA", "Fecha del precio (hoy si no se dice)")
        .Admite("cualidadX", &Peticion::cualidadX, "N", "Cualidad X (talla...), de 0 a 255")
        .Marca("forzar", &Peticion::forzar, "En una fecha futura usa los cambios de tarifa programados")
        .Responde(aplicacion::Acceso::Leer, aplicacion::PrecioTarifa);
}

}  // namespace kv::host
