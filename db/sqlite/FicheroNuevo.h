#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "kvdatosart/db/FicheroAsido.h"

namespace kv {

/// A new file while it is being made, under its name and ".creando" and nobody else's: gone at the end unless it was
/// given its own name. What a run that was killed left behind is taken over.
class FicheroNuevo {
  public:
    /// Empty, and held against others until the end. A database error that names `destino` when that exists, when
    /// another program is making it or when the place cannot be written.
    explicit FicheroNuevo(const std::string& destino, Lectores lectores = Lectores::LosDeSiempre);
    ~FicheroNuevo();
    FicheroNuevo(const FicheroNuevo&) = delete;
    FicheroNuevo& operator=(const FicheroNuevo&) = delete;

    const std::string& Ruta() const { return ruta_; }
    /// A database error when the disk has no room for so many bytes.
    void ExigirSitio(std::uintmax_t bytes) const;
    /// Gives the file its name, never over one that came to be meanwhile: that is an error.
    void Guardar();

  private:
    bool Tomar(Lectores lectores);
    void Soltar();

    std::string destino_;
    std::string ruta_;
    std::optional<FicheroAsido> asido_;
    bool guardado_ = false;
};

}  // namespace kv
