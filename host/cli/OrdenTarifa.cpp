#include <functional>
#include <memory>

#include "kvdatosart/application/Averias.h"
#include "kvdatosart/application/Bases.h"
#include "kvdatosart/application/Tarifas.h"
#include "kvdatosart/db/BibliotecaComun.h"
#include "kvdatosart/host/cli/Interrupcion.h"
#include "kvdatosart/host/cli/Orden.h"
#include "kvdatosart/host/cli/Ordenes.h"

namespace kv::host {
namespace {

struct PeticionDemo {
    aplicacion::OrigenBase base;
    OpcionesSalida salida;
    std::optional<Fecha> hoy;
    bool traza = false;
};

void CrearDemo(const PeticionDemo& peticion) {
    peticion.salida.Exigir();
    ExigirUnaBase(peticion.base, "FICHERO");
    Traza traza;
    const Fecha hoy = FijarHoy(peticion.hoy);
    try {
        const Interrupcion interrupcion;
        aplicacion::CrearDemo(peticion.base, hoy, [&](const OperacionTrazada& operacion) {
            interrupcion.Comprobar();
            if (peticion.traza) traza(operacion);
        });
    } catch (const RuntimeError& error) {
        throw aplicacion::Averia(peticion.base, error);
    }
    if (peticion.traza) traza.Resumir();
    Documento documento(SeparadorDeGente());
    if (peticion.base.odbc.empty())
        documento.Dato("creada", "Creada la base de demostración", peticion.base.fichero);
    else
        documento.Decir("Creadas las tablas y los datos de demostración en el servidor");
    documento.Dato("hoy", "Sus cambios futuros cuentan desde", hoy, aplicacion::ClaseDato::Fecha);
    peticion.salida.Escribir(documento, true);
}

}  // namespace

void AnadirCrearDemo(CLI::App& programa) {
    CLI::App* orden = programa.add_subcommand(
        "crear-demo", "Crea una base de datos de demostración en un fichero nuevo o en una base vacía de un servidor");
    const auto peticion = std::make_shared<PeticionDemo>();
    orden->add_option("fichero", peticion->base.fichero, "Fichero que se crea; no debe existir")->type_name("FICHERO");
    Opcion(*orden, "odbc", peticion->base.odbc, "CADENA", "Cadena de conexión ODBC; no debe tener empresas");
    peticion->salida.Anadir(*orden);
    AnadirHoy(*orden, peticion->hoy);
    AnadirTraza(*orden, peticion->traza);
    orden->callback([peticion] { CrearDemo(*peticion); });
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
