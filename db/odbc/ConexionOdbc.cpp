#include "kvdatosart/db/odbc/ConexionOdbc.h"

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/Tokens.h"
#include "kvdatosart/db/odbc/CommandOdbc.h"
#include "kvdatosart/db/odbc/ErrorOdbc.h"
#include "kvdatosart/db/odbc/InteriorOdbc.h"
#include "kvdatosart/db/odbc/RecordsetOdbc.h"
#include "kvdatosart/db/odbc/SesionTransactSql.h"

namespace kv {

ConexionOdbc::ConexionOdbc(const std::string& cadena, DialectoOdbc dialecto)
    : interior_(std::make_shared<Interior>(cadena, dialecto)) {
    if (dialecto == DialectoOdbc::TransactSql) PrepararSesionTransactSql(*interior_);
}

ConexionOdbc::~ConexionOdbc() {
    interior_->Cerrar();
}

void ConexionOdbc::Execute(std::string_view texto, std::int32_t* afectados, CommandType opciones) {
    if (opciones != CommandType::adCmdText) LanzarError(kErrLlamadaInvalida, "Execute solo admite texto");
    ExigirUnaSentencia(texto);
    const std::int32_t cuantos = interior_->Ejecutar(texto);
    if (afectados != nullptr) *afectados = cuantos;
}

void ConexionOdbc::EjecutarLote(std::string_view lote) {
    interior_->Ejecutar(lote);
}

void ConexionOdbc::BeginTrans() {
    interior_->Empezar();
}
void ConexionOdbc::CommitTrans() {
    interior_->Terminar(SQL_COMMIT);
}
void ConexionOdbc::RollbackTrans() {
    interior_->Terminar(SQL_ROLLBACK);
}

std::unique_ptr<Recordset> ConexionOdbc::CrearRecordset() {
    return std::make_unique<RecordsetOdbc>(interior_);
}
std::unique_ptr<Command> ConexionOdbc::CrearCommand() {
    return std::make_unique<CommandOdbc>(interior_);
}

}  // namespace kv
