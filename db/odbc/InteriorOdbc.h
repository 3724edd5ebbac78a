#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kvdatosart/db/UsoUnico.h"
#include "kvdatosart/db/odbc/Asidero.h"
#include "kvdatosart/db/odbc/ConexionOdbc.h"
#include "kvdatosart/db/odbc/LectorResultado.h"
#include "kvdatosart/db/odbc/TextoAncho.h"

namespace kv {

/// What the objects of one connection share: its handles, its transaction and the room for what they send and read.
/// Results are read whole before anything else is sent, so one statement handle serves every text.
class ConexionOdbc::Interior {
  public:
    Interior(const std::string& cadena, DialectoOdbc dialecto);
    ~Interior() { Cerrar(); }
    Interior(const Interior&) = delete;
    Interior& operator=(const Interior&) = delete;

    /// Rolls back what is open and disconnects; using it afterwards is error 3704.
    void Cerrar() noexcept;

    /// Runs `texto` and drops what it returns; the records that it affected, 0 for a query.
    std::int32_t Ejecutar(std::string_view texto);
    /// Runs `texto` and reads the rows of its first result that has columns into `resultado`.
    void Consultar(std::string_view texto, Resultado& resultado);
    /// A statement of its own, for a call with parameters.
    Asidero CrearSentencia() const;

    void Empezar();
    void Terminar(SQLSMALLINT como);

    const Asidero& Conexion() const { return conexion_; }
    /// What every use of the database takes a turn in.
    UsoUnico& Uso() { return uso_; }

  private:
    /// Sends the text; the cursor of sentencia_ is the caller's to close.
    void Enviar(std::string_view texto);
    void FijarAutocommit(SQLULEN valor);
    /// A server that has ended the transaction on its own, as in a deadlock, refuses to roll it back, and a driver may
    /// then keep autocommit off with nothing begun: it is given an empty transaction to roll back.
    void AsegurarTransaccion();

    UsoUnico uso_;
    Asidero entorno_;
    Asidero conexion_;
    Asidero sentencia_;
    LectorResultado lector_;
    TextoAncho ancho_;
    const DialectoOdbc dialecto_;
    bool abierta_ = false;
    bool enTransaccion_ = false;
    SQLUINTEGER autocommitHallado_ = SQL_AUTOCOMMIT_ON;
};

/// Passes over every result that a statement still holds, so that a failure in any of them is raised. The records
/// affected by the last part that counts them; 0 when none does.
std::int32_t AgotarResultados(const Asidero& sentencia, std::string_view texto);

}  // namespace kv
