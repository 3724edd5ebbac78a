#include <gtest/gtest.h>

#include "kvdatosart/db/ado/Variante.h"
#include "kvdatosart/tests/comun/Errores.h"

namespace kv::prueba {
namespace {

/// Kind and text of what a VARIANT is read as, or the failure's number.
std::string Leer(Variante& v) {
    std::string leido;
    const std::string fallo = FalloDe([&] {
        const Valor valor = v.AValor();
        leido = std::to_string(valor.index()) + ":" + (EsNulo(valor) ? "" : AString(valor, '.'));
    });
    return fallo.empty() ? leido : "error " + fallo.substr(0, fallo.find('|'));
}

std::string Leer(int tipo, auto miembro, auto valor) {
    Variante v;
    v.Get().*miembro = valor;
    v.Get().vt = static_cast<VARTYPE>(tipo);
    return Leer(v);
}

std::string Decimal(unsigned char escala, bool negativo, ULONG alto, ULONGLONG bajo) {
    Variante v;
    DECIMAL& d = v.Get().decVal;
    d.Hi32 = alto;
    d.Lo64 = bajo;
    d.scale = escala;
    d.sign = negativo ? DECIMAL_NEG : 0;
    v.Get().vt = VT_DECIMAL;
    return Leer(v);
}

TEST(Variante, CadaTipoSeLeeComoElSuyo_TambienPorReferencia) {
    CY cy;
    cy.int64 = -123456789;
    EXPECT_EQ("0:", Leer(VT_EMPTY, &VARIANT::lVal, 0L));
    EXPECT_EQ("0:", Leer(VT_NULL, &VARIANT::lVal, 0L));
    EXPECT_EQ("1:Verdadero", Leer(VT_BOOL, &VARIANT::boolVal, VARIANT_TRUE));
    EXPECT_EQ("2:255", Leer(VT_UI1, &VARIANT::bVal, BYTE{255}));
    EXPECT_EQ("3:-3", Leer(VT_I1, &VARIANT::cVal, static_cast<CHAR>(-3)));
    EXPECT_EQ("3:-32768", Leer(VT_I2, &VARIANT::iVal, SHORT{-32768}));
    EXPECT_EQ("4:65535", Leer(VT_UI2, &VARIANT::uiVal, USHORT{65535}));
    EXPECT_EQ("4:-2147483648", Leer(VT_I4, &VARIANT::lVal, -2147483647L - 1));
    EXPECT_EQ("5:4294967295", Leer(VT_UI4, &VARIANT::ulVal, 4294967295UL));
    EXPECT_EQ("5:-9007199254740993", Leer(VT_I8, &VARIANT::llVal, -9007199254740993LL));
    EXPECT_EQ("5:7", Leer(VT_UI8, &VARIANT::ullVal, 7ULL));
    EXPECT_EQ("error 6", Leer(VT_UI8, &VARIANT::ullVal, ULLONG_MAX));
    EXPECT_EQ("6:0.1", Leer(VT_R4, &VARIANT::fltVal, 0.1F));
    EXPECT_EQ("8:-12345.6789", Leer(VT_CY, &VARIANT::cyVal, cy));
    EXPECT_EQ("9:01/01/2026", Leer(VT_DATE, &VARIANT::date, 46023.75));
    EXPECT_EQ("10:", Leer(VT_BSTR, &VARIANT::bstrVal, static_cast<BSTR>(nullptr)));
    EXPECT_EQ("error 13", Leer(VT_DISPATCH, &VARIANT::pdispVal, static_cast<IDispatch*>(nullptr)));
    EXPECT_EQ("error 13", Leer(VT_ARRAY | VT_UI1, &VARIANT::parray, static_cast<SAFEARRAY*>(nullptr)));

    double doble = 2.5;
    SHORT corto = -7;
    Variante dentro(Valor{std::string("Peña 5 €")});
    VARIANT nulo{};
    nulo.vt = VT_NULL;
    EXPECT_EQ("7:2.5", Leer(VT_BYREF | VT_R8, &VARIANT::pdblVal, &doble));
    EXPECT_EQ("3:-7", Leer(VT_BYREF | VT_I2, &VARIANT::piVal, &corto));
    EXPECT_EQ("10:Peña 5 €", Leer(VT_BYREF | VT_VARIANT, &VARIANT::pvarVal, &dentro.Get()));
    EXPECT_EQ("0:", Leer(VT_BYREF | VT_VARIANT, &VARIANT::pvarVal, &nulo));
}

TEST(Variante, DecimalesSonDineroSiCaben) {
    EXPECT_EQ("8:12.5", Decimal(2, false, 0, 1250));
    EXPECT_EQ("8:-1.2345", Decimal(4, true, 0, 12345));
    EXPECT_EQ("8:0", Decimal(2, true, 0, 0));
    EXPECT_EQ("8:12.5", Decimal(6, false, 0, 12500000));
    EXPECT_EQ("7:-1.23456", Decimal(5, true, 0, 123456));
    EXPECT_EQ("8:1", Decimal(28, false, 0x204FCE5E, 0x3E25026110000000));
    EXPECT_EQ("7:-1", Decimal(28, true, 0x204FCE5E, 0x3E25026110000001));
    EXPECT_EQ("7:1E-28", Decimal(28, false, 0, 1));
    EXPECT_EQ("7:922337203685478", Decimal(0, false, 0, 922337203685478));
    EXPECT_EQ("7:1E+16", Decimal(0, false, 0, 10000000000000000));
    EXPECT_EQ("8:922337203685477.5807", Decimal(4, false, 0, 0x7FFFFFFFFFFFFFFF));
    EXPECT_EQ("7:1.84467440737096E+19", Decimal(0, false, 1, 0));
    EXPECT_EQ("7:-7.92281625142643E+28", Decimal(0, true, 0xFFFFFFFF, 0xFFFFFFFFFFFFFFFF));
}

TEST(Variante, LosValoresVanYVuelven) {
    for (const Valor& valor : {Valor{}, Valor{true}, Valor{std::uint8_t{7}}, Valor{std::int16_t{-7}}, Valor{1.5F},
                               Valor{Currency::DeDiezmilesimas(-1)}, Valor{Fecha::DeAmd(1850, 2, 3)},
                               Valor{std::string("ñ€\xF0\x9F\x98\x80")}, Valor{std::string("a\0b", 3)}})
        EXPECT_EQ(valor, Variante(valor).AValor());
}

}  // namespace
}  // namespace kv::prueba
