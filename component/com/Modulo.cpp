#include "kvdatosart/component/com/Modulo.h"

#include <array>
#include <atomic>

#include "KVDatosArt_h.h"

namespace kv {
namespace {

std::atomic<long> retenciones{0};

// The address of something inside the DLL finds the DLL itself, however it was loaded.
HMODULE Propio() {
    HMODULE modulo = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&retenciones), &modulo);
    return modulo;
}

}  // namespace

void Modulo::Retener() noexcept {
    ++retenciones;
}
void Modulo::Soltar() noexcept {
    --retenciones;
}
bool Modulo::SePuedeDescargar() noexcept {
    return retenciones == 0;
}

std::wstring Modulo::Ruta() {
    std::array<wchar_t, 32768> ruta{};
    const DWORD largo = GetModuleFileNameW(Propio(), ruta.data(), static_cast<DWORD>(ruta.size()));
    return std::wstring(ruta.data(), largo);
}

ITypeLib* Modulo::Tipos(HRESULT& hr) {
    ITypeLib* tipos = nullptr;
    hr = LoadTypeLibEx(Ruta().c_str(), REGKIND_NONE, &tipos);
    return tipos;
}

ITypeInfo* Modulo::Interfaz(HRESULT& hr) {
    static HRESULT resultado = S_OK;
    static ITypeInfo* const interfaz = [] {
        ITypeInfo* info = nullptr;
        ITypeLib* tipos = Tipos(resultado);
        if (tipos == nullptr) return info;
        resultado = tipos->GetTypeInfoOfGuid(IID__clsDatosArt, &info);
        tipos->Release();
        return info;
    }();
    hr = resultado;
    return interfaz;
}

}  // namespace kv
