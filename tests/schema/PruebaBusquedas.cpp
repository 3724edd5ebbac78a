#include <gtest/gtest.h>
#include <sqlite3.h>

#include <map>

#include "kvdatosart/db/ConexionTrazada.h"
#include "kvdatosart/db/sqlite/Traduccion.h"
#include "kvdatosart/tests/comun/BaseDemo.h"
#include "kvdatosart/tests/comun/EmpresaFija.h"
#include "kvdatosart/tests/servidor/Pareja.h"

namespace kv::prueba {
namespace {

using Filas = std::vector<std::vector<std::string>>;

const Fecha kHoy = Fecha::DeAmd(2027, 2, 10);

// A statement without its numbers and texts.
std::string Forma(std::string_view texto) {
    std::string forma;
    bool literal = false;
    for (const char c : texto) {
        if (c == '\'') literal = !literal;
        if (!literal && (c < '0' || c > '9')) forma += c;
    }
    return forma;
}

// The rows of a statement of SQLite's own, past the adapter.
Filas LeerFilas(const BaseDePrueba& base, const std::string& sql) {
    sqlite3* sqlite = nullptr;
    sqlite3_open(base.Ruta().c_str(), &sqlite);
    Filas filas;
    const auto anotar = [](void* destino, int columnas, char** valores, char**) {
        static_cast<Filas*>(destino)->emplace_back(valores, valores + columnas);
        return 0;
    };
    EXPECT_EQ(SQLITE_OK, sqlite3_exec(sqlite, sql.c_str(), anotar, &filas, nullptr)) << sqlite3_errmsg(sqlite);
    sqlite3_close(sqlite);
    return filas;
}

// Each step of the plan must seek by more than the company, unless the lowest or highest code is taken from it.
void EsperarBusqueda(const BaseDePrueba& base, const std::string& texto, const std::string& traducido) {
    const bool extremo = texto.find("MIN(") != std::string::npos || texto.find("MAX(") != std::string::npos;
    // A list for people, and the few ranges of units or families of one article.
    const bool lista =
        texto.find("IsNull(des.") != std::string::npos || texto.find("Unidades_Min DESC") != std::string::npos;
    for (const auto& fila : LeerFilas(base, "EXPLAIN QUERY PLAN " + traducido)) {
        const std::string& paso = fila[3];
        // `Filas` are those that the levels of a discount found.
        const bool recorre = paso.starts_with("SCAN ") && paso != "SCAN CONSTANT ROW" && paso != "SCAN Filas";
        const bool soloEmpresa = paso.ends_with("(Cod_Empresa=?)") && !extremo;
        const bool ordena = paso.starts_with("USE TEMP B-TREE") && !lista;
        for (const bool mal : {recorre, soloEmpresa, ordena}) EXPECT_FALSE(mal) << paso << "\nen |" << texto << '|';
    }
}

// The discounts are sought by article or family besides, and the rows found are put in order once at most.
void EsperarProcedimiento(const BaseDePrueba& base, const std::string& cuerpo) {
    EsperarBusqueda(base, cuerpo, cuerpo);
    int ordenaciones = 0;
    for (const auto& fila : LeerFilas(base, "EXPLAIN QUERY PLAN " + cuerpo)) {
        const std::string& paso = fila[3];
        const bool todoElGrupo = paso.ends_with(" (Cod_Empresa=? AND Cod_Grupo=? AND Nivel=?)");
        const bool todoElCliente = paso.ends_with(" (Cod_Empresa=? AND Cod_Cliente=? AND Nivel=?)");
        for (const bool mal : {todoElGrupo, todoElCliente}) EXPECT_FALSE(mal) << paso;
        if (paso.starts_with("USE TEMP B-TREE")) ++ordenaciones;
    }
    EXPECT_LE(ordenaciones, 1) << cuerpo;
}

// What the scenarios send to the demonstration data, one statement of each form, and the procedures.
TEST(Busquedas, CadaSentencia_LlegaPorUnaClave) {
    const BaseDePrueba base(BaseDePrueba::Datos::Demostracion, kHoy);
    const BaseDePrueba otra(base);
    const BibliotecaDePrueba biblioteca(kHoy);
    std::map<std::string, std::string> formas;
    const auto anotar = [&](const OperacionTrazada& o) {
        if (o.error.empty() && (o.clase == "Open" || o.clase == "Execute")) formas.emplace(Forma(o.texto), o.texto);
    };
    Pareja pareja(std::make_shared<ConexionTrazada>(base.Abrir(), anotar), otra.Abrir());
    formas.clear();  // What reads the companies is not the component.
    Azar azar(1, kHoy);
    CompararCargas(pareja, azar, 300);
    CompararExistencias(pareja, azar, 300);
    CompararReglas(pareja, azar, 200);
    CompararClientes(pareja, azar, 200);
    EXPECT_GT(formas.size(), 120U);
    for (const auto& [forma, texto] : formas) EsperarBusqueda(base, texto, Traducir(texto, {}).texto);
    const Filas procedimientos = LeerFilas(base, "SELECT Cuerpo FROM Procedimientos");
    EXPECT_EQ(2U, procedimientos.size());
    for (const auto& fila : procedimientos) EsperarProcedimiento(base, fila[0]);
}

// As in the production database. The one exception is carried for a list and never looked up.
TEST(Busquedas, LosTextosDeLasClaves_NoDistinguenMayusculas) {
    const BaseDePrueba base(BaseDePrueba::Datos::Ninguno, kHoy);
    const auto distinguen = LeerFilas(
        base,
        "SELECT i.name, x.name FROM sqlite_master t, pragma_index_list(t.name) i, pragma_index_xinfo(i.name) x,"
        " pragma_table_info(t.name) c WHERE x.key = 1 AND c.name = x.name AND c.type LIKE 'varchar%'"
        " AND x.coll <> 'NOCASE'");
    EXPECT_EQ((Filas{{"IX_Articulos_Familias", "Descripcion"}}), distinguen);
}

}  // namespace
}  // namespace kv::prueba
