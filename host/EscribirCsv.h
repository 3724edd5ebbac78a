#pragma once

#include <span>
#include <string>
#include <string_view>

#include "kvdatosart/host/Documento.h"

namespace kv::host {

enum class EstiloCsv {
    /// As RFC 4180 has it: a line of keys, commas, decimal points, days aaaa-mm-dd, nothing where there is nothing.
    Rfc,
    /// As a Spanish Excel opens it with a double click, in whatever locale it is written: a byte order mark, captions,
    /// semicolons, decimal commas. A text that it would take for a formula, a number or a day has an apostrophe before.
    Excel,
};

/// The first line, with what goes before it.
std::string CabeceraCsv(std::span<const aplicacion::ColumnaTabla> columnas, EstiloCsv estilo);
/// Adds a line.
void FilaCsv(std::string& csv, std::span<const aplicacion::ColumnaTabla> columnas, std::span<const Valor> valores,
             EstiloCsv estilo);

/// One listing of the document in the style of RFC 4180. `tabla` is its JSON key; when empty, the first listing, or the
/// sheet as one row where there is no listing. Rechazo of "csv", with the names that there are, for another one.
std::string ACsv(const Documento& documento, std::string_view tabla);

}  // namespace kv::host
