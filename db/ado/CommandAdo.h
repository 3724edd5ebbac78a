#pragma once

#include "db/Command.h"
#include "db/ado/InterfacesAdo.h"
#include "db/ado/PunteroCom.h"

namespace kv {

/// A stored procedure call through ADO, or one statement as text. The name of a procedure may be qualified and
/// delimited ([dbo].[nombre]); anything else in its place is error 5 and is not sent.
class CommandAdo : public Command {
  public:
    explicit CommandAdo(PunteroCom<ado::Connection> conexion) : conexion_(std::move(conexion)) {}

    void Execute(kv::CommandType opciones) override;

  private:
    void Preparar(ado::Command& comando) const;

    PunteroCom<ado::Connection> conexion_;
};

}  // namespace kv
