#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "kvdatosart/db/odbc/ColumnaOdbc.h"

namespace kv {

/// The columns of statements that were described a moment ago, by the shape of their text: what remains of it without
/// the literals that its conditions compare with. A description is believed for one second, so that a table that
/// others change is seen anew.
class FormasConocidas {
  public:
    /// The columns of a text of this shape; nullptr when none was described within the last second.
    std::shared_ptr<const ColumnasOdbc> Buscar(std::string_view texto);
    /// Remembers the columns of the text that was last looked for.
    void Recordar(std::shared_ptr<const ColumnasOdbc> columnas);
    void Olvidar() { formas_.clear(); }

  private:
    using Reloj = std::chrono::steady_clock;
    struct Forma {
        std::shared_ptr<const ColumnasOdbc> columnas;
        Reloj::time_point descrita;
    };

    std::unordered_map<std::string, Forma> formas_;
    std::string molde_;
};

/// Writes the shape of `texto` over `molde`: literals directly after =, < or > become a question mark, from the FROM
/// of the statement itself on. Its select list and texts with comments stay as they are.
void Moldear(std::string_view texto, std::string& molde);

}  // namespace kv
