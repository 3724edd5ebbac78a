#pragma once

#include <cstdint>
#include <string>

#include "kvdatosart/base/Valor.h"

namespace kv {

/// The company in whose name the component works: codes, defaults and settings, all read only. The host supplies it.
/// A member may fail with whatever error its source raises.
class cEmpresa {
  public:
    virtual ~cEmpresa() = default;

    /// Company of stock, documents, agreements and customer prices.
    virtual std::int16_t CodEmpresa() const = 0;
    /// Company under which the article catalogue and its tariffs are kept.
    virtual std::int16_t CodEmpresaArticulos() const = 0;
    /// Company under which the customers and their own detail tables are kept.
    virtual std::int16_t CodEmpresaClientes() const = 0;
    /// Company whose masters give names to customer price lists.
    virtual std::int16_t CodEmpresaExtra() const = 0;
    /// Default tariff, the last one tried; 0 when there is none.
    virtual std::int16_t TarifaEmpresa() const = 0;
    /// True when an article without stock may be sold without warning.
    virtual bool VenderSinStock() const = 0;
    /// True: an article costs its last purchase price; false: its average cost.
    virtual bool CosteUltimaCompra() const = 0;
    /// Decimals of prices.
    virtual std::int16_t DecPrecios() const = 0;
    /// Decimals of amounts.
    virtual std::int16_t DecImportes() const = 0;
    /// Decimals of average costs.
    virtual std::int16_t DecCostes() const = 0;
    /// The numbered company parameter; NULL when it has none.
    virtual Valor Parametro(std::int16_t numero) const = 0;
    /// Caption of the family level by index 0 to 2; empty when the company does not use that level.
    virtual std::string CaptionFamilia(std::int16_t indice) const = 0;
};

}  // namespace kv
