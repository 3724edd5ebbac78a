#include "kvdatosart/db/ado/CommandAdo.h"

#include <vector>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/Tokens.h"
#include "kvdatosart/db/ado/ErrorCom.h"
#include "kvdatosart/db/ado/Variante.h"

namespace kv {
namespace {

constexpr const char* kOrigen = "ADODB.Command";

// The provider puts the text of a procedure call into a statement of its own, so it must be a name and nothing else.
void ExigirNombre(std::string_view texto) {
    LectorTokens lector(texto);
    Token token = lector.Siguiente();
    bool nombre = token.tipo == Token::Tipo::Nombre;
    for (token = lector.Siguiente(); nombre && token.tipo != Token::Tipo::Fin; token = lector.Siguiente())
        nombre = token.Es('.') && lector.Siguiente().tipo == Token::Tipo::Nombre;
    if (!nombre)
        LanzarError(kErrLlamadaInvalida, "CommandText no es el nombre de un procedimiento: " + std::string(texto));
}

PunteroCom<ado::Parameter> Anadir(ado::Command& comando, ado::Parameters& lista, const Parameter& parametro) {
    const Cadena nombre(parametro.Name);
    // A parameter without a value goes as an argument left out.
    Variante valor;
    valor.Get().vt = VT_ERROR;
    valor.Get().scode = DISP_E_PARAMNOTFOUND;
    if (!EsNulo(parametro.Value)) valor.Get() = Variante(parametro.Value).Soltar();
    PunteroCom<ado::Parameter> creado;
    Comprobar(
        comando.CreateParameter(nombre.Get(), static_cast<int>(parametro.Type), static_cast<int>(parametro.Direction),
                                parametro.Size, valor.Get(), creado.Recibir()),
        kOrigen);
    Comprobar(lista.Append(creado.Get()), "ADODB.Parameters");
    return creado;
}

}  // namespace

void CommandAdo::Preparar(ado::Command& comando) const {
    const Cadena texto(CommandText);
    Comprobar(comando.putref_ActiveConnection(conexion_.Get()), kOrigen);
    Comprobar(comando.put_CommandType(static_cast<int>(CommandType)), kOrigen);
    Comprobar(comando.put_CommandTimeout(CommandTimeout), kOrigen);
    Comprobar(comando.put_CommandText(texto.Get()), kOrigen);
}

void CommandAdo::Execute(kv::CommandType opciones) {
    if (CommandType == kv::CommandType::adCmdStoredProc)
        ExigirNombre(CommandText);
    else
        ExigirUnaSentencia(CommandText);
    OlvidarError();
    const auto comando = comandos_->Crear();
    Preparar(*comando.Get());
    PunteroCom<ado::Parameters> lista;
    Comprobar(comando->get_Parameters(lista.Recibir()), kOrigen);
    std::vector<PunteroCom<ado::Parameter>> creados;
    for (const Parameter& parametro : Parameters) creados.push_back(Anadir(*comando.Get(), *lista.Get(), parametro));
    Variante afectados;
    // The optional argument, left out.
    Variante ninguno;
    ninguno.Get().vt = VT_ERROR;
    ninguno.Get().scode = DISP_E_PARAMNOTFOUND;
    PunteroCom<ado::Recordset> rs;
    Comprobar(comando->Execute(afectados.Recibir(), &ninguno.Get(), static_cast<long>(opciones), rs.Recibir()),
              kOrigen);
    // While rows are pending the provider has not received the outputs yet.
    *rs.Recibir() = nullptr;
    auto creado = creados.begin();
    for (Parameter& parametro : Parameters) {
        if (parametro.Direction != ParameterDirection::adParamInput) {
            Variante valor;
            Comprobar((*creado)->get_Value(valor.Recibir()), "ADODB.Parameter");
            parametro.Value = valor.AValor();
        }
        ++creado;
    }
}

}  // namespace kv
