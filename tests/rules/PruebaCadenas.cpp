#include "rules/clsClientes_Cadenas_ConvArt.h"
#include "tests/comun/ConGuion.h"

namespace kv::prueba {
namespace {

const Fecha kDia = Fecha::DeAmd(2026, 3, 5);
const Fecha kSiempre = Fecha::DeAmd(2050, 12, 31);

Currency C(double valor) {
    return Currency::DeDouble(valor);
}

struct Dto {
    int tipo;
    double importe;
    double cantidad = 0;
    bool cascada = false;
    Valor desde = Fecha::DeAmd(1900, 1, 1);
    Valor hasta = kSiempre;
};

struct Nodo {
    Valor dtoPadre = false;
    std::vector<Dto> dtos = {};
    double base = 0;
    bool abierto = false;  // its agreement has no last day
    bool hay = true;
};
const Nodo kSinAcuerdo = {.hay = false};

std::vector<std::string> Columnas() {
    std::vector<std::string> columnas = {"FechaEntrada", "FechaSalida", "PBase", "Dto_Padre"};
    for (int i = 1; i <= 10; ++i) columnas.push_back("Cod_Nivel" + std::to_string(i));
    for (int i = 1; i <= 5; ++i)
        for (const char* campo :
             {"TDto", "ImporteDto", "CantidadDto", "Aplicar_Cascada", "FechaEntrada", "FechaSalida"})
            columnas.push_back(campo + std::to_string(i));
    return columnas;
}

// The row is that of the node 1.2.
ConexionGuion::Fila Fila(const Nodo& nodo) {
    ConexionGuion::Fila fila = {Fecha::DeAmd(2025, 1, 1), kSiempre,       C(nodo.base), nodo.dtoPadre,
                                std::int16_t{1},          std::int16_t{2}};
    fila.resize(14, std::int16_t{0});
    for (std::size_t i = 0; i < 5; ++i) {
        const Dto d = i < nodo.dtos.size() ? nodo.dtos[i] : Dto{0, 0};
        fila.insert(fila.end(),
                    {static_cast<std::int16_t>(d.tipo), C(d.importe), C(d.cantidad), d.cascada, d.desde, d.hasta});
    }
    return fila;
}

using Niveles = std::array<int, 10>;
constexpr Niveles kDiez = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};

std::string Condicion(const Niveles& niveles) {
    std::string sql;
    for (std::size_t i = 0; i < niveles.size(); ++i)
        sql += " AND Cod_Nivel" + std::to_string(i + 1) + " =" + std::to_string(niveles[i]);
    return sql;
}

std::string Texto(const Niveles& niveles, bool conFinal) {
    return "SELECT TOP 1 a.* FROM Clientes_Cadenas_ConvArt a WHERE a.Cod_Empresa = 1 AND a.Cod_Articulo = 1042" +
           Condicion(niveles) + " AND a.FechaEntrada <='05/03/2026' AND a.FechaSalida >='05/03/2026'" +
           (conFinal ? " AND a.FechaSalida < '31/12/2050'" : "") + " ORDER BY a.FechaEntrada DESC";
}

class Cadenas : public ConGuion<clsClientes_Cadenas_ConvArt> {
  protected:
    Cadenas() {
        objeto.Cod_Articulo = 1042;
        objeto.Cod_Nivel1 = 1;
        objeto.Cod_Nivel2 = 2;
        objeto.PrecioBase = C(100);
    }
    void DiezNiveles() {
        std::int16_t nivel = 0;
        for (std::int16_t* codigo :
             {&objeto.Cod_Nivel1, &objeto.Cod_Nivel2, &objeto.Cod_Nivel3, &objeto.Cod_Nivel4, &objeto.Cod_Nivel5,
              &objeto.Cod_Nivel6, &objeto.Cod_Nivel7, &objeto.Cod_Nivel8, &objeto.Cod_Nivel9, &objeto.Cod_Nivel10})
            *codigo = ++nivel;
    }
    // The queries of the node 1.2 and of its parent, as far as the list goes.
    void Esperar(const std::vector<Nodo>& nodos) {
        Niveles niveles = {1, 2};
        for (const Nodo& nodo : nodos) {
            if (nodo.abierto || !nodo.hay) guion->EsperaConsulta(Texto(niveles, true));
            auto& paso = guion->EsperaConsulta(Texto(niveles, !nodo.abierto && nodo.hay), Columnas());
            if (nodo.hay) paso.filas = {Fila(nodo)};
            niveles[1] = 0;
        }
    }
};

TEST_F(Cadenas, SinCadena_NoPreguntaNada) {
    objeto.Cod_Nivel1 = 0;
    objeto.PrecioBase = C(10.005);
    EXPECT_EQ(C(10.01), objeto.Dev_Neto(kDia));
    EXPECT_EQ("PB: 10,01", objeto.Dev_CadenaConvenio_Total(kDia));
    std::string camino = "igual";
    Fecha entrada;
    Valor salida;
    EXPECT_EQ(Currency(), objeto.Devuelve_PBase(camino, entrada, salida, kDia));
    EXPECT_EQ("igual", camino);
}

TEST_F(Cadenas, Neto_DeArribaAbajoYDentroDelNodoDel1Al5) {
    const Fecha antes = kDia + -1;
    const Fecha despues = kDia + 1;
    const struct {
        const char* nombre;
        std::vector<Nodo> nodos;
        double neto;
        double base = 100;
    } kCasos[] = {
        // 100 - 10 = 90; - 5 = 85; - 8.5 = 76.5; - 10 = 66.5
        {"en cascada y sobre la base",
         {{true, {{0, 10, 0, true}, {0, 10}}, 0, true}, {true, {{0, 10, 0, true}, {1, 5}}}},
         66.5},
        {"Dto_Padre falso detiene", {{false, {{1, 1}}}}, 99},
        {"Dto_Padre nulo no detiene", {{Nulo{}, {{1, 1}}}, {false, {{1, 2}}}}, 97},
        {"nodo sin acuerdo", {kSinAcuerdo, {false, {{1, 2}}, 0, true}}, 98},
        {"primer y último día", {{false, {{1, 1, 0, false, kDia, kDia}}}}, 99},
        {"aún no", {{false, {{1, 1, 0, false, despues, kSiempre}}}}, 100},
        {"ya no", {{false, {{1, 1, 0, false, antes, antes}}}}, 100},
        {"importe 0", {{false, {{2, 0, -2}}}}, 100},
        {"importe negativo", {{false, {{1, -1}}}}, 101},
        {"entrada nula", {{false, {{1, 1, 0, false, Nulo{}, kSiempre}}}}, 100},
        {"salida nula", {{false, {{1, 1, 0, false, antes, Nulo{}}}}}, 100},
        {"clase desconocida", {{false, {{7, 1}}}}, 100},
        // 19.99 - 1.50 = 18.49; - 1.39 = 17.10; x 2 / 3 = 11.40
        {"redondeo en cada paso", {{false, {{0, 7.5, 0, true}, {0, 7.5, 0, true}, {2, 2, 1}}}}, 11.4, 19.99},
        {"centésimas", {{false, {{0, 10, 0, true}, {0, 10, 0, true}, {0, 10, 0, true}}}}, 0.76, 1.05},
        {"bajo cero", {{false, {{1, 50}}}}, -20, 30},
    };
    for (const auto& caso : kCasos) {
        SCOPED_TRACE(caso.nombre);
        objeto.PrecioBase = C(caso.base);
        Esperar(caso.nodos);
        EXPECT_EQ(C(caso.neto), objeto.Dev_Neto(kDia));
        guion->Terminar();
    }
    Esperar({{false, {{2, 2, -2}}}});
    EsperarError(kErrDivisionPorCero, "", [&] { objeto.Dev_Neto(kDia); });
    objeto.PrecioBase = C(900000000000);
    Esperar({{false, {{0, 5000}}}});
    EsperarError(kErrDesbordamiento, "KVDatosArt", [&] { objeto.Dev_Neto(kDia); });
}

TEST_F(Cadenas, PrecioBase_ElPrimerNodoQueLoTiene) {
    std::string camino;
    Fecha entrada;
    Valor salida;
    Esperar({{false}, {false, {}, 9.5, true}});
    EXPECT_EQ(C(9.5), objeto.Devuelve_PBase(camino, entrada, salida, kDia));
    EXPECT_EQ("001 002", camino);
    EXPECT_EQ(Fecha::DeAmd(2025, 1, 1), entrada);
    EXPECT_EQ(Valor(kSiempre), salida);
    Esperar({{false, {}, 3}});
    EXPECT_EQ(C(3), objeto.Devuelve_PBase(camino, entrada, salida, kDia));
}

TEST_F(Cadenas, TextoTotal_CadaClase) {
    empresa->decPrecios = 3;
    Esperar({{false, {{0, 7.125}, {1, 1.5}, {2, 5, 1}, {9, 1}}}});
    EXPECT_EQ("PB: 100  DTOS: 7,13% E1,500 M5,1", objeto.Dev_CadenaConvenio_Total(kDia));
    Esperar({{false, {{9, 1}}}});
    EXPECT_EQ("PB: 100  DTOS:", objeto.Dev_CadenaConvenio_Total(kDia));
}

TEST_F(Cadenas, TextoDelNodo_ConSusBlancosYSuRareza) {
    DiezNiveles();
    empresa->decPrecios = 3;
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
    EXPECT_EQ("", objeto.Dev_CadenaConvenio_Nivel(kDia));
    EXPECT_EQ(Fecha(), objeto.FechaSalida);
    guion->EsperaConsulta(conFinal);
    guion->EsperaConsulta(sinFinal, Columnas(), {Fila({false, {{0, 7.5}, {1, 1.25}, {2, 2, 1}}})});
    EXPECT_EQ("DTOS: 7,50% E1,25 M2,1  NADS", objeto.Dev_CadenaConvenio_Nivel(kDia));
    EXPECT_EQ(kSiempre, objeto.FechaSalida);
    guion->EsperaConsulta(conFinal, Columnas(), {Fila({Nulo{}, {{9, 1}, {0, 2}}})});
    EXPECT_EQ("2,00%", objeto.Dev_CadenaConvenio_Nivel(kDia));
}

TEST_F(Cadenas, Escrituras_CadaNivelYCasillaEnSuSitio) {
    DiezNiveles();
    guion->EsperaConsulta(Texto(kDiez, true), Columnas(), {Fila({false, {{1, 1}}})});
    EXPECT_EQ(C(99), objeto.Dev_Neto(kDia));
    objeto.DtoPadre = true;
    objeto.Nivel = 2;
    for (std::int16_t i = 0; i < 5; ++i) {
        objeto.TipoDto(i, static_cast<std::int16_t>(20 + i));
        objeto.ImporteDto(i, C(30.5 + i));
        objeto.UnidadesDto(i, static_cast<std::int16_t>(40 + i));
        objeto.AplicarCascada(i, i == 1 || i == 4);
    }
    guion->EsperaEjecucion(
        "INSERT INTO Clientes_Cadenas_ConvArt (Cod_Empresa, Cod_Articulo, Cod_Nivel1, Cod_Nivel2, Cod_Nivel3,"
        " Cod_Nivel4, Cod_Nivel5, Cod_Nivel6, Cod_Nivel7, Cod_Nivel8, Cod_Nivel9, Cod_Nivel10,"
        " TDto1, ImporteDto1, CantidadDto1, Aplicar_Cascada1, TDto2, ImporteDto2, CantidadDto2, Aplicar_Cascada2,"
        " TDto3, ImporteDto3, CantidadDto3, Aplicar_Cascada3, TDto4, ImporteDto4, CantidadDto4, Aplicar_Cascada4,"
        " TDto5, ImporteDto5, CantidadDto5, Aplicar_Cascada5, Dto_Padre, Nivel, Enviado) VALUES (1, 1042, 1, 2, 3, 4,"
        " 5, 6, 7, 8, 9, 10, 20, 30.5, 40, 0, 21, 31.5, 41, -1, 22, 32.5, 42, 0, 23, 33.5, 43, 0, 24, 34.5, 44, -1,"
        " -1, 2, 0)");
    const std::string clave = " WHERE Cod_Empresa =1" + Condicion(kDiez) + " AND Cod_Articulo =1042";
    guion->EsperaEjecucion(
        "UPDATE Clientes_Cadenas_ConvArt SET TDto1=20, TDto2=21, TDto3=22, TDto4=23, TDto5=24, ImporteDto1=30.5,"
        " ImporteDto2=31.5, ImporteDto3=32.5, ImporteDto4=33.5, ImporteDto5=34.5, CantidadDto1=40, CantidadDto2=41,"
        " CantidadDto3=42, CantidadDto4=43, CantidadDto5=44, Aplicar_Cascada1=0, Aplicar_Cascada2=-1,"
        " Aplicar_Cascada3=0, Aplicar_Cascada4=0, Aplicar_Cascada5=-1, Dto_Padre=-1, Enviado = 0" +
        clave);
    guion->EsperaEjecucion("DELETE FROM Clientes_Cadenas_ConvArt" + clave);
    objeto.Insertar();
    objeto.Modificar();
    objeto.Eliminar();
}

TEST_F(Cadenas, Cargar_SiempreDevuelveFalsoYConvierteLasUnidades) {
    DiezNiveles();
    objeto.UnidadesDto(4, 40);
    objeto.FechaEntrada = kDia;
    const std::string sql = "SELECT * FROM Clientes_Cadenas_ConvArt WHERE Cod_Empresa =1" + Condicion(kDiez) +
                            " AND Cod_Articulo =1042 AND FechaEntrada ='05/03/2026'";
    guion->EsperaConsulta(sql);
    EXPECT_FALSE(objeto.Cargar());
    EXPECT_EQ(40, objeto.UnidadesDto(4));
    auto fila = Fila({true, {{1, 2}, {}, {}, {}, {3, 5, 2.5, true, kDia, kDia + 1}}});
    guion->EsperaConsulta(sql, Columnas(), {fila});
    EXPECT_FALSE(objeto.Cargar());
    EXPECT_TRUE(objeto.DtoPadre);
    EXPECT_EQ(3, objeto.TipoDto(4));
    EXPECT_EQ(C(5), objeto.ImporteDto(4));
    EXPECT_EQ(2, objeto.UnidadesDto(4));
    EXPECT_TRUE(objeto.AplicarCascada(4));
    EXPECT_EQ(kDia, objeto.FechaDtoI(4));
    EXPECT_EQ(kDia + 1, objeto.FechaDtoF(4));
    EXPECT_EQ(kSiempre, objeto.FechaDtoF(0));
    fila[16] = C(40000);
    objeto.FechaEntrada = kDia;
    guion->EsperaConsulta(sql, Columnas(), {fila});
    EsperarError(kErrDesbordamiento, "", [&] { objeto.Cargar(); });
    for (const std::int16_t mala : {std::int16_t{-1}, std::int16_t{5}}) {
        EsperarError(kErrSubindice, "", [&] { (void)objeto.TipoDto(mala); });
        EsperarError(kErrSubindice, "", [&] { objeto.ImporteDto(mala, Currency()); });
    }
}

}  // namespace
}  // namespace kv::prueba
