#include "kvdatosart/base/RuntimeError.h"

#include <new>

namespace kv {
namespace {

const char* TextoUsual(std::int32_t numero) {
    switch (numero) {
        case kErrLlamadaInvalida:
            return "Llamada a procedimiento o argumento no válidos";
        case kErrDesbordamiento:
            return "Desbordamiento";
        case kErrSinMemoria:
            return "Memoria insuficiente";
        case kErrSubindice:
            return "El subíndice está fuera del intervalo";
        case kErrDivisionPorCero:
            return "División por cero";
        case kErrTipo:
            return "No coinciden los tipos";
        case kErrObjetoNoEstablecido:
            return "Variable de objeto no establecida";
        case kErrNulo:
            return "Uso no válido de Null";
        case kErrElementoNoEncontrado:
            return "No se encontró el elemento en la colección";
        case kErrObjetoCerrado:
            return "La operación no está permitida si el objeto está cerrado";
        case kErrObjetoAbierto:
            return "La operación no está permitida si el objeto está abierto";
        case kErrSinRegistro:
            return "No hay registro actual";
        default:
            return "Error interno";
    }
}

}  // namespace

void LanzarError(std::int32_t numero, const std::string& detalle) {
    std::string texto = TextoUsual(numero);
    if (!detalle.empty()) texto += ": " + detalle;
    throw RuntimeError(numero, "KVDatosArt", std::move(texto));
}

void Relanzar(const char* origen) {
    try {
        throw;
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.numero, origen, error.descripcion);
    } catch (const std::bad_alloc&) {
        throw RuntimeError(kErrSinMemoria, origen, TextoUsual(kErrSinMemoria));
    } catch (const std::exception& error) {
        throw RuntimeError(kErrInterno, origen, error.what());
    }
}

}  // namespace kv
