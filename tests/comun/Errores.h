#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "kvdatosart/base/RuntimeError.h"

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
    const std::string esperado = std::to_string(numero) + "|" + std::string(origen) + (origen.empty() ? "" : "|");
    const std::string fallo = FalloDe(accion);
    EXPECT_EQ(esperado, fallo.substr(0, esperado.size())) << "en el fallo «" << fallo << "»";
}

}  // namespace kv::prueba
