#include "kvdatosart/db/ado/RecordsetAdo.h"

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/Tokens.h"
#include "kvdatosart/db/ado/ConexionAdo.h"
#include "kvdatosart/db/ado/ErrorCom.h"
#include "kvdatosart/db/ado/Variante.h"

namespace kv {

void RecordsetAdo::Open(std::string_view source, Connection& conexion, CursorType cursor, LockType bloqueo,
                        CommandType opciones) {
    ExigirUnaSentencia(source);
    auto* propia = dynamic_cast<ConexionAdo*>(&conexion);
    if (propia == nullptr) LanzarError(kErrLlamadaInvalida, "la conexión no es de ADO");
    OlvidarError();
    if (!rs_) rs_ = propia->CrearNativo();
    campos_ = {};
    valores_.clear();
    Variante texto(source);
    Variante activa(propia->Nativa());
    Comprobar(rs_->Open(texto.Get(), activa.Get(), static_cast<int>(cursor), static_cast<int>(bloqueo),
                        static_cast<long>(opciones)),
              "ADODB.Recordset");
}

ado::Recordset& RecordsetAdo::Abierto() const {
    if (!rs_) LanzarError(kErrObjetoCerrado);
    return *rs_.Get();
}

bool RecordsetAdo::Eof() {
    VARIANT_BOOL fin = VARIANT_FALSE;
    Comprobar(Abierto().get_EOF(&fin), "ADODB.Recordset");
    return fin != VARIANT_FALSE;
}

void RecordsetAdo::MoveNext() {
    valores_.clear();
    Comprobar(Abierto().MoveNext(), "ADODB.Recordset");
}

void RecordsetAdo::Close() {
    campos_ = {};
    valores_.clear();
    Comprobar(Abierto().Close(), "ADODB.Recordset");
}

ObjectState RecordsetAdo::State() const {
    long estado = 0;
    if (rs_) Comprobar(rs_->get_State(&estado), "ADODB.Recordset");
    return (estado & 1) != 0 ? ObjectState::adStateOpen : ObjectState::adStateClosed;
}

ado::Fields& RecordsetAdo::Campos() {
    if (!campos_) Comprobar(Abierto().get_Fields(campos_.Recibir()), "ADODB.Recordset");
    return *campos_.Get();
}

PunteroCom<ado::Field> RecordsetAdo::Campo(VARIANT indice) {
    PunteroCom<ado::Field> campo;
    Comprobar(Campos().get_Item(indice, campo.Recibir()), "ADODB.Fields");
    return campo;
}

std::int32_t RecordsetAdo::NumeroCampos() {
    long cuantos = 0;
    Comprobar(Campos().get_Count(&cuantos), "ADODB.Fields");
    return cuantos;
}

std::string_view RecordsetAdo::NombreCampo(std::int32_t posicion) {
    Variante indice(Valor{posicion});
    Cadena nombre;
    Comprobar(Campo(indice.Get())->get_Name(nombre.Recibir()), "ADODB.Field");
    return nombre_ = Utf8(nombre.Get());
}

const Valor& RecordsetAdo::LeerCampo(std::string_view nombre) {
    Variante indice(nombre);
    Variante valor;
    Comprobar(Campo(indice.Get())->get_Value(valor.Recibir()), "ADODB.Field");
    return valores_.insert_or_assign(std::string(nombre), valor.AValor()).first->second;
}

}  // namespace kv
