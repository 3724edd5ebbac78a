#pragma once

#include <string>
#include <vector>

#include "kvdatosart/base/Currency.h"

namespace kv::aplicacion {

/// An amount as people read it: two decimals at least, since they compare amounts by their length.
std::string ImporteParaGente(Currency importe, char separador);

/// A sentence for people. Its numbers stand apart, since each reader writes decimals in his own way: the next one takes
/// the place of {} in the text, or of {$} when it is an amount.
struct Frase {
    std::string texto;
    std::vector<Currency> numeros = {};

    /// With the user's `separador`, and amounts as people read them.
    std::string ParaGente(char separador) const;
    /// With a point, and no decimal that says nothing.
    std::string ParaProgramas() const;
    /// Adds what needs no numbers.
    Frase& operator+=(const std::string& mas) {
        texto += mas;
        return *this;
    }
};

}  // namespace kv::aplicacion
