#include <gtest/gtest.h>

#include "kvdatosart/catalog/Neto.h"
#include "kvdatosart/tests/catalog/MundoCatalogo.h"
#include "kvdatosart/tests/comun/Errores.h"

namespace kv::prueba {
namespace {

TEST(Neto, PrecioMenosDescuento_EmpatesAParEnElCuarto_YLejosDeCeroAlRedondear) {
    const struct {
        double pvp, descuento;
        std::int16_t decimales;
        double neto;
    } casos[] = {{89.95, 0, 2, 89.95},    {89.95, 10, 2, 80.96},     {10.01, 50, 2, 5.01},
                 {-10.01, 50, 2, -5.01},  {0.0003, 50, 4, 0.0002},   {0.0001, 50, 4, 0},
                 {0.0005, 50, 4, 0.0002}, {-0.0003, 50, 4, -0.0002}, {100, 100, 2, 0},
                 {100, -5, 2, 105},       {100, 110, 2, -10},        {33.3333, 33.3333, 4, 22.2222},
                 {12.3456, 12.5, 0, 11},  {12.3456, 12.5, 3, 10.802}};
    for (const auto& caso : casos)
        EXPECT_EQ(Currency::DeDouble(caso.neto),
                  Neto(Currency::DeDouble(caso.pvp), Currency::DeDouble(caso.descuento), caso.decimales))
            << caso.pvp << " menos " << caso.descuento;
    EsperarError(kErrDesbordamiento, "", [] { Neto(Currency::DeDouble(9.3e12), Currency(), 2); });
}

TEST(Tasar, CadaLineaEsDeUnObjetoNuevo_YDiceQuePusoElPrecio) {
    const MundoCatalogo mundo;
    const Puesto puesto = mundo.Puestos(1)[0];
    // A discount, a customer at cost, an unknown article: what one leaves behind the next must not show.
    const struct {
        int articulo, cliente, estado;
        const char* precios;
        const char* motivo;
    } casos[] = {
        {112, 5, 0, "4.85 12 4.27", "tarifa 1, descuento de familia"},
        {112, 49, 0, "", "cliente a coste"},
        {5555, 5, 1, "0 0 0", "sin precio"},
        {112, 49, 0, "", "cliente a coste"},
        {113, 11, 0, "15.51 0 15.51", "tarifa 1, descuentos de cadena"},
        {101, 999, 0, "89.95 0 89.95", "tarifa 1"},
    };
    for (const auto& caso : casos) {
        const Tasacion t = Tasar(puesto, Terminos(caso.articulo, caso.cliente));
        EXPECT_EQ(caso.estado, t.estado);
        if (caso.precios[0] != '\0') {
            EXPECT_EQ(caso.precios, t.pvp.ATexto('.').Cadena() + " " + t.descuento.ATexto('.').Cadena() + " " +
                                        t.neto.ATexto('.').Cadena());
        } else {
            EXPECT_TRUE(t.motivo.EsCoste());
            EXPECT_EQ(t.coste, t.pvp);
            EXPECT_EQ(Currency(), t.descuento);
        }
        EXPECT_EQ(caso.motivo, t.motivo.Texto()) << caso.articulo << " " << caso.cliente;
    }
}

TEST(Tasar, LoQuePusoElPrecio) {
    const MundoCatalogo mundo;
    auto& e = *mundo.escritura;
    e.Ejecutar("UPDATE Clientes SET Tarifa_Promoc =4, Tarifa_Pvp =3 WHERE Codigo =21");
    e.Ejecutar("DELETE FROM Articulos_Tarifas WHERE Cod_Articulo >=1001 AND Cod_Articulo <=1009");
    const auto poner = [&](const std::string& tabla, const std::string& columnas, const std::string& valores) {
        e.Ejecutar("INSERT INTO " + tabla + " (Cod_Empresa, " + columnas + ") VALUES (1, " + valores + ")");
    };
    poner("Articulos_Tarifas", "Cod_Articulo, Cod_Tarifa, Pvp", "1001, 4, 1");
    poner("Articulos_Tarifas", "Cod_Articulo, Cod_Tarifa, Pvp", "1002, 3, 2");
    poner("Articulos_Tarifas", "Cod_Articulo, Cod_Tarifa, Pvp", "1003, 1, 3");
    poner("Clientes_Art_PVP", "Cod_Cliente, Cod_Articulo, Fecha_Inicial, Fecha_Final, PVP",
          "21, 1004, '01/01/2020', '31/12/2050', 4");
    poner("Clientes_Convenio_Pvp", "Cod_Cliente, Cod_Articulo, Cod_ArticuloB, Pvp", "21, 1005, 1003, -2");
    poner(
        "Clientes_Cadenas_ConvArt",
        "Cod_Articulo, Cod_Nivel1, Cod_Nivel2, Cod_Nivel3, Cod_Nivel4, Cod_Nivel5, Cod_Nivel6, Cod_Nivel7, Cod_Nivel8,"
        " Cod_Nivel9, Cod_Nivel10, FechaEntrada, PBase",
        "1006, 1, 2, 0, 0, 0, 0, 0, 0, 0, 0, '01/01/2020', 6");
    const struct {
        int articulo, cliente;
        const char* motivo;
    } casos[] = {{1001, 21, "tarifa 4 de promoción del cliente"},
                 {1002, 21, "tarifa 3 del cliente"},
                 {1003, 21, "tarifa 1"},
                 {1004, 21, "precio del cliente"},
                 {1005, 21, "convenio de precio"},
                 {1006, 14, "precio base de cadena 1.2"},
                 {1007, 21, "sin precio"}};
    for (const auto& caso : casos) {
        const std::string texto = Tasar(mundo.Puestos(1)[0], Terminos(caso.articulo, caso.cliente)).motivo.Texto();
        EXPECT_EQ(caso.motivo, texto.substr(0, texto.find(", descuento")));
    }
    Pregunta otra = Terminos(1003, 21);
    for (const auto& [tarifa, motivo] : {std::pair{9, "tarifa 1 de la empresa"}, {-1, "a coste"}}) {
        e.Ejecutar("UPDATE Clientes SET Tarifa_Promoc =0, Tarifa_Pvp =0 WHERE Codigo =21");
        otra.tarifa = static_cast<std::int16_t>(tarifa);
        const std::string texto = Tasar(mundo.Puestos(1)[0], otra).motivo.Texto();
        EXPECT_EQ(motivo, texto.substr(0, texto.find(", descuento")));
    }
}

TEST(Tasar, UnDescuentoQueNoSePuedePreguntar_NoEsNingunPrecio) {
    const MundoCatalogo mundo;
    mundo.escritura->Ejecutar("DELETE FROM Procedimientos WHERE Nombre ='KVP_DevDtoClientesGrupos'");
    const Tasacion t = Tasar(mundo.Puestos(1)[0], Terminos(112, 5));
    EXPECT_TRUE(t.fallo.starts_with("el procedimiento KVP_DevDtoClientesGrupos ha fallado: ")) << t.fallo;
    EXPECT_EQ(Currency(), t.pvp);
}

}  // namespace
}  // namespace kv::prueba
