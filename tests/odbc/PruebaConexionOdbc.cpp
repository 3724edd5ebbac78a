#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "tests/comun/Errores.h"
#include "tests/odbc/BasesOdbc.h"

namespace kv::prueba {
namespace {

using D = ParameterDirection;

template <class Accion>
std::string Descripcion(Accion&& accion) {
    try {
        accion();
    } catch (const RuntimeError& error) {
        EXPECT_NE(0, error.numero);
        EXPECT_EQ("ODBC", error.origen);
        return error.descripcion;
    }
    return "no ha fallado";
}

bool Contiene(const std::string& texto, const std::string& trozo) {
    return texto.find(trozo) != std::string::npos;
}

class ConexionOdbcPostgres : public testing::Test {
  protected:
    void SetUp() override {
        base = Postgres();
        if (!base.falta.empty()) GTEST_SKIP() << base.falta;
        conexion = base.Conectar();
        conexion->EjecutarLote("DROP TABLE IF EXISTS Notas; CREATE TABLE Notas (Codigo int, Texto text)");
    }
    static Valor Uno(Connection& cnx, const std::string& sql) {
        std::unique_ptr<Recordset> rs;
        AbrirLectura(rs, cnx, sql);
        return rs->Fields("v").Value();
    }
    int Notas(Connection& cnx) const { return ALong(Uno(cnx, "SELECT COUNT(*) AS v FROM Notas")); }

