#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "kvdatosart/application/Sesion.h"
#include "kvdatosart/application/Tabla.h"
#include "kvdatosart/base/Currency.h"

namespace kv::aplicacion {

/// Codes of an article's families from the top down; 0 for a level that is not said.
using Familias = std::array<std::int16_t, 3>;

/// What a discount is on: a level of families and its codes, or an article with its families at the level below them.
struct ClaveDescuento {
    /// 0 at a family level.
    std::int32_t articulo = 0;
    /// From 1; one more than the company's family levels is the article's.
    std::uint8_t nivel = 0;
    Familias familias{};
};
/// As people write it: "articulo-nivel-familia1-familia2-familia3".
std::string TextoDe(const ClaveDescuento& clave);

// Rechazo, impossible: a level that the company does not have, a discount outside 0 to 100, a range that ends before it
// begins; to set one, a key whose article and families disagree.
// Rechazo, negative: to set one, no such customer, group or article, or it is there already; to change it or take it
// away, it is not there.

struct RespuestaDescuento {
    ClaveDescuento clave;
    /// Percent; none when it was taken away.
    std::optional<Currency> descuento;
};

/// What a list of discounts is narrowed down to: an article's own ones, those of the families below these.
struct FiltroDescuentos {
    std::optional<std::int32_t> articulo;
    std::optional<Familias> familia;
};

/// Of one customer.
struct PeticionDtosFamilia : FiltroDescuentos {
    std::int32_t cliente = 0;
};
/// Only reads. Rechazo, negative: there are none.
Tabla ListarDtosFamilia(const Sesion& sesion, const PeticionDtosFamilia& peticion);

struct ClaveDtoFamilia {
    std::int32_t cliente = 0;
    ClaveDescuento clave;
};
struct PeticionDtoFamilia : ClaveDtoFamilia {
    /// Percent.
    Currency descuento;
};
RespuestaDescuento PonerDtoFamilia(const Sesion& sesion, const PeticionDtoFamilia& peticion);
RespuestaDescuento CambiarDtoFamilia(const Sesion& sesion, const PeticionDtoFamilia& peticion);
RespuestaDescuento QuitarDtoFamilia(const Sesion& sesion, const ClaveDtoFamilia& peticion);

/// Of one group of customers.
struct PeticionDtosGrupo : FiltroDescuentos {
    std::int16_t grupo = 0;
};
/// Only reads. Rechazo, negative: there are none.
Tabla ListarDtosGrupo(const Sesion& sesion, const PeticionDtosGrupo& peticion);

struct ClaveDtoGrupo {
    std::int16_t grupo = 0;
    ClaveDescuento clave;
    /// Range of units, both inclusive; 0 to 0 is any quantity.
    Currency minimo;
    Currency maximo;
};
struct PeticionDtoGrupo : ClaveDtoGrupo {
    /// Percent.
    Currency descuento;
};

// What writes marks the group as changed in the same transaction.

/// Rechazo, negative: the range overlaps one that is there.
RespuestaDescuento PonerDtoGrupo(const Sesion& sesion, const PeticionDtoGrupo& peticion);
RespuestaDescuento CambiarDtoGrupo(const Sesion& sesion, const PeticionDtoGrupo& peticion);
RespuestaDescuento QuitarDtoGrupo(const Sesion& sesion, const ClaveDtoGrupo& peticion);

}  // namespace kv::aplicacion
