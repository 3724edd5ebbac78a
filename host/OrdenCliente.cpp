#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "customers/ColumnasCliente.h"
#include "db/BibliotecaComun.h"
#include "host/Fallo.h"
#include "host/Lectura.h"
#include "host/Ordenes.h"
#include "host/Sesion.h"

namespace kv::host {
namespace {

struct OpcionesCliente {
    OpcionesComunes comunes;
    std::string codigo;
    bool porNombre = false;
    bool forzar = false;
    std::string fecha;
    std::string minimo = "1";
};

using Opciones = std::shared_ptr<OpcionesCliente>;

void Preparar(clsCliente& cliente, const Sesion& sesion, const OpcionesCliente& o) {
    sesion.Inyectar(cliente);
    cliente.Codigo = LeerEntero("--codigo", o.codigo, 1, INT32_MAX);
}

void ExigirQueExista(clsCliente& cliente) {
    if (!cliente.Existe()) throw Fallo(kNegativo, "no existe el cliente " + std::to_string(cliente.Codigo));
}

struct AValor {
    const clsCliente& cliente;
    Valor operator()(std::optional<Fecha> clsCliente::*miembro) const {
        return cliente.*miembro ? Valor(*(cliente.*miembro)) : Valor(Nulo{});
    }
    template <class T>
    Valor operator()(T clsCliente::*miembro) const {
        return cliente.*miembro;
    }
};

void EscribirFicha(Sesion& sesion, clsCliente& cliente) {
    for (const auto& columna : kColumnasCliente)
        sesion.respuesta.Dato(std::string(columna.nombre), std::string(columna.nombre),
                              std::visit(AValor{cliente}, columna.destino));
    cliente.Cargar_Telefonos();
    sesion.respuesta.Tabla("Telefonos", {"Telefono"});
    for (std::size_t i = 0; i < cliente.NumeroTelefonos(); ++i) sesion.respuesta.Fila({cliente.Numero(i)});
    sesion.Escribir(std::cout);
}

void Ver(const OpcionesCliente& o) {
    Sesion sesion(o.comunes, true);
    clsCliente cliente;
    Preparar(cliente, sesion, o);
    if (!cliente.Cargar()) throw Fallo(kNegativo, "no existe el cliente " + o.codigo);
    EscribirFicha(sesion, cliente);
}

// First and last need no customer to start from; previous and next do, and by name they start from its name.
void Recorrer(const OpcionesCliente& o, bool (clsCliente::*metodo)(clsCliente*), bool desdeUno) {
    Sesion sesion(o.comunes, true);
    clsCliente cliente;
    sesion.Inyectar(cliente);
    if (desdeUno) {
        Preparar(cliente, sesion, o);
        if (!cliente.Cargar()) throw Fallo(kNegativo, "no existe el cliente " + o.codigo);
    }
    cliente.FichaClienteModoDesp = o.porNombre;
    if (!(cliente.*metodo)(nullptr)) throw Fallo(kNegativo, "no hay más clientes en esa dirección");
    EscribirFicha(sesion, cliente);
}

void Eliminar(const OpcionesCliente& o) {
    Sesion sesion(o.comunes, false);
    clsCliente cliente;
    Preparar(cliente, sesion, o);
    ExigirQueExista(cliente);
    // The refusal itself was already shown by the message of the component.
    if (!cliente.Eliminar(o.forzar)) throw Fallo(kNegativo, "el cliente " + o.codigo + " no se ha eliminado");
    sesion.respuesta.Dato("eliminado", "Cliente eliminado", cliente.Codigo);
    sesion.Escribir(std::cout);
}

void Resumen(const OpcionesCliente& o) {
    Sesion sesion(o.comunes, true);
    clsCliente cliente;
    Preparar(cliente, sesion, o);
    ExigirQueExista(cliente);
    sesion.respuesta.Dato("codigo", "Cliente", cliente.Codigo);
    sesion.respuesta.Dato("saldoAlbaranes", "Albaranes sin facturar", cliente.Dev_SaldoAlbaranes());
    sesion.respuesta.Dato("saldoPuntos", "Puntos", cliente.Dev_SaldoPuntos());
    sesion.respuesta.Dato("notasVencidas", "Notas vencidas en la empresa", cliente.Verif_Notas());
    sesion.respuesta.Dato("codigoNuevo", "Siguiente código libre",
                          cliente.Dev_Codigo_Nuevo(LeerEntero("--minimo", o.minimo, 1, INT32_MAX)));
    sesion.Escribir(std::cout);
}

void Fechar(const OpcionesCliente& o, void (clsCliente::*metodo)(Fecha), std::optional<Fecha> clsCliente::*dato,
            const char* etiqueta) {
    const Fecha fecha = o.fecha.empty() ? Biblioteca().Hoy() : LeerFecha("--fecha", o.fecha);
    Sesion sesion(o.comunes, false);
    clsCliente cliente;
    Preparar(cliente, sesion, o);
    ExigirQueExista(cliente);
    (cliente.*metodo)(fecha);
    cliente.Cargar();
    sesion.respuesta.Dato("codigo", "Cliente", cliente.Codigo);
    sesion.respuesta.Dato("fecha", etiqueta, AValor{cliente}(dato));
    sesion.Escribir(std::cout);
}

CLI::App* Anadir(CLI::App& cliente, const Opciones& o, const char* nombre, const char* ayuda, bool conCodigo) {
    CLI::App* orden = cliente.add_subcommand(nombre, ayuda);
    o->comunes.Anadir(*orden);
    if (conCodigo) orden->add_option("--codigo", o->codigo, "Código del cliente")->required()->type_name("N");
    return orden;
}

void AnadirRecorrido(CLI::App& cliente, const Opciones& o, const char* nombre, const char* ayuda,
                     bool (clsCliente::*metodo)(clsCliente*), bool desdeUno) {
    CLI::App* orden = Anadir(cliente, o, nombre, ayuda, desdeUno);
    if (desdeUno) orden->add_flag("--por-nombre", o->porNombre, "Por orden de nombre, no de código");
    orden->callback([o, metodo, desdeUno] { Recorrer(*o, metodo, desdeUno); });
}

}  // namespace

void AnadirCliente(CLI::App& programa) {
    CLI::App* cliente = programa.add_subcommand("cliente", "Ficha, recorrido, borrado y consultas de clientes");
    cliente->require_subcommand(1);
    const auto o = std::make_shared<OpcionesCliente>();
    Anadir(*cliente, o, "ver", "Muestra la ficha de un cliente", true)->callback([o] { Ver(*o); });
    AnadirRecorrido(*cliente, o, "primero", "Muestra el de código más bajo", &clsCliente::Cargar_Primero, false);
    AnadirRecorrido(*cliente, o, "ultimo", "Muestra el de código más alto", &clsCliente::Cargar_Ultimo, false);
    AnadirRecorrido(*cliente, o, "anterior", "Muestra el anterior a uno", &clsCliente::Cargar_Anterior, true);
    AnadirRecorrido(*cliente, o, "siguiente", "Muestra el siguiente a uno", &clsCliente::Cargar_Siguiente, true);
    CLI::App* eliminar = Anadir(*cliente, o, "eliminar", "Elimina un cliente sin dependencias", true);
    eliminar->add_flag("--forzar", o->forzar, "Aunque tenga dependencias; sus documentos se quedan");
    eliminar->callback([o] { Eliminar(*o); });
    CLI::App* resumen = Anadir(*cliente, o, "resumen", "Saldos, notas vencidas y siguiente código libre", true);
    resumen->add_option("--minimo", o->minimo, "Desde qué código se busca el siguiente")->type_name("N");
    resumen->callback([o] { Resumen(*o); });
    CLI::App* venta = Anadir(*cliente, o, "venta", "Adelanta la fecha de la última venta", true);
    venta->add_option("--fecha", o->fecha, "Hoy si no se dice")->type_name("FECHA");
    venta->callback([o] { Fechar(*o, &clsCliente::Act_FUVenta, &clsCliente::FUVenta, "Última venta"); });
    CLI::App* cobro = Anadir(*cliente, o, "cobro", "Adelanta la fecha del último cobro", true);
    cobro->add_option("--fecha", o->fecha, "Hoy si no se dice")->type_name("FECHA");
    cobro->callback([o] { Fechar(*o, &clsCliente::Act_FUCobro, &clsCliente::FUCobro, "Último cobro"); });
}

}  // namespace kv::host
