#include "kvdatosart/db/Ado.h"

#include <algorithm>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/Connection.h"
#include "kvdatosart/db/Nombres.h"

namespace kv {

void AbrirLectura(std::unique_ptr<Recordset>& rs, Connection& conexion, std::string_view texto) {
    if (!rs) rs = conexion.CrearRecordset();
    rs->Open(texto, conexion, CursorType::adOpenForwardOnly, LockType::adLockReadOnly, CommandType::adCmdText);
}

void AbrirEdicion(std::unique_ptr<Recordset>& rs, Connection& conexion, std::string_view texto) {
    if (!rs) rs = conexion.CrearRecordset();
    rs->Open(texto, conexion, CursorType::adOpenKeyset, LockType::adLockPessimistic, CommandType::adCmdText);
}

std::int32_t Connection::EjecutarContando(std::string_view texto) {
    std::int32_t afectados = 0;
    Execute(texto, &afectados, CommandType::adCmdText);
    return afectados;
}

Parameter& Parameters::Item(std::string_view nombre) {
    const auto igual =
        std::find_if(lista_.begin(), lista_.end(), [&](const Parameter& p) { return MismoNombre(p.Name, nombre); });
    if (igual == lista_.end()) LanzarError(kErrElementoNoEncontrado, "parámetro " + std::string(nombre));
    return *igual;
}

}  // namespace kv
