#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "kvdatosart/host/EscritorFilas.h"
#include "kvdatosart/host/FicheroProvisional.h"
#include "kvdatosart/host/cli/OpcionesSalida.h"

namespace kv::host {

/// In which form and where a long table is asked for, besides what every command takes.
struct OpcionesFilas {
    bool csvExcel = false;
    bool xlsx = false;
    /// A file that takes its place when it is whole; standard output when it is empty.
    std::string salida;

    /// Adds its options to a command.
    void Anadir(CLI::App& orden);
    /// Each datum in a column of its own: every form but the text.
    bool ParaProgramas(const OpcionesSalida& comunes) const;
    /// Rechazo when two forms are asked for at once.
    void Exigir(const OpcionesSalida& comunes) const;
};

/// Who read standard output went away: the rest of the work is for nobody.
struct LectorIdo {};

/// A long table on its way to standard output or to a file.
class SalidaFilas {
  public:
    /// `columnas` must outlive it; `titulos` stand above what is for people, and amounts of a workbook have
    /// `decimales`. The file is begun here, with its Rechazo.
    SalidaFilas(const OpcionesFilas& opciones, const OpcionesSalida& comunes,
                std::span<const aplicacion::ColumnaTabla> columnas, const Titulos& titulos, std::int16_t decimales);

    /// LectorIdo, or std::runtime_error when it cannot be written.
    void Fila(std::span<const Valor> fila) { escritor_->Fila(fila); }
    /// Whole and, when it is a file, in its place.
    void Acabar();

  private:
    Vertido AlSitio();

    std::optional<FicheroProvisional> fichero_;
    std::unique_ptr<EscritorFilas> escritor_;
};

}  // namespace kv::host
