// Runs under Wine with the registration's own code inside: the keys that it makes for a user and what removal leaves.

#include <iterator>

#include "component/com/Registro.h"
#include "tests/com/Comprobaciones.h"

namespace kv::prueba {
namespace {

constexpr const wchar_t* kClase = L"Software\\Classes\\CLSID\\{1FA74086-DF09-486C-A741-27A97C598EF0}";
constexpr const wchar_t* kServidor =
    L"Software\\Classes\\CLSID\\{1FA74086-DF09-486C-A741-27A97C598EF0}\\InprocServer32";
constexpr const wchar_t* kPrograma = L"Software\\Classes\\KVDatosArt.clsDatosArt";

std::wstring Leido(HKEY raiz, const std::wstring& clave, const wchar_t* nombre = nullptr) {
    wchar_t texto[512] = L"";
    DWORD bytes = sizeof texto;
    const LSTATUS estado =
        RegGetValueW(raiz, clave.c_str(), nullptr == nombre ? L"" : nombre, RRF_RT_REG_SZ, nullptr, texto, &bytes);
    return estado == ERROR_SUCCESS ? texto : L"(no hay)";
}

bool Hay(HKEY raiz, const wchar_t* clave) {
    HKEY abierta = nullptr;
    if (RegOpenKeyExW(raiz, clave, 0, KEY_READ, &abierta) != ERROR_SUCCESS) return false;
    RegCloseKey(abierta);
    return true;
}

void ProbarUsuario() {
    Exigir(RegistrarEn(HKEY_CURRENT_USER) == S_OK, "registro del usuario");
    wchar_t programa[512];
    GetModuleFileNameW(nullptr, programa, static_cast<DWORD>(std::size(programa)));
    const struct {
        std::wstring clave;
        const wchar_t* nombre;
        std::wstring valor;
    } casos[] = {
        {kServidor, nullptr, programa},
        {kServidor, L"ThreadingModel", L"Apartment"},
        {std::wstring(kClase) + L"\\ProgID", nullptr, L"KVDatosArt.clsDatosArt"},
        {std::wstring(kClase) + L"\\TypeLib", nullptr, L"{002EEF61-6083-45A8-A783-8E77D15E2010}"},
        {std::wstring(kPrograma) + L"\\CLSID", nullptr, L"{1FA74086-DF09-486C-A741-27A97C598EF0}"},
    };
    for (const auto& c : casos) Exigir(Leido(HKEY_CURRENT_USER, c.clave, c.nombre) == c.valor, "valor del usuario");
    Exigir(!Hay(HKEY_LOCAL_MACHINE, kClase) && !Hay(HKEY_LOCAL_MACHINE, kPrograma), "nada de la máquina");
    Exigir(QuitarRegistro() == S_OK && !Hay(HKEY_CURRENT_USER, kClase) && !Hay(HKEY_CURRENT_USER, kPrograma),
           "retirada");
    Exigir(QuitarRegistro() == S_OK, "retirada de lo que no está");
}

/// With the class of the other bitness beside it; a Wine of 32 bits alone has no other.
void ProbarConLaOtra() {
    HKEY otra = nullptr;
    Exigir(RegistrarEn(HKEY_LOCAL_MACHINE) == S_OK, "registro de la máquina");
    RegCreateKeyExW(HKEY_LOCAL_MACHINE, kClase, 0, nullptr, 0, KEY_WRITE | KEY_WOW64_32KEY, nullptr, &otra, nullptr);
    RegCloseKey(otra);
    Exigir(QuitarRegistro() == S_OK && !Hay(HKEY_LOCAL_MACHINE, kClase), "retirada con la otra");
    Exigir(Hay(HKEY_LOCAL_MACHINE, kPrograma), "el ProgID queda para la otra");
    RegDeleteKeyExW(HKEY_LOCAL_MACHINE, kClase, KEY_WOW64_32KEY, 0);
    Exigir(QuitarRegistro() == S_OK && !Hay(HKEY_LOCAL_MACHINE, kPrograma), "sin la otra se va");
}

}  // namespace
}  // namespace kv::prueba

int main() {
    if (FAILED(CoInitialize(nullptr))) return 2;
    kv::prueba::ProbarUsuario();
    if constexpr (sizeof(void*) == 8) kv::prueba::ProbarConLaOtra();
    return kv::prueba::Resumen();
}
