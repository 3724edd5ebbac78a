#pragma once

#include <optional>

#include "kvdatosart/db/BibliotecaConsola.h"

namespace kv::host {

/// The common library of a program that writes for people itself: what the component puts into statements and texts
/// is the same in every locale.
class BibliotecaPrograma : public BibliotecaConsola {
  public:
    /// Takes this day for today, the system's when there is none.
    explicit BibliotecaPrograma(std::optional<Fecha> hoy = {}) : hoy_(hoy) {}

    char SeparadorDecimal() const override { return '.'; }
    Fecha Hoy() const override { return hoy_ ? *hoy_ : BibliotecaConsola::Hoy(); }

  private:
    std::optional<Fecha> hoy_;
};

}  // namespace kv::host
