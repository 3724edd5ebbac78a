#pragma once

#include <gtest/gtest.h>

#include <cstdlib>

#include "kvdatosart/tests/com/Escena.h"
#include "kvdatosart/tests/com/Llamada.h"

namespace kv::prueba {

/// The registered class over the recording that KV_GRABACION names.
class Registrada : public testing::Test {
  protected:
    static void SetUpTestSuite() { casos = LeerGrabacion(std::getenv("KV_GRABACION")); }

    inline static std::vector<Caso> casos;
    Escena escena;
};

/// A new object with the scene's references and the variant of a case, whose load is what the connection answers next.
inline PunteroCom<::_clsDatosArt> Preparar(Escena& escena, const Caso& caso) {
    auto o = Crear();
    EXPECT_EQ(S_OK, o->putref_Conexion(escena.conexion.Get()));
    EXPECT_EQ(S_OK, o->putref_cEmpresa(escena.empresa.Get()));
    o->put_CualidadX(static_cast<unsigned char>(caso.Numero(6)));
    escena.Poner(caso.partes[0]);
    return o;
}

/// Loads a case through the vtable.
inline Llamada CargarPorRanura(::_clsDatosArt& o, const Caso& c) {
    Llamada ll;
    short estado = -1;
    CURRENCY unidades;
    unidades.int64 = c.Numero(5) * 10000LL;
    ll.hr = o.Cargar(c.Numero(1), c.Numero(2), c.Numero(3), static_cast<short>(c.Numero(4)), 1, 2, unidades, &estado);
    ll.valor = Codificar(std::int16_t{estado});
    return ll;
}

}  // namespace kv::prueba
