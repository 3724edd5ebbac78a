#include <gtest/gtest.h>

#include <algorithm>

#include "kvdatosart/application/Carga.h"
#include "kvdatosart/tests/comun/BaseDemo.h"
#include "kvdatosart/tests/comun/EmpresaFija.h"

namespace kv::aplicacion {
namespace {

const Fecha kHoy = Fecha::DeAmd(2026, 3, 5);

// What the programs of a later version write is no offer here, and does nothing.
TEST(Explicacion, DescuentoDeClaseDesconocida_SeDiceYNoQuitaNada) {
    const prueba::BaseDePrueba base(prueba::BaseDePrueba::Datos::Demostracion, kHoy);
    const prueba::BibliotecaDePrueba biblioteca(kHoy, '.');
    const auto conexion = base.AbrirSinDisco();
    conexion->Ejecutar("UPDATE Clientes_Cadenas_ConvArt SET TDto1 =3 WHERE Cod_Articulo =113 AND Cod_Nivel4 =1");
    const Sesion sesion(conexion, LeerEmpresa(*conexion, 1), kHoy);
    PeticionCarga peticion;
    peticion.articulo = 113;
    peticion.cliente = 11;
    peticion.explica = true;
    const RespuestaCarga carga = Cargar(sesion, peticion);
    const auto paso = std::find_if(carga.explicacion.begin(), carga.explicacion.end(),
                                   [](const PasoExplicado& p) { return p.clave.texto == "clase 3"; });
    ASSERT_NE(carga.explicacion.end(), paso);
    EXPECT_EQ("clase desconocida: no cambia el precio", paso->resultado.texto);
    EXPECT_EQ(Valor(Currency::DeDouble(18.61)), paso->antes);
    EXPECT_EQ(paso->antes, paso->despues);
    EXPECT_EQ(18.61, carga.articulo->Pvp);
}

}  // namespace
}  // namespace kv::aplicacion
