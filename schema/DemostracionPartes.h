#pragma once

#include <cstdint>

#include "kvdatosart/base/Currency.h"
#include "kvdatosart/schema/Escritor.h"

namespace kv::demo {

/// Amount from hundredths: 1250 is 12.50.
inline Currency Centimos(std::int64_t centimos) {
    return Currency::DeDiezmilesimas(centimos * 100);
}

/// The company that owns the catalogue, the customers and their terms.
inline constexpr int kEmpresa = 1;

// The parts of the demonstration, each a group of tables.
void EscribirArticulos(Escritor& escritor);
void EscribirTarifasMuestrario(Escritor& escritor);
void EscribirClientes(Escritor& escritor);
void EscribirReglas(Escritor& escritor);

/// Prices of one article in the usual tariffs, and its scheduled changes, from its retail price in hundredths.
void EscribirTarifas(Escritor& escritor, int articulo, int centimos);

}  // namespace kv::demo
