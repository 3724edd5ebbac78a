#pragma once

#include "db/BibliotecaComun.h"

namespace kv {

/// The common library with Windows behind it: the local date, the user's decimal separator and a message box.
class BibliotecaWindows : public BibliotecaComun {
  public:
    Fecha Hoy() const override;
    char SeparadorDecimal() const override;
    void MensajeCritico(std::string_view texto, std::string_view titulo) override;
};

}  // namespace kv
