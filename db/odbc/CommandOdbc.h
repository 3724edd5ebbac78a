#pragma once

#include <memory>

#include "kvdatosart/db/odbc/InteriorOdbc.h"

namespace kv {

/// A stored procedure called as `{? = call NAME(?, ...)}`: its parameters go by position, in the order in which they
/// were appended; a return value comes first. What the procedure returns besides is dropped. A driver that cannot limit
/// the time of a statement runs it without a limit.
class CommandOdbc : public Command {
  public:
    explicit CommandOdbc(std::shared_ptr<ConexionOdbc::Interior> interior) : interior_(std::move(interior)) {}

    /// Error 5 for anything but a stored procedure, for a name that is no name and for a return value that is not the
    /// first parameter.
    void Execute(kv::CommandType opciones) override;

  private:
    std::string Llamada() const;

    std::shared_ptr<ConexionOdbc::Interior> interior_;
};

}  // namespace kv
