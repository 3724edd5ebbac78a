#include <gtest/gtest.h>

#include "kvdatosart/catalog/Comparacion.h"
#include "kvdatosart/db/sqlite/ConexionSqlite.h"

namespace kv::prueba {
namespace {

PrecioComparado Precio(double neto, double descuento = 0) {
    return {Currency::DeDouble(neto),
            Currency::DeDouble(descuento),
            Currency::DeDouble(neto),
            true,
            "",
            "tarifa d'aquí",
            "Tubo de 2'"};
}

PrecioComparado Sin(const char* situacion) {
    PrecioComparado sin = Precio(5);
    sin.conPrecio = false;
    sin.situacion = situacion;
    return sin;
}

struct Lado {
    int articulo, cliente, unidades;
    PrecioComparado precio;
};

std::string Comparar(double umbral, const std::vector<Lado>& antes, const std::vector<Lado>& despues) {
    const auto mesa = ConexionSqlite::Temporal();
    Comparacion comparacion(*mesa, umbral);
    const auto clave = [](const Lado& l) {
        return ClaveComparada{l.articulo, l.cliente, Currency::DeEntero(l.unidades)};
    };
    for (const Lado& lado : antes) comparacion.Antes(clave(lado), lado.precio);
    for (const Lado& lado : despues) comparacion.Despues(clave(lado), lado.precio);
    std::string texto;
    const RecuentoComparacion r = comparacion.Recorrer([&](const LineaComparada& linea) {
        texto += std::to_string(linea.clave.articulo) + "/" + std::to_string(linea.clave.cliente) + "/" +
                 linea.clave.unidades.ATexto('.').Cadena();
        for (const auto& lado : {linea.antes, linea.despues})
            texto += !lado ? " nada" : " " + (lado->conPrecio ? lado->neto.ATexto('.').Cadena() : lado->situacion);
        if (linea.diferencia) texto += " " + linea.diferencia->ATexto('.').Cadena();
        if (linea.porcentaje) texto += " " + TextoDouble(*linea.porcentaje, '.').Cadena() + "%";
        texto += "\n";
        EXPECT_EQ("tarifa d'aquí Tubo de 2'", linea.antes ? linea.antes->motivo + " " + linea.antes->descripcion
                                                          : linea.despues->motivo + " " + linea.despues->descripcion);
    });
    for (const std::uint64_t n : {r.iguales, r.distintas, r.menores, r.soloAntes, r.soloDespues})
        texto += std::to_string(n) + " ";
    return texto + (r.HayDiferencias() ? "distintas" : "iguales");
}

TEST(Comparacion, LoQueDifiereYLoQueTieneUnSoloLado_PorPorcentaje) {
    const std::vector<Lado> antes = {{1, 7, 1, Precio(10)},  {1, 8, 1, Precio(10)},   {2, 7, 1, Precio(20)},
                                     {2, 7, 10, Precio(18)}, {3, 7, 1, Precio(5)},    {4, 7, 1, Sin("sin precio")},
                                     {5, 7, 1, Precio(0)},   {6, 7, 1, Precio(3, 10)}};
    const std::vector<Lado> despues = {{4, 7, 1, Precio(8)},   {2, 7, 10, Precio(18.0001)}, {2, 7, 1, Precio(15)},
                                       {1, 8, 1, Precio(11)},  {1, 7, 1, Precio(10)},       {5, 7, 1, Precio(1)},
                                       {-9, 7, 1, Precio(-1)}, {6, 7, 1, Precio(3, 9)}};
    const std::string comun = "-9/7/1 nada -1\n3/7/1 5 nada\n4/7/1 sin precio 8\n5/7/1 0 1 1\n";
    EXPECT_EQ(
        "1/8/1 10 11 1 10%\n2/7/10 18 18.0001 0.0001 0.000555555555555556%\n6/7/1 3 3 0 0%\n"
        "2/7/1 20 15 -5 -25%\n" +
            comun + "1 6 0 1 1 distintas",
        Comparar(0, antes, despues));
    EXPECT_EQ("1/8/1 10 11 1 10%\n2/7/1 20 15 -5 -25%\n" + comun + "1 4 2 1 1 distintas", Comparar(10, antes, despues));
    EXPECT_EQ("8 0 0 0 0 iguales", Comparar(0, antes, antes));
    EXPECT_EQ("0 0 0 0 0 iguales", Comparar(0, {}, {}));
}

}  // namespace
}  // namespace kv::prueba
