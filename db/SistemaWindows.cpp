#include <windows.h>

#include <array>
#include <string>

#include "kvdatosart/db/Sistema.h"

namespace kv {
namespace {

std::wstring Ancho(std::string_view texto) {
    const int octetos = static_cast<int>(texto.size());
    std::wstring ancho(texto.size(), L'\0');
    ancho.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_UTF8, 0, texto.data(), octetos, ancho.data(), static_cast<int>(ancho.size()))));
    return ancho;
}

}  // namespace

Fecha FechaDelSistema() {
    SYSTEMTIME ahora;
    GetLocalTime(&ahora);
    return Fecha::DeAmd(ahora.wYear, ahora.wMonth, ahora.wDay);
}

// Asked each time: the user may change it while the program runs.
char SeparadorDelSistema() {
    std::array<wchar_t, 8> separador{};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separador.data(), static_cast<int>(separador.size()));
    return separador[0] == L',' ? ',' : '.';
}

void MostrarMensajeCritico(std::string_view texto, std::string_view titulo) {
    MessageBoxW(nullptr, Ancho(texto).c_str(), Ancho(titulo).c_str(), MB_OK | MB_ICONERROR | MB_TASKMODAL);
}

}  // namespace kv
