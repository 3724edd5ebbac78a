#include <gtest/gtest.h>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/tests/comun/Errores.h"
#include "kvdatosart/tests/comun/LeerValor.h"
#include "kvdatosart/tests/odbc/BasesOdbc.h"

namespace kv::prueba {
namespace {

using D = ParameterDirection;

/// Checks that `accion` fails with all of these in what it says.
template <class Accion>
void FallaCon(Accion accion, const std::vector<std::string>& trozos) {
    const std::string fallo = FalloDe(accion);
    for (const std::string& trozo : trozos) EXPECT_NE(std::string::npos, fallo.find(trozo)) << trozo << " en " << fallo;
}

class ConexionOdbcPostgres : public testing::Test {
  protected:
    void SetUp() override {
        if (!base.falta.empty()) GTEST_SKIP() << base.falta;
        conexion = base.Conectar();
        otra = base.Conectar();
        conexion->EjecutarLote("DROP TABLE IF EXISTS Notas; CREATE TABLE Notas (Codigo int, Texto text)");
    }
    Valor Uno(const std::string& sql) const { return LeerValor(*conexion, "SELECT " + sql + " AS v"); }
    void Anotar() const { conexion->Ejecutar("INSERT INTO Notas VALUES (7, '')"); }
    /// How many rows the other session sees.
    int Notas() const { return ALong(LeerValor(*otra, "SELECT COUNT(*) AS v FROM Notas")); }
    /// The server ends the session.
    void Cortar() const {
        const std::string proceso = AString(Uno("pg_backend_pid()"), '.');
        LeerValor(*otra, "SELECT pg_terminate_backend(" + proceso + ") AS v");
    }
    std::unique_ptr<Command> Procedimiento(const char* nombre) const {
        auto comando = conexion->CrearCommand();
        comando->CommandType = CommandType::adCmdStoredProc;
        comando->CommandText = nombre;
        return comando;
    }
    static void Ejecutar(Command& comando) { comando.Execute(CommandType::adOptionUnspecified); }

