#include <gtest/gtest.h>

#include <limits>

#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/host/Anchura.h"
#include "kvdatosart/host/EscribirCsv.h"
#include "kvdatosart/host/EscribirJson.h"
#include "kvdatosart/host/EscribirTexto.h"

namespace kv::host {
namespace {

using aplicacion::ClaseDato;
using aplicacion::ColumnaTabla;

constexpr ColumnaTabla kColumnas[] = {
    {"", "codigo", "Código", ClaseDato::Codigo},        {"", "nombre", "Nombre", ClaseDato::Texto},
    {"", "precio", "Precio base", ClaseDato::Importe},  {"", "unidades", "Unidades", ClaseDato::Cantidad},
    {"", "desde", "Desde", ClaseDato::Fecha},           {"", "bloqueado", "Bloqueado", ClaseDato::Logico},
    {"", "descuento", "Dto. %", ClaseDato::Porcentaje},
};

// Every kind of value: text with controls, of two columns a sign, or not UTF-8; money as Currency and as Double.
Documento Ejemplo() {
    Documento d(',');
    d.Decir("Hecho");
    d.Dato("articulo", "Artículo", std::int32_t{7}, ClaseDato::Codigo);
    d.Dato("mensaje", "Mensaje", std::string("dos\nlíneas, «\x1b[2J» y \"comillas\""));
    d.Anadir({{"precios",
               kColumnas,
               {{std::int32_t{1}, std::string("Taladro, percutor"), Currency::DeTexto("1234.5"), 2.5,
                 Fecha::DeAmd(2026, 2, 1), true, 10.0F},
                {std::int16_t{12}, std::string("e\u0301n 中文 👩‍👩‍👧"), 0.1234, std::int32_t{-30},
                 Fecha::DeAmd(2050, 12, 31), std::uint8_t{0}, 2.25F},
                {std::int32_t{300}, std::string("mal\xe9"), Nulo{}, Nulo{}, Fecha(), Nulo{}, 0.1F}}},
              "Precios",
              1});
    d.Anadir({{"ninguno", kColumnas}, ""});
    d.Anadir({{"frases", kColumnas}, "Frases", {}, Cuadro::Para::Programas});
    d.Anadir({{"variantes", kColumnas}, "Variantes", {}, Cuadro::Para::Gente});
    d.Dato("medio", "Coste medio", 0.79, ClaseDato::Importe);
    return d;
}

TEST(Documento, PorTuberia_UnaFilaPorLinea) {
    EXPECT_EQ(ATexto(Ejemplo(), {}), R"(Hecho
Artículo  7
Mensaje   dos líneas, « [2J» y "comillas"

Precios
  Código  Nombre             Precio base  Unidades  Desde       Bloqueado  Dto. %
       1  Taladro, percutor    1234,50         2,5  01/02/2026  sí          10
>     12  én 中文 👩‍👩‍👧              0,1234     -30    -           no           2,25
     300  mal�                    -            -    -           -            0,1

Variantes: -

Coste medio  0,79
)");
}

TEST(Documento, SiNoCabe_CadaFilaEsUnaHoja) {
    Documento d(',');
    const std::span columnas(kColumnas + 1, 3);
    d.Anadir({{"precios", columnas, {{std::string("Taladro percutor"), 9, Nulo{}}, {std::string("Sierra"), 1.5, -3}}},
              "Precios",
              1});
    EXPECT_EQ(ATexto(d, {28, false}), R"(Precios
  Nombre       Taladro
               percutor
  Precio base  9,00
  Unidades     -

> Nombre       Sierra
> Precio base  1,50
> Unidades     -3
)");
}

// Members and values in their order, on one line.
std::string EnUnaLinea(std::string json) {
    for (auto salto = json.find('\n'); salto != std::string::npos; salto = json.find('\n'))
        json.replace(salto, json.find_first_not_of("\n ", salto) - salto, "");
    return json;
}

TEST(Documento, Json) {
    EXPECT_EQ(
        EnUnaLinea(AJson(Ejemplo())),
        R"({"formato": 1,"articulo": 7,"mensaje": "dos\nlíneas, «\u001b[2J» y \"comillas\"","precios": [)"
        R"({"codigo": 1,"nombre": "Taladro, percutor","precio": 1234.5,"unidades": 2.5,"desde": "2026-02-01",)"
        R"("bloqueado": true,"descuento": 10},)"
        R"({"codigo": 12,"nombre": "én 中文 👩‍👩‍👧","precio": 0.1234,"unidades": -30,"desde": null,)"
        R"("bloqueado": false,"descuento": 2.25},)"
        R"({"codigo": 300,"nombre": "mal�","precio": null,"unidades": null,"desde": null,)"
        R"("bloqueado": null,"descuento": 0.1}],"ninguno": [],"frases": [],"medio": 0.79})");
    EXPECT_EQ(EnUnaLinea(ErrorAJson(2, "«a\"b»")), R"({"formato": 1,"error": {"codigo": 2,"mensaje": "«a\"b»"}})");
    EXPECT_EQ(EnUnaLinea(ErrorAJson(1, "no", "cliente")),
              R"({"formato": 1,"error": {"codigo": 1,"mensaje": "no","campo": "cliente"}})");
}

TEST(Documento, Csv) {
    const Documento d = Ejemplo();
    EXPECT_EQ(ACsv(d, ""),
              "codigo,nombre,precio,unidades,desde,bloqueado,descuento\r\n"
              "1,\"Taladro, percutor\",1234.5,2.5,2026-02-01,true,10\r\n"
              "12,én 中文 👩‍👩‍👧,0.1234,-30,,false,2.25\r\n"
              "300,mal\xe9,,,,,0.1\r\n");
    EXPECT_EQ(ACsv(d, "ninguno"), "codigo,nombre,precio,unidades,desde,bloqueado,descuento\r\n");
    Documento ficha;
    ficha.Dato("a", "", std::string("con \"comillas\""));
    ficha.Decir("Hecho");
    ficha.Dato("b", "", std::string("dos\nlíneas"));
    EXPECT_EQ(ACsv(ficha, ""), "a,b\r\n\"con \"\"comillas\"\"\",\"dos\nlíneas\"\r\n");
    try {
        ACsv(ficha, "nada");
        ADD_FAILURE();
    } catch (const aplicacion::Rechazo& rechazo) {
        EXPECT_STREQ(rechazo.what(), "«nada» no vale; esta respuesta no tiene tablas");
    }
}

TEST(Documento, ClasesDeDato) {
    struct Caso {
        Valor valor;
        ClaseDato clase;
        const char* texto;
        const char* json;
    };
    for (const Caso& caso : {
             Caso{Fecha::DeAmd(1900, 1, 1), ClaseDato::Fecha, "-", "null"},
             {Fecha::DeAmd(1900, 1, 2), ClaseDato::Fecha, "02/01/1900", "\"1900-01-02\""},
             {Fecha::DeAmd(2050, 12, 30), ClaseDato::Fecha, "30/12/2050", "\"2050-12-30\""},
             {Fecha::DeAmd(2051, 1, 1), ClaseDato::Fecha, "01/01/2051", "\"2051-01-01\""},
             {std::string(), ClaseDato::Texto, "-", "\"\""},
             {std::string("sin precio"), ClaseDato::Importe, "sin precio", "\"sin precio\""},
             {std::int32_t{24}, ClaseDato::Importe, "24,00", "24"},
             {Currency::DeTexto("-0.5"), ClaseDato::Importe, "-0,50", "-0.5"},
             {0.30000000000000004, ClaseDato::Importe, "0,30", "0.3"},
             {1e20, ClaseDato::Importe, "1E+20", "1E+20"},
             {Currency::DeTexto("922337203685477.5807"), ClaseDato::Importe, "922337203685477,5807",
              "922337203685477.5807"},
             {std::numeric_limits<double>::infinity(), ClaseDato::Cantidad, "-", "null"},
             {std::int32_t{-1}, ClaseDato::Logico, "sí", "true"},
             {Currency::DeTexto("24.50"), ClaseDato::Cantidad, "24,5", "24.5"},
         }) {
        EXPECT_EQ(ValorATexto(caso.valor, caso.clase, ','), caso.texto);
        EXPECT_EQ(ValorAJson(caso.valor, caso.clase), caso.json) << caso.texto;
    }
}

TEST(Anchura, ColumnasDeUnTexto) {
    using Anchos = std::vector<std::pair<const char*, std::size_t>>;
    // clang-format off
    for (const auto& [texto, ancho] : Anchos{{"", 0}, {"añil", 4}, {"an\u0303il", 4}, {"中", 2}, {"한글", 4}, {"👍🏽", 2},
                                             {"👩‍👩‍👧", 2}, {"🇪🇸", 2}, {"❤️", 2}, {"❤", 1}, {"a\u200Bb", 2}})
        // clang-format on
        EXPECT_EQ(Anchura(texto), ancho) << texto;
}

TEST(Anchura, EnLineas) {
    using Lineas = std::vector<std::string>;
    EXPECT_EQ(EnLineas("", 5), Lineas{""});
    EXPECT_EQ(EnLineas("uno  dos", 8), Lineas{"uno  dos"});
    EXPECT_EQ(EnLineas("uno dos  tres", 7), (Lineas{"uno dos", "tres"}));
    EXPECT_EQ(EnLineas("an\u0303o larguisimo", 4), (Lineas{"an\u0303o", "larg", "uisi", "mo"}));
    EXPECT_EQ(EnLineas("a中文字", 4), (Lineas{"a中", "文字"}));
    EXPECT_EQ(EnLineas("中a", 1), (Lineas{"中", "a"}));
}

}  // namespace
}  // namespace kv::host
