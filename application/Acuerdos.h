#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "application/Sesion.h"
#include "application/Tabla.h"
#include "base/Currency.h"
#include "base/Fecha.h"
#include "rules/ObservadorCadena.h"

namespace kv::aplicacion {

/// "1.1.2": the codes of a node from the top down to the last one in use.
std::string TextoDe(const NivelesCadena& nodo);

/// One of an agreement's five discounts.
struct DescuentoAcuerdo {
    enum class Tipo : std::uint8_t { Porcentaje, Cascada, Importe, Oferta } tipo = Tipo::Porcentaje;
    /// Percent, amount, or the units paid of an offer.
    Currency importe;
    /// Units given free in an offer.
    std::int16_t gratis = 0;
};
/// As people write it: "porcentaje:10", "cascada:5", "importe:1.5", "oferta:5+1".
std::string TextoDe(const DescuentoAcuerdo& descuento);

/// The agreements of an article; with a node, also the text of the one that is in force there on a day.
struct PeticionAcuerdos {
    std::int32_t articulo = 0;
    std::optional<NivelesCadena> nodo;
    /// The session's day when it is left out.
    std::optional<Fecha> fecha;
};
struct RespuestaAcuerdos {
    std::optional<NivelesCadena> nodo;
    std::string texto;
    Tabla acuerdos;
};
/// Only reads. Rechazo, negative: there are none.
RespuestaAcuerdos VerAcuerdos(const Sesion& sesion, const PeticionAcuerdos& peticion);

/// A node's agreements for an article.
struct ClaveAcuerdo {
    std::int32_t articulo = 0;
    NivelesCadena nodo{};
};
struct PeticionAcuerdo : ClaveAcuerdo {
    /// Five at most.
    std::vector<DescuentoAcuerdo> descuentos;
    /// The agreements of the node above do not apply too.
    bool sinPadre = false;
};

// What writes answers with the agreements that the article has then.

Tabla PonerAcuerdo(const Sesion& sesion, const PeticionAcuerdo& peticion);
Tabla CambiarAcuerdo(const Sesion& sesion, const PeticionAcuerdo& peticion);
Tabla QuitarAcuerdo(const Sesion& sesion, const ClaveAcuerdo& peticion);

}  // namespace kv::aplicacion
