#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <ctime>
#include <thread>

#include "kvdatosart/db/Ado.h"
#include "kvdatosart/db/BibliotecaComun.h"
#include "kvdatosart/db/Nombres.h"
#include "kvdatosart/db/Tokens.h"
#include "kvdatosart/db/ValoresSql.h"
#include "kvdatosart/tests/comun/Errores.h"
#include "kvdatosart/tests/comun/FicheroTemporal.h"

namespace kv::prueba {
namespace {

TEST(HoyFijado, ValeParaSuHiloYMientrasVive) {
    const Fecha uno = Fecha::DeAmd(2026, 3, 5);
    const Fecha otro = Fecha::DeAmd(2027, 4, 6);
    {
        const HoyFijado fijado(uno);
        {
            const HoyFijado dentro(otro);
            EXPECT_EQ(otro, Hoy());
        }
        EXPECT_EQ(uno, Hoy());
        std::thread([&] {
            EXPECT_NE(uno, Hoy());
            const HoyFijado suyo(otro);
            EXPECT_EQ(otro, Hoy());
        }).join();
        EXPECT_EQ(uno, Hoy());
    }
    EXPECT_EQ(Biblioteca().Hoy(), Hoy());
}

TEST(ValoresSql, ConComaRegional_SoloElCurrencyPorOmisionLaLleva) {
    const Currency importe = Currency::DeDouble(-12.5);
    const char antes = Biblioteca().SeparadorDecimal();
    for (const char separador : {',', '.'}) {
        FijarSeparadorDecimal(separador);
        for (const TextoNumero& texto :
             {SqlDoble(-12.5), SqlNumero(importe), SqlNumero(-12.5), SqlCurrencyConPunto(importe)})
            EXPECT_EQ("-12.5", texto.Cadena());
        EXPECT_EQ(std::string("-12") + separador + "5", SqlCurrency(importe).Cadena());
        EXPECT_EQ(std::string("-12") + separador + "50", Biblioteca().FormatoPantalla(importe, 2));
    }
    FijarSeparadorDecimal(antes);
    EsperarError(kErrLlamadaInvalida, "", [] { FijarSeparadorDecimal(';'); });
    const Fecha dia = Fecha::DeAmd(2026, 3, 5);
    EXPECT_EQ("-32768 05/03/2026 05/03/2026 -1 1 b",
              TextoSql(SqlEntero(-32768), " ", SqlFecha(dia), " ", SqlFechaLiteral(dia), " ", SqlBooleano(true), " ",
                       SqlBooleanoAbsoluto(true), std::string(" b")));
    EXPECT_LT(dia, Biblioteca().Hoy());
    EXPECT_EQ(Currency::DeDouble(2.35), Biblioteca().Redondear(Currency::DeDouble(2.345), 2));
    testing::internal::CaptureStderr();
    Biblioteca().MensajeCritico("hay dependencias", "¡Atención!");
    EXPECT_EQ("¡Atención! hay dependencias\n", testing::internal::GetCapturedStderr());
}

TEST(BibliotecaComun, HoyEsElDiaDeLaZonaLocal) {
    const auto en = [](const char* zona) {
        setenv("TZ", zona, 1);
        tzset();
        return BibliotecaComun().Hoy();
    };
    const Fecha enElOeste = en("AAA24");
    EXPECT_EQ(enElOeste + 2, en("AAA-24"));
    unsetenv("TZ");
    tzset();
}

// Suites of this name run first: afterwards the process knows its separator.
TEST(BibliotecaComunDeathTest, ElSeparadorEsElDelSistema) {
    const CarpetaTemporal carpeta;
    setenv("LOCPATH", carpeta.Fichero("").c_str(), 1);
    if (std::system(("localedef -i es_ES -f ISO-8859-1 " + carpeta.Fichero("es_ES")).c_str()) != 0)
        GTEST_SKIP() << "no hay localedef o no conoce es_ES (paquete locales)";
    for (const auto& [idioma, separador] : {std::pair("es_ES", ','), {"C", '.'}, {"xx_XX", '.'}}) {
        setenv("LC_ALL", idioma, 1);
        EXPECT_EXIT(_exit(Biblioteca().SeparadorDecimal()), testing::ExitedWithCode(separador), "") << idioma;
    }
    unsetenv("LC_ALL");
    unsetenv("LOCPATH");
}

// Over COM they are all that a number means.
TEST(Ado, CadaConstanteTieneElNumeroQueDocumenta) {
    const auto son = [](auto... constantes) { return std::vector<int>{static_cast<int>(constantes)...}; };
    using enum CursorType;
    using enum LockType;
    using enum DataType;
    using enum ParameterDirection;
    EXPECT_EQ((std::vector{0, 1, 2, 3}), son(adOpenForwardOnly, adOpenKeyset, adOpenDynamic, adOpenStatic));
    EXPECT_EQ((std::vector{1, 2, 3, 4}),
              son(adLockReadOnly, adLockPessimistic, adLockOptimistic, adLockBatchOptimistic));
    EXPECT_EQ((std::vector{-1, 1, 2, 4}), son(CommandType::adOptionUnspecified, CommandType::adCmdText,
                                              CommandType::adCmdTable, CommandType::adCmdStoredProc));
    EXPECT_EQ((std::vector{2, 3, 4, 5, 6, 7, 11, 16, 200}),
              son(adSmallInt, adInteger, adSingle, adDouble, adCurrency, adDate, adBoolean, adTinyInt, adVarChar));
    EXPECT_EQ((std::vector{1, 2, 3, 4}), son(adParamInput, adParamOutput, adParamInputOutput, adParamReturnValue));
    EXPECT_EQ((std::vector{0, 1}), son(ObjectState::adStateClosed, ObjectState::adStateOpen));
}

TEST(Identicos, VeCadaLetra) {
    for (std::size_t largo = 0; largo <= 70; ++largo) {
        const std::string texto(largo, 'a');
        EXPECT_TRUE(Identicos(texto, std::string(texto))) << largo;
        for (std::size_t pos = 0; pos < largo; ++pos) {
            std::string otro = texto;
            otro[pos] = 'b';
            EXPECT_FALSE(Identicos(texto, otro)) << largo << " " << pos;
        }
    }
}

TEST(MismoNombre, SoloIgualaLetras) {
    EXPECT_TRUE(MismoNombre("Cod_Empresa", "COD_empresa"));
    EXPECT_FALSE(MismoNombre("A@", "a`"));
    EXPECT_FALSE(MismoNombre("A[", "A{"));
    EXPECT_FALSE(MismoNombre("AB", "A"));
    EXPECT_EQ("azñ@[", Minusculas("AZñ@["));
}

TEST(ExigirUnaSentencia, RechazaLaSegundaYNoLoQueSoloLoParece) {
    for (const char* buena :
         {"SELECT 1", "SELECT 1;", "SELECT ';' AS a", "SELECT 'a''; DELETE FROM T' AS a", "SELECT 1 /* ; x */ ",
          "SELECT 1 -- ; x", "SELECT * FROM T WHERE A IN (SELECT 1)", "UPDATE T SET A = 1 WHERE B = 'DELETE'",
          "SELECT a.Update, a.[Drop] FROM T a", "SELECT 1 UNION ALL SELECT 2 UNION SELECT 3",
          "SELECT [a]]; DELETE FROM T] FROM T", "SELECT 1 /* /* */ ; x */", "SELECT * FROM T WHERE A = 'O'Brien'",
          "SELECT [A FROM T; DELETE FROM T", "SELECT \"A FROM T; DELETE FROM T", "SELECT 'A; DELETE FROM T"})
        EXPECT_NO_THROW(ExigirUnaSentencia(buena)) << buena;
    for (const char* mala :
         {"SELECT 1; SELECT 2", "SELECT 1 DELETE FROM T", "SELECT 1 SELECT 2",
          "SELECT * FROM T WHERE A = 'x'; DROP TABLE T --'", "DELETE FROM T WHERE A=1 EXEC P", "SELECT 1;;",
          "SELECT * FROM T WHERE A='O'UPDATE T SET B=1", "SELECT 1; SELECT 'x", "SELECT 1 DELETE FROM [T",
          "SELECT 1; 'x", "SELECT [a]] 'b] ; DELETE FROM T --'", "SELECT 1 /* /* */ ' */ ; DELETE FROM T --'"})
        EsperarError(kErrVariasSentencias, "", [&] { ExigirUnaSentencia(mala); });
}

}  // namespace
}  // namespace kv::prueba
