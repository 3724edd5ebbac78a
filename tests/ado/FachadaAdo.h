#pragma once

#include <memory>

#include "base/RuntimeError.h"
#include "db/Connection.h"
#include "tests/com/ComandoFalso.h"

// ADO-shaped objects over a connection of ours: what a real driver gives travels through VARIANTs and back.
namespace kv::prueba {

/// Runs `f`; a failure goes out as a provider's does, with its number and text.
template <class F>
HRESULT Contestar(F f) try {
    f();
    return S_OK;
} catch (const RuntimeError& error) {
    return Quejarse(error.descripcion,
                    error.numero < 0 ? error.numero : MAKE_HRESULT(1, FACILITY_CONTROL, error.numero));
}

class CamposFachada : public Falso<ado::Fields> {
  public:
    explicit CamposFachada(kv::Recordset& rs) : Falso(IID_NULL), rs_(rs) {}
    HRESULT STDMETHODCALLTYPE get_Count(long* cuantos) override {
        return Contestar([&] { *cuantos = rs_.NumeroCampos(); });
    }
    HRESULT STDMETHODCALLTYPE get_Item(VARIANT indice, ado::Field** campo) override {
        return Contestar([&] { *campo = new CampoFalso(rs_.Fields(Utf8(indice.bstrVal)).Value()); });
    }

  private:
    kv::Recordset& rs_;
};

class ConexionFachada : public ConexionFalsa {
  public:
    explicit ConexionFachada(kv::Connection& real) : ConexionFalsa(ado::kConnection[1]), real_(real) {}
    HRESULT STDMETHODCALLTYPE Execute(BSTR texto, VARIANT* afectados, long opciones, ado::Recordset** rs) override {
        *rs = nullptr;
        std::int32_t cuantos = 0;
        const auto ejecutar = [&] { real_.Execute(Utf8(texto), &cuantos, static_cast<CommandType>(opciones)); };
        const HRESULT hr = Contestar(ejecutar);
        *afectados = Variante(Valor{cuantos}).Soltar();
        return hr;
    }
    HRESULT STDMETHODCALLTYPE BeginTrans(long* nivel) override {
        *nivel = 1;
        return Contestar([&] { real_.BeginTrans(); });
    }
    HRESULT STDMETHODCALLTYPE CommitTrans() override {
        return Contestar([&] { real_.CommitTrans(); });
    }
    HRESULT STDMETHODCALLTYPE RollbackTrans() override {
        return Contestar([&] { real_.RollbackTrans(); });
    }
    kv::Connection& Real() const { return real_; }

  private:
    kv::Connection& real_;
};

class RecordsetFachada : public RecordsetFalso {
  public:
    using RecordsetFalso::RecordsetFalso;
    HRESULT STDMETHODCALLTYPE Open(VARIANT origen, VARIANT conexion, int cursor, int bloqueo, long opciones) override {
        return Contestar([&] {
            kv::Connection& real = static_cast<ConexionFachada*>(conexion.pdispVal)->Real();
            if (!rs_) rs_ = real.CrearRecordset();
            rs_->Open(Utf8(origen.bstrVal), real, static_cast<CursorType>(cursor), static_cast<LockType>(bloqueo),
                      static_cast<CommandType>(opciones));
        });
    }
    HRESULT STDMETHODCALLTYPE get_EOF(VARIANT_BOOL* fin) override {
        return Contestar([&] { *fin = rs_->Eof() ? VARIANT_TRUE : VARIANT_FALSE; });
    }
    HRESULT STDMETHODCALLTYPE get_Fields(ado::Fields** campos) override {
        *campos = new CamposFachada(*rs_);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE MoveNext() override {
        return Contestar([&] { rs_->MoveNext(); });
    }
    HRESULT STDMETHODCALLTYPE Close() override {
        return Contestar([&] { rs_->Close(); });
    }

  private:
    std::unique_ptr<kv::Recordset> rs_;
};

}  // namespace kv::prueba
