#pragma once

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>

#include "component/clsDatosArt.h"
#include "db/Connection.h"
#include "db/cEmpresa.h"
#include "host/Respuesta.h"

namespace CLI {
class App;
}

namespace kv::host {

/// The options that every command shares.
struct OpcionesComunes {
    /// The embedded database's file, or the connection string of a server: exactly one of them.
    std::string base;
    std::string odbc;
    std::string empresa = "1";
    bool json = false;
    bool traza = false;

    /// Adds --base, --odbc, --empresa, --json and --traza to a command.
    void Anadir(CLI::App& orden);
};

/// Fallo kUso unless exactly one of both names a database; `uso` is how the command takes the file.
void ExigirUnaBase(const std::string& fichero, const std::string& uso, const std::string& odbc);

/// One command at work: its open database, its company and its answer.
class Sesion {
  public:
    /// Opens the database that the options name and reads the company. Fallo kUso when none or two are named or the
    /// company is unknown; the adapter's error when the database cannot be opened.
    Sesion(const OpcionesComunes& opciones, bool soloLectura);
    ~Sesion();
    Sesion(const Sesion&) = delete;
    Sesion& operator=(const Sesion&) = delete;

    Connection& Cnx() const { return *conexion_; }
    const kv::cEmpresa& Emp() const { return *empresa_; }

    /// Gives an object of the component this database and company.
    template <class Objeto>
    void Inyectar(Objeto& objeto) const {
        objeto.Conexion(conexion_);
        objeto.cEmpresa(empresa_);
    }

    /// Runs `accion` in a transaction: all that it writes stays, or nothing.
    template <class Accion>
    void EnTransaccion(Accion&& accion) {
        Cnx().BeginTrans();
        try {
            accion();
            Cnx().CommitTrans();
        } catch (...) {
            Deshacer();
            throw;
        }
    }

    /// Whether a query has a row.
    bool Hay(std::string_view sql) const;
    /// Fallo kNegativo when the company has no such warehouse.
    void ExigirAlmacen(std::int16_t codigo) const;

    Respuesta respuesta;

    /// Writes the answer, and the trace's sum to standard error when it is on.
    void Escribir(std::ostream& salida) const;

  private:
    class Traza;

    void Deshacer() noexcept;

    bool json_;
    std::unique_ptr<Traza> traza_;
    std::shared_ptr<Connection> conexion_;
    std::shared_ptr<kv::cEmpresa> empresa_;
};

}  // namespace kv::host
