#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "application/Sesion.h"
#include "application/Tabla.h"
#include "base/Currency.h"

namespace kv::aplicacion {

/// What a discount is on: a level of families and its codes, or an article with its families at the level below them.
struct ClaveDescuento {
    std::int32_t articulo = 0;
    /// From 1; one more than the company's family levels is the article's.
    std::uint8_t nivel = 0;
    std::array<std::int16_t, 3> familias{};
};
/// As people write it: "articulo-nivel-familia1-familia2-familia3".
std::string TextoDe(const ClaveDescuento& clave);

// Rechazo, impossible: a level that the company does not have, a discount outside 0 to 100.

struct RespuestaDescuento {
    ClaveDescuento clave;
    /// Percent; none when it was taken away.
    std::optional<Currency> descuento;
};

/// Of one customer.
struct PeticionDtosFamilia {
    std::int32_t cliente = 0;
};
/// Only reads. Rechazo, negative: there are none.
Tabla ListarDtosFamilia(const Sesion& sesion, const PeticionDtosFamilia& peticion);

struct ClaveDtoFamilia : PeticionDtosFamilia {
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
struct PeticionDtosGrupo {
    std::int16_t grupo = 0;
};
/// Only reads. Rechazo, negative: there are none.
Tabla ListarDtosGrupo(const Sesion& sesion, const PeticionDtosGrupo& peticion);

struct ClaveDtoGrupo : PeticionDtosGrupo {
    ClaveDescuento clave;
    /// Range of units, both inclusive; 0 to 0 is any quantity.
    Currency minimo;
    Currency maximo;
};
struct PeticionDtoGrupo : ClaveDtoGrupo {
    /// Percent.
    Currency descuento;
};

// What writes marks the group as changed in the same transaction. Rechazo, impossible: a range that ends before it
// begins.

/// Rechazo, negative: the range overlaps one that is there.
RespuestaDescuento PonerDtoGrupo(const Sesion& sesion, const PeticionDtoGrupo& peticion);
RespuestaDescuento CambiarDtoGrupo(const Sesion& sesion, const PeticionDtoGrupo& peticion);
RespuestaDescuento QuitarDtoGrupo(const Sesion& sesion, const ClaveDtoGrupo& peticion);

}  // namespace kv::aplicacion
