#pragma once

#include <cstdint>
#include <exception>
#include <string>

#include "kvdatosart/base/Norma.h"

namespace kv {

/// Numbers of the runtime's own errors. Database errors keep the number of their provider.
inline constexpr std::int32_t kErrLlamadaInvalida = 5;
inline constexpr std::int32_t kErrDesbordamiento = 6;
inline constexpr std::int32_t kErrSinMemoria = 7;
inline constexpr std::int32_t kErrSubindice = 9;
inline constexpr std::int32_t kErrDivisionPorCero = 11;
inline constexpr std::int32_t kErrTipo = 13;
inline constexpr std::int32_t kErrInterno = 51;
inline constexpr std::int32_t kErrObjetoNoEstablecido = 91;
inline constexpr std::int32_t kErrNulo = 94;
/// ADO's number for a column or parameter that the collection does not hold (adErrItemNotFound).
inline constexpr std::int32_t kErrElementoNoEncontrado = 3265;
/// ADO's number for an operation on a closed object (adErrObjectClosed).
inline constexpr std::int32_t kErrObjetoCerrado = 3704;
/// ADO's number for opening an object that is open already (adErrObjectOpen).
inline constexpr std::int32_t kErrObjetoAbierto = 3705;
/// ADO's number for reading a record when there is none (adErrNoCurrentRecord).
inline constexpr std::int32_t kErrSinRegistro = 3021;

/// The one failure of the component: a number, the source that reports it and a text for people (Spanish, UTF-8).
class RuntimeError : public std::exception {
  public:
    RuntimeError(std::int32_t numero_, std::string origen_, std::string descripcion_)
        : numero(numero_), origen(std::move(origen_)), descripcion(std::move(descripcion_)) {}

    /// The description, without number and source.
    const char* what() const noexcept override { return descripcion.c_str(); }

    std::int32_t numero;
    std::string origen;
    std::string descripcion;
};

/// Raises one of the runtime's errors with its usual text; `detalle`, when given, follows it after a colon.
[[noreturn]] void LanzarError(std::int32_t numero, const std::string& detalle = {});

/// To be called inside a handler: raises the failure being handled again with its number and description and with
/// `origen` as its source. Failures of the language's library become error 7 (memory) or 51.
[[noreturn]] void Relanzar(const char* origen);

}  // namespace kv
