#pragma once

#include <span>
#include <string>

#include "kvdatosart/host/Documento.h"

namespace kv::host {

/// Grows when a member changes its meaning or goes; not when one comes.
inline constexpr int kFormatoJson = 1;

/// The document for programs: an object with "formato" first, each datum as a member and each listing as a list of
/// objects, there when empty. Amounts are numbers with the digits of their Currency, days aaaa-mm-dd, and null what is
/// not there and a day that means none. Texts that are not UTF-8 show replacement signs.
std::string AJson(const Documento& documento);
/// A failure for programs: its exit code, what people read and, when it is about one, the field of the question.
std::string ErrorAJson(int codigo, std::string_view mensaje, std::string_view campo = {});

/// A row as an object on one line, with its end of line.
std::string LineaJson(std::span<const aplicacion::ColumnaTabla> columnas, std::span<const Valor> valores);
/// A datum as JSON writes it: also what a cell of CSV says when it is no text.
std::string ValorAJson(const Valor& valor, aplicacion::ClaseDato clase);

}  // namespace kv::host
