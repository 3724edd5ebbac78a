#pragma once

#include <memory>
#include <ostream>

#include "db/Connection.h"
#include "tests/com/Guion.h"

namespace kv::prueba {

/// Passes everything on to a real connection and writes down what was asked and what came back.
class ConexionGrabadora : public Connection {
  public:
    ConexionGrabadora(std::shared_ptr<Connection> real, std::ostream& salida)
        : real_(std::move(real)), salida_(salida) {}

    void Execute(std::string_view, std::int32_t*, CommandType) override {
        throw std::runtime_error("una carga no escribe");
    }
    void BeginTrans() override { throw std::runtime_error("una carga no abre transacciones"); }
    void CommitTrans() override { BeginTrans(); }
    void RollbackTrans() override { BeginTrans(); }
    std::unique_ptr<Recordset> CrearRecordset() override { return std::make_unique<Filas>(*this); }
    std::unique_ptr<Command> CrearCommand() override { return std::make_unique<Orden>(*this); }

  private:
    class Filas : public Recordset {
      public:
        explicit Filas(ConexionGrabadora& c) : c_(c), real_(c.real_->CrearRecordset()) {}
        void Open(std::string_view source, Connection&, CursorType cursor, LockType bloqueo, CommandType op) override {
            real_->Open(source, *c_.real_, cursor, bloqueo, op);
            c_.salida_ << "O\t" << source << '\n';
            if (real_->Eof()) return;
            c_.salida_ << 'F';
            for (std::int32_t i = 0; i < real_->NumeroCampos(); ++i) {
                const std::string nombre(real_->NombreCampo(i));
                c_.salida_ << '\t' << nombre << '\t' << Codificar(real_->Fields(nombre).Value());
            }
            c_.salida_ << '\n';
        }
        bool Eof() override { return real_->Eof(); }
        void MoveNext() override { real_->MoveNext(); }
        void Close() override { real_->Close(); }
        ObjectState State() const override { return real_->State(); }
        std::int32_t NumeroCampos() override { return real_->NumeroCampos(); }
        std::string_view NombreCampo(std::int32_t posicion) override { return real_->NombreCampo(posicion); }

      protected:
        const Valor& LeerCampo(std::string_view nombre) override { return real_->Fields(nombre).Value(); }

      private:
        ConexionGrabadora& c_;
        std::unique_ptr<Recordset> real_;
    };

    class Orden : public Command {
      public:
        explicit Orden(ConexionGrabadora& c) : c_(c) {}
        void Execute(kv::CommandType opciones) override {
            c_.salida_ << "P\t" << CommandText << '\n';
            for (const Parameter& p : Parameters)
                c_.salida_ << "p\t" << p.Name << '\t' << static_cast<int>(p.Type) << '\t'
                           << static_cast<int>(p.Direction) << '\t' << p.Size << '\t' << Codificar(p.Value) << '\n';
            auto real = c_.real_->CrearCommand();
            real->CommandType = CommandType;
            real->CommandTimeout = CommandTimeout;
            real->CommandText = CommandText;
            real->Parameters = Parameters;
            real->Execute(opciones);
            Parameters = real->Parameters;
            std::size_t i = 0;
            for (const Parameter& p : Parameters) c_.salida_ << "s\t" << i++ << '\t' << Codificar(p.Value) << '\n';
        }

      private:
        ConexionGrabadora& c_;
    };

    std::shared_ptr<Connection> real_;
    std::ostream& salida_;
};

}  // namespace kv::prueba