    BaseOdbc base;
    std::shared_ptr<ConexionOdbc> conexion;
};

TEST_F(ConexionOdbcPostgres, TextoLargo_VaYVuelveEntero) {
    std::string largo;
    for (int i = 0; i < 20000; ++i) largo += "ñ€x😀 ";
    conexion->Ejecutar("INSERT INTO Notas VALUES (1, '" + largo + "')");
    EXPECT_EQ(100000, ALong(Uno(*conexion, "SELECT char_length(Texto) AS v FROM Notas")));
    EXPECT_TRUE(Valor(largo) == Uno(*conexion, "SELECT Texto AS v FROM Notas"));
    EXPECT_EQ(Valor(std::string("corto")), Uno(*conexion, "SELECT 'corto'::text AS v"));
}

TEST_F(ConexionOdbcPostgres, DecimalesSonDineroExacto) {
    const struct {
        const char* texto;
        std::int64_t diezmilesimas;
    } casos[] = {
        {"922337203685477.5807", 9223372036854775807},
        {"-922337203685477.5808", -9223372036854775807 - 1},
        {"0.5", 5000},
        {"-0.0001", -1},
        {"1.00005", 10000},
        {"1.00015", 10002},
        {"123456789.00000000000000000001", 1234567890000},
    };
    for (const auto& caso : casos)
        EXPECT_EQ(Valor(Currency::DeDiezmilesimas(caso.diezmilesimas)),
                  Uno(*conexion, std::string("SELECT ") + caso.texto + "::numeric(38,20) AS v"))
            << caso.texto;
    for (const char* grande : {"922337203685477.58075", "-922337203685477.58086", "99999999999999999999"})
        EsperarError(kErrDesbordamiento, "",
                     [&] { Uno(*conexion, std::string("SELECT ") + grande + "::numeric AS v"); });
    EsperarError(kErrTipo, "", [&] { Uno(*conexion, "SELECT 'NaN'::numeric AS v"); });
}

TEST_F(ConexionOdbcPostgres, OtrosTipos) {
    EXPECT_EQ(Valor(std::int64_t{5000000000}), Uno(*conexion, "SELECT 5000000000::bigint AS v"));
    EXPECT_EQ(Valor(1.5F), Uno(*conexion, "SELECT 1.5::real AS v"));
    EXPECT_EQ(Valor(Fecha::DeAmd(2026, 3, 5)), Uno(*conexion, "SELECT timestamp '2026-03-05 23:59:59' AS v"));
    EXPECT_EQ(Valor(std::int32_t{1}), Uno(*conexion, "SELECT 1 AS V, 2 AS v"));
    EsperarError(kErrTipo, "", [&] { Uno(*conexion, "SELECT ''::bytea AS v"); });
    EXPECT_EQ(0, conexion->EjecutarContando("SELECT 1 AS v"));
}

TEST_F(ConexionOdbcPostgres, TablaQueCambia_SeVeComoEs) {
    conexion->Ejecutar("INSERT INTO Notas VALUES (7, 'x')");
    const auto codigo = [&] { return Uno(*conexion, "SELECT Codigo AS v FROM Notas WHERE Codigo =7"); };
    EXPECT_EQ(Valor(std::int32_t{7}), codigo());
    EXPECT_EQ(Valor(std::int32_t{7}), codigo());
    conexion->EjecutarLote("ALTER TABLE Notas ALTER COLUMN Codigo TYPE numeric(10,4)");
    EXPECT_EQ(Valor(Currency::DeEntero(7)), codigo());
}

// The first rows are read column by column, the rest through bound columns, wide text never.
TEST_F(ConexionOdbcPostgres, MuchasFilas_SeLeenTodasIgual) {
    for (const char* texto : {"varchar(3)", "varchar(400)", "text"}) {
        std::unique_ptr<Recordset> rs;
        AbrirLectura(
            rs, *conexion,
            std::string("SELECT i::int AS i, CASE WHEN i % 3 = 0 THEN NULL ELSE i / 4.0 END::numeric(9,2) AS d,"
                        " repeat('€', i % 4)::") +
                texto +
                " AS t, date '2026-01-01' + i AS f,"
                " i % 2 = 0 AS b FROM generate_series(1, 9) AS i ORDER BY i");
        for (int i = 1; i <= 9; ++i, rs->MoveNext()) {
            std::string euros;
            for (int e = 0; e < i % 4; ++e) euros += "€";
            EXPECT_EQ(Valor(i), rs->Fields("i").Value());
            EXPECT_EQ(i % 3 == 0 ? Valor(Nulo{}) : Valor(Currency::DeDiezmilesimas(i * 2500)), rs->Fields("d").Value());
            EXPECT_EQ(Valor(euros), rs->Fields("t").Value()) << texto << i;
            EXPECT_EQ(Valor(Fecha::DeAmd(2026, 1, 1) + i), rs->Fields("f").Value());
            EXPECT_EQ(Valor(i % 2 == 0), rs->Fields("b").Value());
        }
        EXPECT_TRUE(rs->Eof());
    }
}

TEST_F(ConexionOdbcPostgres, Procedimiento_EntradasSalidasYValorDevuelto) {
    conexion->EjecutarLote(
        "CREATE OR REPLACE FUNCTION Doblar(entero int, corto smallint, octeto smallint, dinero numeric, doble float,"
        " simple real, dia timestamp, cierto boolean, texto varchar, nulo int, OUT retorno int, OUT dinero2 numeric,"
        " OUT dia2 timestamp, OUT texto2 varchar, OUT nulo2 int) AS $$ SELECT entero + corto + octeto,"
        " dinero * 2, dia + interval '1 day', texto || doble::text || simple::text || cierto::text, nulo $$"
        " LANGUAGE sql");
    const auto comando = conexion->CrearCommand();
    comando->CommandType = CommandType::adCmdStoredProc;
    comando->CommandText = "Doblar";
    auto& p = comando->Parameters;
    p.Append({"@Entero", DataType::adInteger, D::adParamInput, 0, std::int32_t{70000}});
    p.Append({"@Corto", DataType::adSmallInt, D::adParamInput, 0, std::int16_t{-5}});
    p.Append({"@Octeto", DataType::adTinyInt, D::adParamInput, 0, std::int16_t{300}});
    p.Append({"@Dinero", DataType::adCurrency, D::adParamInput, 0, Currency::DeDiezmilesimas(4611686018427387903)});
    p.Append({"@Doble", DataType::adDouble, D::adParamInput, 0, 0.1});
    p.Append({"@Simple", DataType::adSingle, D::adParamInput, 0, 2.5F});
    p.Append({"@Dia", DataType::adDate, D::adParamInput, 0, Fecha::DeAmd(2026, 12, 31)});
    p.Append({"@Cierto", DataType::adBoolean, D::adParamInput, 0, true});
    p.Append({"@Texto", DataType::adVarChar, D::adParamInput, 10, std::string("ñ€ ")});
    p.Append({"@Nulo", DataType::adInteger, D::adParamInput, 0, Nulo{}});
    p.Append({"@Retorno", DataType::adInteger, D::adParamOutput, 0, Nulo{}});
    p.Append({"@Dinero2", DataType::adCurrency, D::adParamOutput, 0, Nulo{}});
    p.Append({"@Dia2", DataType::adDate, D::adParamOutput, 0, Nulo{}});
    p.Append({"@Texto2", DataType::adVarChar, D::adParamOutput, 50, Nulo{}});
    p.Append({"@Nulo2", DataType::adInteger, D::adParamOutput, 0, std::int32_t{7}});
    comando->Execute(CommandType::adOptionUnspecified);
    EXPECT_EQ(Valor(std::int32_t{70295}), p.Item("@Retorno").Value);
    EXPECT_EQ(Valor(Currency::DeDiezmilesimas(9223372036854775806)), p.Item("@Dinero2").Value);
    EXPECT_EQ(Valor(Fecha::DeAmd(2027, 1, 1)), p.Item("@Dia2").Value);
    EXPECT_EQ(Valor(std::string("ñ€ 0.12.5true")), p.Item("@Texto2").Value);
    EXPECT_EQ(Valor(Nulo{}), p.Item("@Nulo2").Value);
}

TEST_F(ConexionOdbcPostgres, Procedimiento_ValorDevueltoTiempoYNombre) {
    conexion->EjecutarLote("CREATE OR REPLACE FUNCTION Siete(a int) RETURNS int AS $$ SELECT a + 7 $$ LANGUAGE sql");
    const auto comando = conexion->CrearCommand();
    comando->CommandType = CommandType::adCmdStoredProc;
    comando->CommandText = "Siete";
    comando->Parameters.Append({"Return", DataType::adInteger, D::adParamReturnValue, 0, Nulo{}});
    comando->Parameters.Append({"@A", DataType::adInteger, D::adParamInput, 0, std::int32_t{1}});
    comando->Execute(CommandType::adOptionUnspecified);
    EXPECT_EQ(Valor(std::int32_t{8}), comando->Parameters.Item("Return").Value);
    comando->CommandText = "NoHay";
    EXPECT_TRUE(
        Contiene(Descripcion([&] { comando->Execute(CommandType::adOptionUnspecified); }), "{? = call NoHay(?)}"));
    comando->CommandText = "Siete(1)}; DELETE FROM Notas; {call Siete";
    EsperarError(kErrLlamadaInvalida, "", [&] { comando->Execute(CommandType::adOptionUnspecified); });

    const auto lento = conexion->CrearCommand();
    lento->CommandType = CommandType::adCmdStoredProc;
    lento->CommandText = "pg_sleep";
    lento->CommandTimeout = 1;
    lento->Parameters.Append({"@Segundos", DataType::adDouble, D::adParamInput, 0, 20.0});
    EXPECT_TRUE(Contiene(Descripcion([&] { lento->Execute(CommandType::adOptionUnspecified); }), "timeout"));
}

TEST_F(ConexionOdbcPostgres, DiagnosticoEntero_YLoteQueFallaAlFinal) {
    const std::string nombre(3000, 'n');
    conexion->EjecutarLote("CREATE OR REPLACE FUNCTION Falla() RETURNS int AS $$ BEGIN RAISE EXCEPTION '" + nombre +
                           " ñ€ fin'; END $$ LANGUAGE plpgsql");
    const std::string descripcion = Descripcion([&] { conexion->Ejecutar("SELECT Falla() AS v"); });
    EXPECT_TRUE(Contiene(descripcion, nombre + " ñ€ fin")) << descripcion;
    EXPECT_TRUE(descripcion.starts_with("[P0001] (")) << descripcion;
    EXPECT_TRUE(descripcion.ends_with("; sentencia: SELECT Falla() AS v")) << descripcion;
    EXPECT_TRUE(
        Contiene(Descripcion([&] { conexion->EjecutarLote("SELECT 1; INSERT INTO Notas VALUES (1, ''); SELECT 1/0"); }),
                 "[22012]"));
}

TEST_F(ConexionOdbcPostgres, Transacciones_DejanElAutocommitComoEstaba) {
    const auto otra = base.Conectar();
    conexion->BeginTrans();
    conexion->Ejecutar("INSERT INTO Notas VALUES (1, '')");
    EXPECT_EQ(0, Notas(*otra));
    EsperarError(kErrTransaccionAbierta, "ODBC", [&] { conexion->BeginTrans(); });
    conexion->CommitTrans();
    EXPECT_EQ(1, Notas(*otra));
    conexion->Ejecutar("INSERT INTO Notas VALUES (2, '')");
    EXPECT_EQ(2, Notas(*otra));
    conexion->BeginTrans();
    conexion->RollbackTrans();
    conexion->Ejecutar("INSERT INTO Notas VALUES (3, '')");
    EXPECT_EQ(3, Notas(*otra));
    EsperarError(kErrSinTransaccion, "ODBC", [&] { conexion->RollbackTrans(); });
}

TEST_F(ConexionOdbcPostgres, RollbackQueFalla_AcabaLaTransaccion) {
    const auto otra = base.Conectar();
    const std::int32_t proceso = ALong(Uno(*conexion, "SELECT pg_backend_pid() AS v"));
    conexion->BeginTrans();
    conexion->Ejecutar("INSERT INTO Notas VALUES (1, '')");
    Uno(*otra, "SELECT pg_terminate_backend(" + std::to_string(proceso) + ") AS v");
    EXPECT_NE("no ha fallado", Descripcion([&] { conexion->CommitTrans(); }));
    try {
        conexion->RollbackTrans();
    } catch (const RuntimeError& error) {
        EXPECT_NE(kErrSinTransaccion, error.numero);
    }
    EsperarError(kErrSinTransaccion, "ODBC", [&] { conexion->RollbackTrans(); });
    EXPECT_EQ(0, Notas(*otra));
}

TEST_F(ConexionOdbcPostgres, ConexionQueAcaba_DeshaceYSusObjetosLoDicen) {
    conexion->BeginTrans();
    conexion->Ejecutar("INSERT INTO Notas VALUES (1, '')");
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, *conexion, "SELECT 1 AS v");
    const auto otra = base.Conectar();
    conexion.reset();
    EXPECT_EQ(0, Notas(*otra));
    EXPECT_EQ(Valor(std::int32_t{1}), rs->Fields("v").Value());
    rs->Close();
    EsperarError(kErrObjetoCerrado, "", [&] { AbrirLectura(rs, *otra, "SELECT 1 AS v"); });
}

TEST_F(ConexionOdbcPostgres, ConexionPerdida_EsUnErrorYNadaSeRepite) {
    const auto otra = base.Conectar();
    const std::int32_t proceso = ALong(Uno(*conexion, "SELECT pg_backend_pid() AS v"));
    Uno(*otra, "SELECT pg_terminate_backend(" + std::to_string(proceso) + ") AS v");
    for (int i = 0; i < 2; ++i) {
        const std::string fallo = Descripcion([&] { conexion->Ejecutar("INSERT INTO Notas VALUES (1, '')"); });
        EXPECT_TRUE(fallo.starts_with("[08") || fallo.starts_with("[57P01]")) << fallo;
    }
    EXPECT_NE("no ha fallado", Descripcion([&] { conexion->BeginTrans(), Notas(*conexion); }));
    EXPECT_EQ(0, Notas(*otra));
}

TEST_F(ConexionOdbcPostgres, SesionQueNoEsTransactSql_SeRechaza) {
    EsperarError(kErrSesionInservible, "ODBC", [&] { ConexionOdbc(base.cadena); });
}

TEST(ConexionOdbcSinServidor, ErrorClaroSinLaClave) {
    const std::string freetds = Controlador("libtdsodbc.so");
    if (freetds.empty()) GTEST_SKIP() << "no hay controlador FreeTDS (tdsodbc)";
    const std::string cerrado = "Driver=" + freetds + ";Server=127.0.0.1;Port=9;UID=sa;Database=x;";
    for (const char* clave : {"PWD=", "pwd = ", "Password="}) {
        const std::string fallo = Descripcion([&] { ConexionOdbc(cerrado + clave + "{Secretísima;1}"); });
        EXPECT_TRUE(fallo.starts_with("No se puede conectar: [08")) << fallo;
        EXPECT_TRUE(Contiene(fallo, "; [08001]")) << fallo;
        EXPECT_FALSE(Contiene(fallo, "Secret")) << fallo;
    }
    const std::string sinControlador = Descripcion([] { ConexionOdbc("Driver=/no/hay/Clave1.so;PWD=Clave1"); });
    EXPECT_TRUE(Contiene(sinControlador, "/no/hay/***.so")) << sinControlador;
}

}  // namespace
}  // namespace kv::prueba
