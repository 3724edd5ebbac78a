#include "kvdatosart/application/Listados.h"
#include "kvdatosart/application/Tarifas.h"
#include "kvdatosart/host/cli/Orden.h"
#include "kvdatosart/host/cli/Ordenes.h"

namespace kv::host {
namespace {

template <class Peticion>
using Listado = aplicacion::RespuestaListado (*)(const aplicacion::Sesion&, const Peticion&);

void Buscados(CLI::App& orden, std::string& texto) {
    const auto leer = [&texto](const std::vector<std::string>& palabras) {
        for (const std::string& palabra : palabras) {
            ExigirLleno("", palabra);
            texto += (texto.empty() ? "" : " ") + palabra;
        }
    };
    orden.add_option_function<std::vector<std::string>>("palabras", leer, "En cualquier orden, sin mirar acentos")
        ->required()
        ->type_name("PALABRA");
}

// `anadir` adds the options of its own to both commands.
template <class Peticion, class Anadir>
CLI::App& AnadirListado(CLI::App& programa, const char* nombre, const char* ayuda, Listado<Peticion> listado,
                        Anadir anadir) {
    CLI::App* familia = programa.add_subcommand(nombre, ayuda);
    familia->require_subcommand(1);
    for (const bool busca : {false, true}) {
        Orden<Peticion> orden(*familia, busca ? "buscar" : "listar", busca ? "Los que tienen esas palabras" : "Todos");
        if (busca) Buscados(orden.App(), orden.Pedida().texto);
        orden.Admite("limite", &Peticion::limite, "N", "Cuántos se muestran");
        anadir(orden);
        orden.Responde(aplicacion::Acceso::Leer, listado);
    }
    return *familia;
}

CLI::App& AnadirSencillo(CLI::App& programa, const char* nombre, const char* ayuda,
                         Listado<aplicacion::PeticionListado> listado) {
    return AnadirListado(programa, nombre, ayuda, listado, [](Orden<aplicacion::PeticionListado>&) {});
}

void AnadirTarifasDe(CLI::App& tarifas) {
    using Peticion = aplicacion::PeticionTarifasDe;
    Orden<Peticion> orden(tarifas, "de", "Los precios de un artículo en cada una, con sus cambios programados");
    const auto leer = [&articulo = orden.Pedida().articulo](const std::string& texto) {
        Leer("articulo", texto, articulo);
    };
    orden.App()
        .add_option_function<std::string>("articulo", leer, "Código del artículo")
        ->required()
        ->type_name("ARTÍCULO");
    orden.Admite("tarifa", &Peticion::tarifa, "N", "Solo los de esta tarifa")
        .Admite("fecha", &Peticion::fecha, "FECHA", "Solo los cambios que entran hasta ese día")
        .Responde(aplicacion::Acceso::Leer, aplicacion::TarifasDe);
}

}  // namespace

void AnadirListados(CLI::App& programa) {
    using aplicacion::PeticionArticulos;
    using aplicacion::PeticionClientes;
    AnadirListado<PeticionArticulos>(programa, "articulos", "Artículos del catálogo", aplicacion::ListarArticulos,
                                     [](Orden<PeticionArticulos>& orden) {
                                         orden.Admite("familia", &PeticionArticulos::familia, "FAMILIA",
                                                      "De esta familia y sus subfamilias (1.2)");
                                     });
    AnadirListado<PeticionClientes>(
        programa, "clientes", "Clientes", aplicacion::ListarClientes, [](Orden<PeticionClientes>& orden) {
            orden.Admite("grupo", &PeticionClientes::grupo, "N", "De este grupo de descuentos")
                .Admite("nodo", &PeticionClientes::nodo, "NODO", "De este nodo de cadena y los de debajo (1.1)");
        });
    AnadirSencillo(programa, "almacenes", "Almacenes de la empresa", aplicacion::ListarAlmacenes);
    AnadirSencillo(programa, "grupos", "Grupos de clientes", aplicacion::ListarGrupos);
    AnadirSencillo(programa, "cadenas", "Nodos de las cadenas de clientes", aplicacion::ListarCadenas);
    AnadirListado<aplicacion::PeticionListado>(programa, "empresas", "Empresas de la base", aplicacion::ListarEmpresas,
                                               [](Orden<aplicacion::PeticionListado>& orden) { orden.SinEmpresa(); });
    AnadirTarifasDe(AnadirSencillo(programa, "tarifas", "Tarifas y sus precios", aplicacion::ListarTarifas));
}

}  // namespace kv::host
