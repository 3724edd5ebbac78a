#pragma once

#include <vector>

#include "kvdatosart/catalog/Tasacion.h"

namespace kv {

/// The price of an article for a customer, day by day from one day to another, both inclusive.
struct PeticionHistoria {
    /// The line; its date is not used.
    Pregunta terminos;
    Fecha desde;
    Fecha hasta;
    /// What the rules take for today.
    Fecha hoy;
};

/// Consecutive days on which the line comes to the same, for the same reasons.
struct TramoHistoria {
    Fecha desde;
    Fecha hasta;
    /// Days before today: what today's tariffs say of them, which is not what was charged then.
    bool pasado = false;
    Tasacion tasacion;
};

/// The days from `desde` + 1 to `hasta` on which the price of the line may differ from the day before, in order: the
/// first day and the day after the last of everything dated that the price depends on, today, and tomorrow, from which
/// the scheduled changes count.
std::vector<Fecha> DiasDeCambio(const Puesto& puesto, const PeticionHistoria& peticion);

/// The stretches, which touch each other and cover every day. None when `hasta` comes before `desde`. Only reads; the
/// connection must see one state that stands still, as in a list. A day that cannot be priced is a stretch with its
/// failure.
std::vector<TramoHistoria> HacerHistoria(const Puesto& puesto, const PeticionHistoria& peticion);

}  // namespace kv
