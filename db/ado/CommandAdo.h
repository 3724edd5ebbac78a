#pragma once

#include <memory>

#include "kvdatosart/db/Command.h"
#include "kvdatosart/db/ado/FabricaAdo.h"
#include "kvdatosart/db/ado/InterfacesAdo.h"
#include "kvdatosart/db/ado/PunteroCom.h"

namespace kv {

/// A stored procedure call through ADO, or one statement as text. The name of a procedure may be qualified and
/// delimited ([dbo].[nombre]); anything else in its place is error 5 and is not sent.
class CommandAdo : public Command {
  public:
    CommandAdo(PunteroCom<ado::Connection> conexion, std::shared_ptr<FabricaAdo<ado::Command>> comandos)
        : conexion_(std::move(conexion)), comandos_(std::move(comandos)) {}

    void Execute(kv::CommandType opciones) override;

  private:
    void Preparar(ado::Command& comando) const;

    PunteroCom<ado::Connection> conexion_;
    std::shared_ptr<FabricaAdo<ado::Command>> comandos_;
};

}  // namespace kv
