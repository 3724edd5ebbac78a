#include "kvdatosart/db/sqlite/RecordsetSqlite.h"

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/sqlite/InteriorSqlite.h"

namespace kv {

ConexionSqlite::RecordsetSqlite::~RecordsetSqlite() {
    if (sentencia_ == nullptr) return;
    const UsoUnico::Turno turno(interior_->Uso());
    sentencia_->Soltar();
}

void ConexionSqlite::RecordsetSqlite::Open(std::string_view source, Connection& /*conexion*/, CursorType /*cursor*/,
                                           LockType /*bloqueo*/, CommandType opciones) {
    if (opciones != CommandType::adCmdText) LanzarError(kErrLlamadaInvalida, "Open solo admite texto");
    if (sentencia_ != nullptr) LanzarError(kErrObjetoAbierto);
    const UsoUnico::Turno turno(interior_->Uso());
    Sentencia& nueva = interior_->Cache().Tomar(source);
    try {
        hayFila_ = nueva.Avanzar(source);
    } catch (...) {
        nueva.Soltar();
        throw;
    }
    sentencia_ = &nueva;
}

Sentencia& ConexionSqlite::RecordsetSqlite::Abierta() {
    if (sentencia_ == nullptr) LanzarError(kErrObjetoCerrado);
    return *sentencia_;
}

bool ConexionSqlite::RecordsetSqlite::Eof() {
    Abierta();
    return !hayFila_;
}

void ConexionSqlite::RecordsetSqlite::MoveNext() {
    Sentencia& sentencia = Abierta();
    if (!hayFila_) LanzarError(kErrSinRegistro);
    const UsoUnico::Turno turno(interior_->Uso());
    hayFila_ = false;
    hayFila_ = sentencia.Avanzar();
}

void ConexionSqlite::RecordsetSqlite::Close() {
    const UsoUnico::Turno turno(interior_->Uso());
    Abierta().Soltar();
    sentencia_ = nullptr;
    hayFila_ = false;
}

ObjectState ConexionSqlite::RecordsetSqlite::State() const {
    return sentencia_ == nullptr ? ObjectState::adStateClosed : ObjectState::adStateOpen;
}

std::int32_t ConexionSqlite::RecordsetSqlite::NumeroCampos() {
    return Abierta().NumeroColumnas();
}

std::string_view ConexionSqlite::RecordsetSqlite::NombreCampo(std::int32_t posicion) {
    return Abierta().NombreColumna(posicion);
}

const Valor& ConexionSqlite::RecordsetSqlite::LeerCampo(std::string_view nombre) {
    if (!hayFila_) {
        Abierta();
        LanzarError(kErrSinRegistro);
    }
    const UsoUnico::Turno turno(interior_->Uso());
    return sentencia_->Leer(nombre);
}

}  // namespace kv
