#pragma once

#include <string>
#include <string_view>

#include "kvdatosart/db/odbc/Nativo.h"

namespace kv {

class Asidero;

/// Raises the failure that the handle reports: the native number of its first record that has one (kErrOdbcSinNumero
/// otherwise), the source "ODBC", every record as "[state] (number) text" and the statement's text, when there is one.
[[noreturn]] void LanzarErrorOdbc(SQLSMALLINT tipo, SQLHANDLE asidero, std::string_view sentencia);

/// The same when `resultado` is a failure.
void ComprobarOdbc(SQLRETURN resultado, const Asidero& asidero, std::string_view sentencia);

/// The same when a commit failed. On a connection that has died nobody knows what became of it: the failure says so.
void ComprobarConfirmacion(SQLRETURN resultado, const Asidero& conexion);

/// The state of the first record, empty when there is none.
std::string PrimerEstado(const Asidero& asidero);

}  // namespace kv
