// Prices a sales line of an open ADO connection through KVDatosArt.dll:
//   precio CONEXION EMPRESA ARTICULO CLIENTE TARIFA
// CONEXION is an OLE DB connection string, for example
//   "Provider=MSOLEDBSQL;Server=servidor;Database=tienda;Trusted_Connection=yes"
// KVDatosArt_h.h and KVDatosArt_i.c come from the IDL; with Visual C++ an #import of the DLL gives the same.

#include <windows.h>
// clang-format off
#include <comdef.h>
// clang-format on
#include <oaidl.h>

#include <cstdio>
#include <cwchar>
#include <vector>

#include "KVDatosArt_h.h"

namespace {

/// A failed call, with the error object that it left.
void Comprobar(HRESULT hr) {
    if (SUCCEEDED(hr)) return;
    IErrorInfo* info = nullptr;
    GetErrorInfo(0, &info);
    throw _com_error(hr, info);
}

/// The failure that a by-name call describes in its own record.
[[noreturn]] void Lanzar(EXCEPINFO& e) {
    ICreateErrorInfo* nuevo = nullptr;
    IErrorInfo* info = nullptr;
    Comprobar(CreateErrorInfo(&nuevo));
    nuevo->SetSource(e.bstrSource);
    nuevo->SetDescription(e.bstrDescription);
    Comprobar(nuevo->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&info)));
    nuevo->Release();
    SysFreeString(e.bstrSource);
    SysFreeString(e.bstrDescription);
    SysFreeString(e.bstrHelpFile);
    throw _com_error(e.scode != 0 ? e.scode : E_FAIL, info);
}

/// Calls a member by name; the arguments in their written order.
_variant_t Llamar(IDispatch* objeto, const wchar_t* miembro, std::vector<_variant_t> argumentos) {
    std::vector<VARIANT> alReves(argumentos.rbegin(), argumentos.rend());
    DISPPARAMS pasados{alReves.data(), nullptr, static_cast<UINT>(alReves.size()), 0};
    auto* nombre = const_cast<wchar_t*>(miembro);
    DISPID id = 0;
    _variant_t resultado;
    EXCEPINFO excepcion{};
    Comprobar(objeto->GetIDsOfNames(IID_NULL, &nombre, 1, LOCALE_USER_DEFAULT, &id));
    const HRESULT hr =
        objeto->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &pasados, &resultado, &excepcion, nullptr);
    if (hr == DISP_E_EXCEPTION) Lanzar(excepcion);
    Comprobar(hr);
    return resultado;
}

/// A company without numbered parameters that keeps everything under one code; the component asks it by name.
class Empresa : public IDispatch {
  public:
    Empresa(short codigo, short tarifa) : codigo_(codigo), tarifa_(tarifa) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** objeto) override {
        *objeto = iid == IID_IUnknown || iid == IID_IDispatch ? this : nullptr;
        return *objeto != nullptr ? (AddRef(), S_OK) : E_NOINTERFACE;
    }
    // Lives in main as long as whoever it is lent to.
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* cuantos) override { return *cuantos = 0, S_OK; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* nombres, UINT, LCID, DISPID* ids) override {
        for (ids[0] = 0; kMiembros[ids[0]] != nullptr; ++ids[0])
            if (_wcsicmp(nombres[0], kMiembros[ids[0]]) == 0) return S_OK;
        return DISP_E_UNKNOWNNAME;
    }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* resultado, EXCEPINFO*,
                                     UINT*) override {
        const _variant_t valores[] = {codigo_, codigo_,  codigo_,  codigo_,  tarifa_,      false,
                                      false,   short{2}, short{2}, short{4}, _variant_t{}, L""};
        _variant_t valor = valores[id];
        *resultado = valor.Detach();
        return S_OK;
    }

  private:
    static constexpr const wchar_t* kMiembros[] = {
        L"CodEmpresa",    L"CodEmpresaArticulos", L"CodEmpresaClientes", L"CodEmpresaExtra",
        L"TarifaEmpresa", L"VenderSinStock",      L"CosteUltimaCompra",  L"DecPrecios",
        L"DecImportes",   L"DecCostes",           L"Parametro",          L"CaptionFamilia",
        nullptr};
    _variant_t codigo_;
    _variant_t tarifa_;
};

/// A new object, held by the variant.
_variant_t Crear(const wchar_t* programa) {
    CLSID clase;
    void* objeto = nullptr;
    Comprobar(CLSIDFromProgID(programa, &clase));
    Comprobar(CoCreateInstance(clase, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &objeto));
    return _variant_t(static_cast<IDispatch*>(objeto), false);
}

int Cargar(wchar_t** argumentos) {
    const auto numero = [&](int i) { return std::wcstol(argumentos[i], nullptr, 10); };
    const auto tarifa = static_cast<short>(numero(5));
    Empresa empresa(static_cast<short>(numero(2)), tarifa);
    const _variant_t conexion = Crear(L"ADODB.Connection");
    Llamar(conexion.pdispVal, L"Open", {argumentos[1]});
    // The component writes its dates as day/month/year.
    Llamar(conexion.pdispVal, L"Execute", {L"SET DATEFORMAT dmy"});

    const _variant_t creado = Crear(L"KVDatosArt.clsDatosArt");
    _clsDatosArt* articulo = nullptr;
    Comprobar(creado.pdispVal->QueryInterface(IID__clsDatosArt, reinterpret_cast<void**>(&articulo)));
    Comprobar(articulo->putref_Conexion(conexion.pdispVal));
    Comprobar(articulo->putref_cEmpresa(&empresa));
    SYSTEMTIME ahora;
    GetLocalTime(&ahora);
    ahora.wHour = ahora.wMinute = ahora.wSecond = ahora.wMilliseconds = 0;
    DATE hoy = 0;
    SystemTimeToVariantTime(&ahora, &hoy);
    CURRENCY unidades;
    unidades.int64 = 10000;  // one
    short estado = 0;
    Comprobar(articulo->Cargar(numero(3), numero(4), hoy, tarifa, 1, 2, unidades, &estado));
    double precio = 0;
    BSTR descripcion = nullptr;
    Comprobar(articulo->get_Pvp(&precio));
    Comprobar(articulo->get_Descripcion(&descripcion));
    std::wprintf(L"Estado %d  %ls  precio %.4f\n", estado, descripcion != nullptr ? descripcion : L"", precio);
    SysFreeString(descripcion);
    articulo->Release();
    return estado == 0 ? 0 : 1;
}

}  // namespace

int main() {
    int cuantos = 0;
    wchar_t** argumentos = CommandLineToArgvW(GetCommandLineW(), &cuantos);
    if (cuantos != 6) return std::wprintf(L"Uso: precio CONEXION EMPRESA ARTICULO CLIENTE TARIFA\n"), 2;
    if (FAILED(CoInitialize(nullptr))) return 3;
    int salida = 3;
    try {
        salida = Cargar(argumentos);
    } catch (const _com_error& error) {
        const _bstr_t origen = error.Source();
        const _bstr_t texto = error.Description();
        std::wprintf(L"Error 0x%08lX de %ls: %ls\n", static_cast<unsigned long>(error.Error()),
                     origen.length() > 0 ? static_cast<const wchar_t*>(origen) : L"-",
                     texto.length() > 0 ? static_cast<const wchar_t*>(texto) : L"-");
    }
    CoUninitialize();
    return salida;
}
