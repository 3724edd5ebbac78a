#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "db/Nombres.h"
#include "db/ado/InterfacesAdo.h"
#include "db/ado/PunteroCom.h"
#include "db/ado/Variante.h"
#include "tests/com/Grabacion.h"

// COM objects with ADO's interfaces that replay a recording, strictly: any other text, order or parameter fails.
namespace kv::prueba {

/// What is left of the recording, and how many objects of these are alive.
struct Estado {
    std::deque<Paso> pasos;
    std::string queja;
    long vivos = 0;
    long llamadas = 0;  // calls that the component made to these objects, references apart
    long textos = 0;    // wide strings that went either way
};
inline Estado& Global() {
    static Estado estado;
    return estado;
}

/// A new object with the one reference that it is born with.
template <class Objeto, class... Argumentos>
PunteroCom<Objeto> Nuevo(Argumentos&&... argumentos) {
    PunteroCom<Objeto> nuevo;
    *nuevo.Recibir() = new Objeto(std::forward<Argumentos>(argumentos)...);
    return nuevo;
}

/// Reports a difference as a provider does: its own HRESULT, source and text.
inline HRESULT Quejarse(const std::string& texto, HRESULT hr = static_cast<HRESULT>(0x80040E14)) {
    Global().queja = texto;
    PunteroCom<ICreateErrorInfo> nuevo;
    CreateErrorInfo(nuevo.Recibir());
    nuevo->SetSource(Cadena("Proveedor de prueba").Get());
    nuevo->SetDescription(Cadena(texto).Get());
    PunteroCom<IErrorInfo> info;
    nuevo->QueryInterface(IID_IErrorInfo, info.RecibirVoid());
    SetErrorInfo(0, info.Get());
    return hr;
}

inline HRESULT Tomar(char clase, const std::string& texto, Paso& paso) {
    auto& pasos = Global().pasos;
    if (pasos.empty()) return Quejarse("de más: |" + texto + "|");
    if (pasos.front().clase != clase || pasos.front().texto != texto)
        return Quejarse("se esperaba |" + pasos.front().texto + "|, llega |" + texto + "|");
    paso = std::move(pasos.front());
    pasos.pop_front();
    return S_OK;
}

/// Counts a call, and complains unless it was as it must be.
inline HRESULT Contar(long textos = 0, bool bien = true, const char* queja = "") {
    ++Global().llamadas;
    Global().textos += textos;
    return bien ? S_OK : Quejarse(queja);
}

/// Counts a call and leaves its result.
template <class T>
HRESULT Dar(T* destino, T valor, long textos = 0) {
    *destino = valor;
    return Contar(textos);
}

/// References, counted in the state, and the one identifier that the object answers to besides IUnknown and IDispatch.
template <class Interfaz>
struct Contado : Interfaz {
    explicit Contado(const GUID& generacion = IID_NULL) : generacion_(generacion) { ++Global().vivos; }
    virtual ~Contado() { --Global().vivos; }
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
    explicit CampoFalso(const Valor& valor, std::string_view nombre = {}) : valor_(valor), nombre_(nombre) {}
    STDMETHODIMP get_Name(BSTR* nombre) override { return Dar(nombre, Cadena(nombre_).Soltar()); }
    STDMETHODIMP get_Value(VARIANT* valor) override {
        return Dar(valor, Variante(valor_).Soltar(), std::holds_alternative<std::string>(valor_) ? 1 : 0);
    }
    const Valor valor_;
    const std::string nombre_;
};

struct CamposFalsos : Falso<ado::Fields> {
    explicit CamposFalsos(std::shared_ptr<const Paso> paso) : paso_(std::move(paso)) {}
    STDMETHODIMP get_Count(long*) override { return E_NOTIMPL; }
    STDMETHODIMP get_Item(VARIANT indice, ado::Field** campo) override {
        const std::string pedido = indice.vt == VT_BSTR ? Utf8(indice.bstrVal) : "por posición";
        for (const auto& [nombre, valor] : paso_->fila)
            if (MismoNombre(nombre, pedido)) return Dar<ado::Field*>(campo, new CampoFalso(valor), 1);
        return Quejarse("no hay campo " + pedido, static_cast<HRESULT>(0x800A0CC1));
    }
    const std::shared_ptr<const Paso> paso_;
};

struct RecordsetFalso : Falso<ado::Recordset> {
    using Falso::Falso;
    STDMETHODIMP Open(VARIANT origen, VARIANT conexion, int cursor, int bloqueo, long opciones) override {
        Contar(1);
        if (abierto_) return Quejarse("abierto dos veces", static_cast<HRESULT>(0x800A0E79));
        if (conexion.vt != VT_DISPATCH || cursor != 0 || bloqueo != 1 || opciones != 1)
            return Quejarse("constantes de Open");
        paso_ = std::make_shared<Paso>();
        const HRESULT hr = Tomar('O', Utf8(origen.bstrVal), *paso_);
        abierto_ = SUCCEEDED(hr);
        return hr;
    }
    STDMETHODIMP get_EOF(VARIANT_BOOL* fin) override {
        *fin = !paso_ || paso_->fila.empty() ? VARIANT_TRUE : VARIANT_FALSE;
        return Contar(0, abierto_, "EOF cerrado");
    }
    STDMETHODIMP get_Fields(ado::Fields** campos) override {
        return Dar<ado::Fields*>(campos, new CamposFalsos(paso_));
    }
    STDMETHODIMP Close() override { return Contar(0, std::exchange(abierto_, false), "cerrado dos veces"); }
    STDMETHODIMP MoveNext() override { return Quejarse("MoveNext en una carga"); }
    STDMETHODIMP get_State(long*) override { return Quejarse("State en una carga"); }
    std::shared_ptr<Paso> paso_;
    bool abierto_ = false;
};

struct ConexionFalsa : Falso<ado::Connection> {
    using Falso::Falso;
    STDMETHODIMP Execute(BSTR, VARIANT*, long, ado::Recordset**) override { return Quejarse("Execute"); }
    STDMETHODIMP BeginTrans(long*) override { return Quejarse("BeginTrans"); }
    STDMETHODIMP CommitTrans() override { return Quejarse("CommitTrans"); }
    STDMETHODIMP RollbackTrans() override { return Quejarse("RollbackTrans"); }
    STDMETHODIMP Open(BSTR, BSTR, BSTR, long) override { return Quejarse("Open"); }
    STDMETHODIMP get_State(long*) override { return Quejarse("State"); }
};

}  // namespace kv::prueba
