#include "db/ado/Variante.h"
#include "tests/ado/Informe.h"

namespace kv::prueba {
namespace {

std::string Contar(const Valor& valor) {
    const std::string tipo = std::to_string(valor.index()) + ":";
    return EsNulo(valor) ? tipo : tipo + AString(valor, '.');
}

void Leer(const char* que, VARTYPE tipo, auto miembro, auto valor, const std::string& esperado) {
    Variante v;
    v.Get().*miembro = valor;
    v.Get().vt = tipo;
    std::string leido;
    const std::string fallo = Fallo([&] { leido = Contar(v.AValor()); });
    if (!fallo.empty()) leido = "error " + fallo.substr(0, fallo.find('|'));
    Exigir(leido == esperado, std::string(que) + ": " + leido + " en vez de " + esperado);
}

void Decimal(const char* texto, unsigned char escala, bool negativo, ULONG alto, ULONGLONG bajo, const char* esperado) {
    Variante v;
    DECIMAL& d = v.Get().decVal;
    d.Hi32 = alto;
    d.Lo64 = bajo;
    d.scale = escala;
    d.sign = negativo ? DECIMAL_NEG : 0;
    v.Get().vt = VT_DECIMAL;
    const std::string leido = Contar(v.AValor());
    Exigir(leido == esperado, std::string(texto) + ": " + leido + " en vez de " + esperado);
}

void ProbarDecimales() {
    Decimal("dos decimales", 2, false, 0, 1250, "8:12.5");
    Decimal("negativo", 4, true, 0, 12345, "8:-1.2345");
    Decimal("cero negativo", 2, true, 0, 0, "8:0");
    Decimal("seis decimales, dos de ellos ceros", 6, false, 0, 12500000, "8:12.5");
    Decimal("cinco decimales", 5, true, 0, 123456, "7:-1.23456");
    Decimal("28 decimales", 28, false, 0x204FCE5E, 0x3E25026110000000, "8:1");
    Decimal("28 decimales, el último distinto", 28, true, 0x204FCE5E, 0x3E25026110000001, "7:-1");
    Decimal("28 decimales, el más pequeño", 28, false, 0, 1, "7:1E-28");
    Decimal("mayor que el importe más alto", 0, false, 0, 922337203685478, "7:922337203685478");
    Decimal("el importe más alto", 4, false, 0, 0x7FFFFFFFFFFFFFFF, "8:922337203685477.5807");
    Decimal("el número más alto", 0, true, 0xFFFFFFFF, 0xFFFFFFFFFFFFFFFF, "7:-7.92281625142643E+28");
}

void ProbarReferencias() {
    double doble = 2.5;
    SHORT corto = -7;
    Variante dentro(Valor{std::string("Peña 5 €")});
    VARIANT nulo{};
    nulo.vt = VT_NULL;
    Leer("por referencia, doble", VT_BYREF | VT_R8, &VARIANT::pdblVal, &doble, "7:2.5");
    Leer("por referencia, entero", VT_BYREF | VT_I2, &VARIANT::piVal, &corto, "3:-7");
    Leer("por referencia, variante de texto", VT_BYREF | VT_VARIANT, &VARIANT::pvarVal, &dentro.Get(), "10:Peña 5 €");
    Leer("por referencia, variante nula", VT_BYREF | VT_VARIANT, &VARIANT::pvarVal, &nulo, "0:");
}

}  // namespace

void ProbarVariantes() {
    CY cy;
    cy.int64 = -123456789;
    Leer("Empty", VT_EMPTY, &VARIANT::lVal, 0L, "0:");
    Leer("NULL", VT_NULL, &VARIANT::lVal, 0L, "0:");
    Leer("Boolean", VT_BOOL, &VARIANT::boolVal, VARIANT_TRUE, "1:Verdadero");
    Leer("Byte", VT_UI1, &VARIANT::bVal, BYTE{255}, "2:255");
    Leer("entero de un byte con signo", VT_I1, &VARIANT::cVal, static_cast<CHAR>(-3), "3:-3");
    Leer("Integer", VT_I2, &VARIANT::iVal, SHORT{-32768}, "3:-32768");
    Leer("entero de dos bytes sin signo", VT_UI2, &VARIANT::uiVal, USHORT{65535}, "4:65535");
    Leer("Long", VT_I4, &VARIANT::lVal, -2147483647L - 1, "4:-2147483648");
    Leer("entero de cuatro bytes sin signo", VT_UI4, &VARIANT::ulVal, 4294967295UL, "5:4294967295");
    Leer("ocho bytes", VT_I8, &VARIANT::llVal, -9007199254740993LL, "5:-9007199254740993");
    Leer("ocho bytes sin signo", VT_UI8, &VARIANT::ullVal, 7ULL, "5:7");
    Leer("ocho bytes sin signo, demasiado", VT_UI8, &VARIANT::ullVal, ULLONG_MAX, "error 6");
    Leer("Single", VT_R4, &VARIANT::fltVal, 0.1F, "6:0.1");
    Leer("Currency", VT_CY, &VARIANT::cyVal, cy, "8:-12345.6789");
    Leer("fecha con hora", VT_DATE, &VARIANT::date, 46023.75, "9:01/01/2026");
    Leer("último instante del día", VT_DATE, &VARIANT::date, 46023.99999996528, "9:01/01/2026");
    Leer("fecha corta por un pelo", VT_DATE, &VARIANT::date, 46023.9999999999, "9:02/01/2026");
    Leer("fecha anterior a la cero, con hora", VT_DATE, &VARIANT::date, -1.75, "9:29/12/1899");
    Leer("fecha fuera de rango", VT_DATE, &VARIANT::date, 2958466.0, "error 6");
    Leer("texto nulo", VT_BSTR, &VARIANT::bstrVal, static_cast<BSTR>(nullptr), "10:");
    Leer("objeto", VT_DISPATCH, &VARIANT::pdispVal, static_cast<IDispatch*>(nullptr), "error 13");
    Leer("bytes", VT_ARRAY | VT_UI1, &VARIANT::parray, static_cast<SAFEARRAY*>(nullptr), "error 13");
    ProbarDecimales();
    ProbarReferencias();
    for (const Valor& valor : {Valor{}, Valor{true}, Valor{std::uint8_t{7}}, Valor{std::int16_t{-7}}, Valor{1.5F},
                               Valor{Currency::DeDiezmilesimas(-1)}, Valor{Fecha::DeAmd(1850, 2, 3)},
                               Valor{std::string("ñ€\xF0\x9F\x98\x80")}, Valor{std::string("a\0b", 3)}})
        Exigir(Variante(valor).AValor() == valor, "ida y vuelta de " + Contar(valor));
}

}  // namespace kv::prueba
