#pragma once

#include <oaidl.h>
#include <windows.h>

#include <array>

namespace kv {

/// The arguments of a by-name call whose last parameter is optional, with its default where the caller left it out: at
/// the end, marked as missing, or among named arguments. The type library cannot hold a Currency default and
/// dispatchers differ on missing ones, so none is left for them to fill.
class ArgumentosCompletos {
  public:
    /// `optativo` is the parameter's position, from 0. Borrows the caller's variants, which must outlive it. A call
    /// with more arguments than any method has passes as it is.
    ArgumentosCompletos(const DISPPARAMS& recibidos, UINT optativo, const VARIANT& valor);
    ArgumentosCompletos(const ArgumentosCompletos&) = delete;
    ArgumentosCompletos& operator=(const ArgumentosCompletos&) = delete;

    DISPPARAMS* Get() { return &argumentos_; }

    /// The caller's index of the argument that has `indice` here.
    UINT Situar(UINT indice) const { return indice < anadidos_ ? 0 : indice - anadidos_; }

  private:
    static constexpr UINT kMaximo = 7;

    // The first place is kept for the argument that was left out.
    std::array<VARIANT, kMaximo + 1> valores_;
    std::array<DISPID, kMaximo + 1> nombres_;
    UINT anadidos_ = 0;
    DISPPARAMS argumentos_;
};

}  // namespace kv
