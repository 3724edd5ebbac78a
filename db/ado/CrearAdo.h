#pragma once

#include <windows.h>

#include <cstddef>

#include "db/ado/ErrorCom.h"
#include "db/ado/PunteroCom.h"

namespace kv {

/// A new ADO object under the first generation of its interface that it has. Fails as ADO does when it is missing.
template <class Interfaz, std::size_t N>
PunteroCom<Interfaz> CrearAdo(const GUID& clase, const GUID (&generaciones)[N]) {
    PunteroCom<IUnknown> objeto;
    Comprobar(CoCreateInstance(clase, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, objeto.RecibirVoid()), "ADODB");
    PunteroCom<Interfaz> pedida;
    for (const GUID& generacion : generaciones)
        if (objeto->QueryInterface(generacion, pedida.RecibirVoid()) == S_OK) return pedida;
    LanzarErrorCom(E_NOINTERFACE, "ADODB");
}

}  // namespace kv
