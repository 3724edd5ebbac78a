#include <gtest/gtest.h>
#include <sqlite3.h>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/sqlite/Plantilla.h"
#include "kvdatosart/db/sqlite/TipoColumna.h"
#include "kvdatosart/db/sqlite/Traduccion.h"
#include "kvdatosart/tests/comun/Errores.h"

namespace kv::prueba {
namespace {

TEST(Traduccion, LevantaLosLiteralesQueCambianYSabeSuColumna) {
    const struct {
        const char* texto;
        const char* traducido;
        /// Each literal lifted, behind the column that it meets.
        const char* levantados;
    } casos[] = {
        {"SELECT TOP 1 a.*, ISNULL(B, 0) FROM T a WHERE C =5 AND a.D= -3 AND E<>'x''y' ORDER BY 1 DESC",
         "SELECT  a.*, IFNULL(B, 0) FROM T a WHERE C =? AND a.D= ? AND E<>? ORDER BY 1 DESC LIMIT 1",
         "C=5 D=-3 E='x''y' "},
        {"SELECT A FROM T WHERE B >= 1.5E+15 AND C<=' 05/03/2026'", "SELECT A FROM T WHERE B >= ? AND C<=?",
         "B=1.5E+15 C=' 05/03/2026' "},
        {"UPDATE T SET A = A + -2.5, B ='', C=3 WHERE D =4", "UPDATE T SET A = A + ?, B =?, C=? WHERE D =?",
         "A=-2.5 B='' C=3 D=4 "},
        {"INSERT INTO T (A, B, C, D) VALUES (1, '',-2 , +3)", "INSERT INTO T (A, B, C, D) VALUES (?, ?,? , ?)",
         "A=1 B='' C=-2 D=+3 "},
        {"INSERT INTO T (A, B) VALUES (ISNULL(NULL, 7), 'x'), (1, 'y')",
         "INSERT INTO T (A, B) VALUES (IFNULL(NULL, ?), ?), (?, ?)", "A=7 B='x' A=1 B='y' "},
        {"SELECT A FROM T WHERE (10 <= B AND B >= 10) OR C LIKE 'x%'",
         "SELECT A FROM T WHERE (10 <= B AND B >= ?) OR C LIKE 'x%'", "B=10 "},
        {"SELECT A AS T1 FROM T1 a WHERE a.B1 = c.D2", "SELECT A AS T1 FROM T1 a WHERE a.B1 = c.D2", ""},
        {"SELECT A FROM T WHERE B = -C AND D =--5\n 6", "SELECT A FROM T WHERE B = -C AND D = ?", "D=6 "},
        {"SELECT * FROM T WHERE A IN (SELECT TOP (1) A FROM T WHERE B > 3 ORDER BY A ASC) AND C =1",
         "SELECT * FROM T WHERE A IN (SELECT  A FROM T WHERE B > ? ORDER BY A ASC LIMIT 1) AND C =?", "B=3 C=1 "},
        {"SELECT TOP 2 A FROM T WHERE A =(SELECT TOP 3 B FROM U)",
         "SELECT  A FROM T WHERE A =(SELECT  B FROM U LIMIT 3) LIMIT 2", ""},
        {"SELECT TOP", "SELECT TOP", ""},
        {"SELECT TOP (1' A FROM T", "SELECT TOP (1' A FROM T", ""},
        {"SELECT A FROM T WHERE B =5 AND C ='O'Brien'", "SELECT A FROM T WHERE B =? AND C =?Brien'", "B=5 C='O' "},
    };
    for (const auto& caso : casos) {
        std::vector<Literal> literales;
        BuscarLiterales(caso.texto, literales);
        const Traduccion traduccion = Traducir(caso.texto, literales);
        EXPECT_EQ(caso.traducido, traduccion.texto);
        ASSERT_EQ(literales.size(), traduccion.destinos.size()) << caso.texto;
        std::string levantados;
        for (std::size_t i = 0; i < literales.size(); ++i)
            levantados += traduccion.destinos[i].columna + "=" + std::string(literales[i].texto) + " ";
        EXPECT_EQ(caso.levantados, levantados) << caso.texto;
    }
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
        EXPECT_EQ(huella, Plantilla::Huella(igual, literales)) << igual;
    }
    for (const char* otro :
         {"SELECT A FROM T WHERE B =12 AND C =5 ORDER BY A", "SELECT A FROM T WHERE B =12",
          "SELECT A FROM T WHERE B =12 AND C ='x' ORDER BY A DESC",
          "SELECT A FROM T WHERE B =12,5 AND C ='x' ORDER BY A", "SELECT A FROM T WHERE B = AND C ='x' ORDER BY A",
          "SELECT A FROM T WHERE B =12 AND C ='x ORDER BY A", ""})
        EXPECT_FALSE(plantilla.Coincide(otro, literales)) << otro;
}

TEST(CatalogoColumnas, LoQueNoSePudoLeerNoQuedaComoTablaSinColumnas) {
    sqlite3* base = nullptr;
    ASSERT_EQ(SQLITE_OK, sqlite3_open(":memory:", &base));
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> cierra(base, sqlite3_close);
    sqlite3_exec(base, "CREATE TABLE T (Dia datetime)", nullptr, nullptr, nullptr);
    CatalogoColumnas catalogo(base);
    sqlite3_progress_handler(
        base, 1, [](void*) { return 1; }, nullptr);
    EXPECT_THROW(catalogo.Tipo({"T"}, "Dia"), RuntimeError);
    sqlite3_progress_handler(base, 0, nullptr, nullptr);
    EXPECT_EQ(TipoColumna::Fecha, catalogo.Tipo({"T"}, "Dia"));
}

}  // namespace
}  // namespace kv::prueba
