#include "kvdatosart/tests/comun/FicheroTemporal.h"
#include "kvdatosart/tests/odbc/BasesOdbc.h"
#include "kvdatosart/tests/odbc/ContratoSqlite.h"

namespace kv::prueba {
namespace {

std::shared_ptr<Connection> ConectarSqlite() {
    // The folder lives as long as the connection.
    struct Abierta {
        CarpetaTemporal carpeta;
        ConexionOdbc conexion{
            "Driver=" + Controlador("libsqlite3odbc.so") + ";Database=" + carpeta.Fichero("contrato.db"),
            DialectoOdbc::Otro};
    };
    const auto abierta = std::make_shared<Abierta>();
    CrearContratoSqlite(abierta->conexion);
    return {abierta, &abierta->conexion};
}

std::shared_ptr<Connection> ConectarPostgres() {
    auto conexion = Postgres().Conectar();
    conexion->EjecutarLote("DROP TABLE IF EXISTS Contrato");
    // So that a number can be written into a Boolean, as the component does.
    conexion->Ejecutar(
        "UPDATE pg_cast SET castcontext ='i' WHERE castsource ='int4'::regtype AND casttarget ='bool'::regtype");
    conexion->Ejecutar(
        "CREATE TABLE Contrato (Codigo int NOT NULL PRIMARY KEY, Importe numeric(19,4), Activo boolean,"
        " Octeto smallint, Corto smallint, Doble float, Fecha date, Texto varchar(50), Nula int)");
    conexion->EjecutarLote(
        "CREATE OR REPLACE FUNCTION Salidas(numero float, OUT s0 float, OUT s1 int, OUT s2 int, OUT s3 boolean,"
        " OUT s4 date, OUT s5 text, OUT s6 int) AS $$ SELECT numero, 2, 5, true, date '2026-03-05', 'ñ', NULL::int $$"
        " LANGUAGE sql");
    LlenarContrato(*conexion);
    return conexion;
}

const AdaptadorProbado kSqlite{
    "odbc_sqlite", ConectarSqlite, kNoPuedeSqliteOdbc,
    Controlador("libsqlite3odbc.so").empty() ? "no hay controlador ODBC de SQLite (libsqliteodbc)" : ""};

const AdaptadorProbado kPostgres{"odbc_postgres",
                                 ConectarPostgres,
                                 {{Exigencia::Top, "PostgreSQL no conoce TOP"},
                                  {Exigencia::Mayusculas, "PostgreSQL pasa los nombres a minúsculas"},
                                  {Exigencia::Octeto, "PostgreSQL no tiene enteros de un byte"},
                                  {Exigencia::FechaVacia, "PostgreSQL no lee un texto vacío como fecha"}},
                                 Postgres().falta};

INSTANTIATE_TEST_SUITE_P(Odbc, ContratoAdaptador, testing::Values(kSqlite, kPostgres));

}  // namespace
}  // namespace kv::prueba
