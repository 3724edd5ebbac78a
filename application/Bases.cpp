#include "kvdatosart/application/Bases.h"

#include <filesystem>

#include "kvdatosart/application/Averias.h"
#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/base/Ruta.h"
#include "kvdatosart/db/odbc/ConexionOdbc.h"
#include "kvdatosart/db/sqlite/ConexionSqlite.h"
#include "kvdatosart/schema/Demostracion.h"
#include "kvdatosart/schema/DemostracionServidor.h"
#include "kvdatosart/schema/Esquema.h"

namespace kv::aplicacion {
namespace {

EsperaBloqueo Espera(const OrigenBase& origen, const std::function<void()>& alEsperar) {
    EsperaBloqueo espera;
    if (origen.espera) espera.maxima = std::chrono::seconds(*origen.espera);
    espera.aviso = alEsperar;
    return espera;
}

}  // namespace

std::shared_ptr<Connection> AbrirBase(const OrigenBase& origen, Acceso acceso, const std::function<void()>& alEsperar) {
    if (!origen.odbc.empty()) return std::make_shared<ConexionOdbc>(origen.odbc);
    const auto modo =
        acceso == Acceso::Leer ? ConexionSqlite::Modo::SoloLectura : ConexionSqlite::Modo::LecturaEscritura;
    return ConexionSqlite::Abrir(origen.fichero, kIdentidadEsquema, modo, Espera(origen, alEsperar));
}

std::vector<std::shared_ptr<Connection>> AbrirMismoEstado(const OrigenBase& origen, std::size_t cuantas,
                                                          const std::function<void()>& alEsperar) {
    const auto conexiones =
        ConexionSqlite::AbrirMismoEstado(origen.fichero, kIdentidadEsquema, cuantas, Espera(origen, alEsperar));
    return {conexiones.begin(), conexiones.end()};
}

void CrearDemo(const OrigenBase& origen, Fecha hoy, const ConexionTrazada::Informe& informe) {
    // Hands on a connection that listens to this one while it fills.
    const auto llenar = [&](Connection& conexion, const auto& cargar) {
        if (!informe) return cargar(conexion);
        ConexionTrazada trazada({std::shared_ptr<Connection>(), &conexion}, informe);
        cargar(trazada);
    };
    if (origen.odbc.empty()) {
        ConexionSqlite::Crear(origen.fichero, kIdentidadEsquema, EsquemaSqlite(), [&](Connection& conexion) {
            llenar(conexion, [hoy](Connection& c) { CargarDemostracion(c, hoy); });
        });
        return;
    }
    ConexionOdbc servidor(origen.odbc);
    llenar(servidor, [&](Connection& c) {
        CrearDemostracionServidor(
            c, [&](std::string_view lote) { servidor.EjecutarLote(lote); }, hoy);
    });
}

std::uint64_t CopiarBase(const OrigenBase& origen, const std::string& destino, const std::function<bool()>& sigue) {
    if (!origen.odbc.empty())
        RechazarImposible("odbc", "solo se copia un fichero; la base de un servidor se copia con sus herramientas");
    try {
        ConexionSqlite::Copiar(origen.fichero, kIdentidadEsquema, destino, sigue);
    } catch (const RuntimeError& error) {
        if (error.descripcion.find("«" + destino) == std::string::npos) throw;
        throw Averia({destino, {}, {}}, error);
    }
    return std::filesystem::file_size(RutaDe(destino));
}

bool ActualizarBase(const std::string& fichero) {
    return ConexionSqlite::Actualizar(fichero, kIdentidadEsquema, EsquemaSqlite());
}

}  // namespace kv::aplicacion
