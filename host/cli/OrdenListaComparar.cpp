#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "kvdatosart/application/Comparaciones.h"
#include "kvdatosart/host/LecturaComparada.h"
#include "kvdatosart/host/Salida.h"
#include "kvdatosart/host/cli/CodigosSalida.h"
#include "kvdatosart/host/cli/Interrupcion.h"
#include "kvdatosart/host/cli/Opcion.h"
#include "kvdatosart/host/cli/OpcionesLista.h"
#include "kvdatosart/host/cli/Ordenes.h"
#include "kvdatosart/host/cli/ProgresoLista.h"
#include "kvdatosart/host/cli/SalidaFilas.h"

namespace kv::host {
namespace {

using aplicacion::PeticionComparacion;

struct PeticionOrdenComparar {
    OpcionesComunes comunes;
    PeticionComparacion lista;
    OpcionesLista opciones;
    OpcionesFilas filas;
    /// A list that was written earlier; empty for the same list on other terms.
    std::string con;
};

void Resumir(const RecuentoComparacion& recuento, Currency umbral) {
    std::string texto =
        std::to_string(recuento.iguales) + " iguales, " + std::to_string(recuento.distintas) + " distintas";
    if (recuento.menores != 0) {
        std::string porcentaje = umbral.ATexto(SeparadorDeGente()).Cadena();
        texto += ", " + std::to_string(recuento.menores) + " por debajo del " + porcentaje + " %";
    }
    if (recuento.soloAntes != 0) texto += ", " + std::to_string(recuento.soloAntes) + " solo antes";
    if (recuento.soloDespues != 0) texto += ", " + std::to_string(recuento.soloDespues) + " solo después";
    std::cerr << texto << '\n';
}

int Comparar(const PeticionOrdenComparar& peticion, Traza* traza) {
    peticion.filas.Exigir(peticion.comunes.salida);
    const PeticionComparacion& pedida = peticion.lista;
    const bool paraGente = !peticion.filas.ParaProgramas(peticion.comunes.salida);
    aplicacion::FilasComparacion filas(pedida, paraGente);
    aplicacion::ListaAnterior anterior;
    if (!peticion.con.empty())
        anterior = [lector = std::make_shared<LectorListaJson>(peticion.con)](
                       ClaveComparada& clave, PrecioComparado& precio) { return lector->Siguiente(clave, precio); };
    const Interrupcion interrupcion;
    const aplicacion::EstadoFijo estado = AbrirEstado(peticion.comunes, peticion.opciones.Trabajadores(), traza);
    // Before the file is begun: what cannot be meant is said first.
    const std::int16_t decimales = aplicacion::PrepararLista(estado, pedida).terminos.decimales;
    Titulos titulos = aplicacion::TitulosLista(estado, pedida);
    titulos.emplace_back("Comparada con", peticion.con.empty() ? aplicacion::TextoOtroLado(pedida) : peticion.con);
    SalidaFilas salida(peticion.filas, peticion.comunes.salida, filas.Columnas(), titulos, decimales);
    RecuentoComparacion recuento;
    {
        ProgresoLista progreso(false);
        recuento = aplicacion::CompararListas(estado, pedida, anterior,
                                              {[&](std::uint64_t hechas, std::uint64_t total) {
                                                   interrupcion.Comprobar();
                                                   progreso.Mostrar(hechas, total);
                                               },
                                               [&](const LineaComparada& linea) { salida.Fila(filas.Fila(linea)); }});
    }
    salida.Acabar();
    Resumir(recuento, pedida.umbral);
    return recuento.HayDiferencias() ? kNegativo : kHecho;
}

}  // namespace

void AnadirListaComparar(CLI::App& lista) {
    CLI::App* orden =
        lista.add_subcommand("comparar", "Lo que cambia entre dos listas; termina con 0 si son iguales y con 1 si no");
    const auto peticion = std::make_shared<PeticionOrdenComparar>();
    PeticionComparacion& pedida = peticion->lista;
    peticion->comunes.Anadir(*orden);
    Opcion(*orden, "con", peticion->con, "FICHERO", "Con una lista anterior, escrita con --json");
    Opcion(*orden, "conFecha", pedida.conFecha, "FECHA", "Con los precios de ese otro día");
    Opcion(*orden, "conTarifa", pedida.conTarifa, "N", "Con esa otra tarifa", Rango{-1, INT16_MAX});
    Opcion(*orden, "conCliente", pedida.conCliente, "N", "Con ese otro cliente");
    Opcion(*orden, "umbral", pedida.umbral, "X", "Desde qué porcentaje se enseña una diferencia (0)");
    peticion->opciones.Anadir(*orden, pedida);
    peticion->filas.Anadir(*orden);
    orden->callback([peticion] { Obrar(peticion->comunes, [&](Traza* traza) { return Comparar(*peticion, traza); }); });
}

}  // namespace kv::host
