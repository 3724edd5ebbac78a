#include "host/cli/Trabajo.h"

#include <CLI/CLI.hpp>
#include <chrono>
#include <iostream>

#include "application/Rechazo.h"
#include "db/BibliotecaComun.h"
#include "db/ConexionTrazada.h"
#include "host/cli/Opcion.h"

namespace kv::host {

void ExigirUnaBase(const aplicacion::OrigenBase& base, const std::string& uso) {
    if (base.fichero.empty() && base.odbc.empty())
        aplicacion::RechazarImposible("", "falta " + uso + " o {odbc} CADENA");
    if (!base.fichero.empty() && !base.odbc.empty())
        aplicacion::RechazarImposible("", "se espera " + uso + " o {odbc} CADENA, no los dos");
    if (base.espera && base.fichero.empty())
        aplicacion::RechazarImposible("espera", "solo es para un fichero; en un servidor decide él");
}

/// Writes each operation to standard error as it ends, so that a failing command shows what came before.
class Trabajo::Traza {
  public:
    void operator()(const OperacionTrazada& operacion) {
        total_ += operacion.tiempo;
        ++cuantas_;
        char tiempo[32];
        std::snprintf(tiempo, sizeof tiempo, "%8.3f ms ", Milisegundos(operacion.tiempo));
        std::cerr << tiempo << operacion.clase;
        if (!operacion.texto.empty()) std::cerr << " |" << operacion.texto << '|';
        if (!operacion.error.empty())
            std::cerr << " -> error";
        else if (operacion.clase == "Open")
            std::cerr << (operacion.hayFila ? " -> con fila" : " -> sin fila");
        else if (operacion.afectados >= 0)
            std::cerr << " -> " << operacion.afectados << " afectadas";
        std::cerr << '\n';
    }
    void Resumir() const {
        char tiempo[32];
        std::snprintf(tiempo, sizeof tiempo, "%8.3f ms ", Milisegundos(total_));
        std::cerr << tiempo << "en " << cuantas_ << " operaciones\n";
    }

  private:
    static double Milisegundos(std::chrono::nanoseconds tiempo) { return static_cast<double>(tiempo.count()) / 1e6; }

    std::chrono::nanoseconds total_{};
    int cuantas_ = 0;
};

void OpcionesComunes::Anadir(CLI::App& orden) {
    Opcion(orden, "base", base.fichero, "FICHERO", "Fichero de la base de datos");
    Opcion(orden, "odbc", base.odbc, "CADENA", "Servidor, en vez de fichero: su cadena de conexión ODBC");
    Opcion(orden, "espera", base.espera, "SEGUNDOS", "Cuánto se espera a que otro programa suelte la base (10)",
           Rango{0, 3600});
    Opcion(orden, "empresa", empresa, "N", "Código de la empresa (1 si no se dice)");
    orden.add_flag("--json", json, "Responde en JSON");
    orden.add_flag("--traza", traza, "Muestra cada sentencia enviada y su tiempo (en la salida de errores)");
}

Trabajo::Trabajo(const OpcionesComunes& opciones, aplicacion::Acceso acceso)
    : traza_(opciones.traza ? std::make_unique<Traza>() : nullptr),
      json_(opciones.json),
      sesion(Abrir(opciones, acceso)) {}

Trabajo::~Trabajo() = default;

aplicacion::Sesion Trabajo::Abrir(const OpcionesComunes& opciones, aplicacion::Acceso acceso) {
    ExigirUnaBase(opciones.base, "{base} FICHERO");
    std::shared_ptr<Connection> conexion = AbrirBase(opciones.base, acceso, [fichero = opciones.base.fichero] {
        std::cerr << "kvdatosart: esperando a que otro programa suelte «" << fichero << "»...\n";
    });
    std::shared_ptr<kv::cEmpresa> empresa;
    if (opciones.empresa != 0) empresa = aplicacion::LeerEmpresa(*conexion, opciones.empresa);
    if (traza_)
        conexion = std::make_shared<ConexionTrazada>(
            conexion, [traza = traza_.get()](const OperacionTrazada& operacion) { (*traza)(operacion); });
    return {std::move(conexion), std::move(empresa), Biblioteca().Hoy()};
}

void Trabajo::Escribir() const {
    if (traza_) traza_->Resumir();
    respuesta.Escribir(std::cout, json_);
}

}  // namespace kv::host
