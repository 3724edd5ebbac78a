#pragma once

#include <deque>
#include <iterator>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/Connection.h"

namespace kv::prueba {

/// The columns of a wide row, from their names between blanks.
inline std::vector<std::string> Palabras(const std::string& nombres) {
    std::istringstream entrada(nombres);
    return {std::istream_iterator<std::string>(entrada), {}};
}

/// Strict scripted connection: every operation must be the next step of the script, to the letter. A difference is a
/// test failure that shows both texts between bars, and the operation raises; steps that were not reached fail when
/// the connection ends. Each `Espera...` adds one step.
class ConexionGuion : public Connection {
  public:
    using Fila = std::vector<Valor>;

    /// One step of the script.
    struct Paso {
        std::string_view operacion;  // Open, Execute, Command, BeginTrans, CommitTrans, RollbackTrans
        std::string texto = {};
        std::vector<std::string> columnas = {};
        std::vector<Fila> filas = {};
        std::int32_t afectados = 0;
        bool cuenta = false;  // the caller must ask for the records affected
        // ADO's own numbers: forward-only, read-only, text.
        int cursor = 0, bloqueo = 1, opciones = 1, espera = 0;
        std::vector<Parameter> parametros = {};
        std::vector<Parameter> salidas = {};
        std::optional<RuntimeError> fallo = {};
    };

    ~ConexionGuion() override { Terminar(); }

    /// A step made elsewhere.
    Paso& Anadir(Paso paso) { return pasos_.emplace_back(std::move(paso)); }

    /// A query that returns `filas` (none: no row).
    Paso& EsperaConsulta(std::string_view texto, std::vector<std::string> columnas = {}, std::vector<Fila> filas = {}) {
        return Anadir({"Open", std::string(texto), std::move(columnas), std::move(filas)});
    }
    /// A write whose caller does not ask for the records affected.
    Paso& EsperaEjecucion(std::string_view texto) { return Anadir({"Execute", std::string(texto)}); }
    /// A write whose caller asks for the records affected and gets `afectados`.
    Paso& EsperaEscritura(std::string_view texto, std::int32_t afectados) {
        return Anadir({"Execute", std::string(texto), {}, {}, afectados, true});
    }
    /// A stored procedure: its parameters in order with name, type, direction, size and input value; `salidas` are
    /// the values that it gives back. 500 seconds, options -1.
    Paso& EsperaProcedimiento(std::string_view nombre, std::vector<Parameter> parametros,
                              std::vector<Parameter> salidas);
    Paso& EsperaBeginTrans() { return Anadir({"BeginTrans"}); }
    Paso& EsperaCommitTrans() { return Anadir({"CommitTrans"}); }
    Paso& EsperaRollbackTrans() { return Anadir({"RollbackTrans"}); }
    /// Makes the last step added fail with this error.
    void YFalla(std::int32_t numero, std::string_view descripcion) {
        pasos_.back().fallo = RuntimeError(numero, "Proveedor", std::string(descripcion));
    }

    /// Checks that the whole script has run, now rather than at the end.
    void Terminar();

    void Execute(std::string_view texto, std::int32_t* afectados, CommandType opciones) override;
    void BeginTrans() override { Tomar("BeginTrans", ""); }
    void CommitTrans() override { Tomar("CommitTrans", ""); }
    void RollbackTrans() override { Tomar("RollbackTrans", ""); }
    std::unique_ptr<Recordset> CrearRecordset() override;
    std::unique_ptr<Command> CrearCommand() override;

  private:
    class RecordsetGuion;
    class CommandGuion;

    /// The next step when it is this operation with this text; a test failure and an exception otherwise.
    Paso Tomar(std::string_view operacion, std::string_view texto);

    std::deque<Paso> pasos_;
    std::size_t hechos_ = 0;
};

}  // namespace kv::prueba
