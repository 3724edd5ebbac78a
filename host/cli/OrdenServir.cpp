#include <CLI/CLI.hpp>
#include <chrono>
#include <iostream>
#include <memory>
#include <thread>

#include "kvdatosart/application/Averias.h"
#include "kvdatosart/host/Salida.h"
#include "kvdatosart/host/cli/Interrupcion.h"
#include "kvdatosart/host/cli/Navegador.h"
#include "kvdatosart/host/cli/Opcion.h"
#include "kvdatosart/host/cli/Ordenes.h"
#include "kvdatosart/host/cli/Trabajo.h"
#include "kvdatosart/host/web/Servidor.h"

namespace kv::host {
namespace {

struct PeticionServir {
    OpcionesComunes comunes;
    std::int32_t puerto = 8137;
    bool abrir = false;
    bool conCoste = false;
    std::vector<std::string> permitidos;
};

void Avisar(const std::string& texto) {
    std::cerr << "kvdatosart: " + texto + '\n';
}

// Ends with Ctrl-C, once what is being answered was answered.
void Atender(Servidor& servidor) {
    const Interrupcion interrupcion;
    std::jthread escucha([&servidor] { servidor.Escuchar(); });
    while (!interrupcion.Pedida()) std::this_thread::sleep_for(std::chrono::milliseconds(50));
    servidor.Parar();
}

void Servir(const PeticionServir& peticion) {
    AjustesApi ajustes{.base = OHabitual(peticion.comunes.base),
                       .empresa = peticion.comunes.empresa,
                       .hoy = peticion.comunes.hoy,
                       .conCoste = peticion.conCoste,
                       .avisar = Avisar};
    ExigirUnaBase(ajustes.base, "{base} FICHERO");
    try {
        Api api(ajustes);
        Servidor servidor(api, peticion.puerto, peticion.permitidos);
        const std::string direccion = "http://127.0.0.1:" + std::to_string(servidor.Puerto()) + "/";
        EscribirSalida(direccion +
                       "\nEl simulador atiende en esa dirección, solo en esta máquina; Ctrl-C lo cierra.\n");
        if (peticion.abrir && !AbrirNavegador(direccion))
            Avisar("no se puede abrir el navegador; la dirección es " + direccion);
        Atender(servidor);
    } catch (const RuntimeError& error) {
        throw aplicacion::Averia(ajustes.base, error);
    }
}

}  // namespace

void AnadirServir(CLI::App& programa) {
    CLI::App& orden = *programa.add_subcommand("servir", "El simulador de precios, en el navegador; solo lee");
    const auto p = std::make_shared<PeticionServir>();
    p->comunes.AnadirOrigen(orden);
    AnadirHoy(orden, p->comunes.hoy);
    Opcion(orden, "puerto", p->puerto, "N", "Puerto en el que atiende (8137 si no se dice; 0, uno libre)",
           Rango{0, 65535});
    orden.add_flag("--abrir", p->abrir, "Abre el navegador");
    orden.add_flag("--con-coste", p->conCoste, "Enseña también los costes");
    orden
        .add_option("--host-permitido", p->permitidos,
                    "Nombre con el que llega un intermediario (proxy) que esté delante; se puede repetir")
        ->type_name("NOMBRE")
        ->expected(1)
        ->take_all();
    orden.callback([p] { Servir(*p); });
}

}  // namespace kv::host
