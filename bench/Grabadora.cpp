#include "kvdatosart/bench/Grabadora.h"

#include <stdexcept>

#include "kvdatosart/db/Nombres.h"

namespace kv::bench {

class Grabadora::Filas : public Recordset {
  public:
    explicit Filas(Grabadora& g) : g_(g), rs_(g.interior_->CrearRecordset()) {}
    void Open(std::string_view source, Connection&, CursorType cursor, LockType bloqueo,
              CommandType opciones) override {
        rs_->Open(source, *g_.interior_, cursor, bloqueo, opciones);
        operacion_ = g_.carga.size();
        g_.carga.push_back({std::string(source), false, !rs_->Eof(), {}, {}});
    }
    bool Eof() override { return rs_->Eof(); }
    void MoveNext() override { rs_->MoveNext(); }
    void Close() override { rs_->Close(); }
    ObjectState State() const override { return rs_->State(); }
    std::int32_t NumeroCampos() override { return rs_->NumeroCampos(); }
    std::string_view NombreCampo(std::int32_t i) override { return rs_->NombreCampo(i); }

  protected:
    const Valor& LeerCampo(std::string_view nombre) override {
        const Valor& valor = rs_->Fields(nombre).Value();
        g_.carga[operacion_].leidos.emplace_back(nombre, valor);
        return valor;
    }

  private:
    Grabadora& g_;
    std::unique_ptr<Recordset> rs_;
    std::size_t operacion_ = 0;
};

class Grabadora::Orden : public Command {
  public:
    explicit Orden(Grabadora& g) : g_(g), orden_(g.interior_->CrearCommand()) {}
    void Execute(kv::CommandType opciones) override {
        orden_->CommandType = CommandType;
        orden_->CommandText = CommandText;
        orden_->Parameters = Parameters;
        orden_->Execute(opciones);
        Parameters = orden_->Parameters;
        g_.carga.push_back({CommandText, true, true, {}, Parameters});
    }

  private:
    Grabadora& g_;
    std::unique_ptr<Command> orden_;
};

void Grabadora::Execute(std::string_view texto, std::int32_t* afectados, CommandType opciones) {
    interior_->Execute(texto, afectados, opciones);
    carga.push_back({std::string(texto), false, false, {}, {}});
}
std::unique_ptr<Recordset> Grabadora::CrearRecordset() {
    return std::make_unique<Filas>(*this);
}
std::unique_ptr<Command> Grabadora::CrearCommand() {
    return std::make_unique<Orden>(*this);
}

class ConexionMemoria::Filas : public Recordset {
  public:
    explicit Filas(ConexionMemoria& c) : c_(c) {}
    void Open(std::string_view source, Connection&, CursorType, LockType, CommandType) override {
        operacion_ = &c_.Tomar(source);
        leidos_ = 0;
    }
    bool Eof() override { return !operacion_->hayFila; }
    void MoveNext() override { throw std::logic_error("una carga no recorre filas"); }
    void Close() override {}
    ObjectState State() const override { return ObjectState::adStateOpen; }
    std::int32_t NumeroCampos() override { return 0; }
    std::string_view NombreCampo(std::int32_t) override { return {}; }

  protected:
    // Fields are read in the order in which they were recorded.
    const Valor& LeerCampo(std::string_view nombre) override {
        const auto& leido = operacion_->leidos.at(leidos_++);
        if (!MismoNombre(leido.first, nombre)) throw std::logic_error("otra columna: " + leido.first);
        return leido.second;
    }

  private:
    ConexionMemoria& c_;
    const OperacionGrabada* operacion_ = nullptr;
    std::size_t leidos_ = 0;
};

class ConexionMemoria::Orden : public Command {
  public:
    explicit Orden(ConexionMemoria& c) : c_(c) {}
    void Execute(kv::CommandType) override {
        const OperacionGrabada& operacion = c_.Tomar(CommandText);
        auto grabado = operacion.parametros.begin();
        for (Parameter& parametro : Parameters) parametro.Value = (grabado++)->Value;
    }

  private:
    ConexionMemoria& c_;
};

const OperacionGrabada& ConexionMemoria::Tomar(std::string_view texto) {
    const OperacionGrabada& operacion = carga_->at(siguiente_++);
    if (operacion.texto != texto) throw std::logic_error("otra sentencia: " + std::string(texto));
    return operacion;
}

void ConexionMemoria::Execute(std::string_view, std::int32_t*, CommandType) {
    throw std::logic_error("una carga no escribe");
}
std::unique_ptr<Recordset> ConexionMemoria::CrearRecordset() {
    return std::make_unique<Filas>(*this);
}
std::unique_ptr<Command> ConexionMemoria::CrearCommand() {
    return std::make_unique<Orden>(*this);
}

}  // namespace kv::bench
