#pragma once

#include <windows.h>

#include <span>

#include "kvdatosart/db/ado/ErrorCom.h"
#include "kvdatosart/db/ado/PunteroCom.h"

namespace kv {

/// Makes the objects of one ADO class. The class is looked up for the first of them and kept, which spares every later
/// one the registry; like the connection that it serves, it stays in its thread's apartment.
template <class Interfaz>
class FabricaAdo {
  public:
    /// `generaciones`: the identifiers of the interface, the preferred one first; they outlive this object.
    FabricaAdo(const GUID& clase, std::span<const GUID> generaciones) : clsid_(clase), generaciones_(generaciones) {}

    /// A new object under the first generation that it has. Fails as ADO does when it is missing.
    PunteroCom<Interfaz> Crear() {
        if (!fabrica_)
            Comprobar(
                CoGetClassObject(clsid_, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, fabrica_.RecibirVoid()),
                "ADODB");
        PunteroCom<IUnknown> objeto;
        Comprobar(fabrica_->CreateInstance(nullptr, IID_IUnknown, objeto.RecibirVoid()), "ADODB");
        PunteroCom<Interfaz> pedida;
        for (const GUID& generacion : generaciones_)
            if (objeto->QueryInterface(generacion, pedida.RecibirVoid()) == S_OK) return pedida;
        LanzarErrorCom(E_NOINTERFACE, "ADODB");
    }

  private:
    GUID clsid_;
    std::span<const GUID> generaciones_;
    PunteroCom<IClassFactory> fabrica_;
};

}  // namespace kv
