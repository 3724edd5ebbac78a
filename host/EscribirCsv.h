#pragma once

#include <string>

#include "kvdatosart/host/Documento.h"

namespace kv::host {

/// One listing of the document as RFC 4180 has it: a line of keys, commas, decimal points, days aaaa-mm-dd, nothing
/// where there is nothing. `tabla` is its JSON key; when empty, the first listing, or the sheet as one row where there
/// is no listing. Rechazo of "csv", with the names that there are, for another one.
std::string ACsv(const Documento& documento, std::string_view tabla);

}  // namespace kv::host
