#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "kvdatosart/bench/Grabadora.h"

struct sqlite3;
struct sqlite3_stmt;

namespace kv::bench {

/// The floor of a whole load or posting: its statements prepared by hand once on SQLite, their values bound, the same
/// columns read into variables of the same types, the rows that a write changed counted.
class PisoGrabado {
  public:
    explicit PisoGrabado(const std::string& ruta);
    ~PisoGrabado();
    PisoGrabado(const PisoGrabado&) = delete;
    PisoGrabado& operator=(const PisoGrabado&) = delete;

    /// What a load becomes once prepared; to be made before anything is measured.
    struct Paso {
        sqlite3_stmt* sentencia;
        std::vector<std::pair<int, Valor>> enlaces;
        /// Position and a value of the type that is read; empty without a row.
        std::vector<std::pair<int, Valor>> columnas;
    };
    std::vector<Paso> Preparar(const CargaGrabada& carga);

    /// Runs a statement without values, such as those of a transaction, prepared once.
    void Ejecutar(const std::string& sql);

    void Recorrer(const std::vector<Paso>& carga, std::int64_t& suma, std::string& texto);

  private:
    sqlite3_stmt* Sentencia(const std::string& sql);

    sqlite3* base_ = nullptr;
    std::map<std::string, sqlite3_stmt*> sentencias_;
};

}  // namespace kv::bench
