#include <gtest/gtest.h>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/odbc/CadenaConexion.h"
#include "kvdatosart/db/odbc/FormasConocidas.h"
#include "kvdatosart/db/odbc/TextoAncho.h"
#include "kvdatosart/tests/comun/Errores.h"

namespace kv::prueba {
namespace {

TEST(CadenaConexion, LasClavesSeTapanEscritasDeCualquierModo) {
    const struct {
        const char* cadena;
        const char* texto;
        const char* tapado;
    } casos[] = {
        {"Server=s;PWD=abc;UID=u", "falla abc de u", "falla *** de u"},
        {"Server=s; password = abc ", "abc", "***"},
        {"PWD={a;b}c}}d};UID=u", "a;b", "a;b"},
        {"PWD={a;b}};d};UID=u", "a;b};d, {a;b}};d}, a;b}};d; u", "***, ***, ***; u"},
        {"PWD={abierta", "abierta", "***"},
        {"PWD=;UID=u", "sin clave", "sin clave"},
        {"UID=PWD;Database=abc", "PWD abc", "PWD abc"},
        {"PWD=*;AccessToken=ab;Secret=abab", "abab ab *", "*** *** ***"},
        {"sin igual", "igual", "igual"},
    };
    for (const auto& caso : casos) EXPECT_EQ(caso.tapado, Tapar(caso.texto, Secretos(caso.cadena))) << caso.cadena;
}

TEST(FormasConocidas, ElMoldeCallaLoQueNoDecideColumnas) {
    const struct {
        const char* texto;
        const char* molde;
    } casos[] = {
        {"SELECT A, 5 AS B FROM T WHERE C =7 AND D <='01/01/2026' AND E >-1.5E3 AND F = 'it''s'",
         "SELECT A, 5 AS B FROM T WHERE C =? AND D <=? AND E >? AND F =?"},
        {"SELECT B =5 FROM T", "SELECT B =5 FROM T"},
        {"SELECT (SELECT 1 FROM U WHERE X =1) AS Y, B =5 FROM T WHERE C =5",
         "SELECT (SELECT 1 FROM U WHERE X =1) AS Y, B =5 FROM T WHERE C =?"},
        {"SELECT ' FROM ', B =5 FROM T", "SELECT ' FROM ', B =5 FROM T"},
        {"SELECT A_FROM, FROM_A, B =5 FROM T", "SELECT A_FROM, FROM_A, B =5 FROM T"},
        {"SELECT A FROM T WHERE B =C1 AND D IN (1, '=2')", "SELECT A FROM T WHERE B =C1 AND D IN (1, '=2')"},
        {"SELECT A FROM T -- WHERE B =5", "SELECT A FROM T -- WHERE B =5"},
        {"SELECT A FROM T WHERE B ='abierta", "SELECT A FROM T WHERE B =?"},
        {"FROM", "FROM"},
    };
    std::string molde;
    for (const auto& caso : casos) {
        Moldear(caso.texto, molde);
        EXPECT_EQ(caso.molde, molde);
    }
}

TEST(TextoAncho, VaYVuelve_YLoQueNoEsUtf8SeRechaza) {
    for (const char* texto : {"", "abc", "ñ", "€ x ", "a😀b", "dieciséis letras, y más", "ocho letñoocho let€",
                              "\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF4\x8F\xBF\xBF"}) {
        TextoAncho ancho;
        std::string vuelta;
        AAncho(texto, ancho);
        DeAncho(ancho.data(), ancho.size(), vuelta);
        EXPECT_EQ(texto, vuelta);
    }
    TextoAncho ancho;
    AAncho("€😀", ancho);
    EXPECT_EQ((TextoAncho{0x20AC, 0xD83D, 0xDE00}), ancho);
    const TextoAncho suelta = {'a', 0xD83D, 'b', 0xDE00};
    std::string texto;
    DeAncho(suelta.data(), suelta.size(), texto);
    EXPECT_EQ("a\uFFFDb\uFFFD", texto);
    for (const char* malo : {"\xFF", "\xC3", "a\xE2\x82", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80",
                             "\xF5\x80\x80\x80", "\xE2(\xA1", "\xF4\x90\x80\x80"})
        EsperarError(kErrTipo, "", [&] { AAncho(malo, ancho); });
}

}  // namespace
}  // namespace kv::prueba
