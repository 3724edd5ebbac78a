#pragma once

#include <string>
#include <vector>

#include "kvdatosart/base/Currency.h"

namespace kv::aplicacion {

/// A sentence for people. Its numbers stand apart, since each reader writes decimals in his own way: {} in the text is
/// the place of the next one.
struct Frase {
    std::string texto;
    std::vector<Currency> numeros = {};

    /// The whole sentence, with `separador` before the decimals.
    std::string Con(char separador) const;
    /// Adds what needs no numbers.
    Frase& operator+=(const std::string& mas) {
        texto += mas;
        return *this;
    }
};

}  // namespace kv::aplicacion
