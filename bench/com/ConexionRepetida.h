#pragma once

#include <deque>
#include <memory>
#include <stdexcept>

#include "db/Connection.h"
#include "db/Nombres.h"
#include "tests/com/Grabacion.h"

namespace kv::prueba {

/// Replays a recording to the component from memory, without COM: any other text or order raises.
class ConexionRepetida : public Connection {
  public:
    std::deque<Paso> pasos;

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
    Paso Tomar(char clase, std::string_view texto) {
        if (pasos.empty() || pasos.front().clase != clase || pasos.front().texto != texto) Ajeno(texto);
        Paso paso = std::move(pasos.front());
        pasos.pop_front();
        return paso;
    }

    class Filas : public Recordset {
      public:
        explicit Filas(ConexionRepetida& c) : c_(c) {}
        void Open(std::string_view source, Connection&, CursorType, LockType, CommandType) override {
            paso_ = c_.Tomar('O', source);
        }
        bool Eof() override { return paso_.fila.empty(); }
        void MoveNext() override { Ajeno("MoveNext"); }
        void Close() override {}
        ObjectState State() const override { return ObjectState::adStateOpen; }
        std::int32_t NumeroCampos() override { return static_cast<std::int32_t>(paso_.fila.size()); }
        std::string_view NombreCampo(std::int32_t i) override { return paso_.fila[static_cast<std::size_t>(i)].first; }

      protected:
        const Valor& LeerCampo(std::string_view nombre) override {
            for (const auto& [columna, valor] : paso_.fila)
                if (MismoNombre(columna, nombre)) return valor;
            Ajeno(nombre);
        }

      private:
        ConexionRepetida& c_;
        Paso paso_;
    };

    class Orden : public Command {
      public:
        explicit Orden(ConexionRepetida& c) : c_(c) {}
        void Execute(kv::CommandType) override {
            const Paso paso = c_.Tomar('P', CommandText);
            std::size_t i = 0;
            for (Parameter& p : Parameters) p.Value = paso.salidas.at(i++);
        }

      private:
        ConexionRepetida& c_;
    };
};

}  // namespace kv::prueba
