#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/Connection.h"
#include "kvdatosart/db/ado/InterfacesAdo.h"
#include "kvdatosart/db/ado/PunteroCom.h"
#include "kvdatosart/db/ado/Variante.h"

// COM objects with ADO's interfaces before any connection of ours, whose failures go out as a provider's.
namespace kv::prueba {

/// Objects of these that are alive, and calls made to them, references apart.
inline long vivos = 0;
inline long llamadas = 0;

/// A new object with the one reference that it is born with.
template <class Objeto, class... Argumentos>
PunteroCom<Objeto> Nuevo(Argumentos&&... argumentos) {
    PunteroCom<Objeto> nuevo;
    *nuevo.Recibir() = new Objeto(std::forward<Argumentos>(argumentos)...);
    return nuevo;
}

/// Reports a failure as a provider does: its own HRESULT, source and text.
inline HRESULT Quejarse(const std::string& texto, HRESULT hr = static_cast<HRESULT>(0x80040E14)) {
    PunteroCom<ICreateErrorInfo> nuevo;
    CreateErrorInfo(nuevo.Recibir());
    nuevo->SetSource(Cadena("Proveedor de prueba").Get());
    nuevo->SetDescription(Cadena(texto).Get());
    PunteroCom<IErrorInfo> info;
    nuevo->QueryInterface(IID_IErrorInfo, info.RecibirVoid());
    SetErrorInfo(0, info.Get());
    return hr;
}

/// Counts a call and runs it, of the object when one is given.
template <class F, class... Objeto>
HRESULT Contestar(F f, Objeto&... objeto) try {
    ++llamadas;
    std::invoke(f, objeto...);
    return S_OK;
} catch (const RuntimeError& error) {
    return Quejarse(error.descripcion,
                    error.numero < 0 ? error.numero : MAKE_HRESULT(1, FACILITY_CONTROL, error.numero));
}

/// Counts a call and leaves its result.
template <class T>
HRESULT Dar(T& destino, std::type_identity_t<T> valor) {
    ++llamadas;
    destino = std::move(valor);
    return S_OK;
}

/// References, counted, and the one identifier that the object answers to besides IUnknown and IDispatch.
template <class Interfaz>
struct Contado : Interfaz {
    explicit Contado(const GUID& generacion = IID_NULL) : generacion_(generacion) { ++vivos; }
    virtual ~Contado() { --vivos; }
    STDMETHODIMP QueryInterface(REFIID iid, void** objeto) override {
        *objeto = iid == IID_IUnknown || iid == IID_IDispatch || iid == generacion_ ? this : nullptr;
        return *objeto != nullptr ? AddRef(), S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++referencias_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG quedan = --referencias_;
        if (quedan == 0) delete this;
        return quedan;
    }
    const GUID generacion_;
    ULONG referencias_ = 1;
};

/// The parts of IDispatch that early-bound callers never use.
template <class Interfaz>
struct Falso : Contado<Interfaz> {
    using Contado<Interfaz>::Contado;
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return E_NOTIMPL;
    }
};

struct CampoFalso : Falso<ado::Field> {
    CampoFalso(const Valor& valor, std::string_view nombre) : valor_(valor), nombre_(nombre) {}
    STDMETHODIMP get_Name(BSTR* nombre) override { return Dar(*nombre, Cadena(nombre_).Soltar()); }
    STDMETHODIMP get_Value(VARIANT* valor) override { return Dar(*valor, Variante(valor_).Soltar()); }
    const Valor valor_;
    const std::string nombre_;
};

struct CamposFalsos : Falso<ado::Fields> {
    explicit CamposFalsos(kv::Recordset& rs) : rs_(rs) {}
    STDMETHODIMP get_Count(long* cuantos) override { return Dar(*cuantos, rs_.NumeroCampos()); }
    /// By name its value, by place its name.
    STDMETHODIMP get_Item(VARIANT indice, ado::Field** campo) override {
        return Contestar([&] {
            *campo = indice.vt == VT_BSTR ? new CampoFalso(rs_.Fields(Utf8(indice.bstrVal)).Value(), "")
                                          : new CampoFalso(Nulo{}, rs_.NombreCampo(indice.lVal));
        });
    }
    kv::Recordset& rs_;
};

