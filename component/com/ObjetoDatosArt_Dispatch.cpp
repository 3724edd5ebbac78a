#include <climits>

#include "kvdatosart/component/com/ArgumentosCompletos.h"
#include "kvdatosart/component/com/Modulo.h"
#include "kvdatosart/component/com/ObjetoDatosArt.h"

namespace kv {
namespace {

constexpr DISPID kConexion = 30;
constexpr DISPID kEmpresa = 31;
constexpr DISPID kDevPvp = 32;
constexpr DISPID kCargar = 33;
constexpr DISPID kPadre = 48;

bool EsReferencia(DISPID miembro) {
    return miembro == kConexion || miembro == kEmpresa || miembro == kPadre;
}

}  // namespace

HRESULT ObjetoDatosArt::GetTypeInfoCount(UINT* cuantos) {
    if (cuantos == nullptr) return E_POINTER;
    *cuantos = 1;
    return S_OK;
}

HRESULT ObjetoDatosArt::GetTypeInfo(UINT indice, LCID, ITypeInfo** info) {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    if (indice != 0) return DISP_E_BADINDEX;
    HRESULT hr = S_OK;
    *info = Modulo::Interfaz(hr);
    if (*info != nullptr) (*info)->AddRef();
    return hr;
}

HRESULT ObjetoDatosArt::GetIDsOfNames(REFIID iid, LPOLESTR* nombres, UINT cuantos, LCID, DISPID* ids) {
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (nombres == nullptr || ids == nullptr) return E_POINTER;
    HRESULT hr = S_OK;
    ITypeInfo* info = Modulo::Interfaz(hr);
    return info != nullptr ? info->GetIDsOfNames(nombres, cuantos, ids) : hr;
}

HRESULT ObjetoDatosArt::Invoke(DISPID miembro, REFIID iid, LCID, WORD clase, DISPPARAMS* argumentos, VARIANT* resultado,
                               EXCEPINFO* excepcion, UINT* erroneo) {
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (argumentos == nullptr) return E_INVALIDARG;
    HRESULT hr = S_OK;
    ITypeInfo* info = Modulo::Interfaz(hr);
    if (info == nullptr) return hr;
    // Script hosts without Set assign an object as a value.
    if (EsReferencia(miembro) && (clase & DISPATCH_PROPERTYPUT) != 0) clase = DISPATCH_PROPERTYPUTREF;
    SetErrorInfo(0, nullptr);
    const auto invocar = [&](DISPPARAMS* pasados, UINT* cual) {
        return info->Invoke(static_cast<::_clsDatosArt*>(this), miembro, clase, pasados, resultado, excepcion, cual);
    };
    if (miembro != kCargar && miembro != kDevPvp) return invocar(argumentos, erroneo);
    VARIANT valor{};
    valor.vt = miembro == kCargar ? VT_CY : VT_BOOL;
    ArgumentosCompletos completos(*argumentos, miembro == kCargar ? 6 : 2, valor);
    UINT cual = UINT_MAX;
    hr = invocar(completos.Get(), &cual);
    if (erroneo != nullptr && cual != UINT_MAX) *erroneo = completos.Situar(cual);
    return hr;
}

}  // namespace kv
