#pragma once

#include "kvdatosart/db/cEmpresa.h"

namespace kv::bench {

/// The company of every measure: one code for everything, three family levels.
class EmpresaMedida : public kv::cEmpresa {
  public:
    std::int16_t CodEmpresa() const override { return 1; }
    std::int16_t CodEmpresaArticulos() const override { return 1; }
    std::int16_t CodEmpresaClientes() const override { return 1; }
    std::int16_t CodEmpresaExtra() const override { return 1; }
    std::int16_t TarifaEmpresa() const override { return 1; }
    bool VenderSinStock() const override { return false; }
    bool CosteUltimaCompra() const override { return false; }
    std::int16_t DecPrecios() const override { return 2; }
    std::int16_t DecImportes() const override { return 2; }
    std::int16_t DecCostes() const override { return 4; }
    Valor Parametro(std::int16_t numero) const override { return numero == 2 ? Valor(std::string("x")) : Nulo{}; }
    std::string CaptionFamilia(std::int16_t) const override { return "Familia"; }
};

}  // namespace kv::bench
