#include <windows.h>

#include "kvdatosart/host/cli/Navegador.h"

namespace kv::host {

// Above 32 says that it went well.
bool AbrirNavegador(const std::string& direccion) {
    const std::wstring destino(direccion.begin(), direccion.end());
    const HINSTANCE dicho = ShellExecuteW(nullptr, L"open", destino.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(dicho) > 32;
}

}  // namespace kv::host
