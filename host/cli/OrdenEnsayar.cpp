#include <CLI/CLI.hpp>
#include <memory>

#include "kvdatosart/application/Averias.h"
#include "kvdatosart/application/Ensayos.h"
#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/host/Documentos.h"
#include "kvdatosart/host/cli/Interrupcion.h"
#include "kvdatosart/host/cli/Opcion.h"
#include "kvdatosart/host/cli/OpcionesLista.h"
#include "kvdatosart/host/cli/Ordenes.h"
#include "kvdatosart/host/cli/OrdenesEnsayadas.h"
#include "kvdatosart/host/cli/ProgresoLista.h"

namespace kv::host {
namespace {

struct PeticionEnsayar {
    aplicacion::OrigenBase base;
    std::int16_t empresa = 1;
    std::optional<Fecha> hoy;
    OpcionesSalida salida;
    aplicacion::PeticionListaPrecios lista;
    OpcionesLista opciones;
    std::vector<std::string> orden;
    /// File of the commands.
    std::string ordenDe;
};

std::vector<OrdenEnsayada> Ordenes(const PeticionEnsayar& peticion) {
    if (peticion.orden.empty() == peticion.ordenDe.empty())
        aplicacion::RechazarImposible("", "se espera la orden que se ensaya, tras --, o {ordenDe} FICHERO");
    if (!peticion.ordenDe.empty()) return LeerOrdenes(peticion.ordenDe);
    // Nobody before took the second dashes for its end.
    const auto primera = peticion.orden.begin() + (peticion.orden.front() == "--" ? 1 : 0);
    return {{{primera, peticion.orden.end()}, "la orden que se ensaya: "}};
}

aplicacion::RespuestaEnsayo Hacer(const aplicacion::PeticionEnsayo& ensayo, const std::vector<OrdenEnsayada>& ordenes) {
    const Interrupcion interrupcion;
    ProgresoLista progreso(false);
    try {
        return aplicacion::Ensayar(ensayo, {[&](const aplicacion::OrigenBase& copia) {
                                                for (const OrdenEnsayada& orden : ordenes) {
                                                    interrupcion.Comprobar();
                                                    EjecutarEn(copia, ensayo.empresa, ensayo.hoy, orden);
                                                }
                                            },
                                            [&] { return !interrupcion.Pedida(); },
                                            [&](std::uint64_t hechas, std::uint64_t total) {
                                                interrupcion.Comprobar();
                                                progreso.Mostrar(hechas, total);
                                            }});
    } catch (const RuntimeError& error) {
        interrupcion.Comprobar();
        throw aplicacion::Averia(ensayo.base, error);
    }
}

void Ejecutar(const PeticionEnsayar& peticion) {
    peticion.salida.Exigir();
    const std::vector<OrdenEnsayada> ordenes = Ordenes(peticion);
    const aplicacion::OrigenBase base = OHabitual(peticion.base);
    ExigirUnaBase(base, "{base} FICHERO");
    const aplicacion::RespuestaEnsayo respuesta = Hacer(
        {base, peticion.empresa, FijarHoy(peticion.hoy), peticion.lista, peticion.opciones.Trabajadores()}, ordenes);
    Documento documento(SeparadorDeGente());
    Documentar(documento, respuesta);
    peticion.salida.Escribir(documento, false);
}

}  // namespace

void AnadirEnsayar(CLI::App& programa) {
    CLI::App* orden = programa.add_subcommand(
        "ensayar", "Qué líneas de una lista cambiaría una orden que escribe, sin escribir nada en la base");
    const auto peticion = std::make_shared<PeticionEnsayar>();
    orden->add_option("orden", peticion->orden, "Tras --, la orden con sus opciones")->type_name("-- ORDEN...");
    Opcion(*orden, "ordenDe", peticion->ordenDe, "FICHERO", "Las órdenes de un fichero, una en cada línea");
    peticion->opciones.Anadir(*orden, peticion->lista);
    AnadirBase(*orden, peticion->base.fichero);
    Opcion(*orden, "odbc", peticion->base.odbc, "CADENA", "No se admite: no se ensaya en un servidor")
        ->group(kGrupoComun);
    Opcion(*orden, "empresa", peticion->empresa, "N", "Código de la empresa (1 si no se dice)")->group(kGrupoComun);
    peticion->salida.Anadir(*orden);
    AnadirHoy(*orden, peticion->hoy);
    orden->callback([peticion] { Ejecutar(*peticion); });
}

}  // namespace kv::host
