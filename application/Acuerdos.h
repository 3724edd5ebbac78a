#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "kvdatosart/application/Sesion.h"
#include "kvdatosart/application/Tabla.h"
#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/rules/ObservadorCadena.h"

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

/// The agreements of an article, all or those of a node, of a day.
struct PeticionAcuerdos {
    std::int32_t articulo = 0;
    std::optional<NivelesCadena> nodo;
    std::optional<Fecha> fecha;
};
struct RespuestaAcuerdos {
    Tabla acuerdos;
    /// With a node: what its agreement in force (on the session's day if none was said) gives, as a load tells it.
    std::optional<NivelesCadena> nodo;
    std::string texto;
};
/// Only reads. Rechazo, negative: there are none.
RespuestaAcuerdos VerAcuerdos(const Sesion& sesion, const PeticionAcuerdos& peticion);

/// A node's agreements for an article.
struct ClaveAcuerdo {
    std::int32_t articulo = 0;
    NivelesCadena nodo{};
};
/// What an agreement says. What is left out stays as it was, or as a new one has it.
struct TerminosAcuerdo {
    /// Last day, inclusive; 31/12/2050 is without end.
    std::optional<Fecha> hasta;
    /// 0 for none.
    std::optional<Currency> precioBase;
    /// Five at most, in the place of all that there were.
    std::vector<DescuentoAcuerdo> descuentos;
    /// The agreements of the node above do not apply too, or they do.
    bool sinPadre = false;
    bool conPadre = false;
};

struct RespuestaEscritura {
    /// Agreements written or taken away.
    std::size_t cuantos;
    /// Those that the article has then.
    Tabla acuerdos;
};

// What writes does so in one transaction. Rechazo, impossible: a node without levels, terms that no agreement can have
// (a percentage outside 0 to 100, an offer of nothing, a last day before the first).

struct PeticionPonerAcuerdo : ClaveAcuerdo, TerminosAcuerdo {
    /// The session's day when it is left out.
    std::optional<Fecha> desde;
    /// Even if another one of the same node and article shares some of its days.
    bool forzar = false;
};
/// Rechazo, negative: no such article or node, one of the same first day, or one that shares days and is not forced.
RespuestaEscritura PonerAcuerdo(const Sesion& sesion, const PeticionPonerAcuerdo& peticion);

/// Which of a node's dated agreements: the one of a first day, or all; the only one needs no saying.
struct SeleccionAcuerdos : ClaveAcuerdo {
    std::optional<Fecha> desde;
    bool todos = false;
};
struct PeticionCambiarAcuerdo : SeleccionAcuerdos, TerminosAcuerdo {};

// Rechazo, negative: there is no such agreement; impossible: there are several and it is not said which.

RespuestaEscritura CambiarAcuerdo(const Sesion& sesion, const PeticionCambiarAcuerdo& peticion);
RespuestaEscritura QuitarAcuerdo(const Sesion& sesion, const SeleccionAcuerdos& peticion);

}  // namespace kv::aplicacion
