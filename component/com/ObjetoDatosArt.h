#pragma once

#include <atomic>
#include <memory>

#include "KVDatosArt_h.h"
#include "kvdatosart/component/clsDatosArt.h"
#include "kvdatosart/db/ado/PunteroCom.h"

namespace kv {

/// The COM face of one clsDatosArt: converts arguments and results to the width and turns failures into error objects.
class ObjetoDatosArt final : public ::_clsDatosArt, public ISupportErrorInfo {
  public:
    explicit ObjetoDatosArt(std::shared_ptr<clsDatosArt> nativo);
    ObjetoDatosArt(const ObjetoDatosArt&) = delete;
    ObjetoDatosArt& operator=(const ObjetoDatosArt&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** objeto) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* cuantos) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT indice, LCID lcid, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* nombres, UINT cuantos, LCID lcid,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID miembro, REFIID iid, LCID lcid, WORD clase, DISPPARAMS* argumentos,
                                     VARIANT* resultado, EXCEPINFO* excepcion, UINT* erroneo) override;

    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;

// clang-format off
#define KV_PROPIEDAD(nombre, tipo)                          \
    HRESULT STDMETHODCALLTYPE get_##nombre(tipo* valor) override; \
    HRESULT STDMETHODCALLTYPE put_##nombre(tipo nuevo) override;
#include "kvdatosart/component/com/Propiedades.inc"
#undef KV_PROPIEDAD
    // clang-format on

    HRESULT STDMETHODCALLTYPE putref_Conexion(IDispatch* nueva) override;
    HRESULT STDMETHODCALLTYPE putref_cEmpresa(IDispatch* nueva) override;
    HRESULT STDMETHODCALLTYPE DevPvp(short intTarifa, DATE dteFecha, VARIANT_BOOL blnForzarAnterior,
                                     CURRENCY* precio) override;
    HRESULT STDMETHODCALLTYPE Cargar(LONG lngCod_Articulo, LONG lngCod_Cliente, DATE dteFecha, short intTarifa,
                                     short intCod_Almacen, short intDec_Pvp, CURRENCY curUnidades,
                                     short* estado) override;
    HRESULT STDMETHODCALLTYPE get_padre(::_clsDatosArt** valor) override;
    HRESULT STDMETHODCALLTYPE putref_padre(::_clsDatosArt* nuevo) override;

  private:
    ~ObjetoDatosArt();

    std::atomic<ULONG> referencias_{1};
    std::shared_ptr<clsDatosArt> nativo_;
    /// The face of the parent that was handed out last, so that every reading gives the same object.
    PunteroCom<ObjetoDatosArt> padre_;
};

}  // namespace kv
