#include "host/Sesion.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <vector>

#include "base/RuntimeError.h"
#include "db/ConexionTrazada.h"
#include "db/ValoresSql.h"
#include "db/odbc/ConexionOdbc.h"
#include "db/sqlite/ConexionSqlite.h"
#include "host/EmpresaTabla.h"
#include "host/Fallo.h"
#include "host/Lectura.h"
#include "schema/Esquema.h"

namespace kv::host {
namespace {

std::shared_ptr<Connection> Abrir(const OpcionesComunes& opciones, bool soloLectura) {
    ExigirUnaBase(opciones.base, "--base FICHERO", opciones.odbc);
    // On a server, permissions decide what a session may write.
    if (!opciones.odbc.empty()) return std::make_shared<ConexionOdbc>(opciones.odbc);
    const auto modo = soloLectura ? ConexionSqlite::Modo::SoloLectura : ConexionSqlite::Modo::LecturaEscritura;
    return ConexionSqlite::Abrir(opciones.base, {kAplicacionEsquema, kVersionEsquema}, modo);
}

}  // namespace

void ExigirUnaBase(const std::string& fichero, const std::string& uso, const std::string& odbc) {
    if (fichero.empty() && odbc.empty()) throw Fallo(kUso, "falta " + uso + " o --odbc CADENA");
    if (!fichero.empty() && !odbc.empty()) throw Fallo(kUso, "se espera " + uso + " o --odbc CADENA, no los dos");
}

/// Writes each operation to standard error as it ends, so that a failing command shows what came before.
class Sesion::Traza {
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
    orden.add_option("--base", base, "Fichero de la base de datos")->type_name("FICHERO");
    orden.add_option("--odbc", odbc, "Servidor, en vez de fichero: su cadena de conexión ODBC")->type_name("CADENA");
    orden.add_option("--empresa", empresa, "Código de la empresa (1 si no se dice)")->type_name("N");
    orden.add_flag("--json", json, "Responde en JSON");
    orden.add_flag("--traza", traza, "Muestra cada sentencia enviada y su tiempo (en la salida de errores)");
}

Sesion::Sesion(const OpcionesComunes& opciones, bool soloLectura) : json_(opciones.json) {
    const std::int16_t codigo = LeerCodigo("--empresa", opciones.empresa);
    conexion_ = Abrir(opciones, soloLectura);
    empresa_ = std::make_shared<EmpresaTabla>(*conexion_, codigo);
    if (opciones.traza) {
        traza_ = std::make_unique<Traza>();
        conexion_ = std::make_shared<ConexionTrazada>(
            conexion_, [traza = traza_.get()](const OperacionTrazada& operacion) { (*traza)(operacion); });
    }
}

Sesion::~Sesion() = default;

bool Sesion::Hay(std::string_view sql) const {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, Cnx(), sql);
    return !rs->Eof();
}

void Sesion::ExigirAlmacen(std::int16_t codigo) const {
    if (!Hay(TextoSql("SELECT Codigo FROM Almacenes WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresa()),
                      " AND Codigo =", SqlEntero(codigo))))
        throw Fallo(kNegativo, "no existe el almacén " + std::to_string(codigo));
}

void Sesion::Deshacer() noexcept {
    try {
        Cnx().RollbackTrans();
    } catch (const RuntimeError&) {
        // The failure that brought us here is the one to report.
    }
}

void Sesion::Escribir(std::ostream& salida) const {
    if (traza_) traza_->Resumir();
    respuesta.Escribir(salida, json_);
}

}  // namespace kv::host
