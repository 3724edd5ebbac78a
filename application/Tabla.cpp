#include "kvdatosart/application/Tabla.h"

#include <memory>

#include "kvdatosart/db/ValoresSql.h"

namespace kv::aplicacion {
namespace {

std::string Consulta(std::span<const ColumnaTabla> columnas, std::string_view resto) {
    std::string sql = "SELECT ";
    for (std::size_t i = 0; i < columnas.size(); ++i)
        Agregar(sql, std::string_view(i == 0 ? "" : ", "), columnas[i].columna);
    Agregar(sql, " ", resto);
    return sql;
}

}  // namespace

Tabla LeerTabla(Connection& conexion, std::string_view clave, std::span<const ColumnaTabla> columnas,
                std::string_view resto) {
    Tabla tabla{clave, columnas};
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, conexion, Consulta(columnas, resto));
    for (; !rs->Eof(); rs->MoveNext()) {
        FilaTabla& fila = tabla.filas.emplace_back();
        for (std::int32_t i = 0; i < rs->NumeroCampos(); ++i) fila.push_back(rs->Fields(rs->NombreCampo(i)).Value());
    }
    rs->Close();
    return tabla;
}

Tabla LeerTabla(Recordset& rs, std::string_view clave, std::span<const ColumnaTabla> columnas) {
    Tabla tabla{clave, columnas};
    for (; !rs.Eof(); rs.MoveNext()) {
        FilaTabla& fila = tabla.filas.emplace_back();
        for (const ColumnaTabla& columna : columnas) fila.push_back(rs.Fields(columna.columna).Value());
    }
    return tabla;
}

}  // namespace kv::aplicacion