struct ConexionFalsa : Falso<ado::Connection> {
    explicit ConexionFalsa(kv::Connection& suya, const GUID& generacion = ado::kConnection[1])
        : Falso(generacion), real(&suya) {}
    STDMETHODIMP Execute(BSTR texto, VARIANT* afectados, long opciones, ado::Recordset** rs) override {
        *rs = nullptr;
        return Contestar([&] {
            std::int32_t cuantos = 0;
            real->Execute(Utf8(texto), &cuantos, static_cast<CommandType>(opciones));
            *afectados = Variante(Valor{cuantos}).Soltar();
        });
    }
    STDMETHODIMP BeginTrans(long*) override { return Contestar(&kv::Connection::BeginTrans, real); }
    STDMETHODIMP CommitTrans() override { return Contestar(&kv::Connection::CommitTrans, real); }
    STDMETHODIMP RollbackTrans() override { return Contestar(&kv::Connection::RollbackTrans, real); }
    STDMETHODIMP Open(BSTR, BSTR, BSTR, long) override { return E_NOTIMPL; }
    STDMETHODIMP get_State(long*) override { return E_NOTIMPL; }
    kv::Connection* real;
};

struct RecordsetFalso : Falso<ado::Recordset> {
    using Falso::Falso;
    STDMETHODIMP Open(VARIANT origen, VARIANT conexion, int cursor, int bloqueo, long opciones) override {
        return Contestar([&] {
            kv::Connection& real = *static_cast<ConexionFalsa*>(conexion.pdispVal)->real;
            if (!rs_) rs_ = real.CrearRecordset();
            rs_->Open(Utf8(origen.bstrVal), real, static_cast<CursorType>(cursor), static_cast<LockType>(bloqueo),
                      static_cast<CommandType>(opciones));
        });
    }
    STDMETHODIMP get_EOF(VARIANT_BOOL* fin) override {
        return Contestar([&] { *fin = rs_->Eof() ? VARIANT_TRUE : VARIANT_FALSE; });
    }
    STDMETHODIMP get_Fields(ado::Fields** campos) override { return Dar(*campos, new CamposFalsos(*rs_)); }
    STDMETHODIMP MoveNext() override { return Contestar(&kv::Recordset::MoveNext, rs_); }
    STDMETHODIMP Close() override { return Contestar(&kv::Recordset::Close, rs_); }
    STDMETHODIMP get_State(long* estado) override { return Dar(*estado, static_cast<long>(rs_->State())); }
    std::unique_ptr<kv::Recordset> rs_;
};

struct ParametroFalso : Falso<ado::Parameter> {
    ParametroFalso(std::string nombre, kv::Parameter dado) : parametro(std::move(dado)), nombre_(std::move(nombre)) {
        parametro.Name = nombre_;
    }
    STDMETHODIMP get_Value(VARIANT* valor) override { return Dar(*valor, Variante(parametro.Value).Soltar()); }
    kv::Parameter parametro;
    const std::string nombre_;
};

struct ParametrosFalsos : Falso<ado::Parameters> {
    STDMETHODIMP get_Count(long*) override { return E_NOTIMPL; }
    STDMETHODIMP Append(IDispatch* parametro) override {
        return Dar(lista.emplace_back(), PunteroCom(static_cast<ParametroFalso*>(parametro)));
    }
    std::vector<PunteroCom<ParametroFalso>> lista;
};

/// The rows that a procedure leaves: as with a real provider, its outputs arrive when they are let go.
struct FilasPendientes : RecordsetFalso {
    explicit FilasPendientes(std::function<void()> alSoltar) : alSoltar_(std::move(alSoltar)) {}
    ~FilasPendientes() override { alSoltar_(); }
    const std::function<void()> alSoltar_;
};

