#include "kvdatosart/bench/BaseGrande.h"

#include <sqlite3.h>

#include <stdexcept>

#include "kvdatosart/db/sqlite/ConexionSqlite.h"
#include "kvdatosart/schema/Esquema.h"

namespace kv::bench {
namespace {

std::string Serie(int cuantos) {
    return "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " + std::to_string(cuantos) + ") ";
}

void Ejecutar(sqlite3* base, const std::string& sql) {
    if (sqlite3_exec(base, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error(std::string(sqlite3_errmsg(base)) + ": " + sql);
}

}  // namespace

void CrearBaseGrande(const std::string& ruta, int articulos) {
    ConexionSqlite::Crear(ruta, kIdentidadEsquema, EsquemaSqlite(), [](Connection&) {});
    sqlite3* base = nullptr;
    if (sqlite3_open(ruta.c_str(), &base) != SQLITE_OK) throw std::runtime_error("no se abre " + ruta);
    const std::string serie = Serie(articulos);
    Ejecutar(base, "BEGIN");
    Ejecutar(
        base,
        "INSERT INTO Empresas (Codigo, Nombre, Cod_EmpresaArticulos, Cod_EmpresaClientes, Cod_EmpresaExtra,"
        " Tarifa, CaptionFamilia1, CaptionFamilia2, CaptionFamilia3) VALUES (1, 'Grande', 1, 1, 1, 1, 'a', 'b', 'c')");
    Ejecutar(base, "INSERT INTO Almacenes (Cod_Empresa, Codigo, Nombre) VALUES (1, 1, 'Central')");
    Ejecutar(base, serie +
                       "INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, Familia_1, Familia_2, Familia_3,"
                       " CtaVentas, CtaDVentas, PU_Compra, Peso) SELECT 1, i, 'Artículo de catálogo número ' || i,"
                       " 1 + i % 9, 1 + i % 7, 1 + i % 5, '700000001', '708000001', i % 90 + 0.25, 1.5 FROM n");
    Ejecutar(base, serie +
                       "INSERT INTO Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp)"
                       " SELECT 1, i, 1, i % 90 + 9.95 FROM n");
    Ejecutar(base, serie +
                       "INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, Stock_Actual,"
                       " PU_Compra, P_Medio) SELECT 1, 1, i, i % 50, i % 90 + 0.25, i % 90 + 0.125 FROM n");
    Ejecutar(base, serie +
                       "INSERT INTO Clientes_Cadenas_ConvArt (Cod_Empresa, Cod_Articulo, Cod_Nivel1, Cod_Nivel2,"
                       " Cod_Nivel3, Cod_Nivel4, Cod_Nivel5, Cod_Nivel6, Cod_Nivel7, Cod_Nivel8, Cod_Nivel9,"
                       " Cod_Nivel10, FechaEntrada, TDto1, ImporteDto1, Dto_Padre)"
                       " SELECT 1, i, 1 + i % 20, 0, 0, 0, 0, 0, 0, 0, 0, 0, '2020-01-01', 0, 5, 0 FROM n");
    Ejecutar(base, Serie(kClientes) +
                       "INSERT INTO Clientes (Cod_Empresa, Codigo, Nombre, Nombre_Comercial, Direccion, Localidad,"
                       " Provincia, Pais, EMail, Tarifa_Pvp, Cad_Nivel_1, Cad_Nivel_2, FAlta)"
                       " SELECT 1, i, 'Cliente número ' || i, 'Comercial ' || i, 'Calle larga ' || i, 'Zaragoza',"
                       " 'Zaragoza', 'España', 'cliente' || i || '@ejemplo.invalid', 1, 1 + i % 20, 1 + i % 7,"
                       " '2020-05-05' FROM n");
    Ejecutar(base, "COMMIT");
    Ejecutar(base, "ANALYZE");
    sqlite3_close(base);
}

}  // namespace kv::bench
