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

// What had nothing can be left out of sight: never what was looked at and set aside, nor that there is no price.
TEST(Explicacion, SinNada_DistingueLoQueSeMiro) {
    const struct {
        std::int32_t articulo, cliente;
        std::string fuente;
        bool vacia;
    } casos[] = {
        {110, 4, "Convenio de precio", false},  // below zero, so it does not count
        {108, 4, "Convenio de precio", false},
        {101, 4, "Convenio de precio", true},
        {121, 1, "Tarifa", false},
        {106, 3, "Precio del cliente", false},
        {101, 3, "Precio del cliente", true},
        {106, 6, "Descuento de grupo", false},
        {106, 1, "Descuento de grupo", true},
        {107, 11, "Precio base de cadena", false},
        {107, 11, "Redondeo", true},
        {116, 17, "Acuerdo: descuentos", false},
    };
    const prueba::BaseDePrueba base(prueba::BaseDePrueba::Datos::Demostracion, kHoy);
    const prueba::BibliotecaDePrueba biblioteca(kHoy, '.');
    const auto conexion = base.AbrirSinDisco();
    const Sesion sesion(conexion, LeerEmpresa(*conexion, 1), kHoy);
    for (const auto& caso : casos) {
        PeticionCarga peticion;
        peticion.articulo = caso.articulo;
        peticion.cliente = caso.cliente;
        peticion.explica = true;
        const auto pasos = Cargar(sesion, peticion).explicacion;
        const auto ultimo =
            std::find_if(pasos.rbegin(), pasos.rend(), [&](const PasoExplicado& p) { return p.fuente == caso.fuente; });
        ASSERT_NE(pasos.rend(), ultimo) << caso.fuente;
        EXPECT_EQ(caso.vacia, ultimo->vacia) << caso.articulo << " " << caso.cliente << " " << caso.fuente;
    }
}

}  // namespace
}  // namespace kv::aplicacion
