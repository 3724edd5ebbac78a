#pragma once

#include <oaidl.h>
#include <windows.h>

#include <array>

#include "kvdatosart/db/ado/PunteroCom.h"
#include "kvdatosart/db/cEmpresa.h"

namespace kv {

/// The host's company object, called by name. Each member's identifier is asked for once, on first use.
/// A member that the object lacks is error 438 with the member's name, and one whose value cannot be what it must be
/// is told with its name too; the failures that the object raises pass unchanged.
class EmpresaDispatch : public cEmpresa {
  public:
    /// Takes a reference of its own.
    explicit EmpresaDispatch(IDispatch* objeto) : objeto_(objeto) {}

    std::int16_t CodEmpresa() const override { return Entero(0); }
    std::int16_t CodEmpresaArticulos() const override { return Entero(1); }
    std::int16_t CodEmpresaClientes() const override { return Entero(2); }
    std::int16_t CodEmpresaExtra() const override { return Entero(3); }
    std::int16_t TarifaEmpresa() const override { return Entero(4); }
    bool VenderSinStock() const override { return Booleano(5); }
    bool CosteUltimaCompra() const override { return Booleano(6); }
    std::int16_t DecPrecios() const override { return Entero(7); }
    std::int16_t DecImportes() const override { return Entero(8); }
    std::int16_t DecCostes() const override { return Entero(9); }
    Valor Parametro(std::int16_t numero) const override { return Pedir(10, &numero); }
    std::string CaptionFamilia(std::int16_t indice) const override;

  private:
    static constexpr std::size_t kMiembros = 12;

    std::int16_t Entero(std::size_t miembro) const;
    bool Booleano(std::size_t miembro) const;
    Valor Pedir(std::size_t miembro, const std::int16_t* argumento) const;
    DISPID Identificador(std::size_t miembro) const;

    PunteroCom<IDispatch> objeto_;
    mutable std::array<DISPID, kMiembros> identificadores_{};
    mutable std::array<bool, kMiembros> resueltos_{};
};

}  // namespace kv
