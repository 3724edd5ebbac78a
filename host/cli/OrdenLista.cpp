#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "kvdatosart/application/ColumnasLista.h"
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

using aplicacion::FilasLista;

struct PeticionOrdenLista {
    OpcionesComunes comunes;
    aplicacion::PeticionListaPrecios lista;
    OpcionesLista opciones;
    OpcionesFilas filas;
    /// None: the usual ones.
    std::vector<std::string> columnas;
    bool enumerarColumnas = false;
};

/// Writes the lines as they come.
class DestinoEscrito : public DestinoLista {
  public:
    DestinoEscrito(FilasLista& filas, SalidaFilas& salida, ProgresoLista& progreso, const Interrupcion& interrupcion)
        : filas_(filas), salida_(salida), progreso_(progreso), interrupcion_(interrupcion) {}

    void Linea(const LineaLista& linea) override {
        filas_.Poner(linea, [this](std::span<const Valor> fila) { salida_.Fila(fila); });
    }
    void Progreso(std::uint64_t hechas, std::uint64_t total) override {
        interrupcion_.Comprobar();
        progreso_.Mostrar(hechas, total);
    }

  private:
    FilasLista& filas_;
    SalidaFilas& salida_;
    ProgresoLista& progreso_;
    const Interrupcion& interrupcion_;
};

std::string Cuantas(std::uint64_t n, const char* que) {
    return std::to_string(n) + que;
}

// What became of the lines, where no file looks for it.
void Resumir(const RecuentoLista& recuento) {
    std::string texto = Cuantas(recuento.lineas, recuento.lineas == 1 ? " línea" : " líneas");
    if (recuento.sinPrecio != 0) texto += Cuantas(recuento.sinPrecio, " sin precio").insert(0, ", ");
    if (recuento.conFallo != 0) texto += Cuantas(recuento.conFallo, " con error").insert(0, ", ");
    std::string fuera;
    if (recuento.bloqueados != 0) fuera += ", " + Cuantas(recuento.bloqueados, " bloqueadas o de baja (--todos)");
    if (recuento.omitidosSinPrecio != 0) fuera += ", " + Cuantas(recuento.omitidosSinPrecio, " sin precio");
    if (recuento.noComprados != 0) fuera += ", " + Cuantas(recuento.noComprados, " no compradas");
    std::cerr << texto << '\n';
    if (!fuera.empty()) std::cerr << "Fuera de la lista: " << fuera.substr(2) << '\n';
}

void EnumerarColumnas(const PeticionOrdenLista& peticion) {
    static constexpr aplicacion::ColumnaTabla kColumnas[] = {
        {"", "columna", "Columna"},
        {"", "rotulo", "Rótulo"},
        {"", "habitual", "Habitual", aplicacion::ClaseDato::Logico},
    };
    aplicacion::Tabla tabla{"columnas", kColumnas};
    for (const auto& posible : FilasLista::Posibles(true))
        tabla.filas.push_back(
            {std::string(posible.columna.clave), std::string(posible.columna.rotulo), posible.habitual});
    Documento documento;
    documento.Anadir({std::move(tabla), ""});
    documento.Decir("Las de coste y margen, solo con --con-coste");
    peticion.comunes.salida.Escribir(documento, false);
}

int Hacer(const PeticionOrdenLista& peticion, Traza* traza) {
    peticion.filas.Exigir(peticion.comunes.salida);
    FilasLista filas(peticion.lista, peticion.columnas,
                     peticion.comunes.salida.json ? FilasLista::Forma::Alta : FilasLista::Forma::Ancha);
    const Interrupcion interrupcion;
    const aplicacion::EstadoFijo estado = AbrirEstado(peticion.comunes, peticion.opciones.Trabajadores(), traza);
    const kv::PeticionLista lista = aplicacion::PrepararLista(estado, peticion.lista);
    SalidaFilas salida(peticion.filas, peticion.comunes.salida, filas.Columnas(),
                       aplicacion::TitulosLista(estado, peticion.lista), lista.terminos.decimales);
    RecuentoLista recuento;
    {
        ProgresoLista progreso(peticion.filas.salida.empty());
        DestinoEscrito destino(filas, salida, progreso, interrupcion);
        recuento = HacerLista(estado.puestos, lista, destino);
    }
    salida.Acabar();
    Resumir(recuento);
    return recuento.conFallo == 0 ? kHecho : kNegativo;
}

}  // namespace

void AnadirLista(CLI::App& programa) {
    CLI::App* orden = programa.add_subcommand("lista", "Lista de precios de muchos artículos para muchos clientes");
    const auto peticion = std::make_shared<PeticionOrdenLista>();
    peticion->comunes.Anadir(*orden);
    peticion->opciones.Anadir(*orden, peticion->lista);
    const auto leer = [p = peticion.get()](const std::vector<std::string>& columnas) {
        p->enumerarColumnas = columnas.empty() || columnas == std::vector<std::string>{""};
        p->columnas = columnas;
    };
    orden
        ->add_option_function<std::vector<std::string>>("--columnas", leer,
                                                        "Qué columnas y en qué orden; sin decirlas, las enumera")
        ->type_name("COLUMNA...")
        ->expected(0, 100);
    peticion->filas.Anadir(*orden);
    AnadirListaComparar(*orden);
    orden->callback([peticion, orden] {
        // The command of its own has done what was asked.
        if (!orden->get_subcommands().empty()) return;
        if (peticion->enumerarColumnas) return EnumerarColumnas(*peticion);
        Obrar(peticion->comunes, [&](Traza* traza) { return Hacer(*peticion, traza); });
    });
}

}  // namespace kv::host
