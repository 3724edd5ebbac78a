#include "tests/comun/ContratoAdaptador.h"
#include "tests/comun/FicheroTemporal.h"
#include "tests/odbc/BasesOdbc.h"

namespace kv::prueba {
namespace {

void Llenar(ConexionOdbc& conexion, const char* dia, const char* cierto, const char* falso) {
    const std::string uno = std::string("INSERT INTO Contrato VALUES (1, 12.3456, ") + cierto + ", 200, -5, 0.1, '";
    const std::string dos = std::string("INSERT INTO Contrato VALUES (2, -0.5, ") + falso + ", 0, 7, 2.5, '";
    conexion.Ejecutar(uno + dia + "', 'ñ € x ', NULL)");
    conexion.Ejecutar(dos + "1900-01-01', '', 9)");
}

std::shared_ptr<Connection> ConectarSqlite() {
    const auto carpeta = std::make_shared<CarpetaTemporal>();
    auto conexion = std::make_shared<ConexionOdbc>(
        "Driver=" + Controlador("libsqlite3odbc.so") + ";Database=" + carpeta->Fichero("contrato.db"),
        DialectoOdbc::Otro);
    conexion->Ejecutar(
        "CREATE TABLE Contrato (Codigo int NOT NULL PRIMARY KEY, Importe double, Activo bit, Octeto tinyint,"
        " Corto smallint, Doble double, Fecha date, Texto varchar(50), Nula int)");
    Llenar(*conexion, "2026-03-05", "1", "0");
    // The folder lives as long as the connection.
    Connection* const abierta = conexion.get();
    return {abierta, [carpeta, conexion](Connection*) mutable { conexion.reset(); }};
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
    Llenar(*conexion, "2026-03-05", "true", "false");
    return conexion;
}

AdaptadorProbado Sqlite() {
    AdaptadorProbado sqlite{"odbc_sqlite", ConectarSqlite};
    if (Controlador("libsqlite3odbc.so").empty()) sqlite.falta = "no hay controlador ODBC de SQLite (libsqliteodbc)";
    sqlite.noPuede = {
        {Exigencia::Top, "SQLite no conoce TOP"},
        {Exigencia::TextoAncho, "el controlador ODBC de SQLite no tiene funciones de texto ancho"},
        {Exigencia::Dinero, "el controlador ODBC de SQLite no declara decimales exactos"},
        {Exigencia::DiaMesAnio, "SQLite guarda las fechas como texto y no lee dd/mm/aaaa"},
        {Exigencia::FechaVacia, "SQLite no lee un texto vacío como fecha"},
        {Exigencia::LogicoMenosUno, "SQLite guarda -1 en un bit y no lo compara con 1"},
    };
    return sqlite;
}

AdaptadorProbado PostgresProbado() {
    AdaptadorProbado postgres{"odbc_postgres", ConectarPostgres};
    postgres.falta = Postgres().falta;
    postgres.noPuede = {
        {Exigencia::Top, "PostgreSQL no conoce TOP"},
        {Exigencia::Mayusculas, "PostgreSQL pasa los nombres a minúsculas"},
        {Exigencia::Octeto, "PostgreSQL no tiene enteros de un byte"},
        {Exigencia::FechaVacia, "PostgreSQL no lee un texto vacío como fecha"},
    };
    return postgres;
}

INSTANTIATE_TEST_SUITE_P(OdbcSqlite, ContratoAdaptador, testing::Values(Sqlite()));
INSTANTIATE_TEST_SUITE_P(OdbcPostgres, ContratoAdaptador, testing::Values(PostgresProbado()));

}  // namespace
}  // namespace kv::prueba
