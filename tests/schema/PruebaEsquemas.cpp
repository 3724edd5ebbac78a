#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <sstream>

#include "schema/Lotes.h"
#include "tests/comun/BaseDemo.h"
#include "tests/schema/FilasSqlite.h"

namespace kv::prueba {
namespace {

const Fecha kHoy = Fecha::DeAmd(2027, 2, 10);

// A table in words that are the same for both databases: its columns in order, its key and its indexes.
using Tabla = std::vector<std::string>;
using Tablas = std::map<std::string, Tabla>;

const std::string kHoyPorDefecto = "HOY";

std::string Columna(const std::string& nombre, const std::string& tipo, bool noNulo, const std::string& defecto) {
    return nombre + " " + tipo + (noNulo ? " NOT NULL" : "") + (defecto.empty() ? "" : " DEFAULT " + defecto);
}

std::string Junta(const std::vector<std::vector<std::string>>& filas, std::size_t columna) {
    std::string texto;
    for (const auto& fila : filas) texto += (texto.empty() ? "" : ", ") + fila[columna];
    return texto;
}

Tablas LeerSqlite(const std::string& ruta) {
    Tablas tablas;
    for (const auto& t : LeerFilas(ruta, "SELECT name FROM sqlite_master WHERE type = 'table'")) {
        Tabla& tabla = tablas[t[0]];
        for (const auto& c : LeerFilas(
                 ruta, "SELECT name, lower(type), \"notnull\", dflt_value FROM pragma_table_info('" + t[0] + "')"))
            tabla.push_back(
                Columna(c[0], c[1], c[2] == "1", c[3] == "date('now', 'localtime')" ? kHoyPorDefecto : c[3]));
        tabla.push_back(
            "KEY " +
            Junta(LeerFilas(ruta, "SELECT name FROM pragma_table_info('" + t[0] + "') WHERE pk > 0 ORDER BY pk"), 0));
        for (const auto& i :
             LeerFilas(ruta, "SELECT name FROM pragma_index_list('" + t[0] + "') WHERE origin = 'c' ORDER BY seq DESC"))
            tabla.push_back(
                i[0] + " " +
                Junta(LeerFilas(ruta, "SELECT name FROM pragma_index_info('" + i[0] + "') ORDER BY seqno"), 0));
    }
    return tablas;
}

// The batches of the production script, without comments and with single blanks.
std::vector<std::string> Lotes() {
    std::vector<std::string> lotes;
    for (const std::string_view lote : LotesDe(EsquemaSqlServer())) {
        std::string& limpio = lotes.emplace_back();
        std::istringstream lineas{std::string(lote)};
        for (std::string linea; std::getline(lineas, linea);) {
            if (linea.starts_with("--")) continue;
            std::istringstream palabras(linea);
            for (std::string palabra; palabras >> palabra;) limpio += (limpio.empty() ? "" : " ") + palabra;
        }
    }
    return lotes;
}

// Takes `texto` up to `fin`, both included, and gives what stood before; all of it when `fin` is not there.
std::string Tomar(std::string_view& texto, std::string_view fin) {
    const std::size_t donde = std::min(texto.find(fin), texto.size());
    const std::string antes(texto.substr(0, donde));
    texto.remove_prefix(std::min(donde + fin.size(), texto.size()));
    return antes;
}

bool Saltar(std::string_view& texto, std::string_view principio) {
    if (!texto.starts_with(principio)) return false;
    texto.remove_prefix(principio.size());
    return true;
}

std::vector<std::string> Partes(std::string_view cuerpo) {
    std::vector<std::string> partes(1);
    int profundidad = 0;
    for (const char c : cuerpo) {
        profundidad += c == '(' ? 1 : c == ')' ? -1 : 0;
        if (c == ',' && profundidad == 0)
            partes.emplace_back();
        else if (c != ' ' || !partes.back().empty())
            partes.back() += c;
    }
    return partes;
}

// A day '20501231' as '2050-12-31'; any other default as it is.
std::string Defecto(std::string texto) {
    if (texto == "CONVERT(date, GETDATE())") return kHoyPorDefecto;
    const bool dia = texto.size() == 10 && texto.front() == '\'' && texto.back() == '\'';
    return dia ? texto.insert(7, "-").insert(5, "-") : texto;
}

// Name, type, NULL or NOT NULL, and the default with the name of its constraint, which is unique in a database.
std::string LeerColumnaTsql(const std::string& tabla, std::string_view texto) {
    const std::string nombre = Tomar(texto, " ");
    const std::string tipo = Tomar(texto, " ");
    const bool noNulo = Saltar(texto, "NOT ");
    EXPECT_TRUE(Saltar(texto, "NULL")) << tabla << '.' << nombre;
    std::string defecto;
    if (!texto.empty()) {
        EXPECT_EQ(" CONSTRAINT DF_" + tabla + "_" + nombre, Tomar(texto, " DEFAULT ("));
        EXPECT_TRUE(texto.ends_with(')')) << tabla << '.' << nombre;
        defecto = Defecto(std::string(texto.substr(0, texto.size() - 1)));
    }
    return Columna(nombre, tipo == "datetime" ? "date" : tipo, noNulo, defecto);
}

Tabla LeerTablaTsql(const std::string& nombre, std::string_view cuerpo) {
    Tabla tabla;
    for (const std::string& parte : Partes(cuerpo)) {
        std::string_view texto = parte;
        const bool clave = Saltar(texto, "CONSTRAINT PK_" + nombre + " PRIMARY KEY CLUSTERED (");
        tabla.push_back(clave ? "KEY " + Tomar(texto, ")") : LeerColumnaTsql(nombre, texto));
    }
    return tabla;
}

Tablas LeerTsql() {
    Tablas tablas;
    for (const std::string& lote : Lotes()) {
        std::string_view texto = lote;
        if (texto.find("CREATE TABLE ") != std::string_view::npos) {
            EXPECT_TRUE(Saltar(texto, "IF OBJECT_ID('")) << lote;
            const std::string nombre = Tomar(texto, "', 'U') IS NULL CREATE TABLE ");
            EXPECT_TRUE(Saltar(texto, nombre + " (")) << lote;
            tablas[nombre] = LeerTablaTsql(nombre, texto.substr(0, texto.rfind(')')));
        } else if (texto.find("CREATE INDEX ") != std::string_view::npos) {
            EXPECT_TRUE(Saltar(texto, "IF NOT EXISTS (SELECT 1 FROM sys.indexes WHERE name = '")) << lote;
            const std::string indice = Tomar(texto, "' AND object_id = OBJECT_ID('");
            const std::string tabla = Tomar(texto, "')) ");
            EXPECT_TRUE(Saltar(texto, "CREATE INDEX " + indice + " ON " + tabla + " (")) << lote;
            tablas[tabla].push_back(indice + " " + Tomar(texto, ")"));
        }
    }
    return tablas;
}

// The names of the parameters of a procedure, between its name and its body.
std::string LeerParametros(std::string_view texto) {
    std::string nombres;
    for (const std::string& parte : Partes(Tomar(texto, " AS BEGIN")))
        nombres += (nombres.empty() ? "" : ", ") + parte.substr(0, parte.find(' '));
    return nombres;
}

TEST(Esquemas, LosDosGuionesTienenLasMismasTablas) {
    Tablas sqlite = LeerSqlite(BaseDePrueba(BaseDePrueba::Datos::Ninguno, kHoy).Ruta());
    ASSERT_EQ(1U, sqlite.erase("Procedimientos"));
    const Tablas tsql = LeerTsql();
    EXPECT_GE(tsql.size(), 40U);
    for (const auto& [nombre, tabla] : sqlite)
        if (!tsql.contains(nombre)) ADD_FAILURE() << nombre << " falta en el de producción";
    for (const auto& [nombre, tabla] : tsql) EXPECT_EQ(sqlite[nombre], tabla) << nombre;
}

// The parameters in the order in which the component sends them, since a driver may pass them by position.
TEST(Esquemas, LosDosGuionesTienenLosMismosProcedimientos) {
    const std::string comunes =
        "@Empresa, @Cliente, @Articulo, @Familia1, @Familia2, @Familia3, @Nivel, @Niveles, @EmpFamilia1, @EmpFamilia2,"
        " @EmpFamilia3, ";
    const std::map<std::string, std::string> esperados = {
        {"KVP_DevDtoDescuentosFamilias", comunes + "@Dto"},
        {"KVP_DevDtoClientesGrupos", comunes + "@Unidades, @Dto"},
    };
    std::map<std::string, std::string> tsql;
    for (const std::string& lote : Lotes()) {
        std::string_view texto = lote;
        if (!Saltar(texto, "ALTER PROCEDURE ")) continue;
        const std::string nombre = Tomar(texto, " ");
        tsql[nombre] = LeerParametros(texto);
    }
    EXPECT_EQ(esperados, tsql);

    const BaseDePrueba base(BaseDePrueba::Datos::Ninguno, kHoy);
    for (const auto& fila : LeerFilas(base.Ruta(), "SELECT Nombre, Cuerpo FROM Procedimientos")) {
        ASSERT_TRUE(esperados.contains(fila[0])) << fila[0];
        std::string_view cuerpo = fila[1];
        for (Tomar(cuerpo, "@"); !cuerpo.empty(); Tomar(cuerpo, "@")) {
            const std::string nombre(cuerpo.substr(0, cuerpo.find_first_of(" ,)\n")));
            EXPECT_NE(std::string::npos, esperados.at(fila[0]).find("@" + nombre + ",")) << fila[0] << " @" << nombre;
        }
    }
}

}  // namespace
}  // namespace kv::prueba
