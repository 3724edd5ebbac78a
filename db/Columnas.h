#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include "kvdatosart/base/Valor.h"
#include "kvdatosart/db/BibliotecaComun.h"
#include "kvdatosart/db/Recordset.h"

namespace kv {

/// One column of a wide row and the member of `Objeto` that keeps it.
template <class Objeto>
struct Columna {
    std::string_view nombre;
    std::variant<std::int16_t Objeto::*, std::int32_t Objeto::*, std::uint8_t Objeto::*, bool Objeto::*,
                 float Objeto::*, double Objeto::*, Currency Objeto::*, std::string Objeto::*,
                 std::optional<Fecha> Objeto::*>
        destino;
};

inline void Convertir(std::int16_t& destino, const Valor& valor) {
    destino = AInteger(valor);
}
inline void Convertir(std::int32_t& destino, const Valor& valor) {
    destino = ALong(valor);
}
inline void Convertir(std::uint8_t& destino, const Valor& valor) {
    destino = AByte(valor);
}
inline void Convertir(bool& destino, const Valor& valor) {
    destino = ABoolean(valor);
}
inline void Convertir(float& destino, const Valor& valor) {
    destino = ASingle(valor);
}
inline void Convertir(double& destino, const Valor& valor) {
    destino = ADouble(valor);
}
inline void Convertir(Currency& destino, const Valor& valor) {
    destino = ACurrency(valor);
}
inline void Convertir(std::string& destino, const Valor& valor) {
    destino = AString(valor, Biblioteca().SeparadorDecimal());
}

/// Most columns hold what is wanted and need no conversion.
template <class T>
void Asignar(T& destino, const Valor& valor) {
    if (const T* igual = std::get_if<T>(&valor))
        destino = *igual;
    else
        Convertir(destino, valor);
}
/// Text keeps the room that it has, so that an object that is loaded again allocates nothing. Most texts of a customer
/// are empty.
inline void Asignar(std::string& destino, const Valor& valor) {
    const std::string* igual = std::get_if<std::string>(&valor);
    if (igual == nullptr)
        Convertir(destino, valor);
    else if (igual->empty())
        destino.clear();
    else
        destino = *igual;
}
/// NULL is no date.
inline void Asignar(std::optional<Fecha>& destino, const Valor& valor) {
    if (EsNulo(valor))
        destino.reset();
    else
        destino = ADate(valor);
}

/// Copies the columns of the current row into `objeto`, each as it is read: what precedes a failure stays assigned.
template <class Objeto>
void LeerColumnas(Recordset& rs, Objeto& objeto, std::span<const std::type_identity_t<Columna<Objeto>>> columnas) {
    for (const Columna<Objeto>& columna : columnas)
        std::visit([&](auto miembro) { Asignar(objeto.*miembro, rs.Fields(columna.nombre).Value()); }, columna.destino);
}

}  // namespace kv
