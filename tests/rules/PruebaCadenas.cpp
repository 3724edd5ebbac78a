#include "kvdatosart/rules/clsClientes_Cadenas_ConvArt.h"
#include "kvdatosart/tests/comun/ConGuion.h"

namespace kv::prueba {
namespace {

const Fecha kSiempre = Fecha::DeAmd(2050, 12, 31);

Currency C(double valor) {
    return Currency::DeDouble(valor);
}

struct Dto {
    int tipo = 0;
    Valor importe = 0;
    double cantidad = 0;
    bool cascada = false;
    Valor desde = Fecha::DeAmd(1900, 1, 1), hasta = kSiempre;
};

// What is found of a node: an agreement with a last day, one without, none.
enum class Hay : std::uint8_t { ConFinal, SinFinal, Nada };

struct Nodo {
    Valor dtoPadre = false;
    std::vector<Dto> dtos = {};
    double base = 0;
    Hay hay = Hay::ConFinal;
    Valor salida = kSiempre;
};

using Niveles = std::array<int, 10>;
constexpr Niveles kDiez = {11, 12, 13, 14, 15, 16, 17, 18, 19, 20};

const auto kColumnas = Palabras(
    "Cod_Nivel1 Cod_Nivel2 Cod_Nivel3 Cod_Nivel4 Cod_Nivel5 Cod_Nivel6 Cod_Nivel7 Cod_Nivel8 Cod_Nivel9 Cod_Nivel10"
    " FechaEntrada FechaSalida PBase Dto_Padre TDto1 ImporteDto1 CantidadDto1 Aplicar_Cascada1 FechaEntrada1"
    " FechaSalida1 TDto2 ImporteDto2 CantidadDto2 Aplicar_Cascada2 FechaEntrada2 FechaSalida2 TDto3 ImporteDto3"
    " CantidadDto3 Aplicar_Cascada3 FechaEntrada3 FechaSalida3 TDto4 ImporteDto4 CantidadDto4 Aplicar_Cascada4"
    " FechaEntrada4 FechaSalida4 TDto5 ImporteDto5 CantidadDto5 Aplicar_Cascada5 FechaEntrada5 FechaSalida5");

// A node's first day tells its last level.
ConexionGuion::Fila Fila(Nodo nodo, const Niveles& niveles) {
    ConexionGuion::Fila fila(niveles.begin(), niveles.end());
    fila.insert(fila.end(), {Fecha::DeAmd(2025, 1, 1) + niveles[1], nodo.salida, nodo.base, nodo.dtoPadre});
    nodo.dtos.resize(5);
    for (const Dto& d : nodo.dtos)
        fila.insert(fila.end(), {d.tipo, d.importe, d.cantidad, d.cascada, d.desde, d.hasta});
    return fila;
}

std::string Condicion(const Niveles& niveles) {
    std::string sql;
    for (std::size_t i = 0; i < niveles.size(); ++i)
        sql += " AND Cod_Nivel" + std::to_string(i + 1) + " =" + std::to_string(niveles[i]);
    return sql;
}

std::string Texto(const Niveles& niveles, bool conFinal) {
    return "SELECT TOP 1 a.* FROM Clientes_Cadenas_ConvArt a WHERE a.Cod_Empresa = 1 AND a.Cod_Articulo = 1042" +
           Condicion(niveles) + " AND a.FechaEntrada <='d05/03/2026' AND a.FechaSalida >='d05/03/2026'" +
           (conFinal ? " AND a.FechaSalida < '31/12/2050'" : "") + " ORDER BY a.FechaEntrada DESC";
}

class Cadenas : public ConGuion<clsClientes_Cadenas_ConvArt> {
  protected:
    Cadenas() {
        objeto.Cod_Articulo = 1042;
        Situar({11, 12});
        objeto.PrecioBase = C(100);
    }
    void Situar(const Niveles& niveles) {
        auto nivel = niveles.begin();
        for (std::int16_t* codigo :
             {&objeto.Cod_Nivel1, &objeto.Cod_Nivel2, &objeto.Cod_Nivel3, &objeto.Cod_Nivel4, &objeto.Cod_Nivel5,
              &objeto.Cod_Nivel6, &objeto.Cod_Nivel7, &objeto.Cod_Nivel8, &objeto.Cod_Nivel9, &objeto.Cod_Nivel10})
            *codigo = static_cast<std::int16_t>(*nivel++);
    }
    // The queries of a node and of those above it, as far as the list goes; the one of a level that is 0 comes twice.
    void Esperar(const std::vector<Nodo>& nodos, Niveles niveles = {11, 12}, std::size_t masProfundo = 1) {
        for (const Nodo& nodo : nodos) {
            const std::vector<ConexionGuion::Fila> filas = {Fila(nodo, niveles)};
            if (nodo.hay != Hay::ConFinal) guion->EsperaConsulta(Texto(niveles, true));
            if (nodo.hay == Hay::Nada)
                guion->EsperaConsulta(Texto(niveles, false));
            else
                guion->EsperaConsulta(Texto(niveles, nodo.hay == Hay::ConFinal), kColumnas, filas);
            niveles[masProfundo--] = 0;
        }
    }
};

TEST_F(Cadenas, SinCadena_NoPreguntaNada) {
    objeto.Cod_Nivel1 = 0;
    objeto.PrecioBase = C(10.005);
    EXPECT_EQ(C(10.01), objeto.Dev_Neto(dia));
    EXPECT_EQ("PB: 10,01", objeto.Dev_CadenaConvenio_Total(dia));
    std::string camino = "igual";
    Fecha entrada;
    Valor salida;
    EXPECT_EQ(Currency(), objeto.Devuelve_PBase(camino, entrada, salida, dia));
    EXPECT_EQ("igual", camino);
}

TEST_F(Cadenas, Neto_DeArribaAbajoYDentroDelNodoDel1Al5) {
    const Fecha antes = dia + -1;
    const Fecha despues = dia + 1;
    const struct {
        const char* nombre;
        std::vector<Nodo> nodos;
        double neto, base = 100;
        std::int16_t decimales = 2;
    } kCasos[] = {
        // 100 - 10 = 90; - 5 = 85; - 8.5 = 76.5; - 10 = 66.5
        {"las clases",
         {{true, {{0, 10, 0, true}, {0, 10}}, 0, Hay::SinFinal}, {true, {{0, 10, 0, true}, {1, 5}}}},
         66.5},
        {"Dto_Padre nulo no detiene", {{Nulo{}, {{1, 1}}}, {false, {{1, 2}}}}, 97},
        {"primer y último día", {{false, {{1, 1, 0, false, dia, dia}}}}, 99},
        {"aún no", {{false, {{1, 1, 0, false, despues, kSiempre}}}}, 100},
        {"ya no", {{false, {{1, 1, 0, false, antes, antes}}}}, 100},
        {"importe 0", {{false, {{2, 0, -2}}}}, 100},
        {"importe nulo", {{false, {{1, Nulo{}}}}}, 100},
        {"importe negativo", {{false, {{1, -1}}}}, 101},
        {"entrada nula", {{false, {{1, 1, 0, false, Nulo{}, kSiempre}}}}, 100},
        {"salida nula", {{false, {{1, 1, 0, false, antes, Nulo{}}}}}, 100},
        {"clase desconocida", {{false, {{7, 1}}}}, 100},
        // 19.99 - 1.50 = 18.49; - 1.39 = 17.10; x 2 / 3 = 11.40
        {"redondeo en cada paso", {{false, {{0, 7.5, 0, true}, {0, 7.5, 0, true}, {2, 2, 1}}}}, 11.4, 19.99},
        {"centésimas", {{false, {{0, 10, 0, true}, {0, 10, 0, true}, {0, 10, 0, true}}}}, 0.76, 1.05},
        {"importes", {{false, {{1, 1.235}, {1, 1.235}}}}, 7.52, 10},
        {"ofertas", {{false, {{2, 2, 1}, {2, 2, 1}}}}, 4.45, 10},
        {"bajo cero", {{false, {{1, 50}}}}, -20, 30},
        // 19.99 - 1.499 = 18.491; - 1.387 = 17.104; - 0
        {"tres decimales", {{false, {{0, 7.5, 0, true}, {0, 7.5, 0, true}, {1, 0.0004}}}}, 17.104, 19.99, 3},
        {"base de cuatro", {{false, {{1, 1}}}}, 9.235, 10.2345, 3},
    };
    for (const auto& caso : kCasos) {
        SCOPED_TRACE(caso.nombre);
        objeto.PrecioBase = C(caso.base);
        empresa->decPrecios = caso.decimales;
        Esperar(caso.nodos);
        EXPECT_EQ(C(caso.neto), objeto.Dev_Neto(dia));
        guion->Terminar();
    }
    objeto.PrecioBase = C(100);
    Situar({11, 0, 13});
    Esperar({{true, {{1, 4}}}, {true, {{1, 2}}}, {true, {{1, 1}}}}, {11, 0, 13}, 2);
    EXPECT_EQ(C(93), objeto.Dev_Neto(dia)) << "el nodo 11 se visita dos veces";
    biblioteca.masAlRedondear = C(10);
    Situar({11, 12});
    Esperar({{false, {{0, 10}}}});
    EXPECT_EQ(C(90), objeto.Dev_Neto(dia)) << "redondea la rutina común";
    Esperar({{false, {{2, 2, -2}}}});
    EsperarError(kErrDivisionPorCero, "", [&] { objeto.Dev_Neto(dia); });
    objeto.PrecioBase = C(900000000000);
    Esperar({{false, {{0, 5000}}}});
    EsperarError(kErrDesbordamiento, "KVDatosArt", [&] { objeto.Dev_Neto(dia); });
}

// Path and days are those of the last agreement that was found, with a base price or without.
TEST_F(Cadenas, PrecioBase_ElPrimerNodoQueLoTiene) {
    const auto base = [&](double precio, const char* camino, int ultimoNivel, const Valor& salida) {
        std::string camino_;
        Fecha entrada;
        Valor salida_ = hoy;
        EXPECT_EQ(C(precio), Hacer(objeto, "clsClientes_Cadenas_ConvArt::Dev_PBase",
                                   [&] { return objeto.Devuelve_PBase(camino_, entrada, salida_, dia); }));
        EXPECT_EQ(camino, camino_);
        EXPECT_EQ(Fecha::DeAmd(2025, 1, 1) + ultimoNivel, entrada);
        EXPECT_EQ(salida, salida_);
    };
    Esperar({{false, {}, 0, Hay::ConFinal, dia}, {false, {}, 9.5, Hay::SinFinal}});
    base(9.5, "011", 0, kSiempre);
    Esperar({{false, {}, 3}});
    base(3, "011 012", 12, kSiempre);
    Esperar({{false, {}, 0, Hay::ConFinal, Nulo{}}, {false, {}, 8, Hay::Nada}});
    base(0, "011 012", 12, Nulo{});
    guion->EsperaConsulta(Texto({11, 12}, true), kColumnas, {Fila({false, {}, 7}, {-5, 1234, 0, 7})});
    base(7, "-005 1234 007", 1234, kSiempre);
}

// What a listener hears: the days of the agreement that was found, and each discount, one of an unknown kind too.
class Oyente : public ObservadorCadena {
  public:
    std::string oido;
    void NodoBase(const NivelesCadena& nodo, const DiasAcuerdo* acuerdo, Currency base) override {
        oido += "base" + Nodo(nodo, acuerdo) + base.ATexto('.').Cadena() + "|";
    }
    void NodoDescuentos(const NivelesCadena& nodo, const DiasAcuerdo* acuerdo, int aplicables) override {
        oido += "dtos" + Nodo(nodo, acuerdo) + std::to_string(aplicables) + "|";
    }
    void DescuentoCadena(const DescuentoAplicado& d) override {
        oido += "dto " + std::to_string(d.tipo) + ' ' + d.antes.ATexto('.').Cadena() + ' ' +
                d.despues.ATexto('.').Cadena() + "|";
    }

