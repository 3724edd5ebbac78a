#include <array>

#include "component/com/Modulo.h"
#include "component/com/ObjetoDatosArt.h"

namespace kv {
namespace {

constexpr DISPID kConexion = 30;
constexpr DISPID kEmpresa = 31;
constexpr DISPID kCargar = 33;
constexpr DISPID kPadre = 48;
constexpr UINT kArgumentosCargar = 7;

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
    DISPPARAMS pasados = *argumentos;
    std::array<VARIANT, kArgumentosCargar> completos;
    // The type library cannot hold a Currency default, so the quantity that was left out is put here.
    if (miembro == kCargar && pasados.cArgs == kArgumentosCargar - 1 && pasados.cNamedArgs == 0) {
        completos[0].vt = VT_CY;
        completos[0].cyVal.int64 = 0;
        for (UINT i = 1; i < kArgumentosCargar; ++i) completos[i] = pasados.rgvarg[i - 1];
        pasados.rgvarg = completos.data();
        pasados.cArgs = kArgumentosCargar;
    }
    SetErrorInfo(0, nullptr);
    return info->Invoke(static_cast<::_clsDatosArt*>(this), miembro, clase, &pasados, resultado, excepcion, erroneo);
}

}  // namespace kv
