#pragma once

#include "kvdatosart/db/BibliotecaComun.h"

namespace kv {

/// The common library of a program that has a console: its critical messages are printed on standard error, whatever
/// the system. Such a program sets it with CambiarBiblioteca.
class BibliotecaConsola : public BibliotecaComun {
  public:
    void MensajeCritico(std::string_view texto, std::string_view titulo) override;
};

}  // namespace kv
