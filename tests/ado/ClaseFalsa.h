#pragma once

#include <gtest/gtest.h>

#include "tests/com/ComandoFalso.h"

namespace kv::prueba {

/// Objects of ours stand for a class of ADO as long as this lives.
template <class Objeto>
class ClaseFalsa {
  public:
    ClaseFalsa(const GUID& clase, const GUID& generacion) {
        const auto fabrica = Nuevo<FabricaFalsa<Objeto>>(generacion);
        EXPECT_EQ(S_OK,
                  CoRegisterClassObject(clase, fabrica.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registro_));
    }
    ~ClaseFalsa() { CoRevokeClassObject(registro_); }
    ClaseFalsa(const ClaseFalsa&) = delete;
    ClaseFalsa& operator=(const ClaseFalsa&) = delete;

  private:
    DWORD registro_ = 0;
};

}  // namespace kv::prueba
