#include "kvdatosart/host/Documentos.h"
#include "kvdatosart/host/EscribirTexto.h"

namespace kv::host {
namespace {

using aplicacion::ColumnaTabla;
using aplicacion::Hallazgo;

constexpr ColumnaTabla kQue = {"", "que", "Qué"};
constexpr ColumnaTabla kPorque = {"", "porque", "Por qué"};
constexpr ColumnaTabla kParaGente[] = {kQue, {"", "clave", "Dónde"}, kPorque};

std::string EnFrase(const Hallazgo& hallazgo, char separador) {
    std::string frase;
    for (const auto& [columna, valor] : hallazgo.clave)
        frase += (frase.empty() ? "" : ", ") + std::string(columna->rotulo) + ' ' +
                 ValorATexto(valor, columna->clase, separador);
    return frase;
}

// What, each column that a finding may have, why.
const std::vector<ColumnaTabla>& ParaProgramas() {
    static const std::vector<ColumnaTabla> columnas = [] {
        std::vector<ColumnaTabla> todas = {kQue};
        for (const ColumnaTabla& columna : aplicacion::ColumnasHallazgo()) todas.push_back(columna);
        todas.push_back(kPorque);
        return todas;
    }();
    return columnas;
}

aplicacion::FilaTabla EnCampos(const Hallazgo& hallazgo) {
    aplicacion::FilaTabla fila = {std::string(hallazgo.que)};
    for (const ColumnaTabla& columna : aplicacion::ColumnasHallazgo()) {
        fila.emplace_back(Nulo{});
        for (const auto& [suya, valor] : hallazgo.clave)
            if (suya == &columna) fila.back() = valor;
    }
    fila.emplace_back(std::string(hallazgo.porque));
    return fila;
}

}  // namespace

void Documentar(Documento& d, const std::vector<Hallazgo>& hallazgos) {
    Cuadro gente{{"hallazgos", kParaGente}, "", {}, Cuadro::Para::Gente};
    Cuadro programas{{"hallazgos", ParaProgramas()}, "", {}, Cuadro::Para::Programas};
    for (const Hallazgo& hallazgo : hallazgos) {
        gente.tabla.filas.push_back(
            {std::string(hallazgo.que), EnFrase(hallazgo, d.Separador()), std::string(hallazgo.porque)});
        programas.tabla.filas.push_back(EnCampos(hallazgo));
    }
    d.Anadir(std::move(gente));
    d.Anadir(std::move(programas));
    const std::size_t cuantos = hallazgos.size();
    d.Decir(cuantos == 0 ? "Sin hallazgos" : cuantos == 1 ? "1 hallazgo" : std::to_string(cuantos) + " hallazgos");
}

}  // namespace kv::host
