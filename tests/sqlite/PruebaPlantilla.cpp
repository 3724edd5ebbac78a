#include <gtest/gtest.h>

#include "db/sqlite/Plantilla.h"
#include "db/sqlite/Traduccion.h"
#include "tests/comun/Errores.h"

namespace kv::prueba {
namespace {

std::vector<std::string> Levantados(std::string_view texto) {
    std::vector<Literal> literales;
    BuscarLiterales(texto, literales);
    std::vector<std::string> textos;
    for (const Literal& literal : literales) textos.emplace_back(literal.texto);
    return textos;
}

TEST(Plantilla, SoloLevantaLoQueCambia) {
    struct Caso {
        const char* texto;
        std::vector<std::string> literales;
    };
    const Caso kCasos[] = {
        {"SELECT TOP 1 A, ISNULL(B, 0) FROM T WHERE C =5 AND D= -3 AND E<>'x''y' ORDER BY 1", {"5", "-3", "'x''y'"}},
        {"SELECT A FROM T WHERE B >= 1.5E+15 AND C<=' 05/03/2026'", {"1.5E+15", "' 05/03/2026'"}},
        {"UPDATE T SET A = A + -2.5, B ='', C=3 WHERE D =4", {"-2.5", "''", "3", "4"}},
        {"INSERT INTO T (A, B) VALUES (1, 'x',-2 , +3)", {"1", "'x'", "-2", "+3"}},
        {"SELECT A FROM T WHERE (10 <= B AND B >= 10) OR C LIKE 'x%'", {"10"}},
        {"SELECT A AS T1 FROM T1 a WHERE a.B1 = c.D2", {}},
        {"SELECT A FROM T WHERE B = -C AND D =--5\n 6", {"6"}},
    };
    for (const Caso& caso : kCasos) EXPECT_EQ(caso.literales, Levantados(caso.texto)) << caso.texto;
    EsperarError(kErrTipo, "", [] { Levantados("SELECT A FROM T WHERE B ='O'Brien'"); });
}

TEST(Plantilla, CoincideSoloConSusTextos) {
    const std::string texto = "SELECT A FROM T WHERE B =12 AND C ='x' ORDER BY A";
    std::vector<Literal> literales;
    BuscarLiterales(texto, literales);
    const Plantilla plantilla(texto, literales);
    const auto huella = Plantilla::Huella(texto, literales);
    for (const char* igual : {"SELECT A FROM T WHERE B =-7.25 AND C ='' ORDER BY A",
                              "SELECT A FROM T WHERE B =0 AND C ='it''s AND' ORDER BY A"}) {
        EXPECT_TRUE(plantilla.Coincide(igual, literales)) << igual;
        EXPECT_EQ(2U, literales.size());
        EXPECT_EQ(huella, Plantilla::Huella(igual, literales));
    }
    for (const char* otro :
         {"SELECT A FROM T WHERE B =12 AND C =5 ORDER BY A", "SELECT A FROM T WHERE B =12",
          "SELECT A FROM T WHERE B =12 AND C ='x' ORDER BY A DESC",
          "SELECT A FROM T WHERE B =12,5 AND C ='x' ORDER BY A", "SELECT A FROM T WHERE B = AND C ='x' ORDER BY A",
          "SELECT A FROM T WHERE B =12 AND C ='x ORDER BY A", ""})
        EXPECT_FALSE(plantilla.Coincide(otro, literales)) << otro;
}

TEST(Traduccion, TopIsnullYDestinos) {
    struct Caso {
        const char* texto;
        const char* traducido;
        std::vector<std::string> columnas;
    };
    const Caso kCasos[] = {
        {"SELECT TOP 1 a.* FROM T a WHERE a.B = 5 ORDER BY a.C DESC",
         "SELECT  a.* FROM T a WHERE a.B = ? ORDER BY a.C DESC LIMIT 1",
         {"B"}},
        {"SELECT * FROM T WHERE A IN (SELECT TOP 1 A FROM T WHERE B > 3 ORDER BY A ASC) AND C =1",
         "SELECT * FROM T WHERE A IN (SELECT  A FROM T WHERE B > ? ORDER BY A ASC LIMIT 1) AND C =?",
         {"B", "C"}},
        {"SELECT TOP 2 A FROM T WHERE A =(SELECT TOP 3 B FROM U)",
         "SELECT  A FROM T WHERE A =(SELECT  B FROM U LIMIT 3) LIMIT 2",
         {}},
        {"SELECT ISNULL(MAX(A), 0) AS A FROM T WHERE B >= 7",
         "SELECT IFNULL(MAX(A), 0) AS A FROM T WHERE B >= ?",
         {"B"}},
        {"INSERT INTO T (A, B, C) VALUES (1, '', -2)", "INSERT INTO T (A, B, C) VALUES (?, ?, ?)", {"A", "B", "C"}},
        {"UPDATE T SET A = A + -1, F ='x' WHERE B =2", "UPDATE T SET A = A + ?, F =? WHERE B =?", {"A", "F", "B"}},
    };
    for (const Caso& caso : kCasos) {
        std::vector<Literal> literales;
        BuscarLiterales(caso.texto, literales);
        const Traduccion traduccion = Traducir(caso.texto, literales);
        EXPECT_EQ(caso.traducido, traduccion.texto);
        std::vector<std::string> columnas;
        for (const DestinoLiteral& destino : traduccion.destinos) columnas.push_back(destino.columna);
        EXPECT_EQ(caso.columnas, columnas) << caso.texto;
    }
}

}  // namespace
}  // namespace kv::prueba
