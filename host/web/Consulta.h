#pragma once

#include <atomic>

#include "kvdatosart/application/Sesion.h"
#include "kvdatosart/host/Documento.h"
#include "kvdatosart/host/web/Api.h"
#include "kvdatosart/host/web/Parametros.h"

namespace kv::host {

/// A question at work.
struct Consulta {
    const AjustesApi& ajustes;
    const aplicacion::Sesion& sesion;
    Parametros& parametros;
    /// The server ends: what is long is broken off.
    const std::atomic<bool>& cerrada;
    /// What is answered, unless the answer has a body of its own.
    Documento documento = Documento('.');
    Contestacion respuesta = {};
};

// Price lists: a page of one, and a whole one as a file. A list that takes too long is cut, or refused as a file.

void ContestarLista(Consulta& c);
void ContestarListaCsv(Consulta& c);
void ContestarListaXlsx(Consulta& c);

}  // namespace kv::host
