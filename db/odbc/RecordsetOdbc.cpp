#include "kvdatosart/db/odbc/RecordsetOdbc.h"

#include <algorithm>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/Nombres.h"
#include "kvdatosart/db/Tokens.h"

namespace kv {

void RecordsetOdbc::Open(std::string_view source, Connection& /*conexion*/, CursorType /*cursor*/, LockType /*bloqueo*/,
                         CommandType opciones) {
    if (opciones != CommandType::adCmdText) LanzarError(kErrLlamadaInvalida, "Open solo admite texto");
    if (abierto_) LanzarError(kErrObjetoAbierto);
    ExigirUnaSentencia(source);
    interior_->Consultar(source, resultado_);
    abierto_ = true;
    fila_ = 0;
}

const Resultado& RecordsetOdbc::Abierto() const {
    if (!abierto_) LanzarError(kErrObjetoCerrado);
    return resultado_;
}

const Resultado& RecordsetOdbc::ConFila() const {
    if (!abierto_ || fila_ >= resultado_.filas) {
        Abierto();
        LanzarError(kErrSinRegistro);
    }
    return resultado_;
}

bool RecordsetOdbc::Eof() {
    return fila_ >= Abierto().filas;
}

void RecordsetOdbc::MoveNext() {
    ConFila();
    ++fila_;
}

void RecordsetOdbc::Close() {
    Abierto();
    abierto_ = false;
}

ObjectState RecordsetOdbc::State() const {
    return abierto_ ? ObjectState::adStateOpen : ObjectState::adStateClosed;
}

std::int32_t RecordsetOdbc::NumeroCampos() {
    return static_cast<std::int32_t>(Abierto().columnas->size());
}

std::string_view RecordsetOdbc::NombreCampo(std::int32_t posicion) {
    if (posicion < 0 || posicion >= NumeroCampos())
        LanzarError(kErrElementoNoEncontrado, "columna " + std::to_string(posicion));
    return (*resultado_.columnas)[static_cast<std::size_t>(posicion)].nombre;
}

std::size_t RecordsetOdbc::Posicion(const ColumnasOdbc& columnas, std::string_view nombre) const {
    const std::size_t cuantas = columnas.size();
    std::size_t i = siguiente_ < cuantas ? siguiente_ : 0;
    for (std::size_t vistas = 0; vistas < cuantas; ++vistas) {
        if (Identicos(columnas[i].nombre, nombre) && columnas[i].primera) return i;
        if (++i == cuantas) i = 0;
    }
    const auto otra = std::find_if(columnas.begin(), columnas.end(),
                                   [&](const ColumnaOdbc& columna) { return MismoNombre(columna.nombre, nombre); });
    return static_cast<std::size_t>(otra - columnas.begin());
}

const Valor& RecordsetOdbc::LeerCampo(std::string_view nombre) {
    const Resultado& resultado = ConFila();
    const std::size_t posicion = Posicion(*resultado.columnas, nombre);
    const std::size_t cuantas = resultado.columnas->size();
    if (posicion == cuantas) LanzarError(kErrElementoNoEncontrado, "columna " + std::string(nombre));
    siguiente_ = posicion + 1;
    return resultado.valores[fila_ * cuantas + posicion];
}

}  // namespace kv
