#include "rules/clsClientes_Cadenas_ConvArt.h"
#include "tests/comun/ConGuion.h"

namespace kv::prueba {
namespace {

const Fecha kSiempre = Fecha::DeAmd(2050, 12, 31);

Currency C(double valor) {
    return Currency::DeDouble(valor);
}

struct Dto {
    int tipo = 0;
    double importe = 0, cantidad = 0;
    bool cascada = false;
    Valor desde = Fecha::DeAmd(1900, 1, 1), hasta = kSiempre;
};

struct Nodo {
    Valor dtoPadre = false;
    std::vector<Dto> dtos = {};
    double base = 0;
    bool abierto = false;  // its agreement has no last day
};

const auto kColumnas = Palabras(
    "FechaEntrada FechaSalida PBase Dto_Padre Cod_Nivel1 Cod_Nivel2 Cod_Nivel3 Cod_Nivel4 Cod_Nivel5 Cod_Nivel6"
    " Cod_Nivel7 Cod_Nivel8 Cod_Nivel9 Cod_Nivel10 TDto1 ImporteDto1 CantidadDto1 Aplicar_Cascada1 FechaEntrada1"
    " FechaSalida1 TDto2 ImporteDto2 CantidadDto2 Aplicar_Cascada2 FechaEntrada2 FechaSalida2 TDto3 ImporteDto3"
    " CantidadDto3 Aplicar_Cascada3 FechaEntrada3 FechaSalida3 TDto4 ImporteDto4 CantidadDto4 Aplicar_Cascada4"
    " FechaEntrada4 FechaSalida4 TDto5 ImporteDto5 CantidadDto5 Aplicar_Cascada5 FechaEntrada5 FechaSalida5");

// The row is that of the node 1.2.
ConexionGuion::Fila Fila(Nodo nodo) {
    ConexionGuion::Fila fila = {Fecha::DeAmd(2025, 1, 1), kSiempre, nodo.base, nodo.dtoPadre, 1, 2};
    fila.resize(14, 0);
    nodo.dtos.resize(5);
    for (const Dto& d : nodo.dtos)
        fila.insert(fila.end(), {d.tipo, d.importe, d.cantidad, d.cascada, d.desde, d.hasta});
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
            if (nodo.abierto) guion->EsperaConsulta(Texto(niveles, true));
            guion->EsperaConsulta(Texto(niveles, !nodo.abierto), kColumnas, {Fila(nodo)});
            niveles[1] = 0;
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
        double neto;
        double base = 100;
    } kCasos[] = {
        // 100 - 10 = 90; - 5 = 85; - 8.5 = 76.5; - 10 = 66.5
        {"las clases", {{true, {{0, 10, 0, true}, {0, 10}}, 0, true}, {true, {{0, 10, 0, true}, {1, 5}}}}, 66.5},
        {"Dto_Padre nulo no detiene", {{Nulo{}, {{1, 1}}}, {false, {{1, 2}}}}, 97},
        {"primer y último día", {{false, {{1, 1, 0, false, dia, dia}}}}, 99},
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
        EXPECT_EQ(C(caso.neto), objeto.Dev_Neto(dia));
        guion->Terminar();
    }
    Esperar({{false, {{2, 2, -2}}}});
    EsperarError(kErrDivisionPorCero, "", [&] { objeto.Dev_Neto(dia); });
    objeto.PrecioBase = C(900000000000);
    Esperar({{false, {{0, 5000}}}});
    EsperarError(kErrDesbordamiento, "KVDatosArt", [&] { objeto.Dev_Neto(dia); });
}

TEST_F(Cadenas, PrecioBase_ElPrimerNodoQueLoTiene) {
    std::string camino;
    Fecha entrada;
    Valor salida;
    Esperar({{false}, {false, {}, 9.5, true}});
    const auto base = [&] { return objeto.Devuelve_PBase(camino, entrada, salida, dia); };
    EXPECT_EQ(C(9.5), Hacer(objeto, "clsClientes_Cadenas_ConvArt::Dev_PBase", base));
    EXPECT_EQ("001 002", camino);
    EXPECT_EQ(Fecha::DeAmd(2025, 1, 1), entrada);
    EXPECT_EQ(Valor(kSiempre), salida);
    Esperar({{false, {}, 3}});
    EXPECT_EQ(C(3), base());
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
    guion->EsperaConsulta(Texto({1, 2}, true));
    guion->EsperaConsulta(Texto({1, 2}, false));
    guion->EsperaConsulta(Texto({1}, true), kColumnas, {Fila({false, {}, 9.5})});
    std::string camino;
    Fecha entrada;
    Valor salida;
    objeto.Devuelve_PBase(camino, entrada, salida, dia);
    EXPECT_EQ("base 1.2 0|base 1.0 01/01/2025-31/12/2050 9.5|", oyente.oido);
    oyente.oido.clear();
    Esperar({{true, {{7, 30}, {2, 2, 1}}}, {true, {{1, 5}}}});
    objeto.Dev_Neto(dia);
    EXPECT_EQ(
        "dtos 1.2 01/01/2025-31/12/2050 2|dtos 1.0 01/01/2025-31/12/2050 1|dto 1 100 95|dto 7 95 95|dto 2 95 63.33|",
        oyente.oido);
}

TEST_F(Cadenas, TextoTotal_CadaClase) {
    empresa->decPrecios = 3;
    Esperar({{false, {{0, 7.125}, {1, 1.5}, {2, 5, 1}, {9, 1}}}});
    EXPECT_EQ("PB: 100  DTOS: 7,13% E1,500 M5,1", objeto.Dev_CadenaConvenio_Total(dia));
    Esperar({{false, {{9, 1}}}});
    const auto texto = [&] { return objeto.Dev_CadenaConvenio_Total(dia); };
    EXPECT_EQ("PB: 100  DTOS:", Hacer(objeto, "clsClientes_Cadenas_ConvArt::Dev_Descuentos", texto));
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
    const auto texto = [&] { return objeto.Dev_CadenaConvenio_Nivel(dia); };
    EXPECT_EQ("", Hacer(objeto, "clsClientes_Cadenas_ConvArt::Dev_CadenaConvenio_Nivel", texto));
    EXPECT_EQ(Fecha(), objeto.FechaSalida);
    guion->EsperaConsulta(conFinal);
    guion->EsperaConsulta(sinFinal, kColumnas, {Fila({false, {{0, 7.5}, {1, 1.25}, {2, 2, 1}}})});
    EXPECT_EQ("DTOS: 7,50% E1,25 M2,1  NADS", texto());
    EXPECT_EQ(kSiempre, objeto.FechaSalida);
    guion->EsperaConsulta(conFinal, kColumnas, {Fila({Nulo{}, {{9, 1}, {0, 2}}})});
    EXPECT_EQ("2,00%", texto());
}

// Says one decimal more each time.
struct EmpresaQueCambia : EmpresaFija {
    mutable std::int16_t decimales = 0;
    std::int16_t DecPrecios() const override { return ++decimales; }
};

TEST_F(Cadenas, TextoTotal_PideLosDecimalesCadaVez) {
    objeto.cEmpresa(std::make_shared<EmpresaQueCambia>());
    Esperar({{false, {{1, 1.2345}}}});
    EXPECT_EQ("PB: 100  DTOS: E1,20", objeto.Dev_CadenaConvenio_Total(dia));
}

// What is loaded is inserted; what is then set is updated.
TEST_F(Cadenas, Mantenimiento_CadaNivelYCasillaEnSuSitio) {
    DiezNiveles();
    guion->EsperaConsulta(Texto(kDiez, true), kColumnas, {Fila({false, {{1, 1}}})});
    EXPECT_EQ(C(99),
              Hacer(objeto, "clsClientes_Cadenas_ConvArt::Dev_Descuentos", [&] { return objeto.Dev_Neto(dia); }));
    const std::string clave = " WHERE Cod_Empresa =1" + Condicion(kDiez) + " AND Cod_Articulo =1042";
    const std::string cargar = "SELECT * FROM Clientes_Cadenas_ConvArt" + clave + " AND FechaEntrada ='05/03/2026'";
    const auto leer = [&](std::vector<ConexionGuion::Fila> filas) {
        objeto.FechaEntrada = dia;
        guion->EsperaConsulta(cargar, kColumnas, std::move(filas));
        EXPECT_FALSE(Hacer(objeto, "KVDatosArt", [&] { return objeto.Cargar(); }));
    };
    Nodo nodo = {true};
    for (int i = 0; i < 5; ++i) nodo.dtos.push_back({20 + i, 30.5 + i, 40.5 + i, i % 3 == 1, dia + i, dia + 10 + i});
    leer({Fila(nodo)});
    leer({});
    objeto.Nivel = 2;
    guion->EsperaEjecucion(
        "INSERT INTO Clientes_Cadenas_ConvArt (Cod_Empresa, Cod_Articulo, Cod_Nivel1, Cod_Nivel2, Cod_Nivel3,"
        " Cod_Nivel4, Cod_Nivel5, Cod_Nivel6, Cod_Nivel7, Cod_Nivel8, Cod_Nivel9, Cod_Nivel10,"
        " TDto1, ImporteDto1, CantidadDto1, Aplicar_Cascada1, TDto2, ImporteDto2, CantidadDto2, Aplicar_Cascada2,"
        " TDto3, ImporteDto3, CantidadDto3, Aplicar_Cascada3, TDto4, ImporteDto4, CantidadDto4, Aplicar_Cascada4,"
        " TDto5, ImporteDto5, CantidadDto5, Aplicar_Cascada5, Dto_Padre, Nivel, Enviado) VALUES (1, 1042, 1, 2, 3, 4,"
        " 5, 6, 7, 8, 9, 10, 20, 30.5, 40, 0, 21, 31.5, 42, -1, 22, 32.5, 42, 0, 23, 33.5, 44, 0, 24, 34.5, 44, -1,"
        " -1, 2, 0)");
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
    EsperarError(kErrDesbordamiento, "", [&] { leer({Fila(nodo)}); });
    for (const std::int16_t mala : {std::int16_t{-1}, std::int16_t{5}}) {
        EsperarError(kErrSubindice, "", [&] { (void)objeto.TipoDto(mala); });
        EsperarError(kErrSubindice, "", [&] { objeto.ImporteDto(mala, Currency()); });
    }
}

}  // namespace
}  // namespace kv::prueba
