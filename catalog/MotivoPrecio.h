#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kvdatosart/pricing/ObservadorCarga.h"

namespace kv {

/// What the price of a line comes from before the chain's discounts.
enum class ProcedenciaPrecio : std::uint8_t {
    Ninguna,
    Tarifa,
    Coste,
    ClienteACoste,
    PrecioCliente,
    PrecioBaseCadena,
    Convenio
};

/// What set the price and the discount of a line.
struct MotivoPrecio {
    ProcedenciaPrecio procedencia = ProcedenciaPrecio::Ninguna;
    /// Where the tariff came from and its number; 0 when no tariff set the price.
    OrigenTarifa origen = OrigenTarifa::Pedida;
    std::int16_t tarifa = 0;
    /// Where the chain's base price stood.
    NivelesCadena nodo{};
    /// The chain's discounts changed the price.
    bool descuentosCadena = false;
    bool descuentoGrupo = false;
    bool descuentoFamilia = false;

    bool EsCoste() const {
        return procedencia == ProcedenciaPrecio::Coste || procedencia == ProcedenciaPrecio::ClienteACoste;
    }
    /// For people: "tarifa 3 del cliente, descuentos de cadena, descuento de grupo".
    std::string Texto() const;
    bool operator==(const MotivoPrecio&) const = default;
};

/// Listens to one load and keeps what set its price.
class OyenteMotivo : public ObservadorCarga {
  public:
    const MotivoPrecio& Motivo() const { return motivo_; }
    /// Why a discount could not be asked for, which the load itself takes for none; empty when it could.
    const std::string& FalloDescuento() const { return falloDescuento_; }

    void Tarifa(const TarifaProbada& tarifa) override;
    void Paso(const PasoPrecio& paso) override;
    void DescuentoLinea(FuenteDescuento fuente, Currency porcentaje) override;
    void DescuentoFallido(FuenteDescuento fuente, std::string_view procedimiento, std::string_view fallo) override;
    void NodoBase(const NivelesCadena& nodo, const DiasAcuerdo* acuerdo, Currency base) override;
    void NodoDescuentos(const NivelesCadena&, const DiasAcuerdo*, int) override {}
    void DescuentoCadena(const DescuentoAplicado&) override {}

  private:
    MotivoPrecio motivo_;
    TarifaProbada tarifa_{};
    NivelesCadena nodo_{};
    std::string falloDescuento_;
};

}  // namespace kv
