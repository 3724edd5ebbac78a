#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "db/Connection.h"

namespace kv::prueba {

/// Passes everything on to a real connection, keeps every text, and makes the operation of one number fail.
class ConexionQueFalla : public Connection {
  public:
    explicit ConexionQueFalla(std::shared_ptr<Connection> interior, int falla = 0)
        : interior_(std::move(interior)), falla_(falla) {}

    /// Texts in order, procedures by their name.
    std::vector<std::string> textos;

    void Execute(std::string_view texto, std::int32_t* afectados, CommandType opciones) override {
        Anotar(texto);
        interior_->Execute(texto, afectados, opciones);
    }
    void BeginTrans() override { interior_->BeginTrans(); }
    void CommitTrans() override { interior_->CommitTrans(); }
    void RollbackTrans() override { interior_->RollbackTrans(); }
    std::unique_ptr<Recordset> CrearRecordset() override { return std::make_unique<Filas>(*this); }
    std::unique_ptr<Command> CrearCommand() override { return std::make_unique<Orden>(*this); }

  private:
    class Filas : public Recordset {
      public:
        explicit Filas(ConexionQueFalla& c) : c_(c), rs_(c.interior_->CrearRecordset()) {}
        void Open(std::string_view source, Connection&, CursorType cursor, LockType bloqueo,
                  CommandType opciones) override {
            c_.Anotar(source);
            rs_->Open(source, *c_.interior_, cursor, bloqueo, opciones);
        }
        bool Eof() override { return rs_->Eof(); }
        void MoveNext() override { rs_->MoveNext(); }
        void Close() override { rs_->Close(); }
        ObjectState State() const override { return rs_->State(); }
        std::int32_t NumeroCampos() override { return rs_->NumeroCampos(); }
        std::string_view NombreCampo(std::int32_t posicion) override { return rs_->NombreCampo(posicion); }

      protected:
        const Valor& LeerCampo(std::string_view nombre) override { return rs_->Fields(nombre).Value(); }

      private:
        ConexionQueFalla& c_;
        std::unique_ptr<Recordset> rs_;
    };
    class Orden : public Command {
      public:
        explicit Orden(ConexionQueFalla& c) : c_(c), orden_(c.interior_->CrearCommand()) {}
        void Execute(kv::CommandType opciones) override {
            c_.Anotar(CommandText);
            orden_->CommandType = CommandType;
            orden_->CommandText = CommandText;
            orden_->Parameters = Parameters;
            orden_->Execute(opciones);
            Parameters = orden_->Parameters;
        }

      private:
        ConexionQueFalla& c_;
        std::unique_ptr<Command> orden_;
    };

    void Anotar(std::string_view texto) {
        textos.emplace_back(texto);
        if (static_cast<int>(textos.size()) == falla_) throw RuntimeError(1205, "Proveedor", "bloqueo");
    }

    std::shared_ptr<Connection> interior_;
    int falla_;
};

}  // namespace kv::prueba
