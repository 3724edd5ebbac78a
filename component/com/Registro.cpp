#include "kvdatosart/component/com/Registro.h"

#include <oleauto.h>

#include <string>

#include "KVDatosArt_h.h"
#include "kvdatosart/component/com/Modulo.h"

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

/// Whether the DLL of the other bitness is registered. On a Windows of 32 bits there is no other: it looks at its own.
bool EstaLaOtra(HKEY raiz) {
    constexpr REGSAM kOtraVista = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
    HKEY abierta = nullptr;
    if (RegOpenKeyExW(raiz, ClaveClase().c_str(), 0, KEY_READ | kOtraVista, &abierta) != ERROR_SUCCESS) return false;
    RegCloseKey(abierta);
    return true;
}

LSTATUS QuitarClave(HKEY raiz, const std::wstring& clave) {
    const LSTATUS estado = RegDeleteTreeW(raiz, clave.c_str());
    return estado == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : estado;
}

LSTATUS QuitarClaves(HKEY raiz) {
    const LSTATUS clase = QuitarClave(raiz, ClaveClase());
    // Both bitnesses share the program identifier: the last to go takes it.
    const LSTATUS programa = EstaLaOtra(raiz) ? ERROR_SUCCESS : QuitarClave(raiz, kClases + kProgId);
    return clase != ERROR_SUCCESS ? clase : programa;
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

HRESULT RegistrarEn(HKEY raiz) {
    const LSTATUS estado = PonerClaves(raiz);
    const HRESULT hr =
        estado == ERROR_SUCCESS ? RegistrarTipos(raiz == HKEY_LOCAL_MACHINE) : HRESULT_FROM_WIN32(estado);
    if (FAILED(hr)) QuitarClaves(raiz);
    return hr;
}

HRESULT Registrar() {
    const HRESULT hr = RegistrarEn(HKEY_LOCAL_MACHINE);
    return hr == HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED) ? RegistrarEn(HKEY_CURRENT_USER) : hr;
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
    // A user without rights over the machine's registry removes his own, and is told that the machine's stays.
    const LSTATUS usuario = QuitarClaves(HKEY_CURRENT_USER);
    const LSTATUS maquina = QuitarClaves(HKEY_LOCAL_MACHINE);
    return HRESULT_FROM_WIN32(usuario != ERROR_SUCCESS ? usuario : maquina);
}

}  // namespace kv
