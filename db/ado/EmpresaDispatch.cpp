#include "kvdatosart/db/ado/EmpresaDispatch.h"

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/ado/ErrorCom.h"
#include "kvdatosart/db/ado/Variante.h"

namespace kv {
namespace {

constexpr std::array<const char*, 12> kNombres = {"CodEmpresa",        "CodEmpresaArticulos", "CodEmpresaClientes",
                                                  "CodEmpresaExtra",   "TarifaEmpresa",       "VenderSinStock",
                                                  "CosteUltimaCompra", "DecPrecios",          "DecImportes",
                                                  "DecCostes",         "Parametro",           "CaptionFamilia"};
constexpr std::int32_t kErrSinMiembro = 438;
constexpr const char* kOrigen = "KVDatosArt";

std::string Nombrar(std::size_t miembro, const std::string& texto) {
    return std::string("cEmpresa.") + kNombres[miembro] + ": " + texto;
}

// A by-name call reports its failures in its result and in a record of its own, never in the thread's error object.
[[noreturn]] void LanzarFallo(std::size_t miembro, HRESULT hr, EXCEPINFO& e) {
    if (hr != DISP_E_EXCEPTION) throw RuntimeError(hr, kOrigen, Nombrar(miembro, TextoDelCodigo(hr)));
    if (e.pfnDeferredFillIn != nullptr) e.pfnDeferredFillIn(&e);
    const HRESULT suyo = e.scode != 0 ? e.scode : MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, e.wCode);
    RuntimeError error(suyo, Utf8(e.bstrSource), Utf8(e.bstrDescription));
    if (error.descripcion.empty()) error.descripcion = Nombrar(miembro, TextoDelCodigo(suyo));
    SysFreeString(e.bstrSource);
    SysFreeString(e.bstrDescription);
    SysFreeString(e.bstrHelpFile);
    throw error;
}

/// A value of a kind that the member cannot have is told with the member's name.
template <class Funcion>
auto Convertir(std::size_t miembro, const Valor& valor, Funcion convertir) try {
    return convertir(valor);
} catch (const RuntimeError& error) {
    throw RuntimeError(error.numero, kOrigen, Nombrar(miembro, error.descripcion));
}

}  // namespace

DISPID EmpresaDispatch::Identificador(std::size_t miembro) const {
    if (!resueltos_[miembro]) {
        const Cadena nombre(kNombres[miembro]);
        OLECHAR* pedido = nombre.Get();
        const HRESULT hr =
            objeto_->GetIDsOfNames(IID_NULL, &pedido, 1, LOCALE_USER_DEFAULT, &identificadores_[miembro]);
        if (hr == DISP_E_UNKNOWNNAME)
            throw RuntimeError(kErrSinMiembro, kOrigen, std::string("cEmpresa no tiene ") + kNombres[miembro]);
        if (FAILED(hr)) throw RuntimeError(hr, kOrigen, Nombrar(miembro, TextoDelCodigo(hr)));
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
    if (FAILED(hr)) LanzarFallo(miembro, hr, excepcion);
    return resultado.AValor();
}

std::int16_t EmpresaDispatch::Entero(std::size_t miembro) const {
    return Convertir(miembro, Pedir(miembro, nullptr), AInteger);
}

bool EmpresaDispatch::Booleano(std::size_t miembro) const {
    return Convertir(miembro, Pedir(miembro, nullptr), ABoolean);
}

std::string EmpresaDispatch::CaptionFamilia(std::int16_t indice) const {
    const Valor texto = Pedir(11, &indice);
    return EsNulo(texto) ? std::string() : AString(texto, '.');
}

}  // namespace kv
