#pragma once

#include "tests/com/ComandoFalso.h"

namespace kv::prueba {

/// Serves a class of ADO from this process for as long as it runs.
template <class Objeto>
void Servir(const CLSID& clase, const GUID& generacion) {
    DWORD marca = 0;
    CoRegisterClassObject(clase, Nuevo<FabricaFalsa<Objeto>>(generacion).Get(), CLSCTX_INPROC_SERVER,
                          REGCLS_MULTIPLEUSE, &marca);
}

/// A recording with fakes that stand for its company, its connection and ADO.
struct Escena {
    Escena() {
        Servir<RecordsetFalso>(ado::kClaseRecordset, ado::kRecordset[1]);
        Servir<ComandoFalso>(ado::kClaseCommand, ado::kCommand[0]);
    }
    void Abrir(const char* ruta) { casos = LeerGrabacion(ruta, empresa->valores); }

    std::vector<Caso> casos;
    PunteroCom<EmpresaFalsa> empresa = Nuevo<EmpresaFalsa>();
    PunteroCom<ConexionFalsa> conexion = Nuevo<ConexionFalsa>(ado::kConnection[0]);
};

}  // namespace kv::prueba
