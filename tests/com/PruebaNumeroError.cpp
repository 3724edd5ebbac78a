#include <gtest/gtest.h>

#include "kvdatosart/component/com/NumeroError.h"

namespace kv {
namespace {

TEST(NumeroError, CadaClaseDeNumero) {
    const struct {
        const char* nombre;
        std::int32_t numero;
        std::uint32_t hresult;
    } casos[] = {
        {"el menor", 1, 0x800A0001U},
        {"objeto sin establecer", 91, 0x800A005BU},
        {"de ADO", 3265, 0x800A0CC1U},
        {"el mayor de los pequeños", 65535, 0x800AFFFFU},
        {"ninguno", 0, 0x800A0033U},
        {"ni pequeño ni fallo", 65536, 0x800A0033U},
        {"del proveedor", -2147217900, 0x80040E14U},
    };
    for (const auto& c : casos) EXPECT_EQ(static_cast<std::uint32_t>(HresultDeNumero(c.numero)), c.hresult) << c.nombre;
}

}  // namespace
}  // namespace kv
