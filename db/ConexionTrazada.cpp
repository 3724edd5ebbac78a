#include "kvdatosart/db/ConexionTrazada.h"

#include "kvdatosart/base/RuntimeError.h"

namespace kv {

template <class Accion>
void ConexionTrazada::Medir(OperacionTrazada operacion, Accion&& accion) {
    const auto inicio = std::chrono::steady_clock::now();
    try {
        accion(operacion);
    } catch (const RuntimeError& error) {
        operacion.tiempo = std::chrono::steady_clock::now() - inicio;
        operacion.error = error.descripcion;
        informe_(operacion);
        throw;
    }
    operacion.tiempo = std::chrono::steady_clock::now() - inicio;
    informe_(operacion);
}

class ConexionTrazada::RecordsetTrazado : public Recordset {
  public:
    explicit RecordsetTrazado(ConexionTrazada& conexion)
        : conexion_(conexion), interior_(conexion.interior_->CrearRecordset()) {}

    void Open(std::string_view source, Connection& /*conexion*/, CursorType cursor, LockType bloqueo,
              CommandType opciones) override {
        conexion_.Medir({.clase = "Open", .texto = source, .error = {}}, [&](OperacionTrazada& operacion) {
            interior_->Open(source, *conexion_.interior_, cursor, bloqueo, opciones);
            operacion.hayFila = !interior_->Eof();
        });
    }
    bool Eof() override { return interior_->Eof(); }
    void MoveNext() override { interior_->MoveNext(); }
    void Close() override { interior_->Close(); }
    ObjectState State() const override { return interior_->State(); }
    std::int32_t NumeroCampos() override { return interior_->NumeroCampos(); }
    std::string_view NombreCampo(std::int32_t posicion) override { return interior_->NombreCampo(posicion); }

  protected:
    const Valor& LeerCampo(std::string_view nombre) override { return interior_->Fields(nombre).Value(); }

  private:
    ConexionTrazada& conexion_;
    std::unique_ptr<Recordset> interior_;
};

class ConexionTrazada::CommandTrazado : public Command {
  public:
    explicit CommandTrazado(ConexionTrazada& conexion)
        : conexion_(conexion), interior_(conexion.interior_->CrearCommand()) {}

    void Execute(kv::CommandType opciones) override {
        conexion_.Medir({.clase = "Command", .texto = CommandText, .error = {}}, [&](OperacionTrazada&) {
            interior_->CommandType = CommandType;
            interior_->CommandTimeout = CommandTimeout;
            interior_->CommandText = CommandText;
            interior_->Parameters = Parameters;
            interior_->Execute(opciones);
            Parameters = interior_->Parameters;
        });
    }

  private:
    ConexionTrazada& conexion_;
    std::unique_ptr<Command> interior_;
};

void ConexionTrazada::Execute(std::string_view texto, std::int32_t* afectados, CommandType opciones) {
    Medir({.clase = "Execute", .texto = texto, .error = {}}, [&](OperacionTrazada& operacion) {
        interior_->Execute(texto, afectados, opciones);
        if (afectados != nullptr) operacion.afectados = *afectados;
    });
}

void ConexionTrazada::BeginTrans() {
    Medir({.clase = "BeginTrans", .texto = {}, .error = {}}, [&](OperacionTrazada&) { interior_->BeginTrans(); });
}

void ConexionTrazada::CommitTrans() {
    Medir({.clase = "CommitTrans", .texto = {}, .error = {}}, [&](OperacionTrazada&) { interior_->CommitTrans(); });
}

void ConexionTrazada::RollbackTrans() {
    Medir({.clase = "RollbackTrans", .texto = {}, .error = {}}, [&](OperacionTrazada&) { interior_->RollbackTrans(); });
}

std::unique_ptr<Recordset> ConexionTrazada::CrearRecordset() {
    return std::make_unique<RecordsetTrazado>(*this);
}
std::unique_ptr<Command> ConexionTrazada::CrearCommand() {
    return std::make_unique<CommandTrazado>(*this);
}

}  // namespace kv
