// Prices a line with the installed headers and libraries only.
#include <cstdio>

#include "component/clsDatosArt.h"
#include "db/sqlite/ConexionSqlite.h"
#include "schema/Demostracion.h"
#include "schema/Esquema.h"

namespace {

class Empresa : public kv::cEmpresa {
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
    kv::Valor Parametro(std::int16_t) const override { return kv::Nulo{}; }
    std::string CaptionFamilia(std::int16_t) const override { return "Familia"; }
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    const kv::IdentidadBase identidad{kv::kAplicacionEsquema, kv::kVersionEsquema};
    const auto hoy = kv::Fecha::DeAmd(2026, 11, 21);
    kv::ConexionSqlite::Crear(argv[1], identidad, kv::EsquemaSqlite(),
                              [&](kv::Connection& conexion) { kv::CargarDemostracion(conexion, hoy); });
    kv::clsDatosArt articulo;
    articulo.Conexion(kv::ConexionSqlite::Abrir(argv[1], identidad, kv::ConexionSqlite::Modo::SoloLectura));
    articulo.cEmpresa(std::make_shared<Empresa>());
    const int estado = articulo.Cargar(113, 11, hoy, 1, 1, 2);
    std::printf("%d %s %.2f\n", estado, articulo.Descripcion.c_str(), articulo.Pvp);
}
