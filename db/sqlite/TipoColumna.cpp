#include "kvdatosart/db/sqlite/TipoColumna.h"

#include <sqlite3.h>

#include <array>
#include <utility>

#include "kvdatosart/db/Nombres.h"
#include "kvdatosart/db/sqlite/ErrorSqlite.h"

namespace kv {
namespace {

constexpr auto kTipos = std::to_array<std::pair<std::string_view, TipoColumna>>({
    {"bit", TipoColumna::Bit},
    {"tinyint", TipoColumna::Byte},
    {"smallint", TipoColumna::Integer},
    {"int", TipoColumna::Long},
    {"bigint", TipoColumna::Grande},
    {"real", TipoColumna::Single},
    {"float", TipoColumna::Double},
    {"money", TipoColumna::Money},
    {"date", TipoColumna::Fecha},
    {"datetime", TipoColumna::Fecha},
    {"char", TipoColumna::Texto},
    {"varchar", TipoColumna::Texto},
    {"nvarchar", TipoColumna::Texto},
});

}  // namespace

TipoColumna LeerTipoColumna(std::string_view declarado) {
    const std::string_view nombre = declarado.substr(0, declarado.find('('));
    for (const auto& [texto, tipo] : kTipos)
        if (MismoNombre(texto, nombre)) return tipo;
    return TipoColumna::SinDeclarar;
}

TipoColumna CatalogoColumnas::Tipo(const std::vector<std::string>& tablas, const std::string& columna) {
    const std::string buscada = Minusculas(columna);
    for (const std::string& tabla : tablas) {
        const Columnas& columnas = DeTabla(tabla);
        const auto hallada = columnas.find(buscada);
        if (hallada != columnas.end()) return hallada->second;
    }
    return TipoColumna::SinDeclarar;
}

const CatalogoColumnas::Columnas& CatalogoColumnas::DeTabla(const std::string& tabla) {
    const std::string clave = Minusculas(tabla);
    const auto sabida = tablas_.find(clave);
    if (sabida != tablas_.end()) return sabida->second;
    sqlite3_stmt* consulta = nullptr;
    constexpr const char* kConsulta = "SELECT name, type FROM pragma_table_info(?)";
    if (sqlite3_prepare_v2(base_, kConsulta, -1, &consulta, nullptr) != SQLITE_OK) LanzarErrorSqlite(base_, kConsulta);
    sqlite3_bind_text(consulta, 1, tabla.c_str(), -1, SQLITE_TRANSIENT);
    Columnas columnas;
    while (sqlite3_step(consulta) == SQLITE_ROW) {
        const auto texto = [&](int i) { return reinterpret_cast<const char*>(sqlite3_column_text(consulta, i)); };
        columnas.emplace(Minusculas(texto(0)), LeerTipoColumna(texto(1)));
    }
    // A table that could not be read now is not remembered as one without columns.
    if (sqlite3_finalize(consulta) != SQLITE_OK) LanzarErrorSqlite(base_, kConsulta);
    return tablas_.emplace(clave, std::move(columnas)).first->second;
}

}  // namespace kv
