#pragma once

#include <string>

#include "kvdatosart/application/Acuerdos.h"
#include "kvdatosart/application/Descuentos.h"
#include "kvdatosart/application/Existencias.h"

namespace kv::host {

// The keys that people write as one text. Each function names the request's field in its Rechazo, which is impossible.

/// "1.1.2": from one to ten codes from the top of a chain down.
NivelesCadena LeerNodo(const std::string& campo, const std::string& texto);
/// "porcentaje:10", "cascada:5", "importe:1,50" or "oferta:5+1".
aplicacion::DescuentoAcuerdo LeerDescuentoAcuerdo(const std::string& campo, const std::string& texto);
/// "0-2-3-12-0": article, level and three families.
aplicacion::ClaveDescuento LeerClaveDescuento(const std::string& campo, const std::string& texto);
/// "1.2": from one to three families from the top down; the levels that are not said are 0.
aplicacion::Familias LeerFamilias(const std::string& campo, const std::string& texto);
aplicacion::TipoMovimiento LeerTipoMovimiento(const std::string& campo, const std::string& texto);

}  // namespace kv::host
