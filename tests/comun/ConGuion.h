#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "kvdatosart/db/Inyectado.h"
#include "kvdatosart/tests/comun/ConexionGuion.h"
#include "kvdatosart/tests/comun/EmpresaFija.h"
#include "kvdatosart/tests/comun/Errores.h"

namespace kv::prueba {

/// An object of an internal class over a script, on a host with a decimal comma. Its texts tell which common
/// routine each value went through.
template <class Clase>
class ConGuion : public testing::Test {
  protected:
    ConGuion() {
        objeto.Conexion(guion);
        objeto.cEmpresa(empresa);
    }
    /// Runs `accion` of `quien` twice: without a connection, when it must fail and name this source, and then with it.
    template <class Accion>
    auto Hacer(Inyectado& quien, const std::string& origen, Accion accion) {
        quien.Conexion(nullptr);
        EsperarError(kErrObjetoNoEstablecido, origen, accion);
        quien.Conexion(guion);
        return accion();
    }

    /// The day that is asked about, and a later today.
    const Fecha dia = Fecha::DeAmd(2026, 3, 5), hoy = Fecha::DeAmd(2026, 4, 17);
    BibliotecaDePrueba biblioteca{hoy, ',', true};
    std::shared_ptr<ConexionGuion> guion = std::make_shared<ConexionGuion>();
    std::shared_ptr<EmpresaFija> empresa = std::make_shared<EmpresaFija>();
    Clase objeto;
};

}  // namespace kv::prueba
