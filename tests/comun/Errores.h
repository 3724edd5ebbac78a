#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "base/RuntimeError.h"

namespace kv::prueba {

/// What `accion` fails with, as "number|source|description"; empty when it does not fail.
template <class Accion>
std::string FalloDe(Accion&& accion) {
    try {
        accion();
    } catch (const RuntimeError& error) {
        return std::to_string(error.numero) + "|" + error.origen + "|" + error.descripcion;
    }
    return {};
}

/// Runs `accion` and checks that it fails with this number and source; an empty source is not looked at.
template <class Accion>
void EsperarError(std::int32_t numero, std::string_view origen, Accion&& accion) {
    try {
        accion();
        ADD_FAILURE() << "no ha fallado: se esperaba el error " << numero;
    } catch (const RuntimeError& error) {
        EXPECT_EQ(numero, error.numero) << error.descripcion;
        if (!origen.empty()) {
            EXPECT_EQ(origen, error.origen) << error.descripcion;
        }
    }
}

}  // namespace kv::prueba
