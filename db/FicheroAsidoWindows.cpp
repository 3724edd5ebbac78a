#include <windows.h>

#include <algorithm>
#include <system_error>
#include <utility>

#include "kvdatosart/db/FicheroAsido.h"

namespace kv {
namespace {

// The byte that is locked, far behind those that the database locks for itself.
constexpr DWORD kByteAlto = 0x7FFFFFFF;
constexpr DWORD kCompartido = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

HANDLE Nativo(std::intptr_t asidero) {
    return reinterpret_cast<HANDLE>(asidero);
}

// In the words of other systems where they have one for it.
[[noreturn]] void LanzarUltimo() {
    const std::error_code error(static_cast<int>(GetLastError()), std::system_category());
    throw std::system_error(error.default_error_condition().value(), error.default_error_condition().category());
}

}  // namespace

FicheroAsido::FicheroAsido(std::filesystem::path ruta, Lectores) : ruta_(std::move(ruta)) {
    const HANDLE abierto = CreateFileW(ruta_.c_str(), GENERIC_READ | GENERIC_WRITE, kCompartido, nullptr, OPEN_ALWAYS,
                                       FILE_ATTRIBUTE_NORMAL, nullptr);
    if (abierto == INVALID_HANDLE_VALUE) LanzarUltimo();
    asidero_ = reinterpret_cast<std::intptr_t>(abierto);
}

FicheroAsido::~FicheroAsido() {
    CloseHandle(Nativo(asidero_));
}

bool FicheroAsido::Asir() {
    OVERLAPPED donde{};
    donde.OffsetHigh = kByteAlto;
    return LockFileEx(Nativo(asidero_), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &donde) != 0;
}

bool FicheroAsido::TieneSuNombre() const {
    const HANDLE otro = CreateFileW(ruta_.c_str(), 0, kCompartido, nullptr, OPEN_EXISTING, 0, nullptr);
    if (otro == INVALID_HANDLE_VALUE) return false;
    BY_HANDLE_FILE_INFORMATION abierto{};
    BY_HANDLE_FILE_INFORMATION conNombre{};
    const bool sabidos = GetFileInformationByHandle(Nativo(asidero_), &abierto) != 0 &&
                         GetFileInformationByHandle(otro, &conNombre) != 0;
    CloseHandle(otro);
    return sabidos && abierto.dwVolumeSerialNumber == conNombre.dwVolumeSerialNumber &&
           abierto.nFileIndexHigh == conNombre.nFileIndexHigh && abierto.nFileIndexLow == conNombre.nFileIndexLow;
}

bool FicheroAsido::Vaciar() {
    return SetFilePointer(Nativo(asidero_), 0, nullptr, FILE_BEGIN) == 0 && SetEndOfFile(Nativo(asidero_)) != 0;
}

void FicheroAsido::Escribir(std::string_view texto) {
    constexpr std::size_t kPieza = std::size_t{1} << 20U;
    while (!texto.empty()) {
        DWORD escritos = 0;
        if (WriteFile(Nativo(asidero_), texto.data(), static_cast<DWORD>(std::min(texto.size(), kPieza)), &escritos,
                      nullptr) == 0)
            LanzarUltimo();
        texto.remove_prefix(escritos);
    }
}

void FicheroAsido::Sincronizar() {
    if (FlushFileBuffers(Nativo(asidero_)) == 0) LanzarUltimo();
}

void FicheroAsido::Sustituir(const std::filesystem::path& destino) {
    if (MoveFileExW(ruta_.c_str(), destino.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == 0)
        LanzarUltimo();
}

bool FicheroAsido::Renombrar(const std::filesystem::path& destino) {
    if (MoveFileExW(ruta_.c_str(), destino.c_str(), MOVEFILE_WRITE_THROUGH) != 0) return true;
    if (GetLastError() == ERROR_ALREADY_EXISTS || GetLastError() == ERROR_FILE_EXISTS) return false;
    LanzarUltimo();
}

bool EnMedioSoloLectura(const std::filesystem::path& ruta) {
    const HANDLE fichero = CreateFileW(ruta.c_str(), 0, kCompartido, nullptr, OPEN_EXISTING, 0, nullptr);
    if (fichero == INVALID_HANDLE_VALUE) return false;
    DWORD rasgos = 0;
    const bool sabidos = GetVolumeInformationByHandleW(fichero, nullptr, 0, nullptr, nullptr, &rasgos, nullptr, 0) != 0;
    CloseHandle(fichero);
    return sabidos && (rasgos & FILE_READ_ONLY_VOLUME) != 0;
}

}  // namespace kv
