#include <CLI/CLI.hpp>
#include <memory>

#include "kvdatosart/application/Averias.h"
#include "kvdatosart/application/Bases.h"
#include "kvdatosart/host/Salida.h"
#include "kvdatosart/host/cli/Interrupcion.h"
#include "kvdatosart/host/cli/Opcion.h"
#include "kvdatosart/host/cli/Ordenes.h"
#include "kvdatosart/host/cli/Trabajo.h"

namespace kv::host {
namespace {

struct PeticionCopia {
    aplicacion::OrigenBase base;
    std::string destino;
    OpcionesSalida salida;
};

void Copiar(const PeticionCopia& peticion) {
    peticion.salida.Exigir();
    const aplicacion::OrigenBase base = OHabitual(peticion.base);
    ExigirUnaBase(base, "{base} FICHERO");
    ExigirLleno("", peticion.destino);
    const Interrupcion interrupcion;
    std::uint64_t bytes = 0;
    try {
        bytes = aplicacion::CopiarBase(base, peticion.destino, [&] { return !interrupcion.Pedida(); });
    } catch (const RuntimeError& error) {
        interrupcion.Comprobar();
        throw aplicacion::Averia(base, error);
    }
    Documento documento(SeparadorDeGente());
    documento.Dato("copia", "Copia hecha en", peticion.destino);
    documento.Dato("bytes", "Bytes", static_cast<std::int64_t>(bytes), aplicacion::ClaseDato::Cantidad);
    peticion.salida.Escribir(documento, true);
}

}  // namespace

void AnadirCopia(CLI::App& programa) {
    CLI::App* orden =
        programa.add_subcommand("copia", "Copia entera de la base a un fichero nuevo, aunque esté en uso");
    const auto peticion = std::make_shared<PeticionCopia>();
    orden->add_option("fichero", peticion->destino, "Fichero que se crea; no debe existir")
        ->required()
        ->type_name("FICHERO");
    AnadirBase(*orden, peticion->base.fichero);
    Opcion(*orden, "odbc", peticion->base.odbc, "CADENA", "No se admite: un servidor se copia con sus herramientas")
        ->group(kGrupoComun);
    peticion->salida.Anadir(*orden);
    orden->callback([peticion] { Copiar(*peticion); });
}

}  // namespace kv::host
