#pragma once

#include <deque>
#include <memory>
#include <string>
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

inline void Contar(long textos = 0) {
    ++Global().llamadas;
    Global().textos += textos;
}

/// References, counted in the state, and the one identifier that the object answers to besides IUnknown and IDispatch.
template <class Interfaz>
class Contado : public Interfaz {
  public:
    explicit Contado(const GUID& generacion) : generacion_(generacion) { ++Global().vivos; }
    virtual ~Contado() { --Global().vivos; }
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** objeto) override {
        *objeto = iid == IID_IUnknown || iid == IID_IDispatch || iid == generacion_ ? this : nullptr;
        if (*objeto == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++referencias_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG quedan = --referencias_;
        if (quedan == 0) delete this;
        return quedan;
    }

  private:
    GUID generacion_;
    ULONG referencias_ = 1;
};

/// The parts of IDispatch that early-bound callers never use.
template <class Interfaz>
class Falso : public Contado<Interfaz> {
  public:
    using Contado<Interfaz>::Contado;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return E_NOTIMPL;
    }
};

class CampoFalso : public Falso<ado::Field> {
  public:
    explicit CampoFalso(const Valor& valor, std::string_view nombre = {})
        : Falso(IID_NULL), valor_(valor), nombre_(nombre) {}
    HRESULT STDMETHODCALLTYPE get_Name(BSTR* nombre) override {
        *nombre = Cadena(nombre_).Soltar();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_Value(VARIANT* valor) override {
        Contar(std::holds_alternative<std::string>(valor_) ? 1 : 0);
        *valor = Variante(valor_).Soltar();
        return S_OK;
    }

  private:
    Valor valor_;
    std::string nombre_;
};

class CamposFalsos : public Falso<ado::Fields> {
  public:
    explicit CamposFalsos(std::shared_ptr<const Paso> paso) : Falso(IID_NULL), paso_(std::move(paso)) {}
    HRESULT STDMETHODCALLTYPE get_Count(long* cuantos) override {
        *cuantos = static_cast<long>(paso_->fila.size());
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_Item(VARIANT indice, ado::Field** campo) override {
        Contar(1);
        if (indice.vt != VT_BSTR) return Quejarse("campo pedido por posición");
        const std::string pedido = Utf8(indice.bstrVal);
        for (const auto& [nombre, valor] : paso_->fila) {
            if (!MismoNombre(nombre, pedido)) continue;
            *campo = new CampoFalso(valor);
            return S_OK;
        }
        return Quejarse("no hay campo " + pedido, static_cast<HRESULT>(0x800A0CC1));
    }

  private:
    std::shared_ptr<const Paso> paso_;
};

class RecordsetFalso : public Falso<ado::Recordset> {
  public:
    explicit RecordsetFalso(const GUID& generacion) : Falso(generacion) {}
    HRESULT STDMETHODCALLTYPE Open(VARIANT origen, VARIANT conexion, int cursor, int bloqueo, long opciones) override {
        Contar(1);
        if (abierto_) return Quejarse("abierto dos veces", static_cast<HRESULT>(0x800A0E79));
        if (conexion.vt != VT_DISPATCH || cursor != 0 || bloqueo != 1 || opciones != 1)
            return Quejarse("constantes de Open");
        paso_ = std::make_shared<Paso>();
        const HRESULT hr = Tomar('O', Utf8(origen.bstrVal), *paso_);
        abierto_ = SUCCEEDED(hr);
        return hr;
    }
    HRESULT STDMETHODCALLTYPE get_EOF(VARIANT_BOOL* fin) override {
        Contar();
        *fin = !paso_ || paso_->fila.empty() ? VARIANT_TRUE : VARIANT_FALSE;
        return abierto_ ? S_OK : Quejarse("EOF cerrado");
    }
    HRESULT STDMETHODCALLTYPE get_Fields(ado::Fields** campos) override {
        Contar();
        *campos = new CamposFalsos(paso_);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Close() override {
        Contar();
        if (!abierto_) return Quejarse("cerrado dos veces");
        abierto_ = false;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE MoveNext() override { return Quejarse("MoveNext en una carga"); }
    HRESULT STDMETHODCALLTYPE get_State(long* estado) override {
        *estado = abierto_ ? 1 : 0;
        return S_OK;
    }

  private:
    std::shared_ptr<Paso> paso_;
    bool abierto_ = false;
};

class ConexionFalsa : public Falso<ado::Connection> {
  public:
    explicit ConexionFalsa(const GUID& generacion) : Falso(generacion) {}
    HRESULT STDMETHODCALLTYPE Execute(BSTR, VARIANT*, long, ado::Recordset**) override { return Quejarse("Execute"); }
    HRESULT STDMETHODCALLTYPE BeginTrans(long*) override { return Quejarse("BeginTrans"); }
    HRESULT STDMETHODCALLTYPE CommitTrans() override { return Quejarse("CommitTrans"); }
    HRESULT STDMETHODCALLTYPE RollbackTrans() override { return Quejarse("RollbackTrans"); }
    HRESULT STDMETHODCALLTYPE Open(BSTR, BSTR, BSTR, long) override { return Quejarse("Open"); }
    HRESULT STDMETHODCALLTYPE get_State(long* estado) override {
        *estado = 1;
        return S_OK;
    }
};

}  // namespace kv::prueba
