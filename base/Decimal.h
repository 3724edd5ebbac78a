#pragma once

#include <cstdint>
#include <string_view>

namespace kv {

/// Plain decimal text taken apart: ±entera.fraccion. The views point into the text that was read.
struct Decimal {
    bool negativo = false;
    std::string_view entera;
    std::string_view fraccion;
};

/// Reads optional blanks, a sign, digits and one point or comma with more digits. Error 13 for anything else.
Decimal LeerDecimal(std::string_view texto);

/// The magnitude times 10^decimales, rounded half to even to a whole number. Error 6 when it does not fit 64 bits.
std::uint64_t EscalarAlPar(const Decimal& decimal, int decimales);

}  // namespace kv
