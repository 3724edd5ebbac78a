#include "kvdatosart/component/com/ArgumentosCompletos.h"

#include <algorithm>

namespace kv {
namespace {

// Where the caller gave it: named arguments come first, the positional ones last and backwards.
UINT Lugar(const DISPPARAMS& recibidos, UINT optativo) {
    for (UINT i = 0; i < recibidos.cNamedArgs; ++i)
        if (recibidos.rgdispidNamedArgs[i] == static_cast<DISPID>(optativo)) return i;
    return recibidos.cArgs - recibidos.cNamedArgs > optativo ? recibidos.cArgs - 1 - optativo : recibidos.cArgs;
}

}  // namespace

ArgumentosCompletos::ArgumentosCompletos(const DISPPARAMS& recibidos, UINT optativo, const VARIANT& valor)
    : argumentos_(recibidos) {
    if (recibidos.cArgs > kMaximo || recibidos.cNamedArgs > recibidos.cArgs) return;
    std::copy_n(recibidos.rgvarg, recibidos.cArgs, valores_.begin() + 1);
    std::copy_n(recibidos.rgdispidNamedArgs, recibidos.cNamedArgs, nombres_.begin() + 1);
    const UINT lugar = Lugar(recibidos, optativo);
    anadidos_ = lugar < recibidos.cArgs ? 0 : 1;
    if (anadidos_ == 1) {
        valores_[0] = valor;
        nombres_[0] = static_cast<DISPID>(optativo);
    } else if (VARIANT& dado = valores_[lugar + 1]; dado.vt == VT_ERROR && dado.scode == DISP_E_PARAMNOTFOUND) {
        dado = valor;
    }
    argumentos_.rgvarg = &valores_[1 - anadidos_];
    argumentos_.rgdispidNamedArgs = &nombres_[1 - anadidos_];
    argumentos_.cArgs += anadidos_;
    argumentos_.cNamedArgs += anadidos_;
}

}  // namespace kv
