#pragma once

#include "kvdatosart/tests/comun/ContratoAdaptador.h"

namespace kv::prueba {

/// What SQLite cannot do through its ODBC driver.
inline const std::map<Exigencia, std::string> kNoPuedeSqliteOdbc = {
    {Exigencia::Top, "SQLite no conoce TOP"},
    {Exigencia::TextoAncho, "el controlador ODBC de SQLite no tiene funciones de texto ancho"},
    {Exigencia::Dinero, "el controlador ODBC de SQLite no declara decimales exactos"},
    {Exigencia::DiaMesAnio, "SQLite guarda las fechas como texto y no lee dd/mm/aaaa"},
    {Exigencia::FechaVacia, "SQLite no lee un texto vacío como fecha"},
    {Exigencia::Procedimientos, "SQLite no tiene procedimientos"},
    {Exigencia::LogicoMenosUno, "SQLite guarda -1 en un bit y no lo compara con 1"}};

inline void LlenarContrato(Connection& conexion) {
    conexion.Ejecutar("INSERT INTO Contrato VALUES (1, 12.3456, 1, 200, -5, 0.1, '2026-03-05', 'ñ € x ', NULL)");
    conexion.Ejecutar("INSERT INTO Contrato VALUES (2, -0.5, 0, 0, 7, 2.5, '1900-01-01', '', 9)");
}

/// The contract's table in SQLite behind its ODBC driver.
inline void CrearContratoSqlite(Connection& conexion) {
    conexion.Ejecutar(
        "CREATE TABLE Contrato (Codigo int NOT NULL PRIMARY KEY, Importe double, Activo bit, Octeto tinyint,"
        " Corto smallint, Doble double, Fecha date, Texto varchar(50), Nula int)");
    LlenarContrato(conexion);
}

}  // namespace kv::prueba
