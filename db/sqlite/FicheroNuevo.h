#pragma once

#include <string>

namespace kv {

/// A new file while it is being made, under its name and ".creando" and nobody else's: gone at the end unless it was
/// given its own name. What a run that was killed left behind is taken over.
class FicheroNuevo {
  public:
    /// Empty, and held against others until the end. A database error that names `destino` when that exists, when
    /// another program is making it or when the place cannot be written.
    explicit FicheroNuevo(const std::string& destino);
    ~FicheroNuevo();
    FicheroNuevo(const FicheroNuevo&) = delete;
    FicheroNuevo& operator=(const FicheroNuevo&) = delete;

    const std::string& Ruta() const { return ruta_; }
    /// Gives the file its name, never over one that came to be meanwhile: that is an error.
    void Guardar();

  private:
    bool Tomar();
    void Soltar();

    std::string destino_;
    std::string ruta_;
    int descriptor_ = -1;
    bool guardado_ = false;
};

/// Whether the file lies on a file system that nobody can write to, whatever the permissions.
bool EnMedioSoloLectura(const std::string& ruta);

}  // namespace kv
