#pragma once

#include <map>

#include "kvdatosart/tests/com/AdoFalso.h"
#include "kvdatosart/tests/com/Grabacion.h"

namespace kv::prueba {

/// The demonstration's company, with which loads are recorded; a numbered member's value is under its name and number.
/// It is called by name alone: a name gets its identifier when it is asked for, and `falta` never does.
struct EmpresaFalsa : Falso<IDispatch> {
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
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD clase, DISPPARAMS* dados, VARIANT* resultado, EXCEPINFO*,
                        UINT*) override {
        ++llamadas;
        clases |= clase;
        Variante dado;
        if (dados->cArgs > 0) VariantCopyInd(&dado.Get(), &dados->rgvarg[0]);
        const Valor numero = dado.AValor();
        Variante leido(
            valores[nombres_[static_cast<std::size_t>(id) - 1] + (EsNulo(numero) ? "" : AString(numero, '.'))]);
        if (resultado != nullptr) *resultado = leido.Soltar();
        return S_OK;
    }
    std::vector<std::string> nombres_;
    std::map<std::string, int> preguntas;
    int clases = 0;  // of the calls: method, property
    std::string falta;
    // clang-format off
    std::map<std::string, Valor> valores = {
        {"CodEmpresa", 1}, {"CodEmpresaArticulos", 1}, {"CodEmpresaClientes", 1}, {"CodEmpresaExtra", 1},
        {"TarifaEmpresa", 1}, {"VenderSinStock", false}, {"CosteUltimaCompra", false}, {"DecPrecios", 2},
        {"DecImportes", 2}, {"DecCostes", 4}, {"Parametro1", "Familia"}, {"Parametro2", "Subfamilia"},
        {"CaptionFamilia0", "Sección"}, {"CaptionFamilia1", "Familia"}, {"CaptionFamilia2", "Subfamilia"}};
    // clang-format on
};

/// A recording's company, a connection that answers from a script and classes of ADO, all fakes.
struct Escena {
    /// What the connection answers next.
    void Poner(const Pasos& pasos) {
        for (const ConexionGuion::Paso& paso : pasos) guion.Anadir(paso);
    }

    const ClaseFalsa<RecordsetFalso> filas{ado::kClaseRecordset, ado::kRecordset[1]};
    const ClaseFalsa<ComandoFalso> ordenes{ado::kClaseCommand, ado::kCommand[0]};
    ConexionGuion guion;
    PunteroCom<EmpresaFalsa> empresa = Nuevo<EmpresaFalsa>();
    PunteroCom<ConexionFalsa> conexion = Nuevo<ConexionFalsa>(guion, ado::kConnection[0]);
};

}  // namespace kv::prueba
