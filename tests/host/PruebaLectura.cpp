#include <gtest/gtest.h>

#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/host/Lectura.h"

namespace kv::host {
namespace {

struct CasoImporte {
    const char* texto;
    /// Default text of the number, or a part of the refusal.
    const char* espera;
};

TEST(Lectura, ImporteLeido) {
    for (const CasoImporte& caso : {
             CasoImporte{"0.125", "0.125"},
             {"-0.125", "-0.125"},
             {"1,000", "1"},
             {"12,345", "12.345"},
             {"1.000,5", "1000.5"},
             {"-12.345.678,25", "-12345678.25"},
             {"1.000.000", "1000000"},
             {"1000.125", "1000.125"},
             {"1.00", "1"},
             {"1.0000", "1"},
             {"012.345", "12.345"},
             {"922337203685477,5807", "922337203685477.5807"},
         })
        EXPECT_EQ(LeerImporte("x", caso.texto).ATexto('.').Cadena(), caso.espera) << caso.texto;
}

TEST(Lectura, ImporteRechazado) {
    const char* const numero = "se espera un número de 15 cifras y cuatro decimales como mucho";
    for (const CasoImporte& caso : {
             CasoImporte{"1.000", "«1.000» no vale; se espera 1000 o 1,000, que no se confunden"},
             {"12.345", "se espera 12345 o 12,345, que"},
             {"-999.000", "se espera -999000 o -999,000, que"},
             {"+1.000", "se espera +1000 o"},
             {"1.000,50000", numero},
             {"1.0000,5", numero},
             {"1000.000,5", numero},
             {"0.000,5", numero},
             {"1.00.000,5", numero},
             {"1.0a0,5", numero},
             {"1,000.5", numero},
             {"1,000,5", numero},
             {".", numero},
             {"", numero},
             {" 1", numero},
             {"1e3", numero},
             {"922337203685477,5808", numero},
         }) {
        try {
            LeerImporte("x", caso.texto);
            ADD_FAILURE() << caso.texto;
        } catch (const aplicacion::Rechazo& rechazo) {
            EXPECT_EQ(rechazo.campo, "x");
            EXPECT_NE(std::string(rechazo.what()).find(caso.espera), std::string::npos) << rechazo.what();
        }
    }
}

}  // namespace
}  // namespace kv::host
