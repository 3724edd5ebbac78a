#include "kvdatosart/application/Clientes.h"
#include "kvdatosart/host/cli/Orden.h"
#include "kvdatosart/host/cli/Ordenes.h"

namespace kv::host {
namespace {

using aplicacion::Acceso;
using aplicacion::Paso;

template <class Peticion>
Orden<Peticion> DeUno(CLI::App& cliente, const char* nombre, const char* ayuda) {
    Orden<Peticion> orden(cliente, nombre, ayuda);
    orden.Exige("codigo", &Peticion::codigo, "N", "Código del cliente");
    return orden;
}

void AnadirExtremo(CLI::App& cliente, const char* nombre, const char* ayuda, Paso paso) {
    Orden<aplicacion::PeticionRecorrido> orden(cliente, nombre, ayuda);
    orden.Pedida().paso = paso;
    orden.Responde(Acceso::Leer, aplicacion::RecorrerClientes);
}

void AnadirVecino(CLI::App& cliente, const char* nombre, const char* ayuda, Paso paso) {
    using Peticion = aplicacion::PeticionRecorrido;
    auto orden = DeUno<Peticion>(cliente, nombre, ayuda);
    orden.Pedida().paso = paso;
    orden.Marca("porNombre", &Peticion::porNombre, "Por orden de nombre, no de código")
        .Responde(Acceso::Leer, aplicacion::RecorrerClientes);
}

void AnadirEliminar(CLI::App& cliente) {
    using Peticion = aplicacion::PeticionEliminarCliente;
    DeUno<Peticion>(cliente, "eliminar", "Elimina un cliente sin dependencias")
        .Marca("forzar", &Peticion::forzar, "Aunque tenga dependencias; sus documentos se quedan")
        .Responde(Acceso::Escribir, aplicacion::EliminarCliente);
}

void AnadirResumen(CLI::App& cliente) {
    using Peticion = aplicacion::PeticionResumen;
    DeUno<Peticion>(cliente, "resumen", "Saldos, notas vencidas y siguiente código libre")
        .Admite("minimo", &Peticion::minimo, "N", "Desde qué código se busca el siguiente")
        .Responde(Acceso::Leer, aplicacion::ResumirCliente);
}

void AnadirFecha(CLI::App& cliente, const char* nombre, const char* ayuda,
                 aplicacion::RespuestaFechaCliente (*anotar)(const aplicacion::Sesion&,
                                                             const aplicacion::PeticionFechaCliente&),
                 const char* rotulo) {
    using Peticion = aplicacion::PeticionFechaCliente;
    DeUno<Peticion>(cliente, nombre, ayuda)
        .Admite("fecha", &Peticion::fecha, "FECHA", "Hoy si no se dice")
        .Marca("forzar", &Peticion::forzar, "Aunque el día no haya llegado")
        .Hace(Acceso::Escribir, [anotar, rotulo](Trabajo& trabajo, const Peticion& peticion) {
            const auto respuesta = anotar(trabajo.sesion, peticion);
            trabajo.respuesta.Dato("codigo", "Cliente", respuesta.codigo, aplicacion::ClaseDato::Codigo);
            trabajo.respuesta.Dato("fecha", rotulo, respuesta.fecha ? Valor(*respuesta.fecha) : Valor(Nulo{}),
                                   aplicacion::ClaseDato::Fecha);
            trabajo.Escribir();
        });
}

}  // namespace

void AnadirCliente(CLI::App& programa) {
    CLI::App* cliente = programa.add_subcommand("cliente", "Ficha, recorrido, borrado y consultas de clientes");
    cliente->require_subcommand(1);
    DeUno<aplicacion::PeticionCliente>(*cliente, "ver", "Muestra la ficha de un cliente")
        .Responde(Acceso::Leer, aplicacion::VerCliente);
    AnadirExtremo(*cliente, "primero", "Muestra el de código más bajo", Paso::Primero);
    AnadirExtremo(*cliente, "ultimo", "Muestra el de código más alto", Paso::Ultimo);
    AnadirVecino(*cliente, "anterior", "Muestra el anterior a uno", Paso::Anterior);
    AnadirVecino(*cliente, "siguiente", "Muestra el siguiente a uno", Paso::Siguiente);
    AnadirEliminar(*cliente);
    AnadirResumen(*cliente);
    AnadirFecha(*cliente, "venta", "Adelanta la fecha de la última venta", aplicacion::AnotarVenta, "Última venta");
    AnadirFecha(*cliente, "cobro", "Adelanta la fecha del último cobro", aplicacion::AnotarCobro, "Último cobro");
}

}  // namespace kv::host
