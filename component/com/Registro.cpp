#include "component/com/Registro.h"

#include <oleauto.h>

#include <string>

#include "KVDatosArt_h.h"
#include "component/com/Modulo.h"

// Declared here because not every compiler's headers have them; oleaut32 exports both.
extern "C" HRESULT WINAPI RegisterTypeLibForUser(ITypeLib* tipos, OLECHAR* ruta, OLECHAR* ayuda);
extern "C" HRESULT WINAPI UnRegisterTypeLibForUser(REFGUID tipos, WORD mayor, WORD menor, LCID idioma, SYSKIND sistema);

namespace kv {
namespace {

constexpr const wchar_t* kProgId = L"KVDatosArt.clsDatosArt";
const std::wstring kClases = L"Software\\Classes\\";

std::wstring Texto(const GUID& guid) {
    wchar_t texto[40];
    StringFromGUID2(guid, texto, 40);
    return texto;
}

std::wstring ClaveClase() {
    return kClases + L"CLSID\\" + Texto(CLSID_clsDatosArt);
}

LSTATUS Poner(HKEY raiz, const std::wstring& clave, const wchar_t* nombre, const std::wstring& valor) {
    return RegSetKeyValueW(raiz, clave.c_str(), nombre, REG_SZ, valor.c_str(),
                           static_cast<DWORD>((valor.size() + 1) * sizeof(wchar_t)));
}

LSTATUS PonerClaves(HKEY raiz) {
    const std::wstring clase = ClaveClase();
    const std::wstring programa = kClases + kProgId;
    const struct {
        std::wstring clave;
        const wchar_t* nombre;
        std::wstring valor;
    } valores[] = {
        {clase, nullptr, kProgId},
        {clase + L"\\InprocServer32", nullptr, Modulo::Ruta()},
        {clase + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
        {clase + L"\\ProgID", nullptr, kProgId},
        {clase + L"\\TypeLib", nullptr, Texto(LIBID_KVDatosArt)},
        {clase + L"\\Version", nullptr, L"1.0"},
        {programa, nullptr, kProgId},
        {programa + L"\\CLSID", nullptr, Texto(CLSID_clsDatosArt)},
    };
    for (const auto& v : valores)
        if (const LSTATUS estado = Poner(raiz, v.clave, v.nombre, v.valor); estado != ERROR_SUCCESS) return estado;
    return ERROR_SUCCESS;
}

LSTATUS QuitarClaves(HKEY raiz) {
    LSTATUS peor = ERROR_SUCCESS;
    for (const std::wstring& clave : {ClaveClase(), kClases + kProgId}) {
        const LSTATUS estado = RegDeleteTreeW(raiz, clave.c_str());
        if (estado != ERROR_SUCCESS && estado != ERROR_FILE_NOT_FOUND) peor = estado;
    }
    return peor;
}

HRESULT RegistrarTipos(bool maquina) {
    HRESULT hr = S_OK;
    ITypeLib* tipos = Modulo::Tipos(hr);
    if (tipos == nullptr) return hr;
    std::wstring ruta = Modulo::Ruta();
    hr = maquina ? RegisterTypeLib(tipos, ruta.data(), nullptr) : RegisterTypeLibForUser(tipos, ruta.data(), nullptr);
    tipos->Release();
    return hr;
}

}  // namespace

HRESULT Registrar() {
    LSTATUS estado = PonerClaves(HKEY_LOCAL_MACHINE);
    const bool maquina = estado != ERROR_ACCESS_DENIED;
    if (!maquina) estado = PonerClaves(HKEY_CURRENT_USER);
    const HRESULT hr = estado == ERROR_SUCCESS ? RegistrarTipos(maquina) : HRESULT_FROM_WIN32(estado);
    if (FAILED(hr)) QuitarRegistro();
    return hr;
}

HRESULT QuitarRegistro() {
#ifdef _WIN64
    constexpr SYSKIND kSistema = SYS_WIN64;
#else
    constexpr SYSKIND kSistema = SYS_WIN32;
#endif
    // Whichever of the two was not registered fails, and need not be removed.
    UnRegisterTypeLib(LIBID_KVDatosArt, 1, 0, LOCALE_NEUTRAL, kSistema);
    UnRegisterTypeLibForUser(LIBID_KVDatosArt, 1, 0, LOCALE_NEUTRAL, kSistema);
    const LSTATUS usuario = QuitarClaves(HKEY_CURRENT_USER);
    LSTATUS maquina = QuitarClaves(HKEY_LOCAL_MACHINE);
    // A user without rights over the machine's registry has only his own to remove.
    if (maquina == ERROR_ACCESS_DENIED) maquina = ERROR_SUCCESS;
    return HRESULT_FROM_WIN32(usuario != ERROR_SUCCESS ? usuario : maquina);
}

}  // namespace kv
