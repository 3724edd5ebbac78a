#include "application/Acuerdos.h"
#include "host/cli/Orden.h"
#include "host/cli/Ordenes.h"

namespace kv::host {
namespace {

using aplicacion::Acceso;
using aplicacion::PeticionAcuerdo;

constexpr const char* kAyudaNodo = "Nodo de la cadena, de arriba abajo (1.1.2)";

template <class Peticion>
Orden<Peticion> DeNodo(CLI::App& acuerdos, const char* nombre, const char* ayuda) {
    Orden<Peticion> orden(acuerdos, nombre, ayuda);
    orden.Exige("articulo", &Peticion::articulo, "N", "Código del artículo")
        .Exige("nodo", &Peticion::nodo, "NODO", kAyudaNodo);
    return orden;
}

Orden<PeticionAcuerdo> ConDescuentos(Orden<PeticionAcuerdo> orden) {
    const auto leer = [&descuentos = orden.Pedida().descuentos](const std::vector<std::string>& textos) {
        for (const std::string& texto : textos) descuentos.push_back(LeerDescuentoAcuerdo("dto", texto));
    };
    orden.App()
        .add_option_function<std::vector<std::string>>("--dto", leer,
                                                       "porcentaje:X, cascada:X, importe:X u oferta:N+N; hasta cinco")
        ->type_name("DTO");
    orden.Marca("sinPadre", &PeticionAcuerdo::sinPadre, "No se aplican además los acuerdos del nodo superior");
    return orden;
}

void AnadirVer(CLI::App& acuerdos) {
    using Peticion = aplicacion::PeticionAcuerdos;
    Orden<Peticion>(acuerdos, "ver", "Los de un artículo; con --nodo, además el texto del suyo")
        .Exige("articulo", &Peticion::articulo, "N", "Código del artículo")
        .Admite("nodo", &Peticion::nodo, "NODO", kAyudaNodo)
        .Admite("fecha", &Peticion::fecha, "FECHA", "Hoy si no se dice")
        .Responde(Acceso::Leer, aplicacion::VerAcuerdos);
}

}  // namespace

void AnadirAcuerdos(CLI::App& programa) {
    CLI::App* acuerdos = programa.add_subcommand("acuerdos", "Acuerdos de las cadenas de clientes");
    acuerdos->require_subcommand(1);
    AnadirVer(*acuerdos);
    ConDescuentos(DeNodo<PeticionAcuerdo>(*acuerdos, "poner", "Pone uno desde hoy y sin fin"))
        .Responde(Acceso::Escribir, aplicacion::PonerAcuerdo, "Acuerdo puesto");
    ConDescuentos(DeNodo<PeticionAcuerdo>(*acuerdos, "cambiar", "Cambia los descuentos de todos los de un nodo"))
        .Responde(Acceso::Escribir, aplicacion::CambiarAcuerdo, "Acuerdos cambiados");
    DeNodo<aplicacion::ClaveAcuerdo>(*acuerdos, "quitar", "Quita todos los de un nodo")
        .Responde(Acceso::Escribir, aplicacion::QuitarAcuerdo, "Acuerdos quitados");
}

}  // namespace kv::host
