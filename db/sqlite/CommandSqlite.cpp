#include "db/sqlite/CommandSqlite.h"

#include "base/RuntimeError.h"
#include "db/sqlite/InteriorSqlite.h"
#include "db/sqlite/RecordsetSqlite.h"

namespace kv {
namespace {

bool EsDeEntrada(const Parameter& p) {
    return p.Direction == ParameterDirection::adParamInput || p.Direction == ParameterDirection::adParamInputOutput;
}

std::string_view SinArroba(std::string_view nombre) {
    return nombre.starts_with('@') ? nombre.substr(1) : nombre;
}

}  // namespace

void ConexionSqlite::CommandSqlite::Execute(kv::CommandType /*opciones*/) {
    if (CommandType != kv::CommandType::adCmdStoredProc)
        LanzarError(kErrLlamadaInvalida, "Command solo ejecuta procedimientos almacenados");
    Sentencia& sentencia = interior_->Procedimiento(CommandText);
    const SueltaSentencia suelta(sentencia);
    sentencia.Tomar();
    for (const Parameter& parametro : Parameters)
        if (EsDeEntrada(parametro)) sentencia.EnlazarNombrado(parametro.Name, parametro.Value);
    const bool hayFila = sentencia.Avanzar();
    for (Parameter& parametro : Parameters) {
        if (parametro.Direction == ParameterDirection::adParamReturnValue)
            parametro.Value = std::int32_t{0};
        else if (parametro.Direction != ParameterDirection::adParamInput)
            parametro.Value = hayFila ? sentencia.Leer(SinArroba(parametro.Name)) : Valor(Nulo{});
    }
}

}  // namespace kv
