#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "db/BibliotecaComun.h"
#include "db/cEmpresa.h"

namespace kv::prueba {

/// A company whose codes all differ, so that a statement that takes the wrong one is seen.
class EmpresaFija : public cEmpresa {
  public:
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
    Valor Parametro(std::int16_t numero) const override;
    std::string CaptionFamilia(std::int16_t indice) const override;

    std::int16_t codEmpresa = 1;
    std::int16_t codEmpresaArticulos = 2;
    std::int16_t codEmpresaClientes = 3;
    std::int16_t codEmpresaExtra = 4;
    std::int16_t tarifaEmpresa = 5;
    bool venderSinStock = false;
    bool costeUltimaCompra = false;
    std::int16_t decPrecios = 2;
    std::int16_t decImportes = 2;
    std::int16_t decCostes = 4;
    std::map<std::int16_t, Valor> parametros;
    std::array<std::string, 3> captions = {"Sección", "Familia", "Subfamilia"};
};

/// Fixed today and decimal separator for the scope of a test; keeps the critical messages instead of showing them.
class BibliotecaDePrueba {
  public:
    struct Mensaje {
        std::string texto;
        std::string titulo;
    };

    explicit BibliotecaDePrueba(Fecha hoy, char separador = '.');
    ~BibliotecaDePrueba();
    BibliotecaDePrueba(const BibliotecaDePrueba&) = delete;
    BibliotecaDePrueba& operator=(const BibliotecaDePrueba&) = delete;

    const std::vector<Mensaje>& Mensajes() const;

  private:
    class Fija;
    std::shared_ptr<Fija> fija_;
    std::shared_ptr<BibliotecaComun> anterior_;
};

}  // namespace kv::prueba
