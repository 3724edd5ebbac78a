#include "kvdatosart/host/cli/SalidaFilas.h"

#include <CLI/CLI.hpp>

#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/host/EscritorXlsx.h"
#include "kvdatosart/host/Salida.h"
#include "kvdatosart/host/cli/Opcion.h"

namespace kv::host {
void OpcionesFilas::Anadir(CLI::App& orden) {
    Opcion(orden, "salida", salida, "FICHERO", "Fichero en que se escribe, entero o nada (la salida si no se dice)");
    orden.add_flag("--csv-excel", csvExcel, "CSV que un Excel en español abre bien: punto y coma y coma decimal");
    orden.add_flag("--xlsx", xlsx, "Libro de Excel, con --salida");
}

bool OpcionesFilas::ParaProgramas(const OpcionesSalida& comunes) const {
    return comunes.json || !comunes.csv.empty() || csvExcel || xlsx;
}

void OpcionesFilas::Exigir(const OpcionesSalida& comunes) const {
    if (!comunes.csv.empty() && comunes.csv != "true")
        aplicacion::RechazarImposible("csv", "«" + comunes.csv + "» no vale; una lista es una sola tabla");
    if (int{comunes.json} + int{!comunes.csv.empty()} + int{csvExcel} + int{xlsx} > 1)
        aplicacion::RechazarImposible("", "se espera una sola forma de {json}, {csv}, {csvExcel} y {xlsx}");
    if (xlsx && salida.empty()) aplicacion::RechazarImposible("xlsx", "se espera también {salida} FICHERO");
}

SalidaFilas::SalidaFilas(const OpcionesFilas& opciones, const OpcionesSalida& comunes,
                         std::span<const aplicacion::ColumnaTabla> columnas, const Titulos& titulos,
                         std::int16_t decimales) {
    if (!opciones.salida.empty()) fichero_.emplace("salida", opciones.salida);
    if (opciones.xlsx)
        escritor_ = EscritorXlsx(columnas, titulos, decimales, fichero_->Ruta());
    else if (comunes.json)
        escritor_ = EscritorJson(columnas, AlSitio());
    else if (opciones.csvExcel || !comunes.csv.empty())
        escritor_ = EscritorCsv(columnas, opciones.csvExcel ? EstiloCsv::Excel : EstiloCsv::Rfc, AlSitio());
    else
        escritor_ = EscritorTexto(columnas, titulos, fichero_ ? Presentacion{} : comunes.Forma(), SeparadorDeGente(),
                                  AlSitio());
}

Vertido SalidaFilas::AlSitio() {
    if (fichero_) return [this](std::string_view texto) { fichero_->Escribir(texto); };
    return [](std::string_view texto) {
        if (!EscribirSalida(texto)) throw LectorIdo();
    };
}

void SalidaFilas::Acabar() {
    escritor_->Acabar();
    if (fichero_) fichero_->Guardar();
}

}  // namespace kv::host
