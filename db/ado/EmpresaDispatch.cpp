#include "db/ado/EmpresaDispatch.h"

#include "base/RuntimeError.h"
#include "db/ado/ErrorCom.h"
#include "db/ado/Variante.h"

namespace kv {
namespace {

constexpr std::array<const char*, 12> kNombres = {"CodEmpresa",        "CodEmpresaArticulos", "CodEmpresaClientes",
                                                  "CodEmpresaExtra",   "TarifaEmpresa",       "VenderSinStock",
                                                  "CosteUltimaCompra", "DecPrecios",          "DecImportes",
                                                  "DecCostes",         "Parametro",           "CaptionFamilia"};
constexpr std::int32_t kErrSinMiembro = 438;

// The failure that a by-name call reports in its own record instead of the thread's error object.
[[noreturn]] void LanzarExcepcion(EXCEPINFO& e) {
    if (e.pfnDeferredFillIn != nullptr) e.pfnDeferredFillIn(&e);
    const HRESULT hr = e.scode != 0 ? e.scode : MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, e.wCode);
    RuntimeError error(hr, Utf8(e.bstrSource), Utf8(e.bstrDescription));
    SysFreeString(e.bstrSource);
    SysFreeString(e.bstrDescription);
    SysFreeString(e.bstrHelpFile);
    throw error;
}

}  // namespace

DISPID EmpresaDispatch::Identificador(std::size_t miembro) const {
    if (!resueltos_[miembro]) {
        const Cadena nombre(kNombres[miembro]);
        OLECHAR* pedido = nombre.Get();
        if (FAILED(objeto_->GetIDsOfNames(IID_NULL, &pedido, 1, LOCALE_USER_DEFAULT, &identificadores_[miembro])))
            throw RuntimeError(kErrSinMiembro, "KVDatosArt", std::string("cEmpresa no tiene ") + kNombres[miembro]);
        resueltos_[miembro] = true;
    }
    return identificadores_[miembro];
}

Valor EmpresaDispatch::Pedir(std::size_t miembro, const std::int16_t* argumento) const {
    Variante valor(argumento != nullptr ? Valor{*argumento} : Valor{});
    DISPPARAMS argumentos{&valor.Get(), nullptr, argumento != nullptr ? 1U : 0U, 0};
    Variante resultado;
    EXCEPINFO excepcion{};
    const HRESULT hr =
        objeto_->Invoke(Identificador(miembro), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                        &argumentos, resultado.Recibir(), &excepcion, nullptr);
    if (hr == DISP_E_EXCEPTION) LanzarExcepcion(excepcion);
    Comprobar(hr, kNombres[miembro]);
    return resultado.AValor();
}

std::string EmpresaDispatch::CaptionFamilia(std::int16_t indice) const {
    const Valor texto = Pedir(11, &indice);
    return EsNulo(texto) ? std::string() : AString(texto, '.');
}

}  // namespace kv
