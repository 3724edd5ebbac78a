#pragma once

#include "kvdatosart/db/odbc/InteriorOdbc.h"

namespace kv {

/// Brings a new session to what the component's texts count on: day/month/year dates, the ANSI settings of the suite's
/// own connections and texts of any length; then reads two date literals and a text with wide characters back. A server
/// that takes the date order without heeding it is told once more in the words of the database that it stands on. Error
/// kErrSesionInservible when the server refuses a setting or still reads them otherwise.
void PrepararSesionTransactSql(ConexionOdbc::Interior& interior);

}  // namespace kv
