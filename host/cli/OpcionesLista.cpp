#include "kvdatosart/host/cli/OpcionesLista.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <thread>

#include "kvdatosart/application/Averias.h"
#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/host/LecturaLista.h"
#include "kvdatosart/host/cli/CodigosSalida.h"
#include "kvdatosart/host/cli/Opcion.h"
#include "kvdatosart/host/cli/SalidaFilas.h"

namespace kv::host {
namespace {

using aplicacion::CodigosPedidos;
using aplicacion::PeticionListaPrecios;
using Textos = std::vector<std::string>;

// An option of one text, or of several that follow one another.
template <class Leer>
void Una(CLI::App& orden, const char* campo, const char* tipo, const char* ayuda, Leer leer) {
    const auto leido = [campo, leer](const std::string& texto) {
        ExigirLleno(campo, texto);
        leer(texto);
    };
    orden.add_option_function<std::string>(NombreOpcion(campo), leido, ayuda)->type_name(tipo);
}
template <class Leer>
void Varias(CLI::App& orden, const char* campo, const char* tipo, const char* ayuda, Leer leer) {
    orden.add_option_function<Textos>(NombreOpcion(campo), leer, ayuda)->type_name(tipo);
}

// Codes are given one by one or in a file.
void Poner(CodigosPedidos& destino, CodigosPedidos pedidos, const char* campo, const char* fichero) {
    if (!destino.codigos.empty())
        aplicacion::RechazarImposible("", std::string("se espera {") + campo + "} o {" + fichero + "}, no los dos");
    destino = std::move(pedidos);
}

void AnadirArticulos(CLI::App& orden, PeticionListaPrecios& p) {
    Varias(orden, "articulos", "N...", "Códigos de los artículos (todos si no se dice)", [&p](const Textos& textos) {
        Poner(p.articulos, LeerCodigos("articulos", textos), "articulos", "ficheroArticulos");
    });
    Una(orden, "ficheroArticulos", "FICHERO", "Sus códigos, uno en cada línea de un fichero",
        [&p](const std::string& texto) {
            Poner(p.articulos, LeerFicheroCodigos("ficheroArticulos", texto), "articulos", "ficheroArticulos");
        });
    Varias(orden, "familias", "FAMILIA...", "De estas familias y sus subfamilias (1.2)", [&p](const Textos& textos) {
        for (const std::string& texto : textos) p.familias.push_back(LeerFamilias("familias", texto));
    });
    Opcion(orden, "buscar", p.buscar, "PALABRAS", "Con estas palabras, en cualquier orden y sin mirar acentos");
}

void AnadirClientes(CLI::App& orden, PeticionListaPrecios& p) {
    Varias(orden, "clientes", "N...", "Códigos de los clientes, o todos", [&p](const Textos& textos) {
        p.todosLosClientes = textos == Textos{"todos"};
        if (!p.todosLosClientes) Poner(p.clientes, LeerCodigos("clientes", textos), "clientes", "ficheroClientes");
    });
    Una(orden, "ficheroClientes", "FICHERO", "Sus códigos, uno en cada línea de un fichero",
        [&p](const std::string& texto) {
            Poner(p.clientes, LeerFicheroCodigos("ficheroClientes", texto), "clientes", "ficheroClientes");
        });
    Opcion(orden, "grupo", p.grupo, "N", "Los clientes de este grupo de descuentos");
    Opcion(orden, "nodo", p.nodo, "NODO", "Los de este nodo de cadena y los de debajo (1.1)");
}

void AnadirTerminos(CLI::App& orden, PeticionListaPrecios& p) {
    Opcion(orden, "fecha", p.fecha, "FECHA", "Día de los precios (hoy si no se dice)");
    Opcion(orden, "tarifa", p.tarifa, "N", "Tarifa; -1 vende a coste (la de la empresa si no se dice)",
           Rango{-1, INT16_MAX});
    Opcion(orden, "almacen", p.almacen, "N", "Almacén (1 si no se dice)");
    Opcion(orden, "decimales", p.decimales, "N", "Decimales de los precios, de 0 a 4 (los de la empresa)", Rango{0, 4});
    Varias(orden, "unidades", "X...", "Unidades (1 si no se dice); con varias hay un precio para cada una",
           [&p](const Textos& textos) {
               for (const std::string& texto : textos) p.unidades.push_back(LeerImporte("unidades", texto));
           });
}

void AnadirFiltros(CLI::App& orden, PeticionListaPrecios& p) {
    Una(orden, "orden", "ORDEN", "Qué va primero: articulo, cliente o familia (articulo)",
        [&p](const std::string& texto) { p.orden = LeerOrdenLista("orden", texto); });
    orden.add_flag("--todos", p.todos, "También los artículos bloqueados y los de baja");
    Una(orden, "sinPrecio", "QUÉ", "Las líneas sin precio: omitir o marcar (marcar)", [&p](const std::string& texto) {
        if (texto != "omitir" && texto != "marcar")
            aplicacion::RechazarImposible("sinPrecio", "«" + texto + "» no vale; se espera omitir o marcar");
        p.omitirSinPrecio = texto == "omitir";
    });
    orden.add_flag("--solo-comprados", p.soloComprados, "Solo lo que cada cliente ha comprado");
    orden.add_flag("--con-coste", p.conCoste, "Enseña también los costes y los márgenes");
    Una(orden, "parte", "I/N", "Solo esta parte de tantas, para repartir la lista entre máquinas",
        [&p](const std::string& texto) { LeerParte("parte", texto, p); });
}

}  // namespace

void OpcionesLista::Anadir(CLI::App& orden, PeticionListaPrecios& peticion) {
    AnadirArticulos(orden, peticion);
    AnadirClientes(orden, peticion);
    AnadirTerminos(orden, peticion);
    AnadirFiltros(orden, peticion);
    Opcion(orden, "trabajadores", trabajadores, "N", "Cuántos trabajan a la vez (uno por procesador)", Rango{1, 256});
}

std::size_t OpcionesLista::Trabajadores() const {
    if (trabajadores) return static_cast<std::size_t>(*trabajadores);
    return std::max(1U, std::thread::hardware_concurrency());
}

aplicacion::EstadoFijo AbrirEstado(const OpcionesComunes& comunes, std::size_t trabajadores, Traza* traza) {
    comunes.salida.Exigir();
    const aplicacion::OrigenBase base = OHabitual(comunes.base);
    ExigirUnaBase(base, "{base} FICHERO");
    aplicacion::EstadoFijo estado = aplicacion::FijarEstado(base, comunes.empresa, FijarHoy(comunes.hoy),
                                                            traza != nullptr ? 1 : trabajadores, AvisoDeEspera(base));
    if (estado.seMueve)
        std::cerr << "kvdatosart: la base no ofrece un estado fijo (SNAPSHOT); lo que otros escriban puede entrar a "
                     "medias\n";
    if (traza != nullptr) {
        auto& conexion = estado.puestos.front().conexion;
        conexion = std::make_shared<ConexionTrazada>(
            conexion, [traza](const OperacionTrazada& operacion) { (*traza)(operacion); });
    }
    return estado;
}

void Obrar(const OpcionesComunes& comunes, const std::function<int(Traza*)>& obra) {
    try {
        Traza traza;
        const int codigo = obra(comunes.traza ? &traza : nullptr);
        if (comunes.traza) traza.Resumir();
        if (codigo != kHecho) throw Termina{codigo};
    } catch (const LectorIdo&) {
        // Nobody reads what is left.
    } catch (const RuntimeError& error) {
        throw aplicacion::Averia(OHabitual(comunes.base), error);
    }
}

}  // namespace kv::host
