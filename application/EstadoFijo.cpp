#include "kvdatosart/application/EstadoFijo.h"

#include "kvdatosart/base/RuntimeError.h"

namespace kv::aplicacion {
namespace {

// One state while the transaction lasts; false when the database does not allow it.
bool VerUnSoloEstado(Connection& conexion, std::int16_t empresa) {
    try {
        conexion.Ejecutar("SET TRANSACTION ISOLATION LEVEL SNAPSHOT");
    } catch (const RuntimeError&) {
        conexion.BeginTrans();
        return false;
    }
    conexion.BeginTrans();
    try {
        // The first reading is what a database without permission for it refuses.
        (void)LeerEmpresa(conexion, empresa);
        return true;
    } catch (const RuntimeError&) {
        conexion.RollbackTrans();
        conexion.Ejecutar("SET TRANSACTION ISOLATION LEVEL READ COMMITTED");
        conexion.BeginTrans();
        return false;
    }
}

}  // namespace

EstadoFijo FijarEstado(const OrigenBase& origen, std::int16_t empresa, Fecha hoy, std::size_t trabajadores,
                       const std::function<void()>& alEsperar) {
    EstadoFijo estado{{}, hoy};
    if (!origen.odbc.empty()) {
        auto conexion = AbrirBase(origen, Acceso::Leer);
        estado.seMueve = !VerUnSoloEstado(*conexion, empresa);
        estado.puestos.push_back({std::move(conexion), nullptr});
    } else {
        for (auto& conexion : AbrirMismoEstado(origen, trabajadores > 1 ? trabajadores + 1 : 1, alEsperar))
            estado.puestos.push_back({std::move(conexion), nullptr});
    }
    for (Puesto& puesto : estado.puestos) puesto.empresa = LeerEmpresa(*puesto.conexion, empresa);
    return estado;
}

}  // namespace kv::aplicacion
