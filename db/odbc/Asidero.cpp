#include "kvdatosart/db/odbc/Asidero.h"

#include "kvdatosart/db/odbc/ErrorOdbc.h"

namespace kv {

Asidero::Asidero(SQLSMALLINT tipo, SQLHANDLE padre, SQLSMALLINT tipoPadre) : tipo_(tipo) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(tipo, padre, &asidero_))) LanzarErrorOdbc(tipoPadre, padre, {});
}

void Asidero::Soltar() noexcept {
    if (asidero_ != nullptr) SQLFreeHandle(tipo_, std::exchange(asidero_, nullptr));
}

}  // namespace kv
