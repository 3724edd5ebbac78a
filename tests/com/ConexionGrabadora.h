#pragma once

#include <memory>
#include <ostream>

#include "db/ConexionTrazada.h"
#include "tests/com/Grabacion.h"

namespace kv::prueba {

/// Passes everything on to a real connection and writes down the queries with their first row and the procedures.
class ConexionGrabadora : public ConexionTrazada {
  public:
    ConexionGrabadora(std::shared_ptr<Connection> real, std::ostream& salida)
        : ConexionTrazada(real,
                          [this](const auto& o) {
                              if (o.clase == "Open") Grabar(o.texto);
                          }),
          real_(real),
          salida_(salida) {}
    std::unique_ptr<Command> CrearCommand() override { return std::make_unique<Orden>(*this); }

  private:
    void Grabar(std::string_view sql) {
        std::unique_ptr<Recordset> rs;
        AbrirLectura(rs, *real_, sql);
        salida_ << "O\t" << sql << (rs->Eof() ? "" : "\nF");
        for (std::int32_t i = 0; !rs->Eof() && i < rs->NumeroCampos(); ++i) {
            const std::string nombre(rs->NombreCampo(i));
            salida_ << '\t' << nombre << '\t' << Codificar(rs->Fields(nombre).Value());
        }
        salida_ << '\n';
    }

    struct Orden : Command {
        explicit Orden(ConexionGrabadora& c) : real_(c.real_->CrearCommand()), salida_(c.salida_) {}
        void Execute(kv::CommandType opciones) override {
            salida_ << "P\t" << (real_->CommandText = CommandText) << '\n';
            for (const Parameter& p : Parameters)
                salida_ << "p\t" << p.Name << '\t' << static_cast<int>(p.Type) << '\t' << static_cast<int>(p.Direction)
                        << '\t' << p.Size << '\t' << Codificar(p.Value) << '\n';
            real_->CommandType = CommandType;
            real_->CommandTimeout = CommandTimeout;
            real_->Parameters = Parameters;
            real_->Execute(opciones);
            Parameters = real_->Parameters;
            for (const Parameter& p : Parameters) salida_ << "s\t" << Codificar(p.Value) << '\n';
        }
        const std::unique_ptr<Command> real_;
        std::ostream& salida_;
    };

    std::shared_ptr<Connection> real_;
    std::ostream& salida_;
};

}  // namespace kv::prueba
