#include "application/Bases.h"

#include "db/odbc/ConexionOdbc.h"
#include "db/sqlite/ConexionSqlite.h"
#include "schema/Demostracion.h"
#include "schema/DemostracionServidor.h"
#include "schema/Esquema.h"

namespace kv::aplicacion {
namespace {

constexpr IdentidadBase kIdentidad{kAplicacionEsquema, kVersionEsquema};

}  // namespace

std::shared_ptr<Connection> AbrirBase(const OrigenBase& origen, Acceso acceso) {
    if (!origen.odbc.empty()) return std::make_shared<ConexionOdbc>(origen.odbc);
    const auto modo =
        acceso == Acceso::Leer ? ConexionSqlite::Modo::SoloLectura : ConexionSqlite::Modo::LecturaEscritura;
    return ConexionSqlite::Abrir(origen.fichero, kIdentidad, modo);
}

void CrearDemo(const OrigenBase& origen, Fecha hoy) {
    if (origen.odbc.empty()) {
        ConexionSqlite::Crear(origen.fichero, kIdentidad, EsquemaSqlite(),
                              [hoy](Connection& conexion) { CargarDemostracion(conexion, hoy); });
        return;
    }
    ConexionOdbc servidor(origen.odbc);
    CrearDemostracionServidor(
        servidor, [&](std::string_view lote) { servidor.EjecutarLote(lote); }, hoy);
}

bool ActualizarBase(const std::string& fichero) {
    return ConexionSqlite::Actualizar(fichero, kIdentidad, EsquemaSqlite());
}

}  // namespace kv::aplicacion
