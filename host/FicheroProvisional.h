#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "kvdatosart/db/FicheroAsido.h"

namespace kv::host {

/// A file that is being written beside its place, under its name and ".parcial", and takes it when it is whole and on
/// disk: until then whoever reads it finds the former one, and a failed attempt leaves nothing. What a run that was
/// killed left behind is taken over. Failures are std::runtime_error and name the file.
class FicheroProvisional {
  public:
    /// Rechazo of the request's field `campo` when it is no place for a file: a folder, a device, or in a folder that
    /// is not there. What a link names is written, and not the link.
    FicheroProvisional(const char* campo, const std::string& destino);
    ~FicheroProvisional();
    FicheroProvisional(const FicheroProvisional&) = delete;
    FicheroProvisional& operator=(const FicheroProvisional&) = delete;

    /// Where it lies meanwhile, for who writes it by its name.
    const std::string& Ruta() const { return ruta_; }
    void Escribir(std::string_view texto);
    /// Whole and on disk, in its place.
    void Guardar();

  private:
    bool Tomar();
    template <class Accion>
    void Intentar(Accion accion) const;

    std::string destino_;
    std::string ruta_;
    std::optional<FicheroAsido> asido_;
    bool guardado_ = false;
};

}  // namespace kv::host
