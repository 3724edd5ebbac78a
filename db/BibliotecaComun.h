#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"

namespace kv {

/// The suite's common routines that the component relies on. The process has one default, made on first use; a host
/// may replace it for good, a test for its scope.
class BibliotecaComun {
  public:
    virtual ~BibliotecaComun() = default;

    /// The text of a date between the quotes of a statement: dd/mm/yyyy.
    virtual TextoNumero LiteralFecha(Fecha fecha) const;
    /// A number for a statement: decimal point, no trailing zeros, no thousands.
    virtual TextoNumero FormatoSql(Currency valor) const;
    virtual TextoNumero FormatoSql(double valor) const;
    /// A number for people: exactly `decimales` decimals, the regional separator, no thousands. The value is not
    /// rounded: digits beyond are cut.
    virtual std::string FormatoPantalla(Currency valor, std::int16_t decimales) const;
    /// Half away from zero; 4 decimals or more leave the value as it is. A negative count is error 5.
    virtual Currency Redondear(Currency valor, std::int16_t decimales) const;
    /// The system's local date.
    virtual Fecha Hoy() const;
    /// The user's decimal separator, as the operating system has it unless the host set one.
    virtual char SeparadorDecimal() const;
    /// Shows a critical message and returns when it was read: a message box on Windows, standard error elsewhere.
    virtual void MensajeCritico(std::string_view texto, std::string_view titulo);
};

/// The library in use.
BibliotecaComun& Biblioteca();

/// Replaces the library in use (nothing brings the default back) and returns the former replacement, if any.
std::shared_ptr<BibliotecaComun> CambiarBiblioteca(std::shared_ptr<BibliotecaComun> nueva);

/// Today as the component takes it: the day that this thread has fixed, else that of the library in use.
Fecha Hoy();

/// Fixes today for the thread that makes it, for as long as it lives; the innermost one counts. A list that runs over
/// midnight keeps its rules, and what other threads ask meanwhile is not touched.
class HoyFijado {
  public:
    explicit HoyFijado(Fecha hoy);
    ~HoyFijado();
    HoyFijado(const HoyFijado&) = delete;
    HoyFijado& operator=(const HoyFijado&) = delete;

  private:
    const std::optional<Fecha> anterior_;
};

/// The decimal separator of the default library: '.' or ','. Error 5 for any other character.
void FijarSeparadorDecimal(char separador);

}  // namespace kv
