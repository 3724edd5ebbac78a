#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kvdatosart/application/Tabla.h"
#include "kvdatosart/host/EscribirCsv.h"
#include "kvdatosart/host/EscribirTexto.h"

namespace kv::host {

/// Writes the rows of one long table as they come, so that its memory does not grow with them.
class EscritorFilas {
  public:
    virtual ~EscritorFilas() = default;

    /// A value for each column.
    virtual void Fila(std::span<const Valor> fila) = 0;
    /// After the last row: only now what was written is whole.
    virtual void Acabar() = 0;
};

/// Takes what is written, piece by piece.
using Vertido = std::function<void(std::string_view)>;
/// What is said above a table: heading and text.
using Titulos = std::vector<std::pair<std::string, std::string>>;

// The columns, and what they point to, must outlive the writer.

std::unique_ptr<EscritorFilas> EscritorCsv(std::span<const aplicacion::ColumnaTabla> columnas, EstiloCsv estilo,
                                           Vertido vertido);
/// An object a line.
std::unique_ptr<EscritorFilas> EscritorJson(std::span<const aplicacion::ColumnaTabla> columnas, Vertido vertido);
/// For people, under `titulos`: the first rows say how wide the columns are, and what is wider later goes on below.
std::unique_ptr<EscritorFilas> EscritorTexto(std::span<const aplicacion::ColumnaTabla> columnas, const Titulos& titulos,
                                             const Presentacion& presentacion, char separador, Vertido vertido);

}  // namespace kv::host
