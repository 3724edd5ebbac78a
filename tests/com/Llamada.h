#pragma once

#include <windows.h>

#include <deque>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "KVDatosArt_h.h"
#include "kvdatosart/db/ado/PunteroCom.h"
#include "kvdatosart/db/ado/Variante.h"
#include "kvdatosart/tests/com/Grabacion.h"

namespace kv::prueba {

/// A new object of the registered class.
inline PunteroCom<::_clsDatosArt> Crear() {
    CLSID clase;
    PunteroCom<::_clsDatosArt> objeto;
    HRESULT hr = CLSIDFromProgID(L"KVDatosArt.clsDatosArt", &clase);
    if (SUCCEEDED(hr))
        hr = CoCreateInstance(clase, nullptr, CLSCTX_INPROC_SERVER, IID__clsDatosArt, objeto.RecibirVoid());
    if (FAILED(hr)) throw std::runtime_error("no se crea por su ProgID");
    return objeto;
}

/// What a by-name call left: its value encoded, or a failure.
struct Llamada {
    HRESULT hr = E_FAIL;
    std::string valor;
    HRESULT numero = 0;
    std::string error;  // source and text, parted by a bar

    /// The HRESULT that a caller of the vtable would get.
    HRESULT Fallo() const { return hr == DISP_E_EXCEPTION ? numero : hr; }
};

/// Positional arguments in the order of the call; named ones by their identifiers. NULL is one marked as left out.
inline Llamada PorNombre(IDispatch& o, const std::string& nombre, WORD clase,
                         const std::vector<Valor>& posicionales = {},
                         const std::vector<std::pair<DISPID, Valor>>& nombrados = {}) {
    Llamada ll;
    const Cadena ancho(nombre);
    OLECHAR* pedido = ancho.Get();
    DISPID id = 0;
    if (ll.hr = o.GetIDsOfNames(IID_NULL, &pedido, 1, LOCALE_USER_DEFAULT, &id); FAILED(ll.hr)) return ll;
    std::deque<Variante> propios;
    std::vector<VARIANT> todos;
    std::vector<DISPID> ids;
    const auto anadir = [&](const Valor& dado) {
        VARIANT& v = propios.emplace_back(dado).Get();
        if (v.vt == VT_NULL) v.vt = VT_ERROR, v.scode = DISP_E_PARAMNOTFOUND;
        todos.push_back(v);
    };
    for (const auto& [cual, dado] : nombrados) anadir(dado), ids.push_back(cual);
    for (auto dado = posicionales.rbegin(); dado != posicionales.rend(); ++dado) anadir(*dado);
    DISPPARAMS argumentos{todos.data(), ids.data(), static_cast<UINT>(todos.size()), static_cast<UINT>(ids.size())};
    EXCEPINFO e{};
    Variante leido;
    UINT erroneo = 0;
    ll.hr = o.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, clase, &argumentos, leido.Recibir(), &e, &erroneo);
    ll.numero = e.scode;
    ll.error = Utf8(e.bstrSource) + "|" + Utf8(e.bstrDescription);
    for (BSTR b : {e.bstrSource, e.bstrDescription, e.bstrHelpFile}) SysFreeString(b);
    ll.valor = Codificar(leido.AValor());
    return ll;
}

/// The encoded value of a property; nothing else of the object moves.
inline std::string Leer(IDispatch& o, const std::string& nombre) {
    return PorNombre(o, nombre, DISPATCH_PROPERTYGET).valor;
}

inline HRESULT Poner(IDispatch& o, const std::string& nombre, const Valor& valor) {
    return PorNombre(o, nombre, DISPATCH_PROPERTYPUT, {}, {{DISPID_PROPERTYPUT, valor}}).hr;
}

}  // namespace kv::prueba
