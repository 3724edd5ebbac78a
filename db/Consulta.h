#pragma once

#include <memory>
#include <string>

#include "kvdatosart/db/Connection.h"
#include "kvdatosart/db/ValoresSql.h"

namespace kv {

/// Look-ups one after the other on one connection, which share a recordset and the room of their texts.
class Consulta {
  public:
    /// Opens the statement of these fragments and values, forward-only and read-only, as text. The recordset must be
    /// closed before the next one; it is released with this object.
    template <class... Partes>
    Recordset& Abrir(Connection& conexion, const Partes&... partes) {
        sql_.clear();
        Agregar(sql_, partes...);
        AbrirLectura(rs_, conexion, sql_);
        return *rs_;
    }

  private:
    std::unique_ptr<Recordset> rs_;
    std::string sql_;
};

}  // namespace kv
