#pragma once

#include "tests/com/EmpresaFalsa.h"
#include "tests/com/Grabacion.h"

namespace kv::prueba {

/// A recording's company, a connection that answers from a script and classes of ADO, all fakes.
struct Escena {
    /// The load is what the connection answers next.
    void Poner(const Pasos& pasos) {
        for (const ConexionGuion::Paso& paso : pasos) guion.Anadir(paso);
    }

    const ClaseFalsa<RecordsetFalso> filas{ado::kClaseRecordset, ado::kRecordset[1]};
    const ClaseFalsa<ComandoFalso> ordenes{ado::kClaseCommand, ado::kCommand[0]};
    ConexionGuion guion;
    PunteroCom<EmpresaFalsa> empresa = Nuevo<EmpresaFalsa>();
    PunteroCom<ConexionFalsa> conexion = Nuevo<ConexionFalsa>(guion, ado::kConnection[0]);
};

}  // namespace kv::prueba