    const BaseOdbc base = Postgres();
    std::shared_ptr<ConexionOdbc> conexion;
    std::shared_ptr<ConexionOdbc> otra;
};

TEST_F(ConexionOdbcPostgres, TextoLargo_VaYVuelveEntero) {
    std::string largo;
    for (int i = 0; i < 20000; ++i) largo += "ñ€x😀 ";
    conexion->Ejecutar("INSERT INTO Notas VALUES (1, '" + largo + "')");
    EXPECT_EQ(Valor(100000), Uno("(SELECT char_length(Texto) FROM Notas)"));
    EXPECT_TRUE(Valor(largo) == Uno("(SELECT Texto FROM Notas)"));
    EXPECT_EQ(Valor(std::string("corto")), Uno("'corto'::text"));
}

TEST_F(ConexionOdbcPostgres, CadaTipoLlegaExacto) {
    const auto dinero = [](std::int64_t diezmilesimas) { return Valor(Currency::DeDiezmilesimas(diezmilesimas)); };
    const struct {
        const char* expresion;
        Valor valor;
    } casos[] = {
        {"922337203685477.5807::numeric(38,20)", dinero(9223372036854775807)},
        {"-922337203685477.5808::numeric(38,20)", dinero(-9223372036854775807 - 1)},
        {"-0.0001::numeric(38,20)", dinero(-1)},
        {"1.00005::numeric(38,20)", dinero(10000)},
        {"1.00015::numeric(38,20)", dinero(10002)},
        {"123456789.00000000000000000001::numeric(38,20)", dinero(1234567890000)},
        {"5000000000::bigint", std::int64_t{5000000000}},
        {"1.5::real", 1.5F},
        {"timestamp '2026-03-05 23:59:59'", Fecha::DeAmd(2026, 3, 5)},
        {"1 AS V, 2", std::int32_t{1}},
    };
    for (const auto& caso : casos) EXPECT_EQ(caso.valor, Uno(caso.expresion)) << caso.expresion;
    for (const char* grande :
         {"922337203685477.58075", "-922337203685477.58086", "99999999999999999999", "0.5::numeric(600,590)"})
        EsperarError(kErrDesbordamiento, "", [&] { Uno(std::string(grande) + "::numeric"); });
    for (const char* raro : {"'NaN'::numeric", "''::bytea"}) EsperarError(kErrTipo, "", [&] { Uno(raro); });
    EXPECT_EQ(0, conexion->EjecutarContando("SELECT 1 AS v"));
}

TEST_F(ConexionOdbcPostgres, TablaQueCambia_SeVeComoEs) {
    Anotar();
    for (int vez = 1; vez <= 2; ++vez) EXPECT_EQ(Valor(std::int32_t{7}), Uno("(SELECT Codigo FROM Notas)"));
    conexion->EjecutarLote("ALTER TABLE Notas ALTER COLUMN Codigo TYPE numeric(10,4)");
    EXPECT_EQ(Valor(Currency::DeEntero(7)), Uno("(SELECT Codigo FROM Notas)"));
}

// The first rows are read column by column, the rest through bound columns, wide text never.
TEST_F(ConexionOdbcPostgres, MuchasFilas_SeLeenTodasIgual) {
    for (const std::string texto : {"varchar(3)", "varchar(400)", "text"}) {
        std::unique_ptr<Recordset> rs;
        AbrirLectura(rs, *conexion,
                     "SELECT i::int AS i, CASE WHEN i % 3 = 0 THEN NULL ELSE i / 4.0 END::numeric(9,2) AS d,"
                     " repeat('€', i % 4)::" +
                         texto +
                         " AS t, date '2026-01-01' + i AS f, i % 2 = 0 AS b"
                         " FROM generate_series(1, 9) AS i ORDER BY i");
        for (int i = 1; i <= 9; ++i, rs->MoveNext()) {
            const Valor esperados[] = {i, i % 3 == 0 ? Valor(Nulo{}) : Valor(Currency::DeDiezmilesimas(i * 2500)),
                                       std::string("€€€").substr(0, std::string("€").size() * (i % 4)),
                                       Fecha::DeAmd(2026, 1, 1) + i, i % 2 == 0};
            for (int c = 0; c < 5; ++c)
                EXPECT_EQ(esperados[c], rs->Fields(rs->NombreCampo(c)).Value()) << texto << " fila " << i;
        }
        EXPECT_TRUE(rs->Eof());
    }
}

TEST_F(ConexionOdbcPostgres, Procedimiento_EntradasYSalidasDeCadaTipo) {
    conexion->EjecutarLote(
        "CREATE OR REPLACE FUNCTION Doblar(entero int, corto smallint, octeto smallint, dinero numeric, doble float,"
        " simple real, dia timestamp, cierto boolean, texto varchar, nulo int, OUT retorno int, OUT dinero2 numeric,"
        " OUT dia2 timestamp, OUT texto2 varchar, OUT nulo2 int) AS $$ SELECT entero + corto + octeto,"
        " dinero * 2, dia + interval '1 day', texto || doble::text || simple::text || cierto::text, nulo $$"
        " LANGUAGE sql");
    using enum DataType;
    const auto comando = Procedimiento("Doblar");
    std::vector<Valor> esperados, leidos;
    const auto entra = [&](DataType tipo, const Valor& valor) {
        comando->Parameters.Append("@E", tipo, D::adParamInput, 10, valor);
        esperados.push_back(valor);
    };
    const auto sale = [&](DataType tipo, const Valor& valor) {
        comando->Parameters.Append("@S", tipo, D::adParamOutput, 50, Valor(7));
        esperados.push_back(valor);
    };
    entra(adInteger, 70000), entra(adSmallInt, std::int16_t{-5}), entra(adTinyInt, std::int16_t{300});
    entra(adCurrency, Currency::DeDiezmilesimas(4611686018427387903)), entra(adDouble, 0.1), entra(adSingle, 2.5F);
    entra(adDate, Fecha::DeAmd(2026, 12, 30)), entra(adBoolean, true), entra(adVarChar, "ñ€ "),
        entra(adInteger, Nulo{});
    sale(adInteger, 70295), sale(adCurrency, Currency::DeDiezmilesimas(9223372036854775806));
    sale(adDate, Fecha::DeAmd(2026, 12, 31)), sale(adVarChar, "ñ€ 0.12.5true"), sale(adInteger, Nulo{});
    Ejecutar(*comando);
    for (const Parameter& parametro : comando->Parameters) leidos.push_back(parametro.Value);
    EXPECT_EQ(esperados, leidos);
}

TEST_F(ConexionOdbcPostgres, Procedimiento_ValorDevueltoNombreYTiempo) {
    conexion->EjecutarLote("CREATE OR REPLACE FUNCTION Siete(a int) RETURNS int AS $$ SELECT a + 7 $$ LANGUAGE sql");
    const auto comando = Procedimiento("Siete");
    comando->Parameters.Append({"Return", DataType::adInteger, D::adParamReturnValue, 0, Nulo{}});
    comando->Parameters.Append({"@A", DataType::adInteger, D::adParamInput, 0, std::int32_t{1}});
    Ejecutar(*comando);
    EXPECT_EQ(Valor(std::int32_t{8}), comando->Parameters.Item("Return").Value);
    comando->CommandText = "NoHay";
    FallaCon([&] { Ejecutar(*comando); }, {"{? = call NoHay(?)}"});
    comando->CommandText = "Siete(1)}; DELETE FROM Notas; {call Siete";
    EsperarError(kErrLlamadaInvalida, "", [&] { Ejecutar(*comando); });

    const auto lento = Procedimiento("pg_sleep");
    lento->CommandTimeout = 1;
    lento->Parameters.Append({"@Segundos", DataType::adDouble, D::adParamInput, 0, 20.0});
    FallaCon([&] { Ejecutar(*lento); }, {"timeout"});
}

TEST_F(ConexionOdbcPostgres, DiagnosticoEntero_YLoteQueFallaAlFinal) {
    const std::string texto = std::string(3000, 'n') + " ñ€ fin";
    conexion->EjecutarLote("CREATE OR REPLACE FUNCTION Falla() RETURNS int AS $$ BEGIN RAISE EXCEPTION '" + texto +
                           "'; END $$ LANGUAGE plpgsql");
    FallaCon([&] { conexion->Ejecutar("SELECT Falla() AS v"); },
             {"|ODBC|[P0001] (", texto, "; sentencia: SELECT Falla() AS v"});
    FallaCon([&] { conexion->EjecutarLote("SELECT 1; INSERT INTO Notas VALUES (1, ''); SELECT 1/0"); }, {"[22012]"});
}

TEST_F(ConexionOdbcPostgres, Transacciones_DejanElAutocommitComoEstaba) {
    conexion->BeginTrans();
    Anotar();
    EXPECT_EQ(0, Notas());
    EsperarError(kErrTransaccionAbierta, "ODBC", [&] { conexion->BeginTrans(); });
    conexion->CommitTrans();
    Anotar();
    EXPECT_EQ(2, Notas());
    conexion->BeginTrans();
    conexion->RollbackTrans();
    Anotar();
    EXPECT_EQ(3, Notas());
    EsperarError(kErrSinTransaccion, "ODBC", [&] { conexion->RollbackTrans(); });
}

TEST_F(ConexionOdbcPostgres, ConexionQueAcaba_DeshaceYSusObjetosLoDicen) {
    conexion->BeginTrans();
    Anotar();
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, *conexion, "SELECT 1 AS v");
    conexion.reset();
    EXPECT_EQ(0, Notas());
    EXPECT_EQ(Valor(std::int32_t{1}), rs->Fields("v").Value());
    rs->Close();
    EsperarError(kErrObjetoCerrado, "", [&] { AbrirLectura(rs, *otra, "SELECT 1 AS v"); });
}

TEST_F(ConexionOdbcPostgres, ConexionPerdida_AcabaLaTransaccionYNadaSeRepite) {
    conexion->BeginTrans();
    Anotar();
    Cortar();
    FallaCon([&] { conexion->CommitTrans(); }, {"|Se ha perdido la conexión y nada dice si "});
    EXPECT_FALSE(FalloDe([&] { conexion->RollbackTrans(); }).starts_with(std::to_string(kErrSinTransaccion)));
    EsperarError(kErrSinTransaccion, "ODBC", [&] { conexion->RollbackTrans(); });
    for (int vez = 1; vez <= 2; ++vez) {
        const std::string fallo = FalloDe([&] { Anotar(); });
        EXPECT_TRUE(std::set<std::string>({"08", "57"}).contains(fallo.substr(fallo.find("|ODBC|[") + 7, 2))) << fallo;
    }
    EXPECT_NE("", FalloDe([&] { conexion->BeginTrans(), Anotar(); }));
    EXPECT_EQ(0, Notas());
}

TEST_F(ConexionOdbcPostgres, SesionQueNoEsTransactSql_SeRechaza) {
    EsperarError(kErrSesionInservible, "ODBC", [&] { ConexionOdbc(base.cadena); });
}

TEST(ConexionOdbcSinServidor, ErrorClaroSinLaClave) {
    const std::string freetds = Controlador("libtdsodbc.so");
    if (freetds.empty()) GTEST_SKIP() << "no hay controlador FreeTDS (tdsodbc)";
    FallaCon([&] { ConexionOdbc("Driver=" + freetds + ";Server=127.0.0.1;Port=9;UID=sa;Database=x;PWD={Secreta;1}"); },
             {"|ODBC|No se puede conectar: [08", "; [08001]"});
    FallaCon([] { ConexionOdbc("Driver=/no/hay/Clave1.so;PWD=Clave1"); }, {"/no/hay/***.so"});
}

}  // namespace
}  // namespace kv::prueba
