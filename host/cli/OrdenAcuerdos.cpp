#include "kvdatosart/application/Acuerdos.h"
#include "kvdatosart/host/cli/Orden.h"
#include "kvdatosart/host/cli/Ordenes.h"

namespace kv::host {
namespace {

using aplicacion::Acceso;
using aplicacion::PeticionCambiarAcuerdo;
using aplicacion::PeticionPonerAcuerdo;
using aplicacion::SeleccionAcuerdos;

constexpr const char* kAyudaNodo = "Nodo de la cadena, de arriba abajo (1.1.2)";

template <class Peticion>
Orden<Peticion> DeNodo(CLI::App& acuerdos, const char* nombre, const char* ayuda) {
    Orden<Peticion> orden(acuerdos, nombre, ayuda);
    orden.Exige("articulo", &Peticion::articulo, "N", "Código del artículo")
        .Exige("nodo", &Peticion::nodo, "NODO", kAyudaNodo);
    return orden;
}

template <class Peticion>
Orden<Peticion>& ConTerminos(Orden<Peticion>& orden) {
    const auto leer = [&descuentos = orden.Pedida().descuentos](const std::vector<std::string>& textos) {
        for (const std::string& texto : textos) descuentos.push_back(LeerDescuentoAcuerdo("dto", texto));
    };
    orden.App()
        .template add_option_function<std::vector<std::string>>(
            "--dto", leer, "porcentaje:X, cascada:X, importe:X u oferta:N+N; hasta cinco")
        ->type_name("DTO");
    return orden.Admite("precioBase", &Peticion::precioBase, "X", "Precio base acordado; 0 para ninguno")
        .Admite("hasta", &Peticion::hasta, "FECHA", "Último día; 31/12/2050 es sin fin")
        .Marca("sinPadre", &Peticion::sinPadre, "No se aplican además los acuerdos del nodo superior");
}

template <class Peticion>
Orden<Peticion>& ConSeleccion(Orden<Peticion>& orden) {
    return orden.Admite("desde", &Peticion::desde, "FECHA", "El que empieza ese día; si solo hay uno, sobra")
        .Marca("todos", &Peticion::todos, "Todos los de ese nodo y artículo");
}

void AnadirVer(CLI::App& acuerdos) {
    using Peticion = aplicacion::PeticionAcuerdos;
    Orden<Peticion>(acuerdos, "ver", "Los de un artículo; con --nodo, los del suyo y su texto")
        .Exige("articulo", &Peticion::articulo, "N", "Código del artículo")
        .Admite("nodo", &Peticion::nodo, "NODO", kAyudaNodo)
        .Admite("fecha", &Peticion::fecha, "FECHA", "Solo los vigentes ese día")
        .Responde(Acceso::Leer, aplicacion::VerAcuerdos);
}

void AnadirPoner(CLI::App& acuerdos) {
    auto orden = DeNodo<PeticionPonerAcuerdo>(acuerdos, "poner", "Pone uno");
    orden.Admite("desde", &PeticionPonerAcuerdo::desde, "FECHA", "Primer día (hoy si no se dice)");
    ConTerminos(orden)
        .Marca("forzar", &PeticionPonerAcuerdo::forzar, "Aunque comparta días con otro")
        .Responde(Acceso::Escribir, aplicacion::PonerAcuerdo, "Acuerdo puesto");
}

void AnadirCambiar(CLI::App& acuerdos) {
    auto orden = DeNodo<PeticionCambiarAcuerdo>(acuerdos, "cambiar", "Cambia lo que se diga de uno o de todos");
    ConTerminos(ConSeleccion(orden))
        .Marca("conPadre", &PeticionCambiarAcuerdo::conPadre, "Se aplican además los del nodo superior")
        .Responde(Acceso::Escribir, aplicacion::CambiarAcuerdo, "Acuerdos cambiados");
}

void AnadirQuitar(CLI::App& acuerdos) {
    auto orden = DeNodo<SeleccionAcuerdos>(acuerdos, "quitar", "Quita uno o todos los de un nodo");
    ConSeleccion(orden).Responde(Acceso::Escribir, aplicacion::QuitarAcuerdo, "Acuerdos quitados");
}

}  // namespace

void AnadirAcuerdos(CLI::App& programa) {
    CLI::App* acuerdos = programa.add_subcommand("acuerdos", "Acuerdos de las cadenas de clientes");
    acuerdos->require_subcommand(1);
    AnadirVer(*acuerdos);
    AnadirPoner(*acuerdos);
    AnadirCambiar(*acuerdos);
    AnadirQuitar(*acuerdos);
}

}  // namespace kv::host
