#include <gtest/gtest.h>

#include "rules/clsClientes_Cadenas_ConvArt.h"
#include "tests/comun/ConexionGuion.h"
#include "tests/comun/EmpresaFija.h"
#include "tests/comun/Errores.h"

namespace kv::prueba {
namespace {

const Fecha kDia = Fecha::DeAmd(2026, 3, 5);
const Fecha kSiempre = Fecha::DeAmd(2050, 12, 31);

Currency C(double valor) {
    return Currency::DeDouble(valor);
}

struct Dto {
    int tipo = 0;
    Currency importe{};
    Currency cantidad{};
    bool cascada = false;
    Valor desde = Fecha::DeAmd(1900, 1, 1);
    Valor hasta = kSiempre;
};

const std::vector<std::string>& Columnas() {
    static const std::vector<std::string> columnas = [] {
        std::vector<std::string> c;
        for (int i = 1; i <= 10; ++i) c.push_back("Cod_Nivel" + std::to_string(i));
        for (const char* otra : {"FechaEntrada", "FechaSalida", "PBase", "Dto_Padre"}) c.push_back(otra);
        for (int i = 1; i <= 5; ++i)
            for (const char* campo :
                 {"TDto", "ImporteDto", "CantidadDto", "Aplicar_Cascada", "FechaEntrada", "FechaSalida"})
                c.push_back(campo + std::to_string(i));
        return c;
    }();
    return columnas;
}

ConexionGuion::Fila Fila(Valor dtoPadre, double base, const std::vector<Dto>& dtos) {
    ConexionGuion::Fila fila = {std::int16_t{1}, std::int16_t{2}};
    fila.resize(10, std::int16_t{0});
    fila.insert(fila.end(), {Fecha::DeAmd(2025, 1, 1), kSiempre, C(base), std::move(dtoPadre)});
    for (std::size_t i = 0; i < 5; ++i) {
        const Dto dto = i < dtos.size() ? dtos[i] : Dto{};
        fila.insert(fila.end(), {static_cast<std::int16_t>(dto.tipo), dto.importe, dto.cantidad, dto.cascada, dto.desde,
                                 dto.hasta});
    }
    return fila;
}

class Cadenas : public testing::Test {
  protected:
    Cadenas() {
        cadena.Conexion(guion);
        cadena.cEmpresa(empresa);
        cadena.Cod_Articulo = 1042;
        cadena.Cod_Nivel1 = 1;
        cadena.Cod_Nivel2 = 2;
        cadena.PrecioBase = C(100);
    }
    void DiezNiveles() {
        std::int16_t nivel = 0;
        for (std::int16_t* codigo :
             {&cadena.Cod_Nivel1, &cadena.Cod_Nivel2, &cadena.Cod_Nivel3, &cadena.Cod_Nivel4, &cadena.Cod_Nivel5,
              &cadena.Cod_Nivel6, &cadena.Cod_Nivel7, &cadena.Cod_Nivel8, &cadena.Cod_Nivel9, &cadena.Cod_Nivel10})
            *codigo = ++nivel;
    }

    static std::string Texto(int nivel2, bool conFinal) {
        std::string sql =
            "SELECT TOP 1 a.* FROM Clientes_Cadenas_ConvArt a WHERE a.Cod_Empresa = 1 AND a.Cod_Articulo = 1042"
            " AND Cod_Nivel1 =1 AND Cod_Nivel2 =" +
            std::to_string(nivel2) +
            " AND Cod_Nivel3 =0 AND Cod_Nivel4 =0 AND Cod_Nivel5 =0 AND Cod_Nivel6 =0 AND Cod_Nivel7 =0"
            " AND Cod_Nivel8 =0 AND Cod_Nivel9 =0 AND Cod_Nivel10 =0"
            " AND a.FechaEntrada <='05/03/2026' AND a.FechaSalida >='05/03/2026'";
        if (conFinal) sql += " AND a.FechaSalida < '31/12/2050'";
        return sql + " ORDER BY a.FechaEntrada DESC";
    }
    void Hallado(int nivel2, ConexionGuion::Fila fila) {
        guion->EsperaConsulta(Texto(nivel2, true), Columnas(), {fila});
    }
    void SinFinal(int nivel2, std::vector<ConexionGuion::Fila> filas) {
        guion->EsperaConsulta(Texto(nivel2, true));
        guion->EsperaConsulta(Texto(nivel2, false), Columnas(), std::move(filas));
    }

