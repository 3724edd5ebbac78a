#pragma once

#include <memory>
#include <string_view>

#include "kvdatosart/db/Connection.h"
#include "kvdatosart/db/ado/FabricaAdo.h"
#include "kvdatosart/db/ado/InterfacesAdo.h"
#include "kvdatosart/db/ado/PunteroCom.h"

namespace kv {

/// The host's ADO connection. Errors of ADO keep their HRESULT, source and text.
class ConexionAdo : public Connection {
  public:
    /// Takes a reference of its own. Error 13 when the object is no ADO connection.
    explicit ConexionAdo(IUnknown* objeto);

    void Execute(std::string_view texto, std::int32_t* afectados, CommandType opciones) override;
    void BeginTrans() override;
    void CommitTrans() override;
    void RollbackTrans() override;
    std::unique_ptr<Recordset> CrearRecordset() override;
    std::unique_ptr<Command> CrearCommand() override;

    ado::Connection* Nativa() const { return conexion_.Get(); }
    /// An ADO recordset, closed and of no connection yet.
    PunteroCom<ado::Recordset> CrearNativo() { return recordsets_.Crear(); }

  private:
    PunteroCom<ado::Connection> conexion_;
    FabricaAdo<ado::Recordset> recordsets_{ado::kClaseRecordset, ado::kRecordset};
    // Shared with the commands, which may outlive the connection.
    std::shared_ptr<FabricaAdo<ado::Command>> comandos_;
};

}  // namespace kv
