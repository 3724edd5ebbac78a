#include "kvdatosart/host/cli/Trabajo.h"

#include <CLI/CLI.hpp>
#include <iostream>

#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/host/Terminal.h"
#include "kvdatosart/host/cli/BibliotecaPrograma.h"
#include "kvdatosart/host/cli/Opcion.h"

namespace kv::host {

void ExigirUnaBase(const aplicacion::OrigenBase& base, const std::string& uso) {
    if (base.fichero.empty() && base.odbc.empty())
        aplicacion::RechazarImposible("", "falta " + uso + " o {odbc} CADENA");
    if (!base.fichero.empty() && !base.odbc.empty())
        aplicacion::RechazarImposible("", "se espera " + uso + " o {odbc} CADENA, no los dos");
    if (base.espera && base.fichero.empty())
        aplicacion::RechazarImposible("espera", "solo es para un fichero; en un servidor decide él");
}

void AnadirBase(CLI::App& orden, std::string& fichero) {
    Opcion(orden, "base", fichero, "FICHERO", "Fichero de la base de datos (KV_BASE si no se dice)")
        ->group(kGrupoComun);
}

aplicacion::OrigenBase OHabitual(aplicacion::OrigenBase base) {
    if (base.fichero.empty() && base.odbc.empty()) base.fichero = DelEntorno("KV_BASE");
    return base;
}

std::function<void()> AvisoDeEspera(const aplicacion::OrigenBase& base) {
    return [fichero = base.fichero] {
        std::cerr << "kvdatosart: esperando a que otro programa suelte «" << fichero << "»...\n";
    };
}

void AnadirTraza(CLI::App& orden, bool& traza) {
    orden.add_flag("--traza", traza, "Muestra cada sentencia enviada y su tiempo (en la salida de errores)")
        ->group(kGrupoComun);
}

void AnadirHoy(CLI::App& orden, std::optional<Fecha>& hoy) {
    Opcion(orden, "hoy", hoy, "FECHA", "Día que se toma por hoy")->group(kGrupoComun);
}

Fecha FijarHoy(const std::optional<Fecha>& hoy) {
    const Fecha dia = hoy ? *hoy : Biblioteca().Hoy();
    CambiarBiblioteca(std::make_shared<BibliotecaPrograma>(dia));
    return dia;
}

void OpcionesComunes::AnadirOrigen(CLI::App& orden) {
    AnadirBase(orden, base.fichero);
    Opcion(orden, "odbc", base.odbc, "CADENA", "Servidor, en vez de fichero: su cadena de conexión ODBC")
        ->group(kGrupoComun);
    Opcion(orden, "espera", base.espera, "SEGUNDOS", "Cuánto se espera a que otro programa suelte la base (10)",
           Rango{0, 3600})
        ->group(kGrupoComun);
    Opcion(orden, "empresa", empresa, "N", "Código de la empresa (1 si no se dice)")->group(kGrupoComun);
}

void OpcionesComunes::Anadir(CLI::App& orden) {
    AnadirOrigen(orden);
    salida.Anadir(orden);
    AnadirHoy(orden, hoy);
    AnadirTraza(orden, traza);
}

Trabajo::Trabajo(const OpcionesComunes& opciones, aplicacion::Acceso acceso)
    : traza_(opciones.traza ? std::make_unique<Traza>() : nullptr),
      salida_(opciones.salida),
      acceso_(acceso),
      sesion(Abrir(opciones, acceso)) {}

Trabajo::~Trabajo() = default;

aplicacion::Sesion Trabajo::Abrir(const OpcionesComunes& opciones, aplicacion::Acceso acceso) {
    salida_.Exigir();
    const aplicacion::OrigenBase base = OHabitual(opciones.base);
    ExigirUnaBase(base, "{base} FICHERO");
    std::shared_ptr<Connection> conexion = AbrirBase(base, acceso, AvisoDeEspera(base));
    std::shared_ptr<kv::cEmpresa> empresa;
    if (opciones.empresa != 0) empresa = aplicacion::LeerEmpresa(*conexion, opciones.empresa);
    if (traza_)
        conexion = std::make_shared<ConexionTrazada>(
            conexion, [traza = traza_.get()](const OperacionTrazada& operacion) { (*traza)(operacion); });
    return {std::move(conexion), std::move(empresa), FijarHoy(opciones.hoy)};
}

void Trabajo::Escribir() const {
    if (traza_) traza_->Resumir();
    salida_.Escribir(respuesta, acceso_ == aplicacion::Acceso::Escribir);
}

}  // namespace kv::host
