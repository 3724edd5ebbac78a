#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kv::aplicacion {

/// A UTF-8 text as it is compared: without case, accents or differences of width; "Ñandú" is "nandu". What is no UTF-8
/// stays as it is.
std::string Plegar(std::string_view texto);

/// The words that a person looks for, in any order. `Hallan` tells whether each of them is somewhere in a name or
/// begins the code; without words everything is found.
class Palabras {
  public:
    explicit Palabras(std::string_view texto);

    bool Hallan(std::string_view codigo, std::string_view nombre) const;

  private:
    std::vector<std::string> palabras_;
};

}  // namespace kv::aplicacion
