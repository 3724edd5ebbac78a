#pragma once

#include <memory>
#include <stdexcept>

#include "kvdatosart/db/Connection.h"
#include "kvdatosart/db/Nombres.h"
#include "kvdatosart/tests/com/Grabacion.h"

namespace kv::prueba {

/// Replays a recording to the component from memory, without COM: any other text or order raises.
class ConexionRepetida : public Connection {
  public:
    explicit ConexionRepetida(Pasos grabados) : pasos(std::move(grabados)) {}
    Pasos pasos;

    void Execute(std::string_view, std::int32_t*, CommandType) override { Ajeno("Execute"); }
    void BeginTrans() override { Ajeno("BeginTrans"); }
    void CommitTrans() override { Ajeno("CommitTrans"); }
    void RollbackTrans() override { Ajeno("RollbackTrans"); }
    std::unique_ptr<Recordset> CrearRecordset() override { return std::make_unique<Filas>(*this); }
    std::unique_ptr<Command> CrearCommand() override { return std::make_unique<Orden>(*this); }

  private:
    [[noreturn]] static void Ajeno(std::string_view que) {
        throw std::runtime_error("no grabado: " + std::string(que));
    }
    ConexionGuion::Paso Tomar(std::string_view operacion, std::string_view texto) {
        if (siguiente_ == pasos.size() || pasos[siguiente_].operacion != operacion || pasos[siguiente_].texto != texto)
            Ajeno(texto);
        return std::move(pasos[siguiente_++]);
    }

    class Filas : public Recordset {
      public:
        explicit Filas(ConexionRepetida& c) : c_(c) {}
        void Open(std::string_view source, Connection&, CursorType, LockType, CommandType) override {
            paso_ = c_.Tomar("Open", source);
        }
        bool Eof() override { return paso_.filas.empty(); }
        void MoveNext() override { Ajeno("MoveNext"); }
        void Close() override {}
        ObjectState State() const override { return ObjectState::adStateOpen; }
        std::int32_t NumeroCampos() override { return static_cast<std::int32_t>(paso_.columnas.size()); }
        std::string_view NombreCampo(std::int32_t i) override { return paso_.columnas[static_cast<std::size_t>(i)]; }

      protected:
        const Valor& LeerCampo(std::string_view nombre) override {
            for (std::size_t i = 0; i < paso_.columnas.size(); ++i)
                if (MismoNombre(paso_.columnas[i], nombre)) return paso_.filas.front()[i];
            Ajeno(nombre);
        }

      private:
        ConexionRepetida& c_;
        ConexionGuion::Paso paso_;
    };

    class Orden : public Command {
      public:
        explicit Orden(ConexionRepetida& c) : c_(c) {}
        void Execute(kv::CommandType) override {
            const ConexionGuion::Paso paso = c_.Tomar("Command", CommandText);
            std::size_t i = 0;
            for (Parameter& p : Parameters) p.Value = paso.salidas.at(i++).Value;
        }

      private:
        ConexionRepetida& c_;
    };

    std::size_t siguiente_ = 0;
};

}  // namespace kv::prueba
