#include "component/com/Registro.h"
#include "tests/com/Etapas.h"

namespace kv::prueba {
namespace {

const std::wstring kClase = L"Software\\Classes\\CLSID\\{1FA74086-DF09-486C-A741-27A97C598EF0}";
const std::wstring kPrograma = L"Software\\Classes\\KVDatosArt.clsDatosArt";

std::wstring Leido(const std::wstring& clave, const wchar_t* nombre) {
    wchar_t texto[512] = L"";
    DWORD bytes = sizeof texto;
    RegGetValueW(HKEY_CURRENT_USER, clave.c_str(), nombre, RRF_RT_REG_SZ, nullptr, texto, &bytes);
    return texto;
}

bool Hay(HKEY raiz, const std::wstring& clave) {
    HKEY abierta = nullptr;
    if (RegOpenKeyExW(raiz, clave.c_str(), 0, KEY_READ, &abierta) != ERROR_SUCCESS) return false;
    RegCloseKey(abierta);
    return true;
}

void ProbarUsuario() {
    Exigir(RegistrarEn(HKEY_CURRENT_USER) == S_OK, "registro del usuario");
    const struct {
        const wchar_t* clave;
        const wchar_t* nombre;
        const wchar_t* valor;
    } casos[] = {
        {L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
        {L"\\ProgID", L"", L"KVDatosArt.clsDatosArt"},
        {L"\\TypeLib", L"", L"{002EEF61-6083-45A8-A783-8E77D15E2010}"},
    };
    for (const auto& c : casos)
        Exigir(Leido(kClase + c.clave, c.nombre) == c.valor, "valor " + std::to_string(&c - casos));
    Exigir(!Hay(HKEY_LOCAL_MACHINE, kClase) && !Hay(HKEY_LOCAL_MACHINE, kPrograma), "nada de la máquina");
    Exigir(QuitarRegistro() == S_OK && !Hay(HKEY_CURRENT_USER, kClase) && !Hay(HKEY_CURRENT_USER, kPrograma),
           "retirada");
    Exigir(QuitarRegistro() == S_OK, "retirada de lo que no está");
}

/// With the class of the other bitness beside it; a Wine of 32 bits alone has no other.
void ProbarConLaOtra() {
    HKEY otra = nullptr;
    Exigir(RegistrarEn(HKEY_LOCAL_MACHINE) == S_OK, "registro de la máquina");
    RegCreateKeyExW(HKEY_LOCAL_MACHINE, kClase.c_str(), 0, nullptr, 0, KEY_WRITE | KEY_WOW64_32KEY, nullptr, &otra,
                    nullptr);
    RegCloseKey(otra);
    Exigir(QuitarRegistro() == S_OK && !Hay(HKEY_LOCAL_MACHINE, kClase), "retirada con la otra");
    Exigir(Hay(HKEY_LOCAL_MACHINE, kPrograma), "el ProgID queda para la otra");
    RegDeleteKeyExW(HKEY_LOCAL_MACHINE, kClase.c_str(), KEY_WOW64_32KEY, 0);
    Exigir(QuitarRegistro() == S_OK && !Hay(HKEY_LOCAL_MACHINE, kPrograma), "sin la otra se va");
}

}  // namespace

void ProbarClaves() {
    ProbarUsuario();
    if constexpr (sizeof(void*) == 8) ProbarConLaOtra();
}

void ProbarManifiesto(const char* ruta) {
    const Cadena manifiesto(ruta);
    CLSID clase;
    Exigir(FAILED(CLSIDFromProgID(L"KVDatosArt.clsDatosArt", &clase)), "no está registrada");
    ACTCTXW peticion{};
    peticion.cbSize = sizeof peticion;
    peticion.lpSource = manifiesto.Get();
    const HANDLE contexto = CreateActCtxW(&peticion);
    ULONG_PTR marca = 0;
    Exigir(contexto != INVALID_HANDLE_VALUE && ActivateActCtx(contexto, &marca), "contexto del manifiesto");
    const auto o = Crear();
    Exigir(Poner(*o.Get(), "Codigo", 118) == S_OK && Leer(*o.Get(), "Codigo") == "4:118", "uso por nombre");
    DeactivateActCtx(0, marca);
    ReleaseActCtx(contexto);
}

}  // namespace kv::prueba
