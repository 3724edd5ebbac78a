#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kv {

/// A literal that a statement's text carries where a value may change from call to call.
struct Literal {
    /// As it stands in the text, quotes and sign included.
    std::string_view texto;
    bool cadena = false;
};

/// The literals of `texto` that stand directly after a comparison, in a VALUES list or in a SET list, in order.
/// Literals of a select list, of ORDER BY, of TOP and of function arguments belong to the text and are left out.
void BuscarLiterales(std::string_view texto, std::vector<Literal>& literales);

/// A statement's text without those literals: what stays the same from call to call.
class Plantilla {
  public:
    Plantilla() = default;
    Plantilla(std::string_view texto, const std::vector<Literal>& literales);

    /// True when `texto` is this template with other literals, which are then left in `literales`; what a text that
    /// does not match leaves there means nothing.
    bool Coincide(std::string_view texto, std::vector<Literal>& literales) const;

    /// Hash of the template of a text whose literals are known, equal for all its texts.
    static std::uint64_t Huella(std::string_view texto, const std::vector<Literal>& literales);

  private:
    struct Tramo {
        std::uint32_t largo;
        bool cadena;
    };

    std::string fijo_;
    // Each stretch of fixed text is followed by a literal of this kind; what remains after the last one is `final_`.
    std::vector<Tramo> tramos_;
    std::uint32_t final_ = 0;
};

}  // namespace kv