struct ComandoFalso : Falso<ado::Command> {
    using Falso::Falso;
    STDMETHODIMP putref_ActiveConnection(ado::Connection* conexion) override {
        return Preparar("conexión", [&] { orden_ = static_cast<ConexionFalsa*>(conexion)->real->CrearCommand(); });
    }
    STDMETHODIMP put_CommandType(int tipo) override {
        return Preparar(" tipo", [&] { orden_->CommandType = static_cast<CommandType>(tipo); });
    }
    STDMETHODIMP put_CommandTimeout(long segundos) override {
        return Preparar(" espera", [&] { orden_->CommandTimeout = segundos; });
    }
    STDMETHODIMP put_CommandText(BSTR texto) override {
        return Preparar(" texto", [&] { orden_->CommandText = Utf8(texto); });
    }
    STDMETHODIMP get_Parameters(ado::Parameters** parametros) override {
        parametros_->AddRef();
        return Dar(*parametros, parametros_.Get());
    }
    STDMETHODIMP CreateParameter(BSTR nombre, int tipo, int direccion, LONG_PTR tamano, VARIANT valor,
                                 ado::Parameter** parametro) override {
        // What has no value is left out: NULL would be one.
        if (valor.vt == VT_NULL) return E_INVALIDARG;
        Variante copia;
        if (valor.vt != VT_ERROR) VariantCopy(&copia.Get(), &valor);
        return Contestar([&] {
            *parametro = new ParametroFalso(
                Utf8(nombre), {"", static_cast<DataType>(tipo), static_cast<ParameterDirection>(direccion),
                               static_cast<std::int32_t>(tamano), copia.AValor()});
        });
    }
    STDMETHODIMP Execute(VARIANT*, VARIANT*, long opciones, ado::Recordset** rs) override {
        *rs = nullptr;
        return Contestar([&] {
            if (preparado_ != "conexión tipo espera texto") throw RuntimeError(-1, "", "otro orden: " + preparado_);
            const auto& lista = parametros_->lista;
            for (const auto& dado : lista) orden_->Parameters.Append(dado->parametro);
            orden_->Execute(static_cast<CommandType>(opciones));
            *rs = new FilasPendientes([lista, salidas = orden_->Parameters] {
                for (auto dado = lista.begin(); const Parameter& salida : salidas)
                    (*dado++)->parametro.Value = salida.Value;
            });
        });
    }
    template <class F>
    HRESULT Preparar(const char* que, F f) {
        preparado_ += que;
        return Contestar(f);
    }
    std::string preparado_;
    std::unique_ptr<kv::Command> orden_;
    const PunteroCom<ParametrosFalsos> parametros_ = Nuevo<ParametrosFalsos>();
};

template <class Objeto>
struct FabricaFalsa : Contado<IClassFactory> {
    explicit FabricaFalsa(const GUID& generacion = IID_NULL) : Contado(IID_IClassFactory), suya_(generacion) {}
    STDMETHODIMP CreateInstance(IUnknown*, REFIID iid, void** objeto) override {
        return Nuevo<Objeto>(suya_)->QueryInterface(iid, objeto);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }
    const GUID suya_;
};

/// Objects of ours stand for a class of ADO in this process for as long as this lives.
template <class Objeto>
class ClaseFalsa {
  public:
    ClaseFalsa(const GUID& clase, const GUID& generacion) {
        CoRegisterClassObject(clase, Nuevo<FabricaFalsa<Objeto>>(generacion).Get(), CLSCTX_INPROC_SERVER,
                              REGCLS_MULTIPLEUSE, &registro_);
    }
    ~ClaseFalsa() { CoRevokeClassObject(registro_); }
    ClaseFalsa(const ClaseFalsa&) = delete;
    ClaseFalsa& operator=(const ClaseFalsa&) = delete;

  private:
    DWORD registro_ = 0;
};

}  // namespace kv::prueba
