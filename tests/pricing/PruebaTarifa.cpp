#include <gtest/gtest.h>

#include <vector>

#include "component/clsDatosArt.h"
#include "tests/comun/ConexionGuion.h"
#include "tests/comun/EmpresaFija.h"
#include "tests/comun/Errores.h"

namespace kv::prueba {
namespace {

const Fecha kHoy = Fecha::DeAmd(2026, 3, 10);
const Fecha kManana = Fecha::DeAmd(2026, 3, 11);
const std::vector<std::string> kPrecio = {"Cod_Tarifa", "Pvp"};
constexpr const char* kInterruptor = "SELECT TarifasxFechas FROM Empresas WHERE Codigo=1";

class Tarifa : public testing::Test {
  protected:
    Tarifa() {
        articulo.Conexion(guion);
        articulo.cEmpresa(empresa);
        articulo.Codigo = 1042;
        articulo.TarifaPVP = 77;
    }

    BibliotecaDePrueba biblioteca{kHoy, ','};
    std::shared_ptr<ConexionGuion> guion = std::make_shared<ConexionGuion>();
    std::shared_ptr<EmpresaFija> empresa = std::make_shared<EmpresaFija>();
    clsDatosArt articulo;
};

TEST_F(Tarifa, HoyConForzar_UsaLaTarifaVigente) {
    guion->EsperaConsulta(
        "SELECT Cod_Tarifa, Pvp FROM Articulos_Tarifas WHERE Cod_Empresa =2 AND Cod_Articulo =1042"
        " AND Cod_Tarifa =3 AND Pvp <> 0",
        kPrecio, {{std::int16_t{3}, Currency::DeDouble(12.3456)}});
    EXPECT_EQ(Currency::DeDouble(12.3456), articulo.DevPvp(3, kHoy, true));
    EXPECT_EQ(3, articulo.TarifaPVP);
}

TEST_F(Tarifa, ConCualidad_BuscaPrimeroLaVariante) {
    articulo.CualidadX = 38;
    articulo.CualidadY = 4;
    guion->EsperaConsulta(
        "SELECT Cod_Tarifa, Pvp FROM Articulos_Tarifas_C WHERE Cod_Empresa =2 AND Cod_Articulo =1042"
        " AND CualidadX =38 AND Cod_Tarifa =3 AND Pvp <> 0",
        kPrecio, {{std::int16_t{3}, Currency::DeEntero(9)}});
    EXPECT_EQ(Currency::DeEntero(9), articulo.DevPvp(3, kHoy));
}

TEST_F(Tarifa, FuturaForzada_UsaLosCambiosSinPreguntarALaEmpresa) {
    guion->EsperaConsulta(
        "SELECT TOP 1 Cod_Tarifa, Pvp FROM Tarifas_Modificacion WHERE Cod_Empresa =2 AND Cod_Articulo =1042"
        " AND Cod_Tarifa =3 AND Pvp <> 0 AND Actualizado=1 AND Borrado=0  AND Fecha_Entrada<='11/03/2026'"
        " ORDER BY Fecha_Entrada DESC, Codigo DESC",
        kPrecio, {{std::int16_t{3}, Currency::DeEntero(15)}});
    EXPECT_EQ(Currency::DeEntero(15), articulo.DevPvp(3, kManana, true));
}

TEST_F(Tarifa, FuturaConCualidad_UsaLosCambiosDeLaVariante) {
    articulo.CualidadX = 38;
    guion->EsperaConsulta(kInterruptor, {"TarifasxFechas"}, {{true}});
    guion->EsperaConsulta(
        "SELECT TOP 1 Cod_Tarifa, Pvp FROM Tarifas_Modificacion_C WHERE Cod_Empresa =2 AND Cod_Articulo =1042"
        " AND CualidadX =38 AND Cod_Tarifa =3 AND Pvp <> 0 AND Actualizado=1 AND Borrado=0 "
        " AND Fecha_Entrada<='11/03/2026' ORDER BY Fecha_Entrada DESC, Codigo DESC",
        kPrecio, {{std::int16_t{3}, Currency::DeEntero(16)}});
    EXPECT_EQ(Currency::DeEntero(16), articulo.DevPvp(3, kManana));
}

TEST_F(Tarifa, FuturaSinInterruptor_UsaLaTarifaVigente) {
    struct Caso {
        const char* nombre;
        std::vector<ConexionGuion::Fila> filas;
    };
    for (const Caso& caso : {Caso{"apagado", {{false}}}, Caso{"empresa sin fila", {}}}) {
        SCOPED_TRACE(caso.nombre);
        guion->EsperaConsulta(kInterruptor, {"TarifasxFechas"}, caso.filas);
        guion->EsperaConsulta(
            "SELECT Cod_Tarifa, Pvp FROM Articulos_Tarifas WHERE Cod_Empresa =2 AND Cod_Articulo =1042"
            " AND Cod_Tarifa =3 AND Pvp <> 0",
            kPrecio, {{std::int16_t{3}, Currency::DeEntero(8)}});
        EXPECT_EQ(Currency::DeEntero(8), articulo.DevPvp(3, kManana));
        guion->Terminar();
    }
}

TEST_F(Tarifa, SinPrecioOSinTarifa_PideElClienteYFalla) {
    guion->EsperaConsulta(
        "SELECT Cod_Tarifa, Pvp FROM Articulos_Tarifas WHERE Cod_Empresa =2 AND Cod_Articulo =1042"
        " AND Cod_Tarifa =3 AND Pvp <> 0");
    EsperarError(kErrObjetoNoEstablecido, "", [&] { articulo.DevPvp(3, kHoy); });
    EsperarError(kErrObjetoNoEstablecido, "", [&] { articulo.DevPvp(0, kHoy); });
    EsperarError(kErrObjetoNoEstablecido, "", [&] { articulo.DevPvp(-1, kHoy); });
    EXPECT_EQ(77, articulo.TarifaPVP);
}

TEST_F(Tarifa, PrecioOInterruptorNulos_Fallan) {
    guion->EsperaConsulta(kInterruptor, {"TarifasxFechas"}, {{Nulo{}}});
    EsperarError(kErrNulo, "", [&] { articulo.DevPvp(3, kManana); });
    guion->EsperaConsulta(
        "SELECT Cod_Tarifa, Pvp FROM Articulos_Tarifas WHERE Cod_Empresa =2 AND Cod_Articulo =1042"
        " AND Cod_Tarifa =3 AND Pvp <> 0",
        kPrecio, {{std::int16_t{3}, Nulo{}}});
    EsperarError(kErrNulo, "", [&] { articulo.DevPvp(3, kHoy); });
    EXPECT_EQ(77, articulo.TarifaPVP);
}

TEST_F(Tarifa, ErrorDeLaBase_LlegaComoVino) {
    guion->EsperaConsulta(kInterruptor);
    guion->YFalla(-2147217900, "sintaxis");
    EsperarError(-2147217900, "Proveedor", [&] { articulo.DevPvp(3, kManana); });
}

TEST(TarifaSinConexion, FaltaConexionOEmpresa_Error91) {
    BibliotecaDePrueba biblioteca(kHoy);
    clsDatosArt articulo;
    EsperarError(kErrObjetoNoEstablecido, "KVDatosArt", [&] { articulo.DevPvp(3, kHoy); });
    articulo.cEmpresa(std::make_shared<EmpresaFija>());
    EsperarError(kErrObjetoNoEstablecido, "KVDatosArt", [&] { articulo.DevPvp(3, kHoy); });
}

}  // namespace
}  // namespace kv::prueba
