#include <algorithm>

#include "kvdatosart/host/Documentos.h"
#include "kvdatosart/host/EscribirTexto.h"
#include "kvdatosart/host/Historia.h"

namespace kv::host {
namespace {

using aplicacion::ColumnaTabla;
using aplicacion::RespuestaHistoria;
using C = aplicacion::ClaseDato;

constexpr std::size_t kTramosContados = 4;

constexpr ColumnaTabla kParaGente[] = {
    {"", "desde", "Desde", C::Fecha},           {"", "hasta", "Hasta", C::Fecha}, {"", "precio", "Precio", C::Importe},
    {"", "descuento", "Dto. %", C::Porcentaje}, {"", "neto", "Neto", C::Importe}, {"", "motivo", "Qué lo pone"},
};
constexpr ColumnaTabla kParaProgramas[] = {
    {"", "desde", "", C::Fecha},
    {"", "hasta", "", C::Fecha},
    {"", "pasado", "", C::Logico},
    {"", "precio", "", C::Importe},
    {"", "descuento", "", C::Porcentaje},
    {"", "neto", "", C::Importe},
    {"", "tarifa", "", C::Codigo},
    {"", "motivo", ""},
    {"", "fallo", ""},
};

std::string Dia(Fecha fecha) {
    return fecha.ATexto().Cadena();
}

bool ConPrecio(const TramoHistoria& tramo) {
    return tramo.tasacion.fallo.empty() && !tramo.tasacion.SinPrecio();
}

// The numbers of a stretch, which mean nothing without a price.
Valor Numero(const TramoHistoria& tramo, Currency Tasacion::*numero) {
    return ConPrecio(tramo) ? Valor(tramo.tasacion.*numero) : Valor(Nulo{});
}

std::string Plazo(const RespuestaHistoria& historia, std::size_t primero, std::size_t i, const std::string& precio) {
    const TramoHistoria& tramo = historia.tramos[i];
    const bool ultimo = i + 1 == historia.tramos.size();
    if (i > primero)
        return "desde el " + Dia(tramo.desde) + (ultimo && !SinFin(tramo) ? " hasta el " + Dia(tramo.hasta) : "") +
               ", " + precio;
    if (tramo.desde != historia.hoy)
        return (SinFin(tramo) ? "desde el " + Dia(tramo.desde)
                              : "del " + Dia(tramo.desde) + " al " + Dia(tramo.hasta)) +
               ", " + precio;
    return SinFin(tramo) ? precio + ", sin cambios previstos" : precio + " hasta el " + Dia(tramo.hasta);
}

// Told once for the stretches that share it.
bool DiceMotivo(const RespuestaHistoria& historia, std::size_t i, std::size_t fin) {
    const MotivoPrecio& motivo = historia.tramos[i].tasacion.motivo;
    if (motivo.procedencia == ProcedenciaPrecio::Ninguna || !ConPrecio(historia.tramos[i])) return false;
    return i + 1 == fin || !(historia.tramos[i + 1].tasacion.motivo == motivo);
}

Cuadro ParaGente(const RespuestaHistoria& historia, bool pasado) {
    Cuadro cuadro{{"tramos", kParaGente}, "", {}, Cuadro::Para::Gente};
    for (const TramoHistoria& tramo : historia.tramos)
        if (tramo.pasado == pasado)
            cuadro.tabla.filas.push_back({tramo.desde, tramo.hasta, Numero(tramo, &Tasacion::pvp),
                                          Numero(tramo, &Tasacion::descuento), Numero(tramo, &Tasacion::neto),
                                          MotivoDe(tramo)});
    return cuadro;
}

Cuadro ParaProgramas(const RespuestaHistoria& historia) {
    Cuadro cuadro{{"tramos", kParaProgramas}, "", {}, Cuadro::Para::Programas};
    for (const TramoHistoria& tramo : historia.tramos) {
        const Tasacion& t = tramo.tasacion;
        cuadro.tabla.filas.push_back({tramo.desde, tramo.hasta, tramo.pasado, Numero(tramo, &Tasacion::pvp),
                                      Numero(tramo, &Tasacion::descuento), Numero(tramo, &Tasacion::neto),
                                      t.motivo.tarifa, MotivoDe(tramo),
                                      t.fallo.empty() ? Valor(Nulo{}) : Valor(t.fallo)});
    }
    return cuadro;
}

}  // namespace

bool SinFin(const TramoHistoria& tramo) {
    return EsNingunDia(tramo.hasta);
}

std::string PrecioDe(const TramoHistoria& tramo, char separador) {
    if (!tramo.tasacion.fallo.empty()) return "sin calcular";
    return ConPrecio(tramo) ? ValorATexto(tramo.tasacion.neto, C::Importe, separador) : "sin precio";
}

std::string MotivoDe(const TramoHistoria& tramo) {
    const Tasacion& t = tramo.tasacion;
    if (!t.fallo.empty()) return "sin calcular: " + t.fallo;
    if (ConPrecio(tramo)) return t.motivo.Texto();
    return t.motivo.procedencia == ProcedenciaPrecio::Ninguna ? "sin precio"
                                                              : "sin precio: " + t.motivo.Texto() + ", 0";
}

std::string FraseDe(const RespuestaHistoria& historia, char separador) {
    const auto& tramos = historia.tramos;
    const auto deHoy = std::find_if(tramos.begin(), tramos.end(), [](const auto& tramo) { return !tramo.pasado; });
    const bool todoPasado = deHoy == tramos.end();
    const std::size_t primero = todoPasado ? 0 : static_cast<std::size_t>(deHoy - tramos.begin());
    const std::size_t fin = std::min(primero + kTramosContados, tramos.size());
    std::string frase = todoPasado ? std::string("Con las tarifas de hoy, no lo que se cobró: ") : "";
    for (std::size_t i = primero; i < fin; ++i) {
        frase += (i == primero ? "" : "; ") + Plazo(historia, primero, i, PrecioDe(tramos[i], separador));
        if (DiceMotivo(historia, i, fin)) frase += " (" + tramos[i].tasacion.motivo.Texto() + ")";
    }
    if (const std::size_t mas = tramos.size() - fin; mas > 0)
        frase += mas == 1 ? "; y un cambio más" : "; y " + std::to_string(mas) + " cambios más";
    return frase;
}

void Documentar(Documento& d, const RespuestaHistoria& historia) {
    d.Decir(FraseDe(historia, d.Separador()));
    d.Dato("articulo", "Artículo", historia.articulo, C::Codigo);
    d.Dato("descripcion", "Descripción", historia.descripcion);
    d.Dato("cliente", "Cliente", historia.cliente, C::Codigo);
    d.Dato("nombre", "Nombre", historia.nombre);
    Cuadro pasados = ParaGente(historia, true);
    Cuadro venideros = ParaGente(historia, false);
    if (!pasados.tabla.filas.empty()) {
        pasados.titulo = "Hasta ayer, " + std::string(kNoLoCobrado) + ":";
        d.Anadir(std::move(pasados));
        venideros.titulo = "Desde hoy:";
    }
    if (!venideros.tabla.filas.empty()) d.Anadir(std::move(venideros));
    d.Anadir(ParaProgramas(historia));
}

}  // namespace kv::host
