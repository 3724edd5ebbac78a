#pragma once

#include <oaidl.h>
#include <windows.h>

#include <string>

namespace kv {

/// Counts what keeps the DLL loaded: live objects and server locks.
class Modulo {
  public:
    static void Retener() noexcept;
    static void Soltar() noexcept;
    static bool SePuedeDescargar() noexcept;

    /// Full path of the DLL.
    static std::wstring Ruta();
    /// The type library inside the DLL; null, with the failure in `hr`, when it cannot be read. The caller releases it.
    static ITypeLib* Tipos(HRESULT& hr);
    /// Description of the public interface, read once; not to be released. Null with the failure in `hr`.
    static ITypeInfo* Interfaz(HRESULT& hr);
};

}  // namespace kv
