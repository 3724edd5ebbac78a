#include "kvdatosart/db/ado/ErrorCom.h"

#include <oaidl.h>

#include <array>
#include <cstdio>
#include <string>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/ado/PunteroCom.h"
#include "kvdatosart/db/ado/Variante.h"

namespace kv {

std::string TextoDelCodigo(HRESULT hr) {
    std::array<char, 32> codigo{};
    std::snprintf(codigo.data(), codigo.size(), "Error 0x%08lX", static_cast<unsigned long>(hr));
    return codigo.data();
}

void OlvidarError() {
    SetErrorInfo(0, nullptr);
}

void LanzarErrorCom(HRESULT hr, const char* origen) {
    PunteroCom<IErrorInfo> info;
    Cadena fuente;
    Cadena texto;
    if (GetErrorInfo(0, info.Recibir()) == S_OK) {
        info->GetSource(fuente.Recibir());
        info->GetDescription(texto.Recibir());
    }
    std::string descripcion = Utf8(texto.Get());
    std::string deQuien = Utf8(fuente.Get());
    throw RuntimeError(hr, deQuien.empty() ? origen : deQuien, descripcion.empty() ? TextoDelCodigo(hr) : descripcion);
}

}  // namespace kv
