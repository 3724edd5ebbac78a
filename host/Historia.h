#pragma once

#include <string>

#include "kvdatosart/application/Historias.h"

namespace kv::host {

// How the history of a price is told and drawn; `separador` stands before the decimals.

/// The history in one sentence, from today on: "89,95 hasta el 31/12/2026; desde el 01/01/2027, 92,50 (tarifa 1)". The
/// prices are the net ones. Beyond four stretches it only says how many more there are.
std::string FraseDe(const aplicacion::RespuestaHistoria& historia, char separador);

/// What a stretch costs, net, or that there is no price.
std::string PrecioDe(const TramoHistoria& tramo, char separador);
/// What set its price, or why there is none.
std::string MotivoDe(const TramoHistoria& tramo);
/// Stretches up to the day that means no end have none.
bool SinFin(const TramoHistoria& tramo);

/// What is said of the stretches before today.
inline constexpr const char* kNoLoCobrado = "con las tarifas de hoy, no lo que se cobró";

/// The history as a picture (SVG): the net price in steps over real time, dashed before today, nothing where there is
/// no price, and below it a table with the numbers and reasons of each stretch. It can be printed in grey and read
/// aloud.
std::string ASvg(const aplicacion::RespuestaHistoria& historia, char separador);

}  // namespace kv::host
