#include "kvdatosart/db/sqlite/CommandSqlite.h"

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/sqlite/InteriorSqlite.h"
#include "kvdatosart/db/sqlite/RecordsetSqlite.h"

namespace kv {
namespace {

bool EsDeEntrada(const Parameter& p) {
    return p.Direction == ParameterDirection::adParamInput || p.Direction == ParameterDirection::adParamInputOutput;
}

// An output comes back as the parameter says, whatever the procedure's column is.
Valor EnSuTipo(const Valor& valor, DataType tipo) {
    if (EsNulo(valor)) return Nulo{};
    switch (tipo) {
        case DataType::adSmallInt:
        case DataType::adTinyInt:
            return AInteger(valor);
        case DataType::adInteger:
            return ALong(valor);
        case DataType::adSingle:
            return ASingle(valor);
        case DataType::adDouble:
            return ADouble(valor);
        case DataType::adCurrency:
            return ACurrency(valor);
        case DataType::adDate:
            return ADate(valor);
        case DataType::adBoolean:
            return ABoolean(valor);
        case DataType::adVarChar:
            return AString(valor, '.');
    }
    LanzarError(kErrTipo, "parámetro de tipo ADO " + std::to_string(static_cast<int>(tipo)));
}

std::string_view SinArroba(std::string_view nombre) {
    return nombre.starts_with('@') ? nombre.substr(1) : nombre;
}

}  // namespace

void ConexionSqlite::CommandSqlite::Execute(kv::CommandType /*opciones*/) {
    if (CommandType != kv::CommandType::adCmdStoredProc)
        LanzarError(kErrLlamadaInvalida, "Command solo ejecuta procedimientos almacenados");
    const UsoUnico::Turno turno(interior_->Uso());
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
            parametro.Value = hayFila ? EnSuTipo(sentencia.Leer(SinArroba(parametro.Name)), parametro.Type) : Nulo{};
    }
}

}  // namespace kv
