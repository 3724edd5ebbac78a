#include <gtest/gtest.h>

#include <new>

#include "kvdatosart/base/Valor.h"
#include "kvdatosart/tests/comun/Errores.h"

namespace kv::prueba {
namespace {

using S = std::string;
const auto Dinero = [](double valor) { return Currency::DeDouble(valor); };

TEST(Valor, AEnteros_RedondeanAlPar) {
    const std::pair<int, std::vector<Valor>> kCasos[] = {
        {-4, {-3.5}},
        {-2, {-2.5, Dinero(-1.5), S("-2,5")}},
        {-1, {true}},
        {0, {false, Dinero(-0.5)}},
        {2, {2.5, 2.5F, Dinero(2.5), Dinero(1.5)}},
        {3, {2.51}},
        {4, {3.5, S(" 3.5 ")}},
        {200, {std::uint8_t{200}, std::int64_t{200}, Fecha::DeOle(200)}},
        {32767, {32767.4}},
        {-32768, {-32768}},
    };
    for (const auto& [entero, valores] : kCasos)
        for (const Valor& valor : valores) {
            EXPECT_EQ(entero, ALong(valor)) << "de la clase " << valor.index();
            EXPECT_EQ(entero, AInteger(valor)) << "de la clase " << valor.index();
        }
    EXPECT_EQ(255, AByte(true));
    EXPECT_EQ(0, AByte(false));
    EXPECT_EQ(255, AByte(std::int64_t{255}));
    EXPECT_EQ(2, AByte(2.5));
    EXPECT_EQ(2147483647, ALong(Dinero(2147483647.4)));
}

TEST(Valor, LoQueNoCabeONoEs_Falla) {
    struct Caso {
        const char* nombre;
        void (*convertir)(const Valor&);
        std::vector<Valor> desbordan;
        std::vector<Valor> noSon;
    };
    const Caso kCasos[] = {
        {"Integer", [](const Valor& v) { (void)AInteger(v); }, {32768, -32768.6}, {}},
        {"Long", [](const Valor& v) { (void)ALong(v); }, {std::int64_t{2147483648}, 1e300}, {S("doce")}},
        {"Byte", [](const Valor& v) { (void)AByte(v); }, {256, -1}, {}},
        {"Boolean", [](const Valor& v) { (void)ABoolean(v); }, {}, {S("quizá")}},
        {"Single", [](const Valor& v) { (void)ASingle(v); }, {1e39}, {}},
        {"Double", [](const Valor& v) { (void)ADouble(v); }, {S("1e999")}, {S(""), S("-nan"), S("+-5"), S("1 2")}},
        {"Currency", [](const Valor& v) { (void)ACurrency(v); }, {1e15}, {S("1,2,3")}},
        {"String", [](const Valor& v) { (void)AString(v, '.'); }, {}, {}},
        {"Date", [](const Valor& v) { (void)ADate(v); }, {1e9}, {S("31/02/2026")}},
    };
    for (const Caso& caso : kCasos) {
        const auto falla = [&](std::int32_t error, const Valor& valor) {
            SCOPED_TRACE(caso.nombre + (EsNulo(valor) ? S(" de NULL") : " de " + AString(valor, '.')));
            EsperarError(error, "KVDatosArt", [&] { caso.convertir(valor); });
        };
        falla(kErrNulo, Nulo{});
        for (const Valor& valor : caso.desbordan) falla(kErrDesbordamiento, valor);
        for (const Valor& valor : caso.noSon) falla(kErrTipo, valor);
    }
}

TEST(Valor, BooleanosTextosYFechas) {
    for (const Valor& cierto : {Valor(true), Valor(-1), Valor(0.1), Valor(Dinero(0.0001)), Valor(S("Verdadero")),
                                Valor(S("True")), Valor(Fecha::DeOle(1))})
        EXPECT_TRUE(ABoolean(cierto)) << AString(cierto, '.');
    for (const char* falso : {"0", "False", "Falso"}) EXPECT_FALSE(ABoolean(S(falso))) << falso;
    EXPECT_EQ("0,3", AString(0.3F, ','));
    EXPECT_EQ("1,234567E+07", AString(12345670.0F, ','));
    EXPECT_EQ("12,5", AString(12.5, ','));
    EXPECT_EQ("12,5", AString(Dinero(12.5), ','));
    EXPECT_EQ("05/03/2026", AString(Fecha::DeAmd(2026, 3, 5), ','));
    EXPECT_EQ("Falso", AString(false, ','));
    EXPECT_EQ("ñ €", AString(S("ñ €"), ','));
    EXPECT_EQ(Fecha::DeAmd(2026, 1, 1), ADate(46023.0));
    EXPECT_EQ(Fecha::DeAmd(2026, 3, 5), ADate(S("05/03/2026")));
    EXPECT_EQ(Dinero(-1), ACurrency(true));
    EXPECT_EQ(Dinero(0), ACurrency(false));
    EXPECT_EQ(Dinero(2.5), ACurrency(2.5F));
    EXPECT_EQ(Dinero(46023), ACurrency(Fecha::DeAmd(2026, 1, 1)));
    EXPECT_EQ(-1, ADouble(true));
    EXPECT_EQ(0, ADouble(false));
    EXPECT_EQ(0.5, ADouble(S("0,5")));
}

TEST(RuntimeError, LosNumerosSonLosDelLenguajeYLosDeAdo) {
    EXPECT_EQ((std::vector{5, 6, 7, 9, 11, 13, 51, 91, 94}),
              (std::vector{kErrLlamadaInvalida, kErrDesbordamiento, kErrSinMemoria, kErrSubindice, kErrDivisionPorCero,
                           kErrTipo, kErrInterno, kErrObjetoNoEstablecido, kErrNulo}));
    EXPECT_EQ((std::vector{3265, 3704, 3705, 3021}),
              (std::vector{kErrElementoNoEncontrado, kErrObjetoCerrado, kErrObjetoAbierto, kErrSinRegistro}));
}

TEST(Relanzar, GuardaNumeroYTextoYCambiaElOrigen) {
    const auto relanzar = [](auto fallo) {
        try {
            throw fallo;
        } catch (...) {
            Relanzar("clsCliente::Existe");
        }
    };
    EXPECT_EQ("-2147217900|clsCliente::Existe|sintaxis",
              FalloDe([&] { relanzar(RuntimeError(-2147217900, "Proveedor", "sintaxis")); }));
    EsperarError(kErrSinMemoria, "clsCliente::Existe", [&] { relanzar(std::bad_alloc()); });
    EsperarError(kErrInterno, "clsCliente::Existe", [&] { relanzar(std::logic_error("roto")); });
}

}  // namespace
}  // namespace kv::prueba
