#include <gtest/gtest.h>

#include "rules/clsClientes_Cadenas_ConvArt.h"
#include "tests/comun/ConexionGuion.h"
#include "tests/comun/EmpresaFija.h"
#include "tests/comun/Errores.h"

namespace kv::prueba {
namespace {

constexpr const char* kClave =
    " WHERE Cod_Empresa =1 AND Cod_Nivel1 =1 AND Cod_Nivel2 =2 AND Cod_Nivel3 =3 AND Cod_Nivel4 =4 AND Cod_Nivel5 =5"
    " AND Cod_Nivel6 =6 AND Cod_Nivel7 =7 AND Cod_Nivel8 =8 AND Cod_Nivel9 =9 AND Cod_Nivel10 =10"
    " AND Cod_Articulo =1042";

class CadenasMantenimiento : public testing::Test {
  protected:
    CadenasMantenimiento() {
        cadena.Conexion(guion);
        cadena.cEmpresa(std::make_shared<EmpresaFija>());
        cadena.Cod_Articulo = 1042;
        std::int16_t nivel = 0;
        for (std::int16_t* codigo :
             {&cadena.Cod_Nivel1, &cadena.Cod_Nivel2, &cadena.Cod_Nivel3, &cadena.Cod_Nivel4, &cadena.Cod_Nivel5,
              &cadena.Cod_Nivel6, &cadena.Cod_Nivel7, &cadena.Cod_Nivel8, &cadena.Cod_Nivel9, &cadena.Cod_Nivel10})
            *codigo = ++nivel;
        cadena.DtoPadre = true;
        cadena.Nivel = 2;
        for (std::int16_t i = 0; i < 5; ++i) {
            cadena.TipoDto(i, static_cast<std::int16_t>(20 + i));
            cadena.ImporteDto(i, Currency::DeDouble(30.5 + i));
            cadena.UnidadesDto(i, static_cast<std::int16_t>(40 + i));
            cadena.AplicarCascada(i, i == 1 || i == 4);
        }
    }

    BibliotecaDePrueba biblioteca{Fecha::DeAmd(2026, 3, 5), ','};
    std::shared_ptr<ConexionGuion> guion = std::make_shared<ConexionGuion>();
    clsClientes_Cadenas_ConvArt cadena;
};

TEST_F(CadenasMantenimiento, Escrituras) {
    guion->EsperaEjecucion(
        "INSERT INTO Clientes_Cadenas_ConvArt (Cod_Empresa, Cod_Articulo, Cod_Nivel1, Cod_Nivel2, Cod_Nivel3,"
        " Cod_Nivel4, Cod_Nivel5, Cod_Nivel6, Cod_Nivel7, Cod_Nivel8, Cod_Nivel9, Cod_Nivel10,"
        " TDto1, ImporteDto1, CantidadDto1, Aplicar_Cascada1, TDto2, ImporteDto2, CantidadDto2, Aplicar_Cascada2,"
        " TDto3, ImporteDto3, CantidadDto3, Aplicar_Cascada3, TDto4, ImporteDto4, CantidadDto4, Aplicar_Cascada4,"
        " TDto5, ImporteDto5, CantidadDto5, Aplicar_Cascada5, Dto_Padre, Nivel, Enviado) VALUES (1, 1042, 1, 2, 3, 4,"
        " 5, 6, 7, 8, 9, 10, 20, 30.5, 40, 0, 21, 31.5, 41, -1, 22, 32.5, 42, 0, 23, 33.5, 43, 0, 24, 34.5, 44, -1,"
        " -1, 2, 0)");
    cadena.Insertar();
    guion->EsperaEjecucion(
        std::string(
            "UPDATE Clientes_Cadenas_ConvArt SET TDto1=20, TDto2=21, TDto3=22, TDto4=23, TDto5=24, ImporteDto1=30.5,"
            " ImporteDto2=31.5, ImporteDto3=32.5, ImporteDto4=33.5, ImporteDto5=34.5, CantidadDto1=40,"
            " CantidadDto2=41, CantidadDto3=42, CantidadDto4=43, CantidadDto5=44, Aplicar_Cascada1=0,"
            " Aplicar_Cascada2=-1, Aplicar_Cascada3=0, Aplicar_Cascada4=0, Aplicar_Cascada5=-1, Dto_Padre=-1, Enviado "
            "= 0") +
        kClave);
    cadena.Modificar();
    guion->EsperaEjecucion(std::string("DELETE FROM Clientes_Cadenas_ConvArt") + kClave);
    cadena.Eliminar();
}

TEST_F(CadenasMantenimiento, Cargar_SiempreDevuelveFalsoYConvierteLasUnidades) {
    const std::string sql =
        std::string("SELECT * FROM Clientes_Cadenas_ConvArt") + kClave + " AND FechaEntrada ='05/03/2026'";
    const Fecha dia = Fecha::DeAmd(2026, 3, 5);
    std::vector<std::string> columnas = {"FechaEntrada", "FechaSalida", "Dto_Padre"};
    ConexionGuion::Fila fila = {dia, dia + 1, false};
    for (int i = 1; i <= 5; ++i) {
        for (const char* campo :
             {"TDto", "ImporteDto", "CantidadDto", "Aplicar_Cascada", "FechaEntrada", "FechaSalida"})
            columnas.push_back(campo + std::to_string(i));
        fila.insert(fila.end(), {std::int16_t{1}, Currency::DeEntero(i), Currency::DeDouble(2.5), true, dia, dia + i});
    }
    cadena.FechaEntrada = dia;
    guion->EsperaConsulta(sql);
    EXPECT_FALSE(cadena.Cargar());
    EXPECT_EQ(40, cadena.UnidadesDto(0));
    guion->EsperaConsulta(sql, columnas, {fila});
    EXPECT_FALSE(cadena.Cargar());
    EXPECT_FALSE(cadena.DtoPadre);
    EXPECT_EQ(2, cadena.UnidadesDto(0));
    EXPECT_EQ(Currency::DeEntero(5), cadena.ImporteDto(4));
    EXPECT_EQ(dia + 5, cadena.FechaDtoF(4));
    fila[5] = Currency::DeEntero(40000);
    guion->EsperaConsulta(sql, columnas, {fila});
    EsperarError(kErrDesbordamiento, "", [&] { cadena.Cargar(); });
}

TEST_F(CadenasMantenimiento, Casillas_De0A4) {
    for (const std::int16_t mala : {std::int16_t{-1}, std::int16_t{5}}) {
        EsperarError(kErrSubindice, "", [&] { (void)cadena.TipoDto(mala); });
        EsperarError(kErrSubindice, "", [&] { cadena.ImporteDto(mala, Currency()); });
        EsperarError(kErrSubindice, "", [&] { (void)cadena.FechaDtoF(mala); });
    }
}

}  // namespace
}  // namespace kv::prueba
