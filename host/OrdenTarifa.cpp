#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "base/RuntimeError.h"
#include "component/clsDatosArt.h"
#include "db/BibliotecaComun.h"
#include "db/odbc/ConexionOdbc.h"
#include "db/sqlite/ConexionSqlite.h"
#include "host/Fallo.h"
#include "host/Lectura.h"
#include "host/Ordenes.h"
#include "host/Sesion.h"
#include "schema/Demostracion.h"
#include "schema/DemostracionServidor.h"
#include "schema/Esquema.h"

namespace kv::host {
namespace {

struct OpcionesDevPvp {
    OpcionesComunes comunes;
    std::string articulo;
    std::string tarifa;
    std::string fecha;
    std::string cualidadX = "0";
    bool forzar = false;
};

void DevPvp(const OpcionesDevPvp& opciones) {
    const std::int32_t codigo = LeerEntero("--articulo", opciones.articulo, 1, INT32_MAX);
    const std::int16_t tarifa = LeerCodigo("--tarifa", opciones.tarifa);
    const Fecha fecha = opciones.fecha.empty() ? Biblioteca().Hoy() : LeerFecha("--fecha", opciones.fecha);
    const auto cualidadX = static_cast<std::uint8_t>(LeerEntero("--cualidad-x", opciones.cualidadX, 0, 255));

    Sesion sesion(opciones.comunes, true);
    clsDatosArt articulo;
    sesion.Inyectar(articulo);
    articulo.Codigo = codigo;
    articulo.CualidadX = cualidadX;
    Currency pvp;
    try {
        pvp = articulo.DevPvp(tarifa, fecha, opciones.forzar);
    } catch (const RuntimeError& error) {
        if (error.numero != kErrObjetoNoEstablecido) throw;
        // The search would go on through a customer's tariffs, and here there is no customer.
        throw Fallo(kNegativo, "el artículo " + opciones.articulo + " no tiene precio en la tarifa " + opciones.tarifa +
                                   " el " + fecha.ATexto().Cadena());
    }
    Respuesta& r = sesion.respuesta;
    r.Dato("articulo", "Artículo", codigo);
    if (cualidadX != 0) r.Dato("cualidadX", "Cualidad X", cualidadX);
    r.Dato("fecha", "Fecha", fecha);
    r.Dato("pvp", "Precio", pvp);
    r.Dato("tarifaPvp", "Tarifa", articulo.TarifaPVP);
    sesion.Escribir(std::cout);
}

struct OpcionesDemo {
    std::string fichero;
    std::string odbc;
};

void CrearDemo(const OpcionesDemo& o) {
    ExigirUnaBase(o.fichero, "FICHERO", o.odbc);
    const Fecha hoy = Biblioteca().Hoy();
    if (o.odbc.empty()) {
        ConexionSqlite::Crear(o.fichero, {kAplicacionEsquema, kVersionEsquema}, EsquemaSqlite(),
                              [hoy](Connection& conexion) { CargarDemostracion(conexion, hoy); });
        std::cout << "Creada la base de demostración «" << o.fichero << "»\n";
        return;
    }
    ConexionOdbc servidor(o.odbc);
    CrearDemostracionServidor(
        servidor, [&](std::string_view lote) { servidor.EjecutarLote(lote); }, hoy);
    std::cout << "Creadas las tablas y los datos de demostración en el servidor\n";
}

}  // namespace

void AnadirCrearDemo(CLI::App& programa) {
    CLI::App* orden = programa.add_subcommand(
        "crear-demo", "Crea una base de datos de demostración en un fichero nuevo o en una base vacía de un servidor");
    const auto o = std::make_shared<OpcionesDemo>();
    orden->add_option("fichero", o->fichero, "Fichero que se crea; no debe existir")->type_name("FICHERO");
    orden->add_option("--odbc", o->odbc, "Cadena de conexión ODBC; no debe tener empresas")->type_name("CADENA");
    orden->callback([o] { CrearDemo(*o); });
}

void AnadirDevPvp(CLI::App& programa) {
    CLI::App* orden = programa.add_subcommand("devpvp", "Precio de tarifa de un artículo en una fecha");
    const auto opciones = std::make_shared<OpcionesDevPvp>();
    opciones->comunes.Anadir(*orden);
    orden->add_option("--articulo", opciones->articulo, "Código del artículo")->required()->type_name("N");
    orden->add_option("--tarifa", opciones->tarifa, "Código de la tarifa")->required()->type_name("N");
    orden->add_option("--fecha", opciones->fecha, "Fecha del precio (hoy si no se dice)")->type_name("FECHA");
    orden->add_option("--cualidad-x", opciones->cualidadX, "Cualidad X (talla...), de 0 a 255")->type_name("N");
    orden->add_flag("--forzar", opciones->forzar, "En una fecha futura usa los cambios de tarifa programados");
    orden->callback([opciones] { DevPvp(*opciones); });
}

}  // namespace kv::host
