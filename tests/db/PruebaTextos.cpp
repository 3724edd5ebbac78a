#include <gtest/gtest.h>

#include "db/Nombres.h"
#include "db/Tokens.h"
#include "db/ValoresSql.h"
#include "tests/comun/EmpresaFija.h"
#include "tests/comun/Errores.h"

namespace kv::prueba {
namespace {

const Fecha kHoy = Fecha::DeAmd(2026, 3, 5);

TEST(ValoresSql, ConComaRegional_SoloElCurrencyPorOmisionLleva) {
    const Currency importe = Currency::DeDouble(-12.5);
    for (const char separador : {',', '.'}) {
        const BibliotecaDePrueba biblioteca(kHoy, separador);
        EXPECT_EQ("-12.5", SqlDoble(-12.5).Cadena());
        EXPECT_EQ("-12.5", SqlNumero(importe).Cadena());
        EXPECT_EQ("-12.5", SqlNumero(-12.5).Cadena());
        EXPECT_EQ("-12.5", SqlCurrencyConPunto(importe).Cadena());
        EXPECT_EQ(std::string("-12") + separador + "5", SqlCurrency(importe).Cadena());
        EXPECT_EQ(std::string("-12") + separador + "50", Biblioteca().FormatoPantalla(importe, 2));
    }
    EXPECT_EQ("-32768", SqlEntero(-32768).Cadena());
    EXPECT_EQ("05/03/2026", SqlFecha(kHoy).Cadena());
    EXPECT_EQ("05/03/2026", SqlFechaLiteral(kHoy).Cadena());
    EXPECT_EQ("-1", SqlBooleano(true).Cadena());
    EXPECT_EQ("1", SqlBooleanoAbsoluto(true).Cadena());
    EXPECT_EQ("a =1 b", TextoSql("a =", SqlEntero(1), std::string(" b")));
}

TEST(Biblioteca, OmisionYSustituta) {
    const char antes = Biblioteca().SeparadorDecimal();
    FijarSeparadorDecimal(',');
    EXPECT_EQ(',', Biblioteca().SeparadorDecimal());
    FijarSeparadorDecimal(antes);
    EsperarError(kErrLlamadaInvalida, "", [] { FijarSeparadorDecimal(';'); });
    {
        const BibliotecaDePrueba biblioteca(kHoy);
        EXPECT_EQ(kHoy, Biblioteca().Hoy());
        Biblioteca().MensajeCritico("texto", "título");
        EXPECT_EQ(1U, biblioteca.Mensajes().size());
    }
    EXPECT_LT(kHoy, Biblioteca().Hoy());
    EXPECT_EQ(Currency::DeDouble(2.35), Biblioteca().Redondear(Currency::DeDouble(2.345), 2));
}

TEST(MismoNombre, SoloIgualaLetras) {
    EXPECT_TRUE(MismoNombre("Cod_Empresa", "COD_empresa"));
    EXPECT_FALSE(MismoNombre("A@", "a`"));
    EXPECT_FALSE(MismoNombre("A[", "A{"));
    EXPECT_FALSE(MismoNombre("AB", "A"));
}

TEST(ExigirUnaSentencia, RechazaLaSegundaYNoLoQueSoloLoParece) {
    for (const char* buena :
         {"SELECT 1", "SELECT 1;", "SELECT ';' AS a", "SELECT 'a''; DELETE FROM T' AS a", "SELECT 1 /* ; x */ ",
          "SELECT 1 -- ; x", "SELECT * FROM T WHERE A IN (SELECT 1)", "UPDATE T SET A = 1 WHERE B = 'DELETE'",
          "SELECT a.Update, a.[Drop] FROM T a", "SELECT 1 UNION ALL SELECT 2"})
        EXPECT_NO_THROW(ExigirUnaSentencia(buena)) << buena;
    for (const char* mala : {"SELECT 1; SELECT 2", "SELECT 1 DELETE FROM T", "SELECT 1 SELECT 2",
                             "SELECT * FROM T WHERE A = 'x'; DROP TABLE T --'", "DELETE FROM T WHERE A=1 EXEC P",
                             "SELECT 1;;", "SELECT * FROM T WHERE A='O'UPDATE T SET B=1"})
        EsperarError(kErrVariasSentencias, "", [&] { ExigirUnaSentencia(mala); });
    EsperarError(kErrTipo, "", [] { ExigirUnaSentencia("SELECT * FROM T WHERE A = 'O'Brien'"); });
}

}  // namespace
}  // namespace kv::prueba
