#include "kvdatosart/db/odbc/CommandOdbc.h"

#include <algorithm>
#include <vector>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/odbc/EnlaceParametro.h"
#include "kvdatosart/db/odbc/ErrorOdbc.h"

namespace kv {
namespace {

bool EsDeNombre(char c) {
    const auto u = static_cast<unsigned char>(c);
    const unsigned char minuscula = u | 0x20U;
    return (minuscula >= 'a' && minuscula <= 'z') || (c >= '0' && c <= '9') || c == '_' || c == '.' || u >= 0x80U;
}

void LimitarTiempo(const Asidero& sentencia, std::int32_t segundos, std::string_view llamada) {
    const auto valor = static_cast<std::uintptr_t>(std::max(segundos, 0));
    const SQLRETURN resultado =
        SQLSetStmtAttrW(sentencia.Get(), SQL_ATTR_QUERY_TIMEOUT, reinterpret_cast<SQLPOINTER>(valor), SQL_IS_UINTEGER);
    if (SQL_SUCCEEDED(resultado)) return;
    const std::string estado = PrimerEstado(sentencia);
    if (estado != "HYC00" && estado != "HY092") ComprobarOdbc(resultado, sentencia, llamada);
}

}  // namespace

std::string CommandOdbc::Llamada() const {
    if (CommandText.empty() || !std::all_of(CommandText.begin(), CommandText.end(), EsDeNombre))
        LanzarError(kErrLlamadaInvalida, "«" + CommandText + "» no es el nombre de un procedimiento");
    std::string huecos;
    bool devuelve = false;
    std::size_t cuantos = 0;
    for (const Parameter& parametro : Parameters) {
        if (parametro.Direction == ParameterDirection::adParamReturnValue) {
            if (cuantos != 0 || devuelve)
                LanzarError(kErrLlamadaInvalida, "el valor devuelto no es el primer parámetro");
            devuelve = true;
            continue;
        }
        huecos += cuantos++ == 0 ? "?" : ", ?";
    }
    return std::string(devuelve ? "{? = call " : "{call ") + CommandText + "(" + huecos + ")}";
}

void CommandOdbc::Execute(kv::CommandType /*opciones*/) {
    if (CommandType != kv::CommandType::adCmdStoredProc)
        LanzarError(kErrLlamadaInvalida, "Command solo ejecuta procedimientos almacenados");
    const UsoUnico::Turno turno(interior_->Uso());
    const std::string llamada = Llamada();
    // In place for as long as the driver knows them.
    std::vector<EnlaceParametro> enlaces(Parameters.begin(), Parameters.end());
    const Asidero sentencia = interior_->CrearSentencia();
    LimitarTiempo(sentencia, CommandTimeout, llamada);
    SQLUSMALLINT posicion = 0;
    for (EnlaceParametro& enlace : enlaces)
        ComprobarOdbc(enlace.Enlazar(sentencia.Get(), ++posicion), sentencia, llamada);
    TextoAncho ancho;
    AAncho(llamada, ancho);
    const SQLRETURN resultado = SQLExecDirectW(sentencia.Get(), ancho.data(), static_cast<SQLINTEGER>(ancho.size()));
    if (resultado != SQL_NO_DATA) ComprobarOdbc(resultado, sentencia, llamada);
    // Outputs arrive behind the last result.
    AgotarResultados(sentencia, llamada);
    auto enlace = enlaces.begin();
    for (Parameter& parametro : Parameters) {
        if (parametro.Direction != ParameterDirection::adParamInput) parametro.Value = enlace->Recoger();
        ++enlace;
    }
}

}  // namespace kv
