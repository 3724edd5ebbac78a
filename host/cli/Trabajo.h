#pragma once

#include <memory>
#include <string>

#include "application/Bases.h"
#include "application/Sesion.h"
#include "host/Respuesta.h"

namespace CLI {
class App;
}

namespace kv::host {

/// The options that every command shares.
struct OpcionesComunes {
    aplicacion::OrigenBase base;
    /// 0 for a question that needs none.
    std::int16_t empresa = 1;
    bool json = false;
    bool traza = false;

    /// Adds --base, --odbc, --empresa, --json and --traza to a command.
    void Anadir(CLI::App& orden);
};

/// Rechazo unless exactly one of both names a database; `uso` is how the command takes the file.
void ExigirUnaBase(const aplicacion::OrigenBase& base, const std::string& uso);

/// One command at work: its session, its trace and its answer.
class Trabajo {
    class Traza;
    // The session's connection reports to it.
    std::unique_ptr<Traza> traza_;
    bool json_;

  public:
    /// Opens what the options name. The trace begins once the company is read.
    Trabajo(const OpcionesComunes& opciones, aplicacion::Acceso acceso);
    ~Trabajo();
    Trabajo(const Trabajo&) = delete;
    Trabajo& operator=(const Trabajo&) = delete;

    aplicacion::Sesion sesion;
    Respuesta respuesta;

    /// Writes the answer, and the trace's sum to standard error when it is on.
    void Escribir() const;

  private:
    aplicacion::Sesion Abrir(const OpcionesComunes& opciones, aplicacion::Acceso acceso);
};

}  // namespace kv::host
