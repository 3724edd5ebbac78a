#pragma once

#include "tests/com/AdoFalso.h"

namespace kv::prueba {

struct ParametroFalso : Falso<ado::Parameter> {
    STDMETHODIMP get_Value(VARIANT* valor) override { return Dar(valor, Variante(salida).Soltar()); }
    std::string escrito;
    Valor salida;
};

struct ParametrosFalsos : Falso<ado::Parameters> {
    STDMETHODIMP get_Count(long*) override { return E_NOTIMPL; }
    STDMETHODIMP Append(IDispatch* parametro) override {
        lista.emplace_back(static_cast<ParametroFalso*>(parametro));
        return Contar();
    }
    std::vector<PunteroCom<ParametroFalso>> lista;
};

/// The rows that a procedure leaves: as with a real provider, its outputs arrive when they are let go.
struct FilasPendientes : RecordsetFalso {
    explicit FilasPendientes(std::function<void()> alSoltar) : alSoltar_(std::move(alSoltar)) {}
    ~FilasPendientes() override { alSoltar_(); }
    const std::function<void()> alSoltar_;
};

/// A stored procedure of the recording: checks every parameter, then gives back the recorded outputs.
struct ComandoFalso : Falso<ado::Command> {
    using Falso::Falso;
    STDMETHODIMP putref_ActiveConnection(ado::Connection* c) override { return Dar(&conectado_, c != nullptr); }
    STDMETHODIMP put_CommandText(BSTR texto) override { return Dar(&texto_, Utf8(texto), 1); }
    STDMETHODIMP put_CommandTimeout(long segundos) override { return Dar(&segundos_, segundos); }
    STDMETHODIMP put_CommandType(int tipo) override { return Dar(&tipo_, tipo); }
    STDMETHODIMP get_Parameters(ado::Parameters** parametros) override {
        parametros_->AddRef();
        return Dar<ado::Parameters*>(parametros, parametros_.Get());
    }
    STDMETHODIMP CreateParameter(BSTR nombre, int tipo, int direccion, LONG_PTR tamano, VARIANT valor,
                                 ado::Parameter** parametro) override {
        Variante copia;
        if (valor.vt != VT_ERROR) VariantCopy(&copia.Get(), &valor);
        auto* nuevo = new ParametroFalso;
        nuevo->escrito = Utf8(nombre) + '\t' + std::to_string(tipo) + '\t' + std::to_string(direccion) + '\t' +
                         std::to_string(tamano) + '\t' + Codificar(copia.AValor());
        return Dar<ado::Parameter*>(parametro, nuevo, 1);
    }
    STDMETHODIMP Execute(VARIANT*, VARIANT*, long, ado::Recordset** rs) override {
        *rs = nullptr;
        if (!conectado_ || tipo_ != 4 || segundos_ != 500) return Quejarse("conexión, tipo o plazo de " + texto_);
        Paso paso;
        if (const HRESULT hr = Tomar('P', texto_, paso); FAILED(hr)) return hr;
        const auto& lista = parametros_->lista;
        if (paso.parametros.size() != lista.size()) return Quejarse("número de parámetros de " + texto_);
        for (std::size_t i = 0; i < lista.size(); ++i)
            if (lista[i]->escrito != paso.parametros[i])
                return Quejarse("parámetro |" + paso.parametros[i] + "|, llega |" + lista[i]->escrito + "|");
        return Dar<ado::Recordset*>(rs, new FilasPendientes([lista, salidas = paso.salidas] {
                                        for (std::size_t i = 0; i < salidas.size(); ++i) lista[i]->salida = salidas[i];
                                    }));
    }
    std::string texto_;
    long segundos_ = 0;
    int tipo_ = 0;
    bool conectado_ = false;
    const PunteroCom<ParametrosFalsos> parametros_ = Nuevo<ParametrosFalsos>();
};

/// An object called by name alone: a name gets its identifier when it is asked for, and `falta` never does.
struct PorNombreFalso : Falso<IDispatch> {
    using Falso::Falso;
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* nombres, UINT, LCID, DISPID* ids) override {
        Cadena nombre;
        *nombre.Recibir() = SysAllocString(nombres[0]);
        nombres_.push_back(Utf8(nombre.Get()));
        ++preguntas[nombres_.back()];
        Dar(ids, static_cast<DISPID>(nombres_.size()), 1);
        return nombres_.back() == falta ? DISP_E_UNKNOWNNAME : S_OK;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* dados, VARIANT* resultado, EXCEPINFO*,
                        UINT*) override {
        Variante dado;
        if (dados->cArgs > 0) VariantCopyInd(&dado.Get(), &dados->rgvarg[0]);
        Variante leido;
        Leer(nombres_[static_cast<std::size_t>(id) - 1], dado.AValor(), leido.Get());
        return resultado != nullptr ? Dar(resultado, leido.Soltar()) : Contar();
    }
    /// What a member gives for its one argument, NULL without any.
    virtual void Leer(const std::string& nombre, const Valor& dado, VARIANT& resultado) = 0;

    std::vector<std::string> nombres_;
    std::map<std::string, int> preguntas;
    std::string falta;
};

/// The company; a numbered member's value is kept under its name and number.
struct EmpresaFalsa : PorNombreFalso {
    void Leer(const std::string& nombre, const Valor& dado, VARIANT& resultado) override {
        resultado = Variante(valores[nombre + (EsNulo(dado) ? "" : AString(dado, '.'))]).Soltar();
    }
    std::map<std::string, Valor> valores;
};

/// Serves the objects that the component creates by ADO's class identifiers, within this process.
template <class Objeto>
struct FabricaFalsa : Contado<IClassFactory> {
    explicit FabricaFalsa(const GUID& generacion = IID_NULL) : Contado(IID_IClassFactory), suya_(generacion) {}
    STDMETHODIMP CreateInstance(IUnknown*, REFIID iid, void** objeto) override {
        return Nuevo<Objeto>(suya_)->QueryInterface(iid, objeto);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }
    const GUID suya_;
};

}  // namespace kv::prueba
