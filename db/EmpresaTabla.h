#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>

#include "kvdatosart/db/Connection.h"
#include "kvdatosart/db/cEmpresa.h"

namespace kv {

/// The company as its row of `Empresas` and its numbered parameters describe it, read once.
class EmpresaTabla : public kv::cEmpresa {
  public:
    /// The company of that code; null when there is none.
    static std::shared_ptr<EmpresaTabla> Leer(Connection& conexion, std::int16_t codigo);

    const std::string& Nombre() const { return nombre_; }

    std::int16_t CodEmpresa() const override { return codigo_; }
    std::int16_t CodEmpresaArticulos() const override { return articulos_; }
    std::int16_t CodEmpresaClientes() const override { return clientes_; }
    std::int16_t CodEmpresaExtra() const override { return extra_; }
    std::int16_t TarifaEmpresa() const override { return tarifa_; }
    bool VenderSinStock() const override { return venderSinStock_; }
    bool CosteUltimaCompra() const override { return costeUltimaCompra_; }
    std::int16_t DecPrecios() const override { return decPrecios_; }
    std::int16_t DecImportes() const override { return decImportes_; }
    std::int16_t DecCostes() const override { return decCostes_; }
    Valor Parametro(std::int16_t numero) const override;
    std::string CaptionFamilia(std::int16_t indice) const override;

  private:
    EmpresaTabla(Recordset& fila, std::int16_t codigo);
    void LeerParametros(Connection& conexion);

    std::int16_t codigo_;
    std::string nombre_;
    std::int16_t articulos_ = 0;
    std::int16_t clientes_ = 0;
    std::int16_t extra_ = 0;
    std::int16_t tarifa_ = 0;
    bool venderSinStock_ = false;
    bool costeUltimaCompra_ = false;
    std::int16_t decPrecios_ = 0;
    std::int16_t decImportes_ = 0;
    std::int16_t decCostes_ = 0;
    std::map<std::int16_t, Valor> parametros_;
    std::array<std::string, 3> captions_;
};

}  // namespace kv
