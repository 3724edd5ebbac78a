#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "base/Currency.h"
#include "base/TextoNumero.h"
#include "tests/comun/Errores.h"

namespace kv::prueba {
namespace {

constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();

Currency C(std::int64_t diezmilesimas) {
    return Currency::DeDiezmilesimas(diezmilesimas);
}

TEST(Currency, DeDouble_RedondeaAlParEnLaCuartaCifra) {
    struct Caso {
        double valor;
        std::int64_t diezmilesimas;
    };
    // Exact ties are multiples of 1/32; other decimals lie to one side of theirs in binary.
    for (const Caso& caso : {Caso{12.03125, 120312},
                             {12.09375, 120938},
                             {-12.03125, -120312},
                             {-12.09375, -120938},
                             {0.00015, 1},
                             {1.00005, 10001},
                             {-1.00005, -10001},
                             {2.5, 25000},
                             {-0.0, 0},
                             {922337203685477.0, 9223372036854770000},
                             {-922337203685477.5, -9223372036854775000},
                             {0x1p-1000, 0}})
        EXPECT_EQ(caso.diezmilesimas, Currency::DeDouble(caso.valor).Diezmilesimas()) << caso.valor;
}

TEST(Currency, FueraDeRango_Error6EnCadaOperacion) {
    const std::function<void()> kCasos[] = {[] { Currency::DeDouble(922337203685478.0); },
                                            [] { Currency::DeDouble(-922337203685478.0); },
                                            // The double nearest to the lowest amount lies below it.
                                            [] { Currency::DeDouble(-922337203685477.5808); },
                                            [] { Currency::DeDouble(std::nan("")); },
                                            [] { Currency::DeDouble(std::numeric_limits<double>::infinity()); },
                                            [] { Currency::DeEntero(922337203685478); },
                                            [] { Currency::DeEntero(-922337203685478); },
                                            [] { Currency::DeTexto("922337203685477.5808"); },
                                            [] { Currency::DeTexto("99999999999999999999999"); },
                                            [] { (void)-C(kMin); },
                                            [] { (void)(C(kMax) + C(1)); },
                                            [] { (void)(C(kMin) + C(-1)); },
                                            [] { (void)(C(kMin) - C(1)); },
                                            [] { (void)(C(kMax) - C(-1)); },
                                            [] { (void)(C(0) - C(kMin)); },
                                            [] { (void)(C(kMax) * C(10001)); },
                                            [] { (void)(C(kMin) * C(-10000)); },
                                            [] { (void)(C(kMax) * C(kMax)); },
                                            [] { (void)C(kMax).RedondearAlejando(3); }};
    int numero = 0;
    for (const auto& caso : kCasos) {
        SCOPED_TRACE(numero++);
        EsperarError(kErrDesbordamiento, "", caso);
    }
}

TEST(Currency, Producto_EsExactoYRedondeaAlPar) {
    struct Caso {
        std::int64_t a;
        std::int64_t b;
        std::int64_t producto;
    };
    for (const Caso& caso : {Caso{25000, 15000, 37500},
                             {1, 5000, 0},  // 0.00005: tie to 0
                             {3, 5000, 2},  // 0.00015: tie to 0.0002
                             {-1, 5000, 0},
                             {-3, 5000, -2},
                             {1, 5001, 1},
                             {kMax, 10000, kMax},
                             {kMin, 10000, kMin},
                             {kMax, -10000, -kMax},
                             {kMin, 5000, kMin / 2},
                             {922337203685477, 99999, 9223279803134401},
                             {123456789012345, 98765, 1219320976680425}})
        EXPECT_EQ(caso.producto, (C(caso.a) * C(caso.b)).Diezmilesimas()) << caso.a << " x " << caso.b;
}

TEST(Currency, RedondearAlejando_AlejaDelCeroEnLosEmpates) {
    struct Caso {
        std::int64_t valor;
        int decimales;
        std::int64_t redondeado;
    };
    for (const Caso& caso : {Caso{10050, 2, 10100},
                             {10049, 2, 10000},
                             {-10050, 2, -10100},
                             {-10049, 2, -10000},
                             {5000, 0, 10000},
                             {-5000, 0, -10000},
                             {4999, 0, 0},
                             {12345, 3, 12350},
                             {12345, 4, 12345},
                             {12345, 9, 12345},
                             {15500, 1, 16000}})
        EXPECT_EQ(caso.redondeado, C(caso.valor).RedondearAlejando(caso.decimales).Diezmilesimas())
            << caso.valor << " a " << caso.decimales;
    EsperarError(kErrLlamadaInvalida, "", [] { (void)C(1).RedondearAlejando(-1); });
}

TEST(Currency, Textos_DeIdaYVuelta) {
    struct Caso {
        std::int64_t valor;
        const char* texto;
        const char* fijo2;
    };
    for (const Caso& caso : {Caso{0, "0", "0,00"},
                             {125000, "12,5", "12,50"},
                             {-1, "-0,0001", "0,00"},
                             {-25000, "-2,5", "-2,50"},
                             {10000, "1", "1,00"},
                             {100, "0,01", "0,01"},
                             {199, "0,0199", "0,01"},
                             {kMax, "922337203685477,5807", "922337203685477,58"},
                             {kMin, "-922337203685477,5808", "-922337203685477,58"}}) {
        EXPECT_EQ(caso.texto, C(caso.valor).ATexto(',').Cadena());
        EXPECT_EQ(caso.fijo2, C(caso.valor).ATextoFijo(2, ','));
        EXPECT_EQ(caso.valor, Currency::DeTexto(caso.texto).Diezmilesimas());
    }
    EXPECT_EQ("12", C(125000).ATextoFijo(0, '.'));
    EXPECT_EQ("12.500000", C(125000).ATextoFijo(6, '.'));
    EXPECT_EQ(12346, Currency::DeTexto(" +1.23455 ").Diezmilesimas());
    EXPECT_EQ(12346, Currency::DeTexto("1.23465").Diezmilesimas());
    EXPECT_EQ(12347, Currency::DeTexto("1.2346500001").Diezmilesimas());
    for (const char* malo : {"", " ", "-", ".", "1,2,3", "1.2.3", "12a", "0x10", "1 2", "--1", "1e3"})
        EsperarError(kErrTipo, "", [&] { Currency::DeTexto(malo); });
}

TEST(TextoDouble, DigitosExponentesYSigno) {
    struct Caso {
        double valor;
        const char* texto;
    };
    for (const Caso& caso : {Caso{0, "0"},
                             {-0.0, "0"},
                             {1, "1"},
                             {-2.5, "-2.5"},
                             {0.1 + 0.2, "0.3"},
                             {1.0 / 3, "0.333333333333333"},
                             {100, "100"},
                             {123456789012345.0, "123456789012345"},
                             {999999999999999.0, "999999999999999"},
                             {1e15, "1E+15"},
                             {1.5e20, "1.5E+20"},
                             {0.0001, "0.0001"},
                             {0.00012345, "0.00012345"},
                             {0.00001, "1E-05"},
                             {1.25e-10, "1.25E-10"},
                             {1e100, "1E+100"},
                             {999999999999999.9, "1E+15"},
                             {1234.5678, "1234.5678"}})
        EXPECT_EQ(caso.texto, TextoDouble(caso.valor, '.').Cadena());
    EXPECT_EQ("-2,5", TextoDouble(-2.5, ',').Cadena());
    EXPECT_EQ("0.1", TextoSingle(0.1F, '.').Cadena());
    EsperarError(kErrDesbordamiento, "", [] { TextoDouble(std::nan(""), '.'); });
    EsperarError(kErrDesbordamiento, "", [] { TextoDouble(-std::numeric_limits<double>::infinity(), '.'); });
}

}  // namespace
}  // namespace kv::prueba
