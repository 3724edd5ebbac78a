#pragma once

#include <string>
#include <vector>

#include "kvdatosart/application/Historias.h"

namespace kv::host {

/// A straight axis. Only for drawing: amounts and days as doubles.
struct Escala {
    double desde = 0;
    double hasta = 1;

    /// Where a value lies between two pixels.
    int En(double valor, int primero, int ultimo) const;
};

/// An axis of amounts, from a mark to a mark.
struct EscalaConMarcas : Escala {
    std::vector<double> marcas;
};

/// A mark on an axis of days.
struct MarcaDia {
    double dia;
    std::string rotulo;
};

/// From the first day to the end of the last one, in days since 30/12/1899. What has no end goes on beyond the last
/// change for a third of the days before it, two months at least.
Escala EscalaDias(const aplicacion::RespuestaHistoria& historia);
/// Round amounts below and above every net price.
EscalaConMarcas EscalaPrecios(const aplicacion::RespuestaHistoria& historia);
/// Nine marks at most, on days, on the first of months or on the first of January.
std::vector<MarcaDia> MarcasDias(const Escala& dias);

}  // namespace kv::host
