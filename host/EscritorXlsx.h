#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "kvdatosart/host/EscritorFilas.h"

namespace kv::host {

/// Lines of a sheet below a heading; a longer list goes on in further sheets.
inline constexpr std::uint32_t kFilasDeHoja = 1048575;

/// A workbook written to `ruta`: `titulos` above the first sheet's heading, headings frozen and with a filter, amounts
/// with `decimales`, codes as texts. Every text is a text, whatever it begins with. Rows go to a file in the same
/// folder that has no name, so that memory does not grow with them. std::runtime_error when it cannot be written.
std::unique_ptr<EscritorFilas> EscritorXlsx(std::span<const aplicacion::ColumnaTabla> columnas, const Titulos& titulos,
                                            std::int16_t decimales, const std::string& ruta);

}  // namespace kv::host
