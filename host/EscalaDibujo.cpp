#include "kvdatosart/host/EscalaDibujo.h"

#include <algorithm>
#include <cmath>

#include "kvdatosart/host/Historia.h"

namespace kv::host {
namespace {

constexpr double kMarcas = 9;
constexpr double kDiasPorMes = 30.44;

// 1, 2, 2.5 or 5 by a power of ten, not below `minimo`.
double PasoRedondo(double minimo) {
    const double decena = std::pow(10.0, std::floor(std::log10(minimo)));
    for (const double paso : {1.0, 2.0, 2.5, 5.0})
        if (paso * decena >= minimo * (1 - 1e-9)) return paso * decena;
    return 10 * decena;
}

// The first of a month, counted from January of year 0.
Fecha PrimeroDeMes(int mes) {
    return Fecha::DeAmd(mes / 12, mes % 12 + 1, 1);
}

std::vector<MarcaDia> CadaDias(const Escala& dias, int paso) {
    std::vector<MarcaDia> marcas;
    for (double dia = dias.desde; dia <= dias.hasta; dia += paso)
        marcas.push_back({dia, Fecha::DeOle(dia).ATexto().Cadena()});
    return marcas;
}

std::vector<MarcaDia> CadaMeses(const Escala& dias, int paso) {
    const Fecha primero = Fecha::DeOle(dias.desde);
    const Fecha ultimo = Fecha::DeOle(dias.hasta - 1);
    std::vector<MarcaDia> marcas;
    const int fin = ultimo.Anio() * 12 + ultimo.Mes() - 1;
    for (int mes = (primero.Anio() * 12 + primero.Mes() - 2 + paso) / paso * paso; mes <= fin; mes += paso) {
        const Fecha dia = PrimeroDeMes(mes);
        if (dia < primero) continue;
        const std::string texto = dia.ATexto().Cadena();
        marcas.push_back({dia.AOle(), texto.substr(paso % 12 == 0 ? 6 : 3)});
    }
    return marcas;
}

}  // namespace

int Escala::En(double valor, int primero, int ultimo) const {
    const double parte = std::clamp((valor - desde) / (hasta - desde), 0.0, 1.0);
    return primero + static_cast<int>(std::lround(parte * (ultimo - primero)));
}

Escala EscalaDias(const aplicacion::RespuestaHistoria& historia) {
    const TramoHistoria& ultimo = historia.tramos.back();
    const double desde = historia.tramos.front().desde.AOle();
    if (!SinFin(ultimo)) return {desde, ultimo.hasta.AOle() + 1};
    const double cambio = ultimo.desde.AOle();
    return {desde, std::min(cambio + std::max((cambio - desde) / 3, 60.0), ultimo.hasta.AOle() + 1)};
}

EscalaConMarcas EscalaPrecios(const aplicacion::RespuestaHistoria& historia) {
    std::vector<double> netos;
    for (const TramoHistoria& tramo : historia.tramos)
        if (tramo.tasacion.fallo.empty() && !tramo.tasacion.SinPrecio()) netos.push_back(tramo.tasacion.neto.ADouble());
    if (netos.empty()) return {};
    const auto [menor, mayor] = std::minmax_element(netos.begin(), netos.end());
    // A single price stands in the middle.
    const double margen = *menor == *mayor ? std::max(std::abs(*mayor) / 10, 0.01) : 0;
    const double paso = PasoRedondo((*mayor - *menor + 2 * margen) / 4);
    const double primera = std::floor((*menor - margen) / paso), ultima = std::ceil((*mayor + margen) / paso);
    EscalaConMarcas escala{{primera * paso, ultima * paso}, {}};
    for (double marca = primera; marca <= ultima; ++marca) escala.marcas.push_back(marca * paso);
    return escala;
}

std::vector<MarcaDia> MarcasDias(const Escala& dias) {
    const double cuantos = dias.hasta - dias.desde;
    for (const int paso : {1, 2, 7, 14})
        if (cuantos / paso <= kMarcas) return CadaDias(dias, paso);
    int meses = 1;
    for (const int paso : {1, 2, 3, 6, 12, 24, 60, 120, 240, 600, 1200, 2400, 6000, 12000}) {
        meses = paso;
        if (cuantos / (paso * kDiasPorMes) <= kMarcas) break;
    }
    return CadaMeses(dias, meses);
}

}  // namespace kv::host
