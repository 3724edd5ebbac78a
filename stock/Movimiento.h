#pragma once

#include <cstdint>
#include <string>

#include "base/Fecha.h"

namespace kv {

// Movement kinds that are told apart. Every other one moves stock as it is signed and touches nothing else.
inline constexpr std::int16_t kOpCompra = 3;
inline constexpr std::int16_t kOpVenta = 5;
inline constexpr std::int16_t kOpEntradaConPrecio = 7;
inline constexpr std::int16_t kOpSalida8 = 8;
inline constexpr std::int16_t kOpSalida13 = 13;

/// True for the kinds whose documents carry outgoing units as positive numbers.
bool EsSalida(std::int16_t intOp);

/// True for the kinds that bring units in at a cost.
bool EsEntradaConCoste(std::int16_t intOp);

/// What a movement says about the period with stock, as fragments of an UPDATE: empty, or the opening or closing of
/// the period with the other date cleared.
struct PeriodoExistencias {
    std::string inicio;
    std::string fin;
};
PeriodoExistencias CambioDePeriodo(double stockAnterior, double unidades, Fecha dteFecha);

/// The row that a movement makes where there was none: bare values, dates as text, empty for no date.
struct FilaNueva {
    double PUC = 0;
    double PMedio = 0;
    std::string compra;
    std::string venta;
    std::string inicio;
    std::string fin;
};
FilaNueva PrepararFilaNueva(std::int16_t intOp, double unidades, double neto, Fecha dteFecha);

/// ", FUlt_Venta ='...'" for a sale whose units go out, else empty.
std::string FragmentoVenta(std::int16_t intOp, double unidades, Fecha dteFecha);

}  // namespace kv
