#pragma once

#include <cstdint>
#include <string>

#include "kvdatosart/base/Fecha.h"

namespace kv {

// Movement kinds that are told apart. Every other one moves stock as it is signed and touches nothing else.
inline constexpr std::int16_t kOpCompra = 3;
inline constexpr std::int16_t kOpVenta = 5;
inline constexpr std::int16_t kOpEntradaConPrecio = 7;
inline constexpr std::int16_t kOpSalida8 = 8;
inline constexpr std::int16_t kOpSalida13 = 13;

/// One movement with the sign of its kind: the documents of sales and of the other outgoing kinds carry as positive
/// what leaves the warehouse.
class Movimiento {
  public:
    Movimiento(std::int16_t intOp, double dblUnidades, double dblPeso, double dblNeto, Fecha dteFecha);

    const std::int16_t op;
    /// Below 0 when they leave.
    const double unidades;
    const double peso;
    /// Net unit cost.
    const double neto;
    const Fecha fecha;

    /// The kinds whose average cost is written.
    bool EsEntradaConCoste() const { return op == kOpCompra || op == kOpEntradaConPrecio; }
    /// Units come in at a cost that counts for the average.
    bool TraeCoste() const { return unidades > 0 && EsEntradaConCoste() && neto > 0; }
    /// A sale whose units go out, not a returned one.
    bool EsVenta() const { return op == kOpVenta && unidades < 0; }
    /// A purchase whose units come in, with a price or without one.
    bool EsRecepcion() const { return op == kOpCompra && unidades > 0 && neto >= 0; }
    bool EsRecepcionConPrecio() const { return EsRecepcion() && neto > 0; }

    /// ", PU_Compra =..." when there is a price, else empty.
    std::string FragmentoPrecio() const;
};

/// The row of a movement at work: what was read, then what it becomes. The references are the caller's outputs.
struct FilaStock {
    /// Adds the quantities.
    void Mover(const Movimiento& movimiento) {
        stock += movimiento.unidades;
        peso += movimiento.peso;
    }

    double& PUC;
    double& PMedio;
    double& stock;
    double peso = 0;
};

/// What a movement changes in a row besides its quantities, as fragments of an UPDATE; empty where it changes nothing.
struct Fragmentos {
    /// `fila` as it was before the movement, with the new average.
    Fragmentos(const Movimiento& movimiento, const FilaStock& fila);

    std::string medio;
    std::string venta;
    // The period with stock that opens or closes, with the other date cleared.
    std::string inicio;
    std::string fin;
};

/// The dates of the row that a movement makes where there was none: their texts, empty for no date.
struct FechasNuevas {
    explicit FechasNuevas(const Movimiento& movimiento);

    std::string compra;
    std::string venta;
    std::string inicio;
    std::string fin;
};

/// The costs of that row: those of a priced entry or of a receipt with a price, else 0.
double CosteNuevo(const Movimiento& movimiento);

}  // namespace kv
