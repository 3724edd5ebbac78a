#pragma once

#include <string>

#include "kvdatosart/host/Documento.h"

namespace kv::host {

/// What a text for people goes by.
struct Presentacion {
    /// Columns of the terminal, 20 at least. 0, through a pipe: one row a line, as long as it is.
    std::size_t ancho = 0;
    bool color = false;
};

/// The document for people. Nothing is wider than the terminal: long cells go on below, and a table that does not fit
/// even so shows each row as a sheet. The row that stands out has a sign before it, and colour where there is colour.
std::string ATexto(const Documento& documento, const Presentacion& presentacion);
/// A datum as people read it: amounts with two decimals at least, sí or no, a dash where there is nothing.
std::string ValorATexto(const Valor& valor, aplicacion::ClaseDato clase, char separador);

}  // namespace kv::host
