#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/cEmpresa.h"

namespace kv {

/// A company of fixed values, for a host that keeps its settings elsewhere than in `Empresas` (see `EmpresaTabla`).
/// Each may be changed until the company is handed to the component.
class EmpresaFija : public cEmpresa {
  public:
    /// Keeps everything under one code.
    explicit EmpresaFija(std::int16_t codigo)
        : codEmpresa(codigo), codEmpresaArticulos(codigo), codEmpresaClientes(codigo), codEmpresaExtra(codigo) {}

    std::int16_t codEmpresa, codEmpresaArticulos, codEmpresaClientes, codEmpresaExtra;
    /// 0 when there is none.
    std::int16_t tarifaEmpresa = 0;
    bool venderSinStock = false, costeUltimaCompra = false;
    std::int16_t decPrecios = 2, decImportes = 2, decCostes = 4;
    /// A numbered parameter that is not here is NULL.
    std::map<std::int16_t, Valor> parametros;
    /// Captions of the family levels; empty for a level that is not in use.
    std::array<std::string, 3> captions = {"Familia", "", ""};

    std::int16_t CodEmpresa() const override { return codEmpresa; }
    std::int16_t CodEmpresaArticulos() const override { return codEmpresaArticulos; }
    std::int16_t CodEmpresaClientes() const override { return codEmpresaClientes; }
    std::int16_t CodEmpresaExtra() const override { return codEmpresaExtra; }
    std::int16_t TarifaEmpresa() const override { return tarifaEmpresa; }
    bool VenderSinStock() const override { return venderSinStock; }
    bool CosteUltimaCompra() const override { return costeUltimaCompra; }
    std::int16_t DecPrecios() const override { return decPrecios; }
    std::int16_t DecImportes() const override { return decImportes; }
    std::int16_t DecCostes() const override { return decCostes; }
    Valor Parametro(std::int16_t numero) const override {
        const auto hallado = parametros.find(numero);
        return hallado == parametros.end() ? Valor(Nulo{}) : hallado->second;
    }
    std::string CaptionFamilia(std::int16_t indice) const override {
        if (indice < 0 || indice > 2) LanzarError(kErrSubindice, "nivel de familia " + std::to_string(indice));
        return captions[static_cast<std::size_t>(indice)];
    }
};

}  // namespace kv
