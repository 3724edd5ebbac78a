#pragma once

#include <sqlite3.h>

#include <cstdlib>
#include <memory>
#include <set>
#include <string>
#include <string_view>

namespace kv::difuso {

/// A small database in memory on which any text may be tried: nothing but its own tables is reached, no function tells
/// the time or draws lots, and a statement that does not end is broken off.
class BaseProbada {
  public:
    BaseProbada() {
        sqlite3* base = nullptr;
        if (sqlite3_open(":memory:", &base) != SQLITE_OK) std::abort();
        base_.reset(base);
        const char* tablas =
            "CREATE TABLE T (A INTEGER, B varchar(20), C money, D smallint, E bit);"
            "INSERT INTO T VALUES (1, 'x', 1.5, 3, 0), (2, 'it''s', 12.3456, -7, 1), (3, NULL, NULL, 5, 1);"
            "CREATE TABLE U (A INTEGER PRIMARY KEY, B varchar(20)); INSERT INTO U VALUES (5, ''), (6, 'O''Brien');";
        if (sqlite3_exec(base, tablas, nullptr, nullptr, nullptr) != SQLITE_OK) std::abort();
        sqlite3_set_authorizer(base, &Autorizar, nullptr);
        sqlite3_limit(base, SQLITE_LIMIT_LENGTH, 20000);
        sqlite3_progress_handler(
            base, 20000, [](void*) { return 1; }, nullptr);
    }
    sqlite3* Get() const { return base_.get(); }

  private:
    static int Autorizar(void*, int accion, const char* objeto, const char* funcion, const char*, const char*) {
        static const std::set<std::string> funciones = {"ifnull", "count", "sum",   "min",   "max",  "avg",
                                                        "abs",    "lower", "upper", "round", "like", "coalesce"};
        switch (accion) {
            case SQLITE_SELECT:
            case SQLITE_READ:
            case SQLITE_RECURSIVE:
                return SQLITE_OK;
            case SQLITE_INSERT:
            case SQLITE_UPDATE:
            case SQLITE_DELETE:
                return std::string_view(objeto).starts_with("sqlite_") ? SQLITE_DENY : SQLITE_OK;
            case SQLITE_SAVEPOINT:
                return SQLITE_OK;
            case SQLITE_PRAGMA:
                return std::string_view(objeto) == "table_info" ? SQLITE_OK : SQLITE_DENY;
            case SQLITE_FUNCTION:
                return funciones.contains(funcion) ? SQLITE_OK : SQLITE_DENY;
            default:
                return SQLITE_DENY;
        }
    }

    struct Cerrar {
        void operator()(sqlite3* base) const { sqlite3_close(base); }
    };
    std::unique_ptr<sqlite3, Cerrar> base_;
};

}  // namespace kv::difuso