    BibliotecaDePrueba biblioteca{kDia, ','};
    std::shared_ptr<ConexionGuion> guion = std::make_shared<ConexionGuion>();
    std::shared_ptr<EmpresaFija> empresa = std::make_shared<EmpresaFija>();
    clsClientes_Cadenas_ConvArt cadena;
};

TEST_F(Cadenas, SinCadena_NoPreguntaNada) {
    cadena.Cod_Nivel1 = 0;
    cadena.PrecioBase = C(10.005);
    EXPECT_EQ(C(10.01), cadena.Dev_Neto(kDia));
    EXPECT_EQ("PB: 10,01", cadena.Dev_CadenaConvenio_Total(kDia));
    std::string camino = "igual";
    Fecha entrada;
    Valor salida;
    EXPECT_EQ(Currency(), cadena.Devuelve_PBase(camino, entrada, salida, kDia));
    EXPECT_EQ("igual", camino);
}

TEST_F(Cadenas, DeArribaAbajoYDentroDelNodoDel1Al5) {
    // Parent: 10 % and 5 off. Node: 10 % in cascade, then 10 % on the base price.
    SinFinal(2, {Fila(true, 0, {{0, C(10), {}, true}, {0, C(10), {}, false}})});
    Hallado(0, Fila(true, 0, {{0, C(10), {}, true}, {1, C(5), {}, false}}));
    // 100 - 10 = 90; - 5 = 85; - 8.5 = 76.5; - 10 = 66.5
    EXPECT_EQ(C(66.5), cadena.Dev_Neto(kDia));
}

TEST_F(Cadenas, DtoPadre_FalsoDetieneYNuloNo) {
    Hallado(2, Fila(false, 0, {{1, C(1)}}));
    EXPECT_EQ(C(99), cadena.Dev_Neto(kDia));
    Hallado(2, Fila(Nulo{}, 0, {{1, C(1)}}));
    Hallado(0, Fila(false, 0, {{1, C(2)}}));
    EXPECT_EQ(C(97), cadena.Dev_Neto(kDia));
}

TEST_F(Cadenas, NodoSinAcuerdo_SigueHaciaArriba) {
    SinFinal(2, {});
    SinFinal(0, {Fila(false, 0, {{1, C(2)}})});
    EXPECT_EQ(C(98), cadena.Dev_Neto(kDia));
}

TEST_F(Cadenas, DiezNiveles_CadaUnoEnSuSitio) {
    DiezNiveles();
    guion->EsperaConsulta(
        "SELECT TOP 1 a.* FROM Clientes_Cadenas_ConvArt a WHERE a.Cod_Empresa = 1 AND a.Cod_Articulo = 1042"
        " AND Cod_Nivel1 =1 AND Cod_Nivel2 =2 AND Cod_Nivel3 =3 AND Cod_Nivel4 =4 AND Cod_Nivel5 =5 AND Cod_Nivel6 =6"
        " AND Cod_Nivel7 =7 AND Cod_Nivel8 =8 AND Cod_Nivel9 =9 AND Cod_Nivel10 =10 AND a.FechaEntrada <='05/03/2026'"
        " AND a.FechaSalida >='05/03/2026' AND a.FechaSalida < '31/12/2050' ORDER BY a.FechaEntrada DESC",
        Columnas(), {Fila(false, 0, {{1, C(1)}})});
    EXPECT_EQ(C(99), cadena.Dev_Neto(kDia));
}

TEST_F(Cadenas, Vigencia_PorDiasImporteYNulos) {
    const Fecha antes = kDia + -1;
    const Fecha despues = kDia + 1;
    struct Caso {
        const char* nombre;
        Dto dto;
        double neto;
    };
    const Caso kCasos[] = {
        {"primer y último día", {1, C(1), {}, false, kDia, kDia}, 99},
        {"aún no", {1, C(1), {}, false, despues, kSiempre}, 100},
        {"ya no", {1, C(1), {}, false, antes, antes}, 100},
        {"importe 0", {0, C(0), {}, false, antes, kSiempre}, 100},
        {"importe negativo", {1, C(-1), {}, false, antes, kSiempre}, 101},
        {"entrada nula", {1, C(1), {}, false, Nulo{}, kSiempre}, 100},
        {"salida nula", {1, C(1), {}, false, antes, Nulo{}}, 100},
        {"clase desconocida", {7, C(1), {}, false, antes, kSiempre}, 100},
    };
    for (const Caso& caso : kCasos) {
        SCOPED_TRACE(caso.nombre);
        Hallado(2, Fila(false, 0, {caso.dto}));
        EXPECT_EQ(C(caso.neto), cadena.Dev_Neto(kDia));
    }
}

TEST_F(Cadenas, Redondeos_EnCadaPasoYErrores) {
    cadena.PrecioBase = C(19.99);
    Hallado(2, Fila(false, 0, {{0, C(7.5), {}, true}, {0, C(7.5), {}, true}, {2, C(2), C(1)}}));
    // 19.99 - 1.50 = 18.49; - 1.39 = 17.10; x 2 / 3 = 11.40
    EXPECT_EQ(C(11.4), cadena.Dev_Neto(kDia));
    cadena.PrecioBase = C(30);
    Hallado(2, Fila(false, 0, {{2, C(2), C(1)}}));
    EXPECT_EQ(C(20), cadena.Dev_Neto(kDia));
    Hallado(2, Fila(false, 0, {{1, C(50)}}));
    EXPECT_EQ(C(-20), cadena.Dev_Neto(kDia));
    Hallado(2, Fila(false, 0, {{2, C(2), C(-2)}}));
    EsperarError(kErrDivisionPorCero, "", [&] { cadena.Dev_Neto(kDia); });
    cadena.PrecioBase = C(900000000000);
    Hallado(2, Fila(false, 0, {{0, C(5000)}}));
    EsperarError(kErrDesbordamiento, "KVDatosArt", [&] { cadena.Dev_Neto(kDia); });
}

TEST_F(Cadenas, PrecioBase_ElPrimerNodoQueLoTiene) {
    std::string camino;
    Fecha entrada;
    Valor salida;
    Hallado(2, Fila(false, 0, {}));
    SinFinal(0, {Fila(false, 9.5, {})});
    EXPECT_EQ(C(9.5), cadena.Devuelve_PBase(camino, entrada, salida, kDia));
    EXPECT_EQ("001 002", camino);
    EXPECT_EQ(Fecha::DeAmd(2025, 1, 1), entrada);
    EXPECT_EQ(Valor(kSiempre), salida);
    Hallado(2, Fila(false, 3, {}));
    EXPECT_EQ(C(3), cadena.Devuelve_PBase(camino, entrada, salida, kDia));
}

TEST_F(Cadenas, TextoTotal_CadaClase) {
    empresa->decPrecios = 3;
    Hallado(2, Fila(false, 0, {{0, C(7.125)}, {1, C(1.5)}, {2, C(5), C(1)}, {9, C(1)}}));
    EXPECT_EQ("PB: 100  DTOS: 7,13% E1,500 M5,1", cadena.Dev_CadenaConvenio_Total(kDia));
    Hallado(2, Fila(false, 0, {{9, C(1)}, {0, C(2)}}));
    EXPECT_EQ("PB: 100  DTOS: 2,00%", cadena.Dev_CadenaConvenio_Total(kDia));
}

TEST_F(Cadenas, TextoDelNodo_ConSusBlancosYSuRareza) {
    DiezNiveles();
    const std::string cabeza =
        "SELECT p.*, a.TipoImpuesto FROM Clientes_Cadenas_ConvArt p INNER JOIN Articulos a ON"
        " (a.codigo = p.Cod_Articulo AND a.Cod_Empresa = 2) WHERE p.Cod_Empresa = 1 AND p.Cod_Articulo = 1042"
        " AND p.Cod_Nivel1 = 1 AND p.Cod_Nivel2 = 2 AND p.Cod_Nivel3= 3 AND p.Cod_Nivel4= 4 AND p.Cod_Nivel5= 5"
        " AND p.Cod_Nivel6= 6 AND p.Cod_Nivel7= 7 AND p.Cod_Nivel8= 8 AND p.Cod_Nivel9= 9 AND p.Cod_Nivel10 = 10"
        " AND p.FechaEntrada <='05/03/2026' AND p.FechaSalida >='05/03/2026'";
    const std::string conFinal = cabeza + " AND p.FechaSalida < '31/12/2050' ORDER BY p.FechaEntrada DESC";
    const std::string sinFinal = cabeza + " ORDER BY p.FechaEntrada DESC";
    guion->EsperaConsulta(conFinal);
    guion->EsperaConsulta(sinFinal);
    EXPECT_EQ("", cadena.Dev_CadenaConvenio_Nivel(kDia));
    EXPECT_EQ(Fecha(), cadena.FechaSalida);
    guion->EsperaConsulta(conFinal);
    guion->EsperaConsulta(sinFinal, Columnas(), {Fila(false, 0, {{0, C(7.5)}, {1, C(1.25)}, {2, C(2), C(1)}})});
    EXPECT_EQ("DTOS: 7,50% E1,25 M2,1  NADS", cadena.Dev_CadenaConvenio_Nivel(kDia));
    EXPECT_EQ(kSiempre, cadena.FechaSalida);
    guion->EsperaConsulta(conFinal, Columnas(), {Fila(true, 0, {{9, C(1)}, {0, C(2)}})});
    EXPECT_EQ("2,00%", cadena.Dev_CadenaConvenio_Nivel(kDia));
}

}  // namespace
}  // namespace kv::prueba
