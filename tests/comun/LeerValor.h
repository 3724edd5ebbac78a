#pragma once

#include <memory>
#include <string_view>

#include "kvdatosart/db/Connection.h"

namespace kv::prueba {

/// The first row's first column of a query, as the database typed it.
inline Valor LeerValor(Connection& conexion, std::string_view sql) {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, conexion, sql);
    return rs->Fields(rs->NombreCampo(0)).Value();
}

}  // namespace kv::prueba
