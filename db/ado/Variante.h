#pragma once

#include <oaidl.h>
#include <windows.h>

#include <string>
#include <string_view>

#include "kvdatosart/base/Valor.h"

namespace kv {

/// Owner of a VARIANT.
class Variante {
  public:
    Variante() { VariantInit(&v_); }
    /// A copy of the value; NULL becomes VT_NULL, text a wide string.
    explicit Variante(const Valor& valor);
    explicit Variante(std::string_view texto);
    explicit Variante(IDispatch* objeto);
    Variante(const Variante&) = delete;
    Variante& operator=(const Variante&) = delete;
    ~Variante() { VariantClear(&v_); }

    VARIANT& Get() { return v_; }
    /// Hands the value over.
    VARIANT Soltar() {
        VARIANT v = v_;
        VariantInit(&v_);
        return v;
    }
    /// Empties it for a call that fills it.
    VARIANT* Recibir() {
        VariantClear(&v_);
        return &v_;
    }
    /// NULL and Empty become NULL; a decimal with no more than four decimals other than zeros that fits becomes
    /// Currency, any other a double; a date loses its time; a reference gives what it refers to. Error 6 for an
    /// unsigned number beyond the signed ones and a date out of range, 13 for objects, arrays and the other kinds.
    Valor AValor() const;

  private:
    VARIANT v_;
};

/// Owner of a counted wide string made from UTF-8.
class Cadena {
  public:
    Cadena() = default;
    explicit Cadena(std::string_view utf8);
    Cadena(const Cadena&) = delete;
    Cadena& operator=(const Cadena&) = delete;
    ~Cadena() { SysFreeString(b_); }

    BSTR Get() const { return b_; }
    BSTR* Recibir() { return &b_; }
    /// Hands the string over.
    BSTR Soltar() {
        BSTR b = b_;
        b_ = nullptr;
        return b;
    }

  private:
    BSTR b_ = nullptr;
};

/// UTF-8 of a counted wide string; a null one is empty.
std::string Utf8(BSTR texto);

}  // namespace kv
