#include <algorithm>
#include <set>

#include "kvdatosart/db/sqlite/ConexionSqlite.h"
#include "kvdatosart/db/sqlite/ErrorSqlite.h"
#include "kvdatosart/db/sqlite/InteriorSqlite.h"

namespace kv {
namespace {

constexpr std::size_t kMaximoNombrados = 10;

std::string EntreComillas(const std::string& nombre) {
    return '"' + nombre + '"';
}

// What a table is called while the new one of its name takes its rows.
std::string Anterior(const std::string& tabla) {
    return "Anterior " + tabla;
}

// The characters that a column takes: 60 for "varchar(60)", 0 when it does not say.
int Anchura(const std::string& declarado) {
    constexpr std::string_view kTexto = "varchar(";
    return declarado.starts_with(kTexto) ? std::stoi(declarado.substr(kTexto.size())) : 0;
}

}  // namespace

/// Makes the tables of a file anew from the present script, whatever has changed in them, and moves their rows over,
/// column by column. SQLite cannot add a condition to a table that exists. Rows that the script itself writes, as those
/// of the stored procedures, take the place of the old ones of their key; tables, indexes and triggers that others
/// added stay. Runs inside a transaction of the caller's, without foreign keys and with `legacy_alter_table`, which
/// leaves the names in views and triggers alone.
class ConexionSqlite::Actualizacion {
  public:
    Actualizacion(Interior& interior, std::string ruta) : interior_(interior), ruta_(std::move(ruta)) {}

    /// Error with the file's name when something would not fit: what, in which table and under which key.
    void Hacer(const std::string& guion);

  private:
    using Pares = std::vector<std::pair<std::string, std::string>>;

    /// The first two columns of every row.
    static Pares Leer(Interior& interior, const std::string& sql);
    static Pares Objetos(Interior& interior);
    Pares Columnas(const std::string& tabla) {
        return Leer(interior_, "SELECT name, type FROM pragma_table_info('" + tabla + "')");
    }
    void Apartar(const std::string& tabla, const std::set<std::string>& propios);
    void Medir(const std::string& tabla);
    void Rechazar() const;
    void Pasar(const std::string& tabla);

