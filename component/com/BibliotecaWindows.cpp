#include "component/com/BibliotecaWindows.h"

#include <oaidl.h>
#include <windows.h>

#include <array>

#include "db/ado/Variante.h"

namespace kv {

Fecha BibliotecaWindows::Hoy() const {
    SYSTEMTIME ahora;
    GetLocalTime(&ahora);
    return Fecha::DeAmd(ahora.wYear, ahora.wMonth, ahora.wDay);
}

char BibliotecaWindows::SeparadorDecimal() const {
    std::array<wchar_t, 8> separador{};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separador.data(), static_cast<int>(separador.size()));
    return separador[0] == L',' ? ',' : '.';
}

void BibliotecaWindows::MensajeCritico(std::string_view texto, std::string_view titulo) {
    const Cadena mensaje(texto);
    const Cadena cabecera(titulo);
    MessageBoxW(nullptr, mensaje.Get(), cabecera.Get(), MB_OK | MB_ICONERROR | MB_TASKMODAL);
}

}  // namespace kv
