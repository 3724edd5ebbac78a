#pragma once

#include <CLI/CLI.hpp>
#include <memory>

#include "kvdatosart/application/Averias.h"
#include "kvdatosart/host/Documentos.h"
#include "kvdatosart/host/cli/Opcion.h"
#include "kvdatosart/host/cli/Trabajo.h"

namespace kv::host {

/// One command of the program: its options fill a request, and what the application answers is written.
template <class Peticion>
class Orden {
  public:
    Orden(CLI::App& padre, const char* nombre, const char* ayuda) : orden_(*padre.add_subcommand(nombre, ayuda)) {
        datos_->comunes.Anadir(orden_);
    }

    /// An option that must be given; `resto` is what the reading of its field takes besides.
    template <class T, class Clase, class... Resto>
    Orden& Exige(const char* campo, T Clase::*destino, const char* tipo, const char* ayuda, Resto... resto) {
        Opcion(orden_, campo, datos_->peticion.*destino, tipo, ayuda, resto...)->required();
        return *this;
    }
    /// One that may be left out.
    template <class T, class Clase, class... Resto>
    Orden& Admite(const char* campo, T Clase::*destino, const char* tipo, const char* ayuda, Resto... resto) {
        Opcion(orden_, campo, datos_->peticion.*destino, tipo, ayuda, resto...);
        return *this;
    }
    /// One without a value.
    template <class Clase>
    Orden& Marca(const char* campo, bool Clase::*destino, const char* ayuda) {
        orden_.add_flag(NombreOpcion(campo), datos_->peticion.*destino, ayuda);
        return *this;
    }

    /// Asked of the whole database, whatever companies it has.
    void SinEmpresa() { datos_->comunes.empresa = 0; }

    CLI::App& App() { return orden_; }
    Peticion& Pedida() { return datos_->peticion; }

    /// Runs `accion(trabajo, peticion)` when the command is given.
    template <class Accion>
    void Hace(aplicacion::Acceso acceso, Accion accion) {
        orden_.callback([datos = datos_, acceso, accion] {
            try {
                Trabajo trabajo(datos->comunes, acceso);
                accion(trabajo, datos->peticion);
            } catch (const RuntimeError& error) {
                throw aplicacion::Averia(OHabitual(datos->comunes.base), error);
            }
        });
    }
    /// Writes what `funcion(sesion, peticion)` answers, under a line that says what was done, if any.
    template <class Funcion>
    void Responde(aplicacion::Acceso acceso, Funcion funcion, const char* hecho = nullptr) {
        Hace(acceso, [funcion, hecho](Trabajo& trabajo, const Peticion& peticion) {
            const auto respuesta = funcion(trabajo.sesion, peticion);
            if (hecho != nullptr) trabajo.respuesta.Decir(hecho);
            Documentar(trabajo.respuesta, respuesta);
            trabajo.Escribir();
        });
    }

  private:
    struct Datos {
        OpcionesComunes comunes;
        Peticion peticion;
    };

    CLI::App& orden_;
    // The options keep referring to it while the program lives.
    std::shared_ptr<Datos> datos_ = std::make_shared<Datos>();
};

}  // namespace kv::host