    Interior& interior_;
    std::string ruta_;
    // How what others added to the tables is made again.
    std::vector<std::string> ajenos_;
    // What does not fit in the new tables.
    std::vector<std::string> impedimentos_;
};

void ConexionSqlite::Actualizacion::Hacer(const std::string& guion) {
    Interior nueva(":memory:", SQLITE_OPEN_READWRITE);
    nueva.Guion(guion);
    std::set<std::string> propios;
    for (const auto& [nombre, clase] : Objetos(nueva)) propios.insert(nombre);
    std::vector<std::string> tablas;
    for (const auto& [nombre, clase] : Objetos(interior_))
        if (clase == "table" && propios.contains(nombre)) tablas.push_back(nombre);

    for (const std::string& tabla : tablas) Apartar(tabla, propios);
    interior_.Guion(guion);
    for (const std::string& tabla : tablas) Medir(tabla);
    Rechazar();
    for (const std::string& tabla : tablas) Pasar(tabla);
    for (const std::string& objeto : ajenos_) interior_.Guion(objeto);
}

ConexionSqlite::Actualizacion::Pares ConexionSqlite::Actualizacion::Leer(Interior& interior, const std::string& sql) {
    Sentencia sentencia(interior.Base(), sql, sql);
    Pares pares;
    while (sentencia.Avanzar())
        pares.emplace_back(AString(sentencia.Leer(std::size_t{0}), '.'), AString(sentencia.Leer(std::size_t{1}), '.'));
    return pares;
}

ConexionSqlite::Actualizacion::Pares ConexionSqlite::Actualizacion::Objetos(Interior& interior) {
    return Leer(interior, "SELECT name, type FROM sqlite_schema WHERE sql NOT NULL");
}

// The names of its indexes are wanted for the new ones.
void ConexionSqlite::Actualizacion::Apartar(const std::string& tabla, const std::set<std::string>& propios) {
    const std::string deLaTabla = " FROM sqlite_schema WHERE tbl_name = '" + tabla + "' AND sql NOT NULL AND type ";
    for (const auto& [nombre, objeto] : Leer(interior_, "SELECT name, sql" + deLaTabla + "<> 'table'"))
        if (!propios.contains(nombre)) ajenos_.push_back(objeto);
    for (const auto& [nombre, objeto] : Leer(interior_, "SELECT name, sql" + deLaTabla + "= 'index'"))
        interior_.Guion("DROP INDEX " + EntreComillas(nombre));
    interior_.Guion("ALTER TABLE " + EntreComillas(tabla) + " RENAME TO " + EntreComillas(Anterior(tabla)));
}

void ConexionSqlite::Actualizacion::Medir(const std::string& tabla) {
    const Pares nuevas = Columnas(tabla);
    std::string clave;
    for (const auto& [columna, orden] :
         Leer(interior_, "SELECT name, pk FROM pragma_table_info('" + tabla + "') WHERE pk > 0 ORDER BY pk"))
        clave += (clave.empty() ? "'" : " || ', ") + columna + " ' || " + EntreComillas(columna);
    for (const auto& [columna, tipo] : Columnas(Anterior(tabla))) {
        const auto nueva = std::find_if(nuevas.begin(), nuevas.end(),
                                        [&columna = columna](const auto& una) { return una.first == columna; });
        if (nueva == nuevas.end()) {
            impedimentos_.push_back(tabla + ": la columna " + columna + " no está en la nueva");
            continue;
        }
        const std::string anchura = std::to_string(Anchura(nueva->second));
        if (anchura == "0") continue;
        const std::string largo = "length(" + EntreComillas(columna) + ")";
        for (const auto& [fila, caracteres] :
             Leer(interior_, "SELECT " + clave + ", " + largo + " FROM " + EntreComillas(Anterior(tabla)) + " WHERE " +
                                 largo + " > " + anchura))
            impedimentos_.push_back(tabla + " (" + fila + "): " + columna + " tiene " + caracteres +
                                    " caracteres y caben " + anchura);
    }
}

void ConexionSqlite::Actualizacion::Rechazar() const {
    if (impedimentos_.empty()) return;
    std::string motivo = "no se actualiza, y queda como estaba: ";
    for (std::size_t i = 0; i < impedimentos_.size() && i < kMaximoNombrados; ++i)
        motivo += (i == 0 ? "" : "; ") + impedimentos_[i];
    if (impedimentos_.size() > kMaximoNombrados)
        motivo += "; y " + std::to_string(impedimentos_.size() - kMaximoNombrados) + " más";
    FicheroNoSirve(SQLITE_CONSTRAINT, ruta_, motivo);
}

void ConexionSqlite::Actualizacion::Pasar(const std::string& tabla) {
    std::string columnas;
    for (const auto& [columna, tipo] : Columnas(Anterior(tabla)))
        columnas += (columnas.empty() ? "" : ", ") + EntreComillas(columna);
    // Only rows that the script wrote can be there already.
    const bool escritas = !Leer(interior_, "SELECT 1, 1 FROM " + EntreComillas(tabla) + " LIMIT 1").empty();
    interior_.Guion("INSERT INTO " + EntreComillas(tabla) + " (" + columnas + ") SELECT " + columnas + " FROM " +
                    EntreComillas(Anterior(tabla)) + " WHERE true" + (escritas ? " ON CONFLICT DO NOTHING" : ""));
    interior_.Guion("DROP TABLE " + EntreComillas(Anterior(tabla)));
}

bool ConexionSqlite::Actualizar(const std::string& ruta, const IdentidadBase& identidad, const std::string& guion) {
    const auto interior = Interior::DeFichero(ruta, identidad.aplicacion);
    interior->Guion("PRAGMA foreign_keys = OFF; PRAGMA legacy_alter_table = ON; PRAGMA synchronous = FULL;");
    // What is left undone here ends with the connection. Only now does the version stand still.
    interior->Guion("BEGIN IMMEDIATE");
    const std::int32_t version = interior->Pragma("user_version");
    if (version == identidad.version) return false;
    if (version < 1 || version > identidad.version) OtraVersion(ruta, version, identidad.version);
    Actualizacion(*interior, ruta).Hacer(guion);
    interior->Guion("PRAGMA user_version = " + std::to_string(identidad.version) + "; COMMIT;");
    return true;
}

}  // namespace kv
