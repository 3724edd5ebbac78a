#include <windows.h>

#include "KVDatosArt_h.h"
#include "kvdatosart/component/com/AHresult.h"
#include "kvdatosart/component/com/Fabrica.h"
#include "kvdatosart/component/com/Modulo.h"
#include "kvdatosart/component/com/Registro.h"

STDAPI DllGetClassObject(REFCLSID clase, REFIID iid, void** objeto) {
    static kv::Fabrica fabrica;
    if (objeto == nullptr) return E_POINTER;
    *objeto = nullptr;
    return clase == CLSID_clsDatosArt ? fabrica.QueryInterface(iid, objeto) : CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
    return kv::Modulo::SePuedeDescargar() ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() try { return kv::Registrar(); } catch (...) {
    return kv::AHresult();
}

STDAPI DllUnregisterServer() try { return kv::QuitarRegistro(); } catch (...) {
    return kv::AHresult();
}
