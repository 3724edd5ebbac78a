#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/TextoNumero.h"
#include "kvdatosart/tests/comun/Errores.h"

namespace kv::prueba {
namespace {

constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();
constexpr double kInfinito = std::numeric_limits<double>::infinity();

const auto C = [](std::int64_t diezmilesimas) { return Currency::DeDiezmilesimas(diezmilesimas); };
const auto DeDouble = [](double valor) { return Currency::DeDouble(valor).Diezmilesimas(); };
const auto DeTexto = [](const char* texto) { return Currency::DeTexto(texto).Diezmilesimas(); };
const auto Producto = [](std::int64_t a, std::int64_t b) { return (C(a) * C(b)).Diezmilesimas(); };
const auto Alejando = [](std::int64_t valor, int k) { return C(valor).RedondearAlejando(k).Diezmilesimas(); };

template <class Caso, class Accion>
void Desborda(const Caso& caso, Accion accion) {
    SCOPED_TRACE(caso);
    EsperarError(kErrDesbordamiento, "", accion);
}

TEST(Currency, Conversiones_RedondeanAlParEnLaCuartaCifra) {
    // Exact ties are multiples of 1/32; other decimals lie to one side of theirs in binary.
    EXPECT_EQ(120312, DeDouble(12.03125));
    EXPECT_EQ(120938, DeDouble(12.09375));
    EXPECT_EQ(-120312, DeDouble(-12.03125));
    EXPECT_EQ(-120938, DeDouble(-12.09375));
    EXPECT_EQ(1, DeDouble(0.00005));
    EXPECT_EQ(1, DeDouble(0.00015));
    EXPECT_EQ(9223372036854770000, DeDouble(922337203685477.0));
    EXPECT_EQ(0, DeDouble(0x1p-1000));
    EXPECT_EQ(12346, DeTexto(" +1.23455 "));
    EXPECT_EQ(12346, DeTexto("1.23465"));
    EXPECT_EQ(12347, DeTexto("1.2346500001"));
}

TEST(Currency, Producto_EsExactoYRedondeaAlPar) {
    EXPECT_EQ(0, Producto(1, 5000));
    EXPECT_EQ(2, Producto(3, 5000));
    EXPECT_EQ(-2, Producto(-3, 5000));
    EXPECT_EQ(1, Producto(1, 5001));
    EXPECT_EQ(12500, Producto(5000, 25000));
    EXPECT_EQ(kMin, Producto(kMin, 10000));
    EXPECT_EQ(kMax, Producto(-kMax, -10000));
    EXPECT_EQ(1219320976680425, Producto(123456789012345, 98765));
}

TEST(Currency, RedondearAlejando_AlejaDelCeroEnLosEmpates) {
    EXPECT_EQ(10100, Alejando(10050, 2));
    EXPECT_EQ(10000, Alejando(10049, 2));
    EXPECT_EQ(-10100, Alejando(-10050, 2));
    EXPECT_EQ(10000, Alejando(5000, 0));
    EXPECT_EQ(16000, Alejando(15500, 1));
    EXPECT_EQ(12350, Alejando(12345, 3));
    EXPECT_EQ(12345, Alejando(12345, 4));
    EsperarError(kErrLlamadaInvalida, "", [] { Alejando(1, -1); });
}

TEST(Currency, FueraDeRango_Error6EnCadaOperacion) {
    // The doubles nearest to the two ends lie outside.
    for (const double malo : {922337203685477.5808, -922337203685477.5808, 1e300, std::nan(""), kInfinito})
        Desborda(malo, [&] { DeDouble(malo); });
    for (const std::int64_t malo : {922337203685478, -922337203685478})
        Desborda(malo, [&] { Currency::DeEntero(malo); });
    for (const char* malo : {"922337203685477.5808", "18446744073709551617"}) Desborda(malo, [&] { DeTexto(malo); });
    Desborda("-min", [] { (void)-C(kMin); });
    Desborda("max + 1", [] { (void)(C(kMax) + C(1)); });
    Desborda("min + -1", [] { (void)(C(kMin) + C(-1)); });
    Desborda("min - 1", [] { (void)(C(kMin) - C(1)); });
    Desborda("max - -1", [] { (void)(C(kMax) - C(-1)); });
    Desborda("max x 1.0001", [] { Producto(kMax, 10001); });
    Desborda("min x -1", [] { Producto(kMin, -10000); });
    Desborda("2.9999 x max", [] { Producto(29999, kMax); });
    Desborda("4 x 2^62", [] { Producto(40000, std::int64_t{1} << 62); });
    Desborda("max redondeado", [] { Alejando(kMax, 3); });
}

TEST(Currency, Textos_DeIdaYVuelta) {
    for (const char* texto :
         {"0", "12,5", "-0,0001", "-2,5", "0,0199", "922337203685477,5807", "-922337203685477,5808"})
        EXPECT_EQ(texto, Currency::DeTexto(texto).ATexto(',').Cadena());
    EXPECT_EQ("0,00", C(-1).ATextoFijo(2, ','));
    EXPECT_EQ("0,01", C(199).ATextoFijo(2, ','));
    EXPECT_EQ("-2,50", C(-25000).ATextoFijo(2, ','));
    EXPECT_EQ("-922337203685477,58", C(kMin).ATextoFijo(2, ','));
    EXPECT_EQ("12", C(125000).ATextoFijo(0, '.'));
    EXPECT_EQ("12.500000", C(125000).ATextoFijo(6, '.'));
    for (const char* malo : {"", "-", ".", "1,2,3", "12a", "1.2a", "1 2", "--1", "1e3"}) {
        SCOPED_TRACE(malo);
        EsperarError(kErrTipo, "", [&] { DeTexto(malo); });
    }
}

TEST(TextoDouble, DigitosExponentesYSigno) {
    for (const char* texto : {"0", "0.333333333333333", "100", "999999999999999", "1E+15", "1.5E+20", "0.00012345",
                              "0.0001", "1E-05", "1.25E-10", "1E+100", "-1234.5678"})
        EXPECT_EQ(texto, TextoDouble(std::stod(texto), '.').Cadena());
    EXPECT_EQ("0", TextoDouble(-0.0, '.').Cadena());
    EXPECT_EQ("0,3", TextoDouble(0.1 + 0.2, ',').Cadena());
    EXPECT_EQ("1E+15", TextoDouble(999999999999999.9, '.').Cadena());
    for (const double malo : {std::nan(""), -kInfinito}) Desborda(malo, [&] { TextoDouble(malo, '.'); });
}

}  // namespace
}  // namespace kv::prueba
