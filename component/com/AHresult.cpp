#include "kvdatosart/component/com/AHresult.h"

#include <oaidl.h>

#include <new>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/component/com/NumeroError.h"
#include "kvdatosart/db/ado/PunteroCom.h"
#include "kvdatosart/db/ado/Variante.h"

namespace kv {
namespace {

void PonerError(const RuntimeError& error) {
    PunteroCom<ICreateErrorInfo> nuevo;
    PunteroCom<IErrorInfo> info;
    if (FAILED(CreateErrorInfo(nuevo.Recibir()))) return;
    nuevo->SetSource(Cadena(error.origen).Get());
    nuevo->SetDescription(Cadena(error.descripcion).Get());
    if (SUCCEEDED(nuevo->QueryInterface(IID_IErrorInfo, info.RecibirVoid()))) SetErrorInfo(0, info.Get());
}

}  // namespace

HRESULT AHresult() noexcept try {
    try {
        throw;
    } catch (const RuntimeError& error) {
        PonerError(error);
        return HresultDeNumero(error.numero);
    } catch (const std::bad_alloc&) {
        SetErrorInfo(0, nullptr);
        return E_OUTOFMEMORY;
    } catch (const std::exception& error) {
        PonerError({kErrInterno, "KVDatosArt", error.what()});
        return HresultDeNumero(kErrInterno);
    }
} catch (...) {
    return E_OUTOFMEMORY;  // There was no memory for the texts.
}

}  // namespace kv
