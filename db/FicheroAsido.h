#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

namespace kv {

/// Who may read a new file.
enum class Lectores : std::uint8_t {
    /// Whoever the folder and the user's habits say.
    LosDeSiempre,
    /// On Windows the folder decides nevertheless.
    SoloSuDueno,
};

/// A file that is open and, once it is taken, held against every other program that takes it so, until the end.
class FicheroAsido {
  public:
    /// Opens the file and makes it when there is none. std::system_error when it cannot.
    FicheroAsido(std::filesystem::path ruta, Lectores lectores);
    ~FicheroAsido();
    FicheroAsido(const FicheroAsido&) = delete;
    FicheroAsido& operator=(const FicheroAsido&) = delete;

    /// Takes it, without waiting; false when somebody else holds it.
    bool Asir();
    /// Whether the file still is the one of its name, which another holder may have taken away.
    bool TieneSuNombre() const;
    /// Leaves nothing in it; false when that cannot be.
    bool Vaciar();
    /// Adds to what it holds, and sees to it that all of it is on disk. std::system_error when it cannot.
    void Escribir(std::string_view texto);
    void Sincronizar();
    /// Gives it another name in place of the file that has it, if any. std::system_error when it cannot.
    void Sustituir(const std::filesystem::path& destino);
    /// Gives it another name, never one that a file has: false then. std::system_error when it cannot.
    bool Renombrar(const std::filesystem::path& destino);

  private:
    std::filesystem::path ruta_;
    // The system's: a descriptor or a handle.
    std::intptr_t asidero_;
};

/// Whether the file lies on a file system that nobody can write to, whatever the permissions.
bool EnMedioSoloLectura(const std::filesystem::path& ruta);

}  // namespace kv
