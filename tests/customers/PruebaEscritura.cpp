#include <gtest/gtest.h>

#include "customers/ColumnasCliente.h"
#include "tests/comun/BaseDemo.h"
#include "tests/comun/EmpresaFija.h"

namespace kv::prueba {
namespace {

const Fecha kHoy = Fecha::DeAmd(2026, 11, 21);

void EsperarIguales(const clsCliente& a, const clsCliente& b) {
    for (const auto& columna : kColumnasCliente)
        std::visit([&](auto miembro) { EXPECT_EQ(a.*miembro, b.*miembro) << columna.nombre; }, columna.destino);
}

TEST(ClienteEscrito, VuelveEnteroTrasInsertarYModificar) {
    const BibliotecaDePrueba biblioteca(kHoy, ',');
    const BaseDePrueba base(BaseDePrueba::Datos::Demostracion, kHoy);
    const auto conexion = base.Abrir();
    const auto empresa = std::make_shared<EmpresaFija>();
    empresa->codEmpresaClientes = 1;
    clsCliente escrito;
    clsCliente leido;
    for (clsCliente* cliente : {&escrito, &leido}) {
        cliente->Conexion(conexion);
        cliente->cEmpresa(empresa);
    }
    escrito.Codigo = 11;
    ASSERT_TRUE(escrito.Cargar());
    leido.Codigo = escrito.Codigo = 5011;
    EXPECT_FALSE(leido.Existe());
    escrito.Insertar();
    ASSERT_TRUE(leido.Cargar());
    EsperarIguales(escrito, leido);

    escrito.Nombre = "Ñandú € 24 h";
    escrito.Credito = Currency::DeDouble(-1234.5678);
    escrito.Bloqueado = true;
    escrito.FAlta.reset();
    escrito.FechaBloq = kHoy;
    escrito.Cad_Nivel_10 = -7;
    escrito.Modificar();
    ASSERT_TRUE(leido.Cargar());
    EsperarIguales(escrito, leido);
    leido.Codigo = 11;
    ASSERT_TRUE(leido.Cargar());
    EXPECT_NE("Ñandú € 24 h", leido.Nombre);
}

}  // namespace
}  // namespace kv::prueba
