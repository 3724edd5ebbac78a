#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/host/Lectura.h"
#include "kvdatosart/host/LecturaClaves.h"

namespace kv::host {

/// Whole numbers that a field takes, both inclusive.
struct Rango {
    std::int32_t minimo;
    std::int32_t maximo;
};

// Codes begin at 1, qualities at 0.
inline Rango RangoDe(std::int32_t) {
    return {1, std::numeric_limits<std::int32_t>::max()};
}
inline Rango RangoDe(std::int16_t) {
    return {1, std::numeric_limits<std::int16_t>::max()};
}
inline Rango RangoDe(std::uint8_t) {
    return {0, std::numeric_limits<std::uint8_t>::max()};
}

// How a text is read, by the type of the request's field.

template <class Entero>
void Leer(const std::string& campo, const std::string& texto, Entero& destino, Rango rango = RangoDe(Entero())) {
    destino = static_cast<Entero>(LeerEntero(campo, texto, rango.minimo, rango.maximo));
}
inline void Leer(const std::string& campo, const std::string& texto, Currency& destino) {
    destino = LeerImporte(campo, texto);
}
inline void Leer(const std::string& campo, const std::string& texto, Fecha& destino) {
    destino = LeerFecha(campo, texto);
}
inline void Leer(const std::string&, const std::string& texto, std::string& destino) {
    destino = texto;
}
inline void Leer(const std::string& campo, const std::string& texto, NivelesCadena& destino) {
    destino = LeerNodo(campo, texto);
}
inline void Leer(const std::string& campo, const std::string& texto, aplicacion::ClaveDescuento& destino) {
    destino = LeerClaveDescuento(campo, texto);
}
inline void Leer(const std::string& campo, const std::string& texto, aplicacion::TipoMovimiento& destino) {
    destino = LeerTipoMovimiento(campo, texto);
}
inline void Leer(const std::string& campo, const std::string& texto, aplicacion::Familias& destino) {
    destino = LeerFamilias(campo, texto);
}
template <class T, class... Resto>
void Leer(const std::string& campo, const std::string& texto, std::optional<T>& destino, Resto... resto) {
    Leer(campo, texto, destino.emplace(), resto...);
}

}  // namespace kv::host
