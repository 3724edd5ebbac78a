#include "db/odbc/RecordsetOdbc.h"

#include "base/RuntimeError.h"
#include "db/Nombres.h"
#include "db/Tokens.h"

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
    const Resultado& resultado = Abierto();
    if (fila_ >= resultado.filas) LanzarError(kErrSinRegistro);
    return resultado;
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

const Valor& RecordsetOdbc::LeerCampo(std::string_view nombre) {
    const Resultado& resultado = ConFila();
    const std::size_t cuantas = resultado.columnas->size();
    const std::uint32_t huella = HuellaNombre(nombre);
    // The first of its name, when several columns share it.
    for (std::size_t i = 0; i < cuantas; ++i) {
        const ColumnaOdbc& columna = (*resultado.columnas)[i];
        if (columna.huella == huella && MismoNombre(columna.nombre, nombre))
            return resultado.valores[fila_ * cuantas + i];
    }
    LanzarError(kErrElementoNoEncontrado, "columna " + std::string(nombre));
}

}  // namespace kv
