#include "kvdatosart/component/com/Fabrica.h"

#include "kvdatosart/component/com/AHresult.h"
#include "kvdatosart/component/com/Modulo.h"
#include "kvdatosart/component/com/ObjetoDatosArt.h"

namespace kv {

HRESULT Fabrica::QueryInterface(REFIID iid, void** objeto) {
    if (objeto == nullptr) return E_POINTER;
    *objeto = iid == IID_IUnknown || iid == IID_IClassFactory ? this : nullptr;
    if (*objeto == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG Fabrica::AddRef() {
    Modulo::Retener();
    return 2;
}
ULONG Fabrica::Release() {
    Modulo::Soltar();
    return 1;
}

HRESULT Fabrica::CreateInstance(IUnknown* exterior, REFIID iid, void** objeto) try {
    if (objeto == nullptr) return E_POINTER;
    *objeto = nullptr;
    if (exterior != nullptr) return CLASS_E_NOAGGREGATION;
    auto* nuevo = new ObjetoDatosArt(std::make_shared<clsDatosArt>());
    const HRESULT hr = nuevo->QueryInterface(iid, objeto);
    nuevo->Release();
    return hr;
} catch (...) {
    return AHresult();
}

HRESULT Fabrica::LockServer(BOOL retener) {
    retener ? Modulo::Retener() : Modulo::Soltar();
    return S_OK;
}

}  // namespace kv
