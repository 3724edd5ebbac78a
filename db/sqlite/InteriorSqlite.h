#pragma once

#include <sqlite3.h>

#include <chrono>
#include <map>
#include <memory>
#include <string>

#include "kvdatosart/db/UsoUnico.h"
#include "kvdatosart/db/sqlite/CacheSentencias.h"
#include "kvdatosart/db/sqlite/ConexionSqlite.h"

namespace kv {

/// The open file of a connection with its statements.
class ConexionSqlite::Interior {
  public:
    /// Opens with SQLite's flags and sets how it waits and writes. Raises SQLite's error with the file's name.
    Interior(const std::string& ruta, int opciones);
    /// Opens an existing file that carries this application id, whatever its version. Error that names the file.
    static std::shared_ptr<Interior> DeFichero(const std::string& ruta, std::int32_t aplicacion,
                                               const EsperaBloqueo& espera = {});
    ~Interior();
    Interior(const Interior&) = delete;
    Interior& operator=(const Interior&) = delete;

    sqlite3* Base() const { return base_; }
    /// What every use of the database takes a turn in.
    UsoUnico& Uso() { return uso_; }
    CacheSentencias& Cache() { return *cache_; }

    /// Refuses every write from now on.
    void SoloLeer();
    bool SoloLee() const { return soloLee_; }

    /// Runs statements of our own, several in one text.
    void Guion(const std::string& texto);
    /// The whole number that a pragma answers.
    std::int32_t Pragma(const std::string& nombre);

    /// The statement of a stored procedure, by name without regard to letter case. Error when there is none.
    Sentencia& Procedimiento(const std::string& nombre);

  private:
    static int EsperarCerrojo(void* interior, int intentos);

    UsoUnico uso_;
    EsperaBloqueo espera_;
    std::chrono::steady_clock::time_point comienzo_;
    bool avisado_ = false;
    sqlite3* base_ = nullptr;
    bool soloLee_ = false;
    std::unique_ptr<CacheSentencias> cache_;
    std::map<std::string, std::unique_ptr<Sentencia>> procedimientos_;
};

}  // namespace kv
