#include <fcntl.h>
#include <io.h>
#include <unistd.h>
#include <windows.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <string_view>

#include "kvdatosart/host/Terminal.h"

namespace kv::host {
namespace {

// What the console had when the program began; 0 where there is none. Ctrl-C is told in a thread of its own.
std::atomic<UINT> paginaAnterior = 0;
std::atomic<DWORD> modoAnterior = 0;

HANDLE Salida() {
    return GetStdHandle(STD_OUTPUT_HANDLE);
}

void Devolver() {
    if (const UINT pagina = paginaAnterior.exchange(0); pagina != 0) SetConsoleOutputCP(pagina);
    if (const DWORD modo = modoAnterior.exchange(0); modo != 0) SetConsoleMode(Salida(), modo);
}

// Whoever was asked before did not want it: the system ends the program next.
BOOL WINAPI AlTerminar(DWORD) {
    Devolver();
    return FALSE;
}

}  // namespace

Terminal::Terminal() {
    for (const int descriptor : {STDOUT_FILENO, STDERR_FILENO}) _setmode(descriptor, _O_BINARY);
    SetConsoleCtrlHandler(AlTerminar, TRUE);
    paginaAnterior = GetConsoleOutputCP();
    if (paginaAnterior != 0) SetConsoleOutputCP(CP_UTF8);
    DWORD modo = 0;
    if (GetConsoleMode(Salida(), &modo) != 0) modoAnterior = modo;
}

Terminal::~Terminal() {
    Devolver();
}

// What is no file may be the null device.
bool SalidaEnTerminal() {
    DWORD modo = 0;
    return GetConsoleMode(Salida(), &modo) != 0;
}

bool ErroresEnTerminal() {
    DWORD modo = 0;
    return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &modo) != 0;
}

std::size_t ColumnasTerminal() {
    CONSOLE_SCREEN_BUFFER_INFO pantalla{};
    if (GetConsoleScreenBufferInfo(Salida(), &pantalla) == 0) return 0;
    return static_cast<std::size_t>(std::max(0, pantalla.srWindow.Right - pantalla.srWindow.Left + 1));
}

// Those of before Windows 10 refuse.
bool TerminalConColores() {
    DWORD modo = 0;
    return GetConsoleMode(Salida(), &modo) != 0 &&
           SetConsoleMode(Salida(), modo | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

// The library of C has no number of its own for what the system calls a pipe without another end.
bool SeFueElLector(int error) {
    return error == EPIPE || error == EINVAL;
}

std::string DelEntorno(const char* nombre) {
    const wchar_t* const valor = _wgetenv(std::wstring(nombre, nombre + std::string_view(nombre).size()).c_str());
    return valor == nullptr ? "" : AUtf8(valor);
}

std::string AUtf8(const wchar_t* ancho) {
    // With the closing zero.
    const int octetos = WideCharToMultiByte(CP_UTF8, 0, ancho, -1, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(octetos), '\0');
    WideCharToMultiByte(CP_UTF8, 0, ancho, -1, utf8.data(), octetos, nullptr, nullptr);
    utf8.pop_back();
    return utf8;
}

}  // namespace kv::host
