#pragma once

#include "tests/com/AdoFalso.h"

namespace kv::prueba {

class ParametroFalso : public Falso<ado::Parameter> {
  public:
    ParametroFalso() : Falso(ado::Identificador(0x50C)) {}
    HRESULT STDMETHODCALLTYPE get_Value(VARIANT* valor) override {
        Contar();
        *valor = Variante(salida).Soltar();
        return S_OK;
    }
    std::string escrito;
    Valor salida;
};

class ParametrosFalsos : public Falso<ado::Parameters> {
  public:
    ParametrosFalsos() : Falso(IID_NULL) {}
    HRESULT STDMETHODCALLTYPE get_Count(long*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Append(IDispatch* parametro) override {
        Contar();
        lista.emplace_back(static_cast<ParametroFalso*>(parametro));
        return S_OK;
    }
    std::vector<PunteroCom<ParametroFalso>> lista;
};

/// The rows that a procedure leaves: as with a real provider, its outputs arrive when they are let go.
class FilasPendientes : public RecordsetFalso {
  public:
    FilasPendientes(std::vector<PunteroCom<ParametroFalso>> parametros, std::vector<Valor> salidas)
        : RecordsetFalso(IID_NULL), parametros_(std::move(parametros)), salidas_(std::move(salidas)) {}
    ~FilasPendientes() override {
        for (std::size_t i = 0; i < salidas_.size(); ++i) parametros_[i]->salida = salidas_[i];
    }

  private:
    std::vector<PunteroCom<ParametroFalso>> parametros_;
    std::vector<Valor> salidas_;
};

/// A stored procedure of the recording: checks every parameter, then gives back the recorded outputs.
class ComandoFalso : public Falso<ado::Command> {
  public:
    explicit ComandoFalso(const GUID& generacion) : Falso(generacion) { *lista_.Recibir() = new ParametrosFalsos; }
    HRESULT STDMETHODCALLTYPE putref_ActiveConnection(ado::Connection* c) override {
        Contar();
        return c != nullptr ? S_OK : E_POINTER;
    }
    HRESULT STDMETHODCALLTYPE put_CommandText(BSTR texto) override {
        Contar(1);
        texto_ = Utf8(texto);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE put_CommandTimeout(long segundos) override {
        Contar();
        return segundos == 500 ? S_OK : Quejarse("CommandTimeout");
    }
    HRESULT STDMETHODCALLTYPE put_CommandType(int tipo) override {
        Contar();
        return tipo == 4 ? S_OK : Quejarse("CommandType");
    }
    HRESULT STDMETHODCALLTYPE get_Parameters(ado::Parameters** parametros) override {
        Contar();
        *parametros = PunteroCom<ParametrosFalsos>(lista_).Get();
        (*parametros)->AddRef();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE CreateParameter(BSTR nombre, int tipo, int direccion, LONG_PTR tamano, VARIANT valor,
                                              ado::Parameter** parametro) override {
        Contar(1);
        Variante copia;
        if (valor.vt != VT_ERROR) VariantCopy(&copia.Get(), &valor);
        auto* nuevo = new ParametroFalso;
        nuevo->escrito = Utf8(nombre) + '\t' + std::to_string(tipo) + '\t' + std::to_string(direccion) + '\t' +
                         std::to_string(tamano) + '\t' + Codificar(copia.AValor());
        *parametro = nuevo;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Execute(VARIANT*, VARIANT*, long, ado::Recordset** rs) override {
        Contar();
        *rs = nullptr;
        Paso paso;
        if (const HRESULT hr = Tomar('P', texto_, paso); FAILED(hr)) return hr;
        if (paso.parametros.size() != lista_->lista.size()) return Quejarse("número de parámetros de " + texto_);
        for (std::size_t i = 0; i < paso.parametros.size(); ++i) {
            ParametroFalso& parametro = *lista_->lista[i].Get();
            if (parametro.escrito != paso.parametros[i])
                return Quejarse("parámetro |" + paso.parametros[i] + "|, llega |" + parametro.escrito + "|");
        }
        *rs = new FilasPendientes(lista_->lista, paso.salidas);
        return S_OK;
    }

  private:
    std::string texto_;
    PunteroCom<ParametrosFalsos> lista_;
};

/// The company by name; counts how often each identifier is asked for.
class EmpresaFalsa : public Falso<IDispatch> {
  public:
    EmpresaFalsa() : Falso(IID_NULL) {}
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* nombres, UINT, LCID, DISPID* ids) override {
        Contar(1);
        std::string nombre;
        for (const wchar_t* p = nombres[0]; *p != 0; ++p) nombre += static_cast<char>(*p);
        ++preguntas[nombre];
        if (nombre == falta) return DISP_E_UNKNOWNNAME;
        nombres_.push_back(nombre);
        ids[0] = static_cast<DISPID>(nombres_.size());
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* argumentos, VARIANT* resultado,
                                     EXCEPINFO*, UINT*) override {
        Contar();
        std::string nombre = nombres_[static_cast<std::size_t>(id) - 1];
        if (argumentos->cArgs == 1) nombre += std::to_string(argumentos->rgvarg[0].iVal);
        *resultado = Variante(valores[nombre]).Soltar();
        return S_OK;
    }
    std::map<std::string, Valor> valores;
    std::map<std::string, int> preguntas;
    std::string falta;

  private:
    std::vector<std::string> nombres_;
};

/// Serves the objects that the component creates by ADO's class identifiers, within this process.
template <class Objeto>
class FabricaFalsa : public Contado<IClassFactory> {
  public:
    explicit FabricaFalsa(const GUID& generacion) : Contado(IID_IClassFactory), generacion_(generacion) {}
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID iid, void** objeto) override {
        auto* nuevo = new Objeto(generacion_);
        const HRESULT hr = nuevo->QueryInterface(iid, objeto);
        nuevo->Release();
        return hr;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

  private:
    GUID generacion_;
};

}  // namespace kv::prueba
