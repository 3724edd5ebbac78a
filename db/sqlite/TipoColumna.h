#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;

namespace kv {

/// How a column was declared, which decides the type of what is read from it.
enum class TipoColumna : std::uint8_t {
    SinDeclarar,
    Bit,
    Byte,
    Integer,
    Long,
    Grande,
    Single,
    Double,
    Money,
    Fecha,
    Texto
};

/// From the declared text ("money", "varchar(50)", ...), without regard to letter case. SinDeclarar when unknown.
TipoColumna LeerTipoColumna(std::string_view declarado);

/// Declared types of the tables of one database, read when a table is first asked for.
class CatalogoColumnas {
  public:
    explicit CatalogoColumnas(sqlite3* base) : base_(base) {}

    /// Type of the column of that name in the first of `tablas` that has it; SinDeclarar when none has.
    TipoColumna Tipo(const std::vector<std::string>& tablas, const std::string& columna);

  private:
    using Columnas = std::map<std::string, TipoColumna>;
    const Columnas& DeTabla(const std::string& tabla);

    sqlite3* base_;
    std::map<std::string, Columnas> tablas_;
};

}  // namespace kv
