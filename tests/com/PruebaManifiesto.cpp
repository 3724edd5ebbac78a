#include "tests/com/Etapas.h"

namespace kv::prueba {
namespace {

HRESULT CrearSinRegistro(PunteroCom<IDispatch>& objeto) {
    CLSID clase;
    const HRESULT hr = CLSIDFromProgID(L"KVDatosArt.clsDatosArt", &clase);
    if (FAILED(hr)) return hr;
    return CoCreateInstance(clase, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, objeto.RecibirVoid());
}

}  // namespace

void ProbarManifiesto(const char* ruta) {
    const Cadena manifiesto(ruta);
    PunteroCom<IDispatch> objeto;
    Exigir(FAILED(CrearSinRegistro(objeto)), "no está registrada");
    ACTCTXW peticion{};
    peticion.cbSize = sizeof peticion;
    peticion.lpSource = manifiesto.Get();
    const HANDLE contexto = CreateActCtxW(&peticion);
    ULONG_PTR marca = 0;
    if (contexto == INVALID_HANDLE_VALUE || !ActivateActCtx(contexto, &marca)) {
        Exigir(false, "contexto del manifiesto");
        return;
    }
    Exigir(CrearSinRegistro(objeto) == S_OK, "creación por el manifiesto");
    if (objeto) {
        VARIANT codigo{};
        codigo.vt = VT_I4;
        codigo.lVal = 118;
        Exigir(Poner(*objeto.Get(), "Codigo", codigo) == S_OK, "escritura por nombre");
        Exigir(Codificar(Leer(*objeto.Get(), "Codigo")) == "4:118", "lectura por nombre");
    }
    DeactivateActCtx(0, marca);
    ReleaseActCtx(contexto);
}

}  // namespace kv::prueba