  private:
    static std::string Nodo(const NivelesCadena& nodo, const DiasAcuerdo* acuerdo) {
        std::string texto = ' ' + std::to_string(nodo[0]) + '.' + std::to_string(nodo[1]);
        if (acuerdo != nullptr)
            texto += ' ' + ADate(acuerdo->entrada).ATexto().Cadena() + '-' + ADate(acuerdo->salida).ATexto().Cadena();
        return texto + ' ';
    }
};

TEST_F(Cadenas, Oyente_LosDiasDelAcuerdoHalladoYCadaDescuento) {
    Oyente oyente;
    objeto.Observador(&oyente);
    Esperar({{false, {}, 8, Hay::Nada}, {false, {}, 9.5}});
    std::string camino;
    Fecha entrada;
    Valor salida;
    objeto.Devuelve_PBase(camino, entrada, salida, dia);
    EXPECT_EQ("base 11.12 0|base 11.0 01/01/2025-31/12/2050 9.5|", oyente.oido);
    oyente.oido.clear();
    Esperar({{true, {{7, 30}, {2, 2, 1}}}, {false, {{1, 5}}}});
    objeto.Dev_Neto(dia);
    EXPECT_EQ(
        "dtos 11.12 13/01/2025-31/12/2050 2|dtos 11.0 01/01/2025-31/12/2050 1|dto 1 100 95|dto 7 95 95|dto 2 95 63.33|",
        oyente.oido);
    oyente.oido.clear();
    Esperar({{false, {}, 0, Hay::Nada}, {false, {{1, 7}}}});
    objeto.Dev_Neto(dia);
    EXPECT_EQ("dtos 11.12 0|dtos 11.0 01/01/2025-31/12/2050 1|dto 1 100 93|", oyente.oido);
}

TEST_F(Cadenas, TextoTotal_CadaClase) {
    empresa->decPrecios = 3;
    objeto.PrecioBase = C(100.1235);
    const auto texto = [&] { return objeto.Dev_CadenaConvenio_Total(dia); };
    Esperar({{false, {{0, 7.125}, {1, 1.2345}, {2, 4.5, 0.5}, {9, 1}}}});
    EXPECT_EQ("PB: 100,124  DTOS: p7,13% Ep1,235 M5,1", texto());
    EXPECT_EQ(3, empresa->vecesDecPrecios) << "se piden cada vez";
    Esperar({{false, {{9, 1}}}});
    EXPECT_EQ("PB: 100,124  DTOS:", Hacer(objeto, "clsClientes_Cadenas_ConvArt::Dev_Descuentos", texto));
    biblioteca.masAlRedondear = C(70);
    Esperar({{false, {{0, 7}, {1, 1}, {2, 4, 3}}}});
    EXPECT_EQ("PB: 170,124  DTOS: p77,00% Ep71,000 M74,73", texto());
}

TEST_F(Cadenas, TextoDelNodo_ConSusBlancosYSuRareza) {
    Situar(kDiez);
    const std::string cabeza =
        "SELECT p.*, a.TipoImpuesto FROM Clientes_Cadenas_ConvArt p INNER JOIN Articulos a ON"
        " (a.codigo = p.Cod_Articulo AND a.Cod_Empresa = 2) WHERE p.Cod_Empresa = 1 AND p.Cod_Articulo = 1042"
        " AND p.Cod_Nivel1 = 11 AND p.Cod_Nivel2 = 12 AND p.Cod_Nivel3= 13 AND p.Cod_Nivel4= 14 AND p.Cod_Nivel5= 15"
        " AND p.Cod_Nivel6= 16 AND p.Cod_Nivel7= 17 AND p.Cod_Nivel8= 18 AND p.Cod_Nivel9= 19 AND p.Cod_Nivel10 = 20"
        " AND p.FechaEntrada <='d05/03/2026' AND p.FechaSalida >='d05/03/2026'";
    const std::string conFinal = cabeza + " AND p.FechaSalida < '31/12/2050' ORDER BY p.FechaEntrada DESC";
    const std::string sinFinal = cabeza + " ORDER BY p.FechaEntrada DESC";
    guion->EsperaConsulta(conFinal);
    guion->EsperaConsulta(sinFinal);
    const auto texto = [&] { return objeto.Dev_CadenaConvenio_Nivel(dia); };
    EXPECT_EQ("", Hacer(objeto, "clsClientes_Cadenas_ConvArt::Dev_CadenaConvenio_Nivel", texto));
    EXPECT_EQ(Fecha(), objeto.FechaSalida);
    guion->EsperaConsulta(conFinal);
    guion->EsperaConsulta(sinFinal, kColumnas, {Fila({false, {{0, 7.125}, {1, 1.25}, {2, 1.5, 0.5}}}, kDiez)});
    EXPECT_EQ("DTOS: p7,13% Ep1,3 M2,1  NADS", texto());
    EXPECT_EQ(Fecha::DeAmd(2025, 1, 1) + 12, objeto.FechaEntrada);
    EXPECT_EQ(kSiempre, objeto.FechaSalida);
    guion->EsperaConsulta(conFinal, kColumnas, {Fila({Nulo{}, {{9, 1}, {0, 2}}}, kDiez)});
    EXPECT_EQ("p2,00%", texto());
    guion->EsperaConsulta(conFinal, kColumnas, {Fila({true, {{0, 0}, {1, 2}, {0, 3}}}, kDiez)});
    EXPECT_EQ("DTOS: Ep2,0 p3,00%", texto());
}

// What is loaded is inserted; what is then set is updated.
TEST_F(Cadenas, Mantenimiento_CadaNivelYCasillaEnSuSitio) {
    Situar(kDiez);
    guion->EsperaConsulta(Texto(kDiez, true), kColumnas, {Fila({false, {{1, 1}}}, kDiez)});
    EXPECT_EQ(C(99),
              Hacer(objeto, "clsClientes_Cadenas_ConvArt::Dev_Descuentos", [&] { return objeto.Dev_Neto(dia); }));
    const std::string clave = " WHERE Cod_Empresa =1" + Condicion(kDiez) + " AND Cod_Articulo =1042";
    const std::string cargar = "SELECT * FROM Clientes_Cadenas_ConvArt" + clave + " AND FechaEntrada ='d05/03/2026'";
    const auto leer = [&](std::vector<ConexionGuion::Fila> filas) {
        objeto.FechaEntrada = dia;
        guion->EsperaConsulta(cargar, kColumnas, std::move(filas));
        EXPECT_FALSE(Hacer(objeto, "KVDatosArt", [&] { return objeto.Cargar(); }));
    };
    Nodo nodo = {true, {}, 9.5, Hay::ConFinal, dia + 90};
    for (int i = 0; i < 5; ++i) nodo.dtos.push_back({20 + i, 30.5 + i, 40.5 + i, i % 3 == 1, dia + i, dia + 10 + i});
    leer({Fila(nodo, kDiez)});
    EXPECT_EQ(Fecha::DeAmd(2025, 1, 1) + 12, objeto.FechaEntrada);
    EXPECT_EQ(dia + 90, objeto.FechaSalida);
    EXPECT_EQ(C(100), objeto.PrecioBase) << "el precio del acuerdo no se lee";
    leer({});
    EXPECT_EQ(dia, objeto.FechaEntrada);
    objeto.Nivel = 6;
    guion->EsperaEjecucion(
        "INSERT INTO Clientes_Cadenas_ConvArt (Cod_Empresa, Cod_Articulo, Cod_Nivel1, Cod_Nivel2, Cod_Nivel3,"
        " Cod_Nivel4, Cod_Nivel5, Cod_Nivel6, Cod_Nivel7, Cod_Nivel8, Cod_Nivel9, Cod_Nivel10,"
        " TDto1, ImporteDto1, CantidadDto1, Aplicar_Cascada1, TDto2, ImporteDto2, CantidadDto2, Aplicar_Cascada2,"
        " TDto3, ImporteDto3, CantidadDto3, Aplicar_Cascada3, TDto4, ImporteDto4, CantidadDto4, Aplicar_Cascada4,"
        " TDto5, ImporteDto5, CantidadDto5, Aplicar_Cascada5, Dto_Padre, Nivel, Enviado) VALUES (1, 1042, 11, 12, 13,"
        " 14, 15, 16, 17, 18, 19, 20, 20, 30.5, 40, 0, 21, 31.5, 42, -1, 22, 32.5, 42, 0, 23, 33.5, 44, 0, 24, 34.5,"
        " 44, -1, -1, 6, 0)");
    Hacer(objeto, "clsClientes_Cadenas_ConvArt::Insertar", [&] { objeto.Insertar(); });
    for (std::int16_t i = 0; i < 5; ++i) {
        EXPECT_EQ(dia + i, objeto.FechaDtoI(i));
        EXPECT_EQ(dia + 10 + i, objeto.FechaDtoF(i));
        objeto.TipoDto(i, static_cast<std::int16_t>(objeto.TipoDto(i) - 10));
        objeto.ImporteDto(i, objeto.ImporteDto(i) - C(10));
        objeto.UnidadesDto(i, static_cast<std::int16_t>(objeto.UnidadesDto(i) + i));
        objeto.AplicarCascada(i, !objeto.AplicarCascada(i));
    }
    objeto.DtoPadre = false;
    guion->EsperaEjecucion(
        "UPDATE Clientes_Cadenas_ConvArt SET TDto1=10, TDto2=11, TDto3=12, TDto4=13, TDto5=14, ImporteDto1=20.5,"
        " ImporteDto2=21.5, ImporteDto3=22.5, ImporteDto4=23.5, ImporteDto5=24.5, CantidadDto1=40, CantidadDto2=43,"
        " CantidadDto3=44, CantidadDto4=47, CantidadDto5=48, Aplicar_Cascada1=-1, Aplicar_Cascada2=0,"
        " Aplicar_Cascada3=-1, Aplicar_Cascada4=-1, Aplicar_Cascada5=0, Dto_Padre=0, Enviado = 0" +
        clave);
    Hacer(objeto, "clsClientes_Cadenas_ConvArt::Modificar", [&] { objeto.Modificar(); });
    guion->EsperaEjecucion("DELETE FROM Clientes_Cadenas_ConvArt" + clave);
    Hacer(objeto, "clsClientes_Cadenas_ConvArt::Eliminar", [&] { objeto.Eliminar(); });
    nodo.dtos[0].cantidad = 40000;
    EsperarError(kErrDesbordamiento, "", [&] { leer({Fila(nodo, kDiez)}); });
    for (const std::int16_t mala : {std::int16_t{-1}, std::int16_t{5}}) {
        EsperarError(kErrSubindice, "", [&] { (void)objeto.TipoDto(mala); });
        EsperarError(kErrSubindice, "", [&] { objeto.ImporteDto(mala, Currency()); });
    }
}

}  // namespace
}  // namespace kv::prueba
