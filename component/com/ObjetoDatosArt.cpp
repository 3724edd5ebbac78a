#include "kvdatosart/component/com/ObjetoDatosArt.h"

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/component/com/AHresult.h"
#include "kvdatosart/component/com/Modulo.h"
#include "kvdatosart/db/ado/ConexionAdo.h"
#include "kvdatosart/db/ado/EmpresaDispatch.h"
#include "kvdatosart/db/ado/Variante.h"

namespace kv {
namespace {

// Asks an object whether it is one of ours; only this DLL answers it.
constexpr GUID kPropio = {0xcccea079, 0xb073, 0x4f8f, {0xbb, 0x6d, 0x26, 0xa4, 0x48, 0xf9, 0x67, 0x60}};

void Dar(BSTR& destino, const std::string& valor) {
    destino = Cadena(valor).Soltar();
}
void Dar(CURRENCY& destino, Currency valor) {
    destino.int64 = valor.Diezmilesimas();
}
void Dar(VARIANT_BOOL& destino, bool valor) {
    destino = valor ? VARIANT_TRUE : VARIANT_FALSE;
}
template <class Destino, class Valor>
void Dar(Destino& destino, Valor valor) {
    destino = valor;
}

void Tomar(std::string& destino, BSTR valor) {
    destino = Utf8(valor);
}
void Tomar(Currency& destino, CURRENCY valor) {
    destino = Currency::DeDiezmilesimas(valor.int64);
}
void Tomar(bool& destino, VARIANT_BOOL valor) {
    destino = valor != VARIANT_FALSE;
}
template <class Destino, class Valor>
void Tomar(Destino& destino, Valor valor) {
    destino = valor;
}

}  // namespace

ObjetoDatosArt::ObjetoDatosArt(std::shared_ptr<clsDatosArt> nativo) : nativo_(std::move(nativo)) {
    Modulo::Retener();
}
ObjetoDatosArt::~ObjetoDatosArt() {
    Modulo::Soltar();
}

HRESULT ObjetoDatosArt::QueryInterface(REFIID iid, void** objeto) {
    if (objeto == nullptr) return E_POINTER;
    *objeto = nullptr;
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == IID__clsDatosArt)
        *objeto = static_cast<::_clsDatosArt*>(this);
    else if (iid == IID_ISupportErrorInfo)
        *objeto = static_cast<ISupportErrorInfo*>(this);
    else if (iid == kPropio)
        *objeto = this;
    else
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG ObjetoDatosArt::AddRef() {
    return ++referencias_;
}
ULONG ObjetoDatosArt::Release() {
    const ULONG quedan = --referencias_;
    if (quedan == 0) delete this;
    return quedan;
}

HRESULT ObjetoDatosArt::InterfaceSupportsErrorInfo(REFIID iid) {
    return iid == IID__clsDatosArt ? S_OK : S_FALSE;
}

#define KV_PROPIEDAD(nombre, tipo)                          \
    HRESULT ObjetoDatosArt::get_##nombre(tipo* valor) try { \
        if (valor == nullptr) return E_POINTER;             \
        *valor = {};                                        \
        Dar(*valor, nativo_->nombre);                       \
        return S_OK;                                        \
    } catch (...) {                                         \
        return AHresult();                                  \
    }                                                       \
    HRESULT ObjetoDatosArt::put_##nombre(tipo nuevo) try {  \
        Tomar(nativo_->nombre, nuevo);                      \
        return S_OK;                                        \
    } catch (...) {                                         \
        return AHresult();                                  \
    }
#include "kvdatosart/component/com/Propiedades.inc"
#undef KV_PROPIEDAD

HRESULT ObjetoDatosArt::putref_Conexion(IDispatch* nueva) try {
    nativo_->Conexion(nueva != nullptr ? std::make_shared<ConexionAdo>(nueva) : nullptr);
    return S_OK;
} catch (...) {
    return AHresult();
}

HRESULT ObjetoDatosArt::putref_cEmpresa(IDispatch* nueva) try {
    nativo_->cEmpresa(nueva != nullptr ? std::make_shared<EmpresaDispatch>(nueva) : nullptr);
    return S_OK;
} catch (...) {
    return AHresult();
}

HRESULT ObjetoDatosArt::DevPvp(short intTarifa, DATE dteFecha, VARIANT_BOOL blnForzarAnterior, CURRENCY* precio) try {
    if (precio == nullptr) return E_POINTER;
    precio->int64 = 0;
    Dar(*precio, nativo_->DevPvp(intTarifa, Fecha::DeOle(dteFecha), blnForzarAnterior != VARIANT_FALSE));
    return S_OK;
} catch (...) {
    return AHresult();
}

HRESULT ObjetoDatosArt::Cargar(LONG lngCod_Articulo, LONG lngCod_Cliente, DATE dteFecha, short intTarifa,
                               short intCod_Almacen, short intDec_Pvp, CURRENCY curUnidades, short* estado) try {
    if (estado == nullptr) return E_POINTER;
    *estado = 0;
    const Fecha fecha = Fecha::DeOle(dteFecha);
    padre_ = {};
    *estado = nativo_->Cargar(lngCod_Articulo, lngCod_Cliente, fecha, intTarifa, intCod_Almacen, intDec_Pvp,
                              Currency::DeDiezmilesimas(curUnidades.int64));
    return S_OK;
} catch (...) {
    return AHresult();
}

HRESULT ObjetoDatosArt::get_padre(::_clsDatosArt** valor) try {
    if (valor == nullptr) return E_POINTER;
    *valor = nullptr;
    std::shared_ptr<clsDatosArt> nativo = nativo_->padre();
    if (!nativo) return S_OK;
    if (!padre_ || padre_->nativo_ != nativo) *padre_.Recibir() = new ObjetoDatosArt(std::move(nativo));
    *valor = padre_.Get();
    (*valor)->AddRef();
    return S_OK;
} catch (...) {
    return AHresult();
}

HRESULT ObjetoDatosArt::putref_padre(::_clsDatosArt* nuevo) try {
    PunteroCom<ObjetoDatosArt> propio;
    if (nuevo != nullptr && FAILED(nuevo->QueryInterface(kPropio, propio.RecibirVoid())))
        LanzarError(kErrTipo, "padre no es un clsDatosArt de este componente");
    nativo_->padre(propio ? propio->nativo_ : nullptr);
    padre_ = std::move(propio);
    return S_OK;
} catch (...) {
    return AHresult();
}

}  // namespace kv
