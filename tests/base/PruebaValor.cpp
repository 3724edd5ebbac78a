#include <gtest/gtest.h>

#include <functional>
#include <new>

#include "base/Valor.h"
#include "tests/comun/Errores.h"

namespace kv::prueba {
namespace {

using S = std::string;

TEST(Valor, AEnteros_RedondeanAlPar) {
    struct Caso {
        Valor valor;
        int entero;
    };
    for (const Caso& caso : {Caso{std::int32_t{7}, 7},
                             {2.5, 2},
                             {3.5, 4},
                             {-2.5, -2},
                             {-3.5, -4},
                             {2.51, 3},
                             {Currency::DeDouble(2.5), 2},
                             {Currency::DeDouble(-0.5), 0},
                             {Currency::DeDouble(1.5), 2},
                             {Currency::DeDouble(-1.5), -2},
                             {true, -1},
                             {false, 0},
                             {2.5F, 2},
                             {S("12"), 12},
                             {S("-2,5"), -2},
                             {S(" 3.5 "), 4},
                             {std::int64_t{9}, 9},
                             {std::uint8_t{200}, 200}}) {
        EXPECT_EQ(caso.entero, ALong(caso.valor));
        EXPECT_EQ(caso.entero, AInteger(caso.valor));
    }
    EXPECT_EQ(255, AByte(Valor(true)));
    EXPECT_EQ(2, AByte(Valor(2.5)));
}

TEST(Valor, Errores_PorTipoNuloYRango) {
    struct Caso {
        const char* nombre;
        std::int32_t error;
        std::function<void()> conversion;
    };
    const Caso kCasos[] = {
        {"Integer nulo", kErrNulo, [] { AInteger(Nulo{}); }},
        {"Long nulo", kErrNulo, [] { ALong(Nulo{}); }},
        {"Byte nulo", kErrNulo, [] { AByte(Nulo{}); }},
        {"Boolean nulo", kErrNulo, [] { ABoolean(Nulo{}); }},
        {"Single nulo", kErrNulo, [] { ASingle(Nulo{}); }},
        {"Double nulo", kErrNulo, [] { ADouble(Nulo{}); }},
        {"Currency nulo", kErrNulo, [] { ACurrency(Nulo{}); }},
        {"String nulo", kErrNulo, [] { AString(Nulo{}, '.'); }},
        {"Date nulo", kErrNulo, [] { ADate(Nulo{}); }},
        {"Integer arriba", kErrDesbordamiento, [] { AInteger(std::int32_t{32768}); }},
        {"Integer abajo", kErrDesbordamiento, [] { AInteger(-32768.6); }},
        {"Long arriba", kErrDesbordamiento, [] { ALong(std::int64_t{2147483648}); }},
        {"Long de double", kErrDesbordamiento, [] { ALong(1e300); }},
        {"Byte arriba", kErrDesbordamiento, [] { AByte(std::int16_t{256}); }},
        {"Byte abajo", kErrDesbordamiento, [] { AByte(std::int16_t{-1}); }},
        {"Single arriba", kErrDesbordamiento, [] { ASingle(1e39); }},
        {"Currency arriba", kErrDesbordamiento, [] { ACurrency(1e15); }},
        {"Date arriba", kErrDesbordamiento, [] { ADate(1e9); }},
        {"Double de texto enorme", kErrDesbordamiento, [] { ADouble(S("1e999")); }},
        {"Long de texto", kErrTipo, [] { ALong(S("doce")); }},
        {"Double de texto vacío", kErrTipo, [] { ADouble(S("")); }},
        {"Double de inf", kErrTipo, [] { ADouble(S("inf")); }},
        {"Double de -nan", kErrTipo, [] { ADouble(S("-nan")); }},
        {"Double de dos signos", kErrTipo, [] { ADouble(S("+-5")); }},
        {"Currency de texto", kErrTipo, [] { ACurrency(S("1,2,3")); }},
        {"Boolean de texto", kErrTipo, [] { ABoolean(S("quizá")); }},
        {"Date de texto", kErrTipo, [] { ADate(S("31/02/2026")); }},
    };
    for (const Caso& caso : kCasos) {
        SCOPED_TRACE(caso.nombre);
        EsperarError(caso.error, "KVDatosArt", caso.conversion);
    }
}

TEST(Valor, Limites_Caben) {
    EXPECT_EQ(32767, AInteger(Valor(32767.4)));
    EXPECT_EQ(-32768, AInteger(Valor(std::int32_t{-32768})));
    EXPECT_EQ(2147483647, ALong(Valor(Currency::DeDouble(2147483647.4))));
    EXPECT_EQ(255, AByte(Valor(std::int64_t{255})));
}

TEST(Valor, BooleanosTextosYFechas) {
    EXPECT_TRUE(ABoolean(Valor(std::int16_t{-1})));
    EXPECT_TRUE(ABoolean(Valor(0.1)));
    EXPECT_TRUE(ABoolean(Valor(Currency::DeDouble(0.0001))));
    EXPECT_TRUE(ABoolean(Valor(S("Verdadero"))));
    EXPECT_FALSE(ABoolean(Valor(S("0"))));
    EXPECT_EQ("12,5", AString(Valor(12.5), ','));
    EXPECT_EQ("12,5", AString(Valor(Currency::DeDouble(12.5)), ','));
    EXPECT_EQ("05/03/2026", AString(Valor(Fecha::DeAmd(2026, 3, 5)), ','));
    EXPECT_EQ("Falso", AString(Valor(false), ','));
    EXPECT_EQ("ñ €", AString(Valor(S("ñ €")), ','));
    EXPECT_EQ(Fecha::DeAmd(2026, 1, 1), ADate(Valor(46023.0)));
    EXPECT_EQ(Fecha::DeAmd(2026, 3, 5), ADate(Valor(S("05/03/2026"))));
    EXPECT_EQ(Currency::DeDouble(-1), ACurrency(Valor(true)));
    EXPECT_DOUBLE_EQ(0.5, ADouble(Valor(S("0,5"))));
}

TEST(Relanzar, GuardaNumeroYTextoYCambiaElOrigen) {
    try {
        try {
            throw RuntimeError(-2147217900, "Proveedor", "sintaxis");
        } catch (...) {
            Relanzar("clsCliente::Existe");
        }
    } catch (const RuntimeError& error) {
        EXPECT_EQ(-2147217900, error.numero);
        EXPECT_EQ("clsCliente::Existe", error.origen);
        EXPECT_EQ("sintaxis", error.descripcion);
    }
    const auto relanzar = [](auto lanzar) {
        try {
            lanzar();
        } catch (...) {
            Relanzar("x");
        }
    };
    EsperarError(kErrSinMemoria, "x", [&] { relanzar([] { throw std::bad_alloc(); }); });
    EsperarError(kErrInterno, "x", [&] { relanzar([] { throw std::logic_error("roto"); }); });
}

}  // namespace
}  // namespace kv::prueba
