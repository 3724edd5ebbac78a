#pragma once

#include <memory>

#include "kvdatosart/db/sqlite/ConexionSqlite.h"

namespace kv {

/// A stored procedure of the embedded database.
class ConexionSqlite::CommandSqlite : public Command {
  public:
    explicit CommandSqlite(std::shared_ptr<Interior> interior) : interior_(std::move(interior)) {}

    void Execute(kv::CommandType opciones) override;

  private:
    std::shared_ptr<Interior> interior_;
};

}  // namespace kv
