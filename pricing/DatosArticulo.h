#pragma once

#include <cstdint>
#include <string>

#include "kvdatosart/base/Currency.h"

namespace kv {

/// Everything that a sales line reads about one article: the data properties of `clsDatosArt`, in the order of its
/// interface. A fresh object holds zeros, false and empty text; a load overwrites what it finds and leaves the rest.
class DatosArticulo {
  public:
    DatosArticulo() = default;
    DatosArticulo(const DatosArticulo&) = delete;
    DatosArticulo& operator=(const DatosArticulo&) = delete;
    virtual ~DatosArticulo() = default;

    std::int32_t Codigo = 0;
    std::int16_t Familia_1 = 0;
    std::int16_t Familia_2 = 0;
    std::int16_t Familia_3 = 0;
    std::string Descripcion;
    /// Units per box.
    Currency UxB;
    /// Price before the chain's discounts, or the agreed base price.
    Currency PvpBase;
    /// What the chain agreement gave, for people; empty when the customer has no chain.
    std::string Convenio;
    /// Final unit selling price.
    double Pvp = 0;
    /// Unit price before `PDescuento`, which the host applies to the line.
    double PvpOriginal = 0;
    /// Discount of the line, percent.
    float PDescuento = 0;
    /// Tax type.
    std::uint8_t Impuesto = 0;
    /// Generic article in this warehouse.
    bool Tipo = false;
    /// Ledger accounts of sales and of sales returns.
    std::string CtaVentas;
    std::string CtaDVentas;
    /// Unit cost in the warehouse.
    double PCosto = 0;
    /// Variant axes (size, colour...), 0 = none. The host sets them before a load, which leaves them as they are.
    std::uint8_t CualidadX = 0;
    std::uint8_t CualidadY = 0;
    /// Recycling levies.
    Currency RAEE;
    Currency ECORAEE;
    /// Loyalty points.
    std::int32_t FidelizacionPuntos = 0;
    /// The article moves stock.
    bool DStock = false;
    /// Serial numbers are asked for.
    bool Control_Series = false;
    /// Container article, 0 = none.
    std::int32_t Cod_Envase = 0;
    /// Available units in the warehouse.
    Currency Stock;
    /// Locked in the warehouse.
    bool Bloqueado = false;
    /// Expiry dates are asked for.
    bool Control_Caducidad = false;
    /// Lots are asked for.
    bool Control_Lotes = false;
    /// Replenishment type.
    std::int16_t TipoRep = 0;
    Currency Largo;
    Currency Ancho;
    Currency Altura;
    /// Locked for sale in the warehouse.
    bool BloqueadoVenta = false;
    /// Locked in the catalogue.
    bool BloqueadoGral = false;
    /// Message to show when the article is sold.
    std::string MsjAlerta;
    /// Reason for discontinuation, 0 = none.
    std::int16_t MotivoBaja = 0;
    /// Made to order.
    bool BajoPedido = false;
    /// Tariff that gave the price; 0 when the price came from elsewhere.
    std::int16_t TarifaPVP = 0;
    /// Units pending delivery to customers and receipt from suppliers.
    Currency PendienteServir;
    Currency PendienteRecibir;
    /// Second tax type.
    std::uint8_t Impuesto2 = 0;
    /// Quantities may carry decimals.
    bool UnidadesDecimales = false;
    Currency Peso;

  protected:
    friend class CargaArticulo;

    /// Gives the article an empty sales parent, to be loaded when it is read.
    virtual void CrearPadre() = 0;

    /// Code of the article's sales parent as the last load read it, 0 = none.
    std::int32_t PadreVenta = 0;
};

}  // namespace kv
