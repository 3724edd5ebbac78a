#include "kvdatosart/host/cli/OpcionesSalida.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>

#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/host/EscribirCsv.h"
#include "kvdatosart/host/EscribirJson.h"
#include "kvdatosart/host/EscribirTexto.h"
#include "kvdatosart/host/Salida.h"
#include "kvdatosart/host/cli/Opcion.h"

namespace kv::host {

void OpcionesSalida::Anadir(CLI::App& orden) {
    orden.add_flag("--json", json, "Responde en JSON")->group(kGrupoComun);
    orden.add_flag("--csv", csv, "Responde en CSV: la primera tabla, o la que diga --csv=TABLA")->group(kGrupoComun);
    Opcion(orden, "ancho", ancho, "N", "Columnas del texto (las del terminal; sin límite por una tubería o con 0)",
           Rango{0, 1000})
        ->group(kGrupoComun);
}

void OpcionesSalida::Exigir() const {
    if (json && !csv.empty()) aplicacion::RechazarImposible("", "se espera {json} o {csv}, no los dos");
}

std::string OpcionesSalida::Texto(const Documento& documento) const {
    if (json) return AJson(documento);
    if (!csv.empty()) return ACsv(documento, csv == "true" ? "" : csv);
    return ATexto(documento, Forma());
}

Presentacion OpcionesSalida::Forma() const {
    Presentacion presentacion = PresentacionDeSalida();
    if (ancho) presentacion.ancho = *ancho == 0 ? 0 : std::max(kAnchoMinimo, static_cast<std::size_t>(*ancho));
    return presentacion;
}

void OpcionesSalida::Escribir(const Documento& documento, bool hecho) const {
    try {
        EscribirSalida(Texto(documento));
    } catch (const std::exception& error) {
        if (!hecho) throw;
        std::cerr << "kvdatosart: hecho, pero la respuesta no se puede mostrar: " << error.what() << '\n';
    }
}

}  // namespace kv::host
