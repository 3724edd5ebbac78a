#pragma once

#include <functional>
#include <memory>
#include <string>

#include "kvdatosart/application/Bases.h"
#include "kvdatosart/application/Sesion.h"
#include "kvdatosart/host/Salida.h"
#include "kvdatosart/host/cli/OpcionesSalida.h"
#include "kvdatosart/host/cli/Traza.h"

namespace CLI {
class App;
}

namespace kv::host {

/// The options that every command shares.
struct OpcionesComunes {
    aplicacion::OrigenBase base;
    /// 0 for a question that needs none.
    std::int16_t empresa = 1;
    OpcionesSalida salida;
    std::optional<Fecha> hoy;
    bool traza = false;

    /// Adds those that name the database and the company to a command.
    void AnadirOrigen(CLI::App& orden);
    /// Adds them all.
    void Anadir(CLI::App& orden);
};

/// Adds --base.
void AnadirBase(CLI::App& orden, std::string& fichero);
/// What the options name, or the environment's KV_BASE when they name none.
aplicacion::OrigenBase OHabitual(aplicacion::OrigenBase base);

/// Rechazo unless exactly one of both names a database; `uso` is how the command takes the file.
void ExigirUnaBase(const aplicacion::OrigenBase& base, const std::string& uso);

/// Tells on standard error, when it is called, that the file is waited for.
std::function<void()> AvisoDeEspera(const aplicacion::OrigenBase& base);

/// Adds --traza.
void AnadirTraza(CLI::App& orden, bool& traza);
/// Adds --hoy.
void AnadirHoy(CLI::App& orden, std::optional<Fecha>& hoy);
/// Today, which stays the same from here on: the day that was asked for, else the system's.
Fecha FijarHoy(const std::optional<Fecha>& hoy);

/// One command at work: its session, its trace and its answer.
class Trabajo {
    // The session's connection reports to it.
    std::unique_ptr<Traza> traza_;
    OpcionesSalida salida_;
    aplicacion::Acceso acceso_;

  public:
    /// Opens what the options name. The trace begins once the company is read.
    Trabajo(const OpcionesComunes& opciones, aplicacion::Acceso acceso);
    ~Trabajo();
    Trabajo(const Trabajo&) = delete;
    Trabajo& operator=(const Trabajo&) = delete;

    aplicacion::Sesion sesion;
    Documento respuesta{SeparadorDeGente()};

    /// Writes the answer, and the trace's sum to standard error when it is on.
    void Escribir() const;

  private:
    aplicacion::Sesion Abrir(const OpcionesComunes& opciones, aplicacion::Acceso acceso);
};

}  // namespace kv::host
