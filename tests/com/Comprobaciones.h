#pragma once

#include <windows.h>

#include <iostream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "KVDatosArt_h.h"
#include "tests/com/AdoFalso.h"

namespace kv::prueba {

inline int pasadas = 0;
inline int fallidas = 0;

/// Counts a check and shows those that fail with the last complaint of the fakes.
inline void Exigir(bool bien, const std::string& que) {
    ++(bien ? pasadas : fallidas);
    if (!bien && fallidas < 20) std::cout << "FALLA: " << que << " " << Global().queja << std::endl;
}

/// A new object of the registered class.
inline PunteroCom<::_clsDatosArt> Crear() {
    CLSID clase;
    PunteroCom<::_clsDatosArt> objeto;
    HRESULT hr = CLSIDFromProgID(L"KVDatosArt.clsDatosArt", &clase);
    if (SUCCEEDED(hr))
        hr = CoCreateInstance(clase, nullptr, CLSCTX_INPROC_SERVER, IID__clsDatosArt, objeto.RecibirVoid());
    Exigir(hr == S_OK, "creación por ProgID");
    if (FAILED(hr)) throw std::runtime_error("no se crea el objeto");
    return objeto;
}

/// A by-name call and all that it left.
struct Llamada {
    HRESULT hr = E_FAIL;
    Variante valor;
    UINT erroneo = 99;  // place of the wrong argument among those passed
    HRESULT numero = 0;
    std::string origen;
    std::string descripcion;
};

/// Positional arguments in the order of the call; named ones by their identifiers.
inline void PorNombre(Llamada& ll, IDispatch& o, const std::string& nombre, WORD clase,
                      std::vector<VARIANT> posicionales = {}, std::vector<std::pair<DISPID, VARIANT>> nombrados = {}) {
    const Cadena ancho(nombre);
    OLECHAR* pedido = ancho.Get();
    DISPID id = 0;
    if (ll.hr = o.GetIDsOfNames(IID_NULL, &pedido, 1, LOCALE_USER_DEFAULT, &id); FAILED(ll.hr)) return;
    std::vector<VARIANT> todos;
    std::vector<DISPID> ids;
    for (const auto& [cual, valor] : nombrados) todos.push_back(valor), ids.push_back(cual);
    todos.insert(todos.end(), posicionales.rbegin(), posicionales.rend());
    DISPPARAMS argumentos{todos.data(), ids.data(), static_cast<UINT>(todos.size()), static_cast<UINT>(ids.size())};
    EXCEPINFO e{};
    ll.hr = o.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, clase, &argumentos, ll.valor.Recibir(), &e, &ll.erroneo);
    ll.numero = e.scode;
    ll.origen = Utf8(e.bstrSource);
    ll.descripcion = Utf8(e.bstrDescription);
    for (BSTR b : {e.bstrSource, e.bstrDescription, e.bstrHelpFile}) SysFreeString(b);
}

inline Valor Leer(IDispatch& o, const std::string& nombre) {
    Llamada ll;
    PorNombre(ll, o, nombre, DISPATCH_PROPERTYGET);
    return FAILED(ll.hr) ? Valor(std::string("sin valor")) : ll.valor.AValor();
}

inline HRESULT Poner(IDispatch& o, const std::string& nombre, const VARIANT& valor, WORD clase = DISPATCH_PROPERTYPUT) {
    Llamada ll;
    PorNombre(ll, o, nombre, clase, {}, {{DISPID_PROPERTYPUT, valor}});
    return ll.hr;
}

/// Description of the thread's error object, which is taken from it.
inline std::string TextoError() {
    PunteroCom<IErrorInfo> info;
    Cadena texto;
    if (GetErrorInfo(0, info.Recibir()) == S_OK) info->GetDescription(texto.Recibir());
    return Utf8(texto.Get());
}

/// Shows the counts; the exit code of the program.
inline int Resumen() {
    std::cout << pasadas << " passed, " << fallidas << " failed" << std::endl;
    return fallidas == 0 ? 0 : 1;
}

}  // namespace kv::prueba
