#pragma once

#include <filesystem>
#include <string>

namespace kv::aplicacion {

/// A new folder among the system's temporary ones, for its owner only, gone with all that it holds.
class CarpetaPrivada {
  public:
    /// `que` names in Spanish what is to be made there, for the error of a folder that cannot be made.
    explicit CarpetaPrivada(const std::string& que);
    ~CarpetaPrivada();
    CarpetaPrivada(const CarpetaPrivada&) = delete;
    CarpetaPrivada& operator=(const CarpetaPrivada&) = delete;

    std::filesystem::path Fichero(const char* nombre) const { return ruta_ / nombre; }

  private:
    std::filesystem::path ruta_;
};

}  // namespace kv::aplicacion
