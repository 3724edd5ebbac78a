#include <gtest/gtest.h>

#include "kvdatosart/host/EscalaDibujo.h"
#include "kvdatosart/host/Historia.h"

namespace kv::host {
namespace {

const Fecha kHoy = Fecha::DeAmd(2026, 11, 21);
const Fecha kSinFin = Fecha::DeAmd(2050, 12, 31);

TramoHistoria Tramo(const char* desde, const char* neto, std::int16_t tarifa, const char* fallo = "") {
    TramoHistoria tramo;
    tramo.desde = Fecha::DeTexto(desde);
    tramo.pasado = tramo.desde < kHoy;
    tramo.tasacion.fallo = fallo;
    tramo.tasacion.pvp = tramo.tasacion.neto = Currency::DeTexto(neto);
    tramo.tasacion.motivo.procedencia = tarifa == 0 ? ProcedenciaPrecio::Ninguna : ProcedenciaPrecio::Tarifa;
    tramo.tasacion.motivo.tarifa = tarifa;
    return tramo;
}

// Each stretch ends where the next one begins.
aplicacion::RespuestaHistoria Historia(std::vector<TramoHistoria> tramos, Fecha hasta = kSinFin) {
    for (std::size_t i = 0; i < tramos.size(); ++i)
        tramos[i].hasta = i + 1 < tramos.size() ? tramos[i + 1].desde + -1 : hasta;
    return {102, "Llaves <8 & 9>", 3, "Ñandú \"SL\"", kHoy, std::move(tramos)};
}

TEST(Historia, LaFrase) {
    const auto tarde = Fecha::DeAmd(2027, 6, 30);
    const struct {
        std::vector<TramoHistoria> tramos;
        Fecha hasta;
        const char* frase;
    } casos[] = {
        {{Tramo("21/11/2026", "89.95", 1), Tramo("1/1/2027", "92.5", 1)},
         kSinFin,
         "89,95 hasta el 31/12/2026; desde el 01/01/2027, 92,50 (tarifa 1)"},
        {{Tramo("21/11/2026", "89.95", 1)}, kSinFin, "89,95, sin cambios previstos (tarifa 1)"},
        {{Tramo("21/11/2026", "89.95", 1)}, tarde, "89,95 hasta el 30/06/2027 (tarifa 1)"},
        {{Tramo("1/12/2026", "8", 1), Tramo("1/1/2027", "9", 2)},
         tarde,
         "del 01/12/2026 al 31/12/2026, 8,00 (tarifa 1); desde el 01/01/2027 hasta el 30/06/2027, 9,00 (tarifa 2)"},
        {{Tramo("1/1/2020", "7", 1), Tramo("21/11/2026", "8", 1), Tramo("22/11/2026", "0", 0)},
         kSinFin,
         "8,00 hasta el 21/11/2026 (tarifa 1); desde el 22/11/2026, sin precio"},
        {{Tramo("1/1/2020", "7", 1)},
         Fecha::DeAmd(2020, 1, 31),
         "Con las tarifas de hoy, no lo que se cobró: del 01/01/2020 al 31/01/2020, 7,00 (tarifa 1)"},
        {{Tramo("21/11/2026", "0", 1, "desbordamiento")}, kSinFin, "sin calcular, sin cambios previstos"},
        {{Tramo("21/11/2026", "1", 1), Tramo("22/11/2026", "2", 1), Tramo("23/11/2026", "3", 1),
          Tramo("24/11/2026", "4", 1), Tramo("25/11/2026", "5", 1), Tramo("26/11/2026", "6", 1)},
         kSinFin,
         "1,00 hasta el 21/11/2026; desde el 22/11/2026, 2,00; desde el 23/11/2026, 3,00; desde el 24/11/2026, 4,00"
         " (tarifa 1); y 2 cambios más"},
    };
    for (const auto& caso : casos) EXPECT_EQ(caso.frase, FraseDe(Historia(caso.tramos, caso.hasta), ','));
}

std::string Marcas(Fecha desde, Fecha hasta) {
    std::string texto;
    for (const MarcaDia& marca : MarcasDias({desde.AOle(), hasta.AOle() + 1})) texto += marca.rotulo + " ";
    return texto;
}

TEST(Historia, LasMarcasDelTiempo) {
    EXPECT_EQ("21/11/2026 22/11/2026 ", Marcas(kHoy, kHoy));
    EXPECT_EQ("21/11/2026 05/12/2026 19/12/2026 02/01/2027 16/01/2027 30/01/2027 ", Marcas(kHoy, kHoy + 80));
    EXPECT_EQ("01/2027 03/2027 05/2027 07/2027 09/2027 11/2027 ", Marcas(kHoy, kHoy + 365));
    EXPECT_EQ("2030 2035 2040 2045 2050 ", Marcas(kHoy, kSinFin));
    EXPECT_EQ("1000 2000 3000 4000 5000 6000 7000 8000 9000 ",
              Marcas(Fecha::DeAmd(100, 1, 2), Fecha::DeAmd(9999, 12, 30)));
}

TEST(Historia, LosEjes) {
    const auto precios = [](const char* uno, const char* otro) {
        const auto escala = EscalaPrecios(Historia({Tramo("21/11/2026", uno, 1), Tramo("22/11/2026", otro, 1)}));
        return std::vector{escala.desde, escala.hasta, static_cast<double>(escala.marcas.size())};
    };
    EXPECT_EQ((std::vector{80.0, 100.0, 5.0}), precios("82", "100"));
    EXPECT_EQ((std::vector{90.0, 110.0, 5.0}), precios("100", "100"));
    EXPECT_EQ((std::vector{0.0, 0.0, 0.0}), std::vector({precios("0", "0")[0], 0.0, precios("0", "0")[2]}));
    // What has no end goes on for a third of what it took to come there, or for two months.
    const auto dias = [](const char* cambio) {
        const Escala escala = EscalaDias(Historia({Tramo("21/11/2026", "1", 1), Tramo(cambio, "2", 1)}));
        return escala.hasta - escala.desde;
    };
    EXPECT_EQ(61, dias("22/11/2026"));
    EXPECT_EQ(400, dias("17/09/2027"));
    EXPECT_EQ(0, Escala({5, 15}).En(5, 0, 100));
    EXPECT_EQ(30, Escala({5, 15}).En(8, 0, 100));
    EXPECT_EQ(100, Escala({5, 15}).En(99, 0, 100));
}

std::size_t Veces(const std::string& texto, const std::string& que) {
    std::size_t veces = 0;
    for (auto pos = texto.find(que); pos != std::string::npos; pos = texto.find(que, pos + 1)) ++veces;
    return veces;
}

TEST(Historia, ElDibujo_EscalonesHuecosYTabla) {
    const auto historia =
        Historia({Tramo("21/10/2026", "20", 1), Tramo("21/11/2026", "20", 1), Tramo("1/12/2026", "0", 0),
                  Tramo("1/1/2027", "30", 1), Tramo("1/2/2027", "40", 1)});
    const std::string svg = ASvg(historia, ',');
    // Four stretches with a price, one of them dashed; a rise where both sides have one; a gap.
    EXPECT_EQ(4U + 1U, Veces(svg, "stroke-width=\"3\"")) << "and the key's";
    EXPECT_EQ(1U + 1U, Veces(svg, "stroke-dasharray=\"9 5\""));
    EXPECT_EQ(2U, Veces(svg, "stroke-width=\"1\""));
    EXPECT_EQ(1U, Veces(svg, "fill-opacity"));
    EXPECT_EQ(1U + 5U, Veces(svg, "role=\"row\""));
    EXPECT_EQ(7U * 5U, Veces(svg, "role=\"cell\""));
    EXPECT_EQ(1U,
              Veces(svg, "<title id=\"titulo\">Precio de 102 Llaves &lt;8 &amp; 9&gt; para 3 Ñandú &quot;SL&quot;<"));
    EXPECT_EQ(1U,
              Veces(svg, "<desc id=\"frase\">20,00 hasta el 30/11/2026 (tarifa 1); desde el 01/12/2026, sin precio;"));
    for (const char* dicho :
         {"tarifa 1; con las tarifas de hoy, no lo que se", ">sin fin<", ">hoy, 21/11/2026<", ">sin precio<"})
        EXPECT_NE(std::string::npos, svg.find(dicho)) << dicho;
    EXPECT_EQ(std::string::npos, ASvg(Historia({Tramo("21/11/2026", "1", 1)}), ',').find("stroke-dasharray=\"9 5\""));
}

}  // namespace
}  // namespace kv::host
