#include <gtest/gtest.h>

#include <cstdlib>

#include "kvdatosart/component/com/Registro.h"
#include "kvdatosart/tests/com/Llamada.h"

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

// The keys that the registration's own code makes, and what removal leaves.
TEST(SinRegistrar, ClavesDelUsuario) {
    EXPECT_EQ(S_OK, RegistrarEn(HKEY_CURRENT_USER));
    EXPECT_EQ(L"Apartment", Leido(kClase + L"\\InprocServer32", L"ThreadingModel"));
    EXPECT_EQ(L"KVDatosArt.clsDatosArt", Leido(kClase + L"\\ProgID", L""));
    EXPECT_EQ(L"{002EEF61-6083-45A8-A783-8E77D15E2010}", Leido(kClase + L"\\TypeLib", L""));
    EXPECT_FALSE(Hay(HKEY_LOCAL_MACHINE, kClase));
    EXPECT_FALSE(Hay(HKEY_LOCAL_MACHINE, kPrograma));
    EXPECT_EQ(S_OK, QuitarRegistro());
    EXPECT_FALSE(Hay(HKEY_CURRENT_USER, kClase));
    EXPECT_FALSE(Hay(HKEY_CURRENT_USER, kPrograma));
    EXPECT_EQ(S_OK, QuitarRegistro()) << "retirada de lo que no está";
}

TEST(SinRegistrar, ClavesDeLaMaquinaConLasDeOtrosBits) {
    if constexpr (sizeof(void*) == 4) GTEST_SKIP() << "un Wine de 32 bits no tiene otros";
    HKEY otra = nullptr;
    EXPECT_EQ(S_OK, RegistrarEn(HKEY_LOCAL_MACHINE));
    RegCreateKeyExW(HKEY_LOCAL_MACHINE, kClase.c_str(), 0, nullptr, 0, KEY_WRITE | KEY_WOW64_32KEY, nullptr, &otra,
                    nullptr);
    RegCloseKey(otra);
    EXPECT_EQ(S_OK, QuitarRegistro());
    EXPECT_FALSE(Hay(HKEY_LOCAL_MACHINE, kClase)) << "retirada con la otra";
    EXPECT_TRUE(Hay(HKEY_LOCAL_MACHINE, kPrograma)) << "el ProgID queda para la otra";
    RegDeleteKeyExW(HKEY_LOCAL_MACHINE, kClase.c_str(), KEY_WOW64_32KEY, 0);
    EXPECT_EQ(S_OK, QuitarRegistro());
    EXPECT_FALSE(Hay(HKEY_LOCAL_MACHINE, kPrograma)) << "sin la otra se va";
}

// Where the registration's code finds the function that deletes keys.
#ifdef _WIN64
extern "C" void* importada __asm__("__imp_RegDeleteTreeW");
#else
extern "C" void* importada __asm__("__imp__RegDeleteTreeW@8");
#endif
// Asked of the system: the compiler would take its address for the import again.
const auto kBorrar = reinterpret_cast<decltype(&RegDeleteTreeW)>(  // NOLINT: as the system hands it over.
    reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"advapi32.dll"), "RegDeleteTreeW")));

/// While it lives nobody may delete a key of the machine: Wine does not ask for rights.
class SinDerechos {
  public:
    SinDerechos() { Poner(reinterpret_cast<void*>(Negar)); }     // NOLINT: as the table of imports keeps it.
    ~SinDerechos() { Poner(reinterpret_cast<void*>(kBorrar)); }  // NOLINT
    SinDerechos(const SinDerechos&) = delete;
    SinDerechos& operator=(const SinDerechos&) = delete;

  private:
    static LSTATUS WINAPI Negar(HKEY raiz, LPCWSTR clave) {
        return raiz == HKEY_LOCAL_MACHINE && Hay(raiz, clave) ? ERROR_ACCESS_DENIED : kBorrar(raiz, clave);
    }
    static void Poner(void* funcion) {
        DWORD antes = 0;
        VirtualProtect(&importada, sizeof importada, PAGE_READWRITE, &antes);
        importada = funcion;
    }
};

TEST(SinRegistrar, LaDeLaMaquinaQueNoSePuedeQuitar_NoSeDaPorQuitada) {
    EXPECT_EQ(S_OK, RegistrarEn(HKEY_LOCAL_MACHINE));
    EXPECT_EQ(S_OK, RegistrarEn(HKEY_CURRENT_USER));
    {
        const SinDerechos ninguno;
        EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED), QuitarRegistro());
        EXPECT_TRUE(Hay(HKEY_LOCAL_MACHINE, kClase));
        EXPECT_FALSE(Hay(HKEY_CURRENT_USER, kClase)) << "la propia se quita";
    }
    EXPECT_EQ(S_OK, QuitarRegistro());
    EXPECT_FALSE(Hay(HKEY_LOCAL_MACHINE, kClase));
}

TEST(SinRegistrar, UsoPorElManifiesto) {
    const Cadena manifiesto(std::getenv("KV_MANIFIESTO"));
    CLSID clase;
    EXPECT_TRUE(FAILED(CLSIDFromProgID(L"KVDatosArt.clsDatosArt", &clase))) << "está registrada";
    ACTCTXW peticion{};
    peticion.cbSize = sizeof peticion;
    peticion.lpSource = manifiesto.Get();
    const HANDLE contexto = CreateActCtxW(&peticion);
    ULONG_PTR marca = 0;
    EXPECT_NE(INVALID_HANDLE_VALUE, contexto);
    EXPECT_TRUE(ActivateActCtx(contexto, &marca)) << "contexto del manifiesto";
    {
        const auto o = Crear();
        EXPECT_EQ(S_OK, Poner(*o.Get(), "Codigo", 118));
        EXPECT_EQ("4:118", Leer(*o.Get(), "Codigo"));
    }
    DeactivateActCtx(0, marca);
    ReleaseActCtx(contexto);
}

}  // namespace
}  // namespace kv::prueba
