#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "tests/comun/ConexionGuion.h"
#include "tests/comun/EmpresaFija.h"
#include "tests/comun/Errores.h"

namespace kv::prueba {

/// An object of an internal class over a script, on a host with a decimal comma.
template <class Clase>
class ConGuion : public testing::Test {
  protected:
    ConGuion() {
        objeto.Conexion(guion);
        objeto.cEmpresa(empresa);
    }

    const Fecha dia = Fecha::DeAmd(2026, 3, 5);
    BibliotecaDePrueba biblioteca{dia, ','};
    std::shared_ptr<ConexionGuion> guion = std::make_shared<ConexionGuion>();
    std::shared_ptr<EmpresaFija> empresa = std::make_shared<EmpresaFija>();
    Clase objeto;
};

}  // namespace kv::prueba
