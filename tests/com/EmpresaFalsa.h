#pragma once

#include <map>

#include "tests/com/AdoFalso.h"

namespace kv::prueba {

/// An object called by name alone: a name gets its identifier when it is asked for, and `falta` never does.
struct PorNombreFalso : Falso<IDispatch> {
    using Falso::Falso;
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* nombres, UINT, LCID, DISPID* ids) override {
        ++llamadas;
        Cadena nombre;
        *nombre.Recibir() = SysAllocString(nombres[0]);
        nombres_.push_back(Utf8(nombre.Get()));
        ++preguntas[nombres_.back()];
        *ids = static_cast<DISPID>(nombres_.size());
        return nombres_.back() == falta ? DISP_E_UNKNOWNNAME : S_OK;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* dados, VARIANT* resultado, EXCEPINFO*,
                        UINT*) override {
        ++llamadas;
        Variante dado;
        if (dados->cArgs > 0) VariantCopyInd(&dado.Get(), &dados->rgvarg[0]);
        Variante leido;
        Leer(nombres_[static_cast<std::size_t>(id) - 1], dado.AValor(), leido.Get());
        if (resultado != nullptr) *resultado = leido.Soltar();
        return S_OK;
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

}  // namespace kv::prueba
