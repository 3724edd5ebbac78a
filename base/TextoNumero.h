#pragma once

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "kvdatosart/base/Norma.h"

namespace kv {

/// The text of one number or date, held in place so that building a statement allocates nothing for it.
class TextoNumero {
  public:
    TextoNumero() = default;
    /// At most 47 characters; what stands beyond them is a programming error.
    explicit TextoNumero(std::string_view texto) { Agregar(texto); }

    void Agregar(std::string_view texto) { largo_ += texto.copy(datos_.data() + largo_, datos_.size() - largo_); }
    void Agregar(char caracter) { datos_[largo_++] = caracter; }
    void AgregarEntero(std::int64_t valor) {
        // As most codes of a chain's levels are.
        if (valor >= 0 && valor <= 9) return Agregar(static_cast<char>('0' + valor));
        largo_ = static_cast<std::size_t>(
            std::to_chars(datos_.data() + largo_, datos_.data() + datos_.size(), valor).ptr - datos_.data());
    }

    // NOLINTNEXTLINE(google-explicit-constructor): it is a text.
    operator std::string_view() const { return {datos_.data(), largo_}; }
    std::string Cadena() const { return std::string(std::string_view(*this)); }

    friend bool operator==(const TextoNumero& a, std::string_view b) { return std::string_view(a) == b; }

  private:
    std::array<char, 48> datos_;
    std::size_t largo_ = 0;
};

/// Default text of a Double: up to 15 significant digits without trailing zeros, plain digits below 1E+15 and from
/// 1E-04 on, an exponent ("1E+15", "1E-05") outside; negative zero is 0. NaN and infinity raise error 6.
TextoNumero TextoDouble(double valor, char separador);

/// The same for a Single: up to 7 significant digits, plain digits below 1E+07.
TextoNumero TextoSingle(float valor, char separador);

/// Plain decimal text of a whole number.
inline TextoNumero TextoEntero(std::int64_t valor) {
    TextoNumero texto;
    texto.AgregarEntero(valor);
    return texto;
}

}  // namespace kv
