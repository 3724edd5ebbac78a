#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kvdatosart/db/sqlite/Plantilla.h"

namespace kv {

/// The column that a changing literal meets, as far as the text names it; empty when it names none.
struct DestinoLiteral {
    std::string columna;
};

/// A statement of the component's dialect as SQLite takes it.
struct Traduccion {
    /// With a question mark for each changing literal, `TOP n` as a LIMIT of its own (sub)select and `ISNULL(` as
    /// `IFNULL(`.
    std::string texto;
    /// One for each changing literal, in order.
    std::vector<DestinoLiteral> destinos;
    /// Tables that the statement names.
    std::vector<std::string> tablas;
};

/// Translates `texto`, whose changing literals are `literales`. What it does not know passes unchanged, for SQLite to
/// judge. Raises a database error when the text holds a second statement.
Traduccion Traducir(std::string_view texto, const std::vector<Literal>& literales);

}  // namespace kv
