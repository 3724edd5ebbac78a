#pragma once

#include <unistd.h>

#include <filesystem>
#include <string>

namespace kv::prueba {

/// A folder of its own, gone with everything in it when the test ends.
class CarpetaTemporal {
  public:
    CarpetaTemporal() {
        std::string plantilla = (std::filesystem::temp_directory_path() / "kvdatosart-XXXXXX").string();
        ruta_ = mkdtemp(plantilla.data());
    }
    ~CarpetaTemporal() {
        std::error_code ignorado;
        std::filesystem::remove_all(ruta_, ignorado);
    }
    CarpetaTemporal(const CarpetaTemporal&) = delete;
    CarpetaTemporal& operator=(const CarpetaTemporal&) = delete;

    std::string Fichero(const std::string& nombre) const { return (ruta_ / nombre).string(); }
    auto CuantosFicheros() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(ruta_), {}));
    }

  private:
    std::filesystem::path ruta_;
};

}  // namespace kv::prueba
