#include "kvdatosart/db/ado/ConexionAdo.h"

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/Tokens.h"
#include "kvdatosart/db/ado/CommandAdo.h"
#include "kvdatosart/db/ado/ErrorCom.h"
#include "kvdatosart/db/ado/RecordsetAdo.h"
#include "kvdatosart/db/ado/Variante.h"

namespace kv {

ConexionAdo::ConexionAdo(IUnknown* objeto)
    : comandos_(std::make_shared<FabricaAdo<ado::Command>>(ado::kClaseCommand, ado::kCommand)) {
    for (const GUID& generacion : ado::kConnection)
        if (objeto->QueryInterface(generacion, conexion_.RecibirVoid()) == S_OK) return;
    LanzarError(kErrTipo, "Conexion no es una conexión ADO");
}

void ConexionAdo::Execute(std::string_view texto, std::int32_t* afectados, CommandType opciones) {
    ExigirUnaSentencia(texto);
    OlvidarError();
    const Cadena sql(texto);
    Variante cuantos;
    PunteroCom<ado::Recordset> rs;
    Comprobar(conexion_->Execute(sql.Get(), cuantos.Recibir(), static_cast<long>(opciones), rs.Recibir()), "ADODB");
    if (afectados != nullptr) *afectados = ALong(cuantos.AValor());
}

void ConexionAdo::BeginTrans() {
    OlvidarError();
    long nivel = 0;
    Comprobar(conexion_->BeginTrans(&nivel), "ADODB");
}
void ConexionAdo::CommitTrans() {
    OlvidarError();
    Comprobar(conexion_->CommitTrans(), "ADODB");
}
void ConexionAdo::RollbackTrans() {
    OlvidarError();
    Comprobar(conexion_->RollbackTrans(), "ADODB");
}

std::unique_ptr<Recordset> ConexionAdo::CrearRecordset() {
    return std::make_unique<RecordsetAdo>();
}
std::unique_ptr<Command> ConexionAdo::CrearCommand() {
    return std::make_unique<CommandAdo>(conexion_, comandos_);
}

}  // namespace kv
