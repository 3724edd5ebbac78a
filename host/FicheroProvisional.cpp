#include "kvdatosart/host/FicheroProvisional.h"

#include <stdexcept>
#include <system_error>

#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/base/Ruta.h"
#include "kvdatosart/host/Salida.h"

namespace kv::host {
namespace {

namespace fs = std::filesystem;

void ExigirSitio(const char* campo, const std::string& destino) {
    const fs::path ruta = RutaDe(destino);
    const std::string nombre = "«" + destino + "»";
    std::error_code error;
    if (fs::is_directory(ruta, error))
        aplicacion::RechazarImposible(campo, nombre + " es una carpeta; se espera un fichero");
    if (fs::exists(ruta, error) && !fs::is_regular_file(ruta, error))
        aplicacion::RechazarImposible(campo, nombre + " no es un fichero");
    if (ruta.has_parent_path() && !fs::is_directory(ruta.parent_path(), error))
        aplicacion::RechazarImposible(campo, nombre + " no se puede escribir: no existe su carpeta");
}

}  // namespace

template <class Accion>
void FicheroProvisional::Intentar(Accion accion) const try {
    accion();
} catch (const std::system_error& error) {
    throw std::runtime_error("«" + destino_ + "» no se puede escribir: " + MotivoDeEscritura(error.code().value()));
}

FicheroProvisional::FicheroProvisional(const char* campo, const std::string& destino) : destino_(destino) {
    ExigirSitio(campo, destino);
    std::error_code error;
    if (fs::is_symlink(RutaDe(destino), error)) destino_ = NombreDeRuta(fs::weakly_canonical(RutaDe(destino), error));
    ruta_ = destino_ + ".parcial";
    while (!Tomar()) asido_.reset();
    if (!asido_->Vaciar()) throw std::runtime_error("«" + destino_ + "» no se puede escribir");
}

// False when the file that was opened lost its name before it was held: its holder ended in between.
bool FicheroProvisional::Tomar() {
    Intentar([this] { asido_.emplace(RutaDe(ruta_), Lectores::LosDeSiempre); });
    if (!asido_->Asir()) throw std::runtime_error("«" + destino_ + "» se está escribiendo ya desde otro sitio");
    return asido_->TieneSuNombre();
}

// The name goes before the hold does.
FicheroProvisional::~FicheroProvisional() {
    std::error_code ignorado;
    if (!guardado_) fs::remove(RutaDe(ruta_), ignorado);
}

void FicheroProvisional::Escribir(std::string_view texto) {
    Intentar([&] { asido_->Escribir(texto); });
}

void FicheroProvisional::Guardar() {
    Intentar([this] {
        asido_->Sincronizar();
        asido_->Sustituir(RutaDe(destino_));
    });
    guardado_ = true;
}

}  // namespace kv::host
