#include "kvdatosart/application/Historias.h"
#include "kvdatosart/host/FicheroProvisional.h"
#include "kvdatosart/host/Historia.h"
#include "kvdatosart/host/cli/CodigosSalida.h"
#include "kvdatosart/host/cli/Orden.h"
#include "kvdatosart/host/cli/Ordenes.h"

namespace kv::host {
namespace {

struct PeticionHistoria : aplicacion::PeticionHistoriaDe {
    /// File of the picture; none when empty.
    std::string svg;
};

void Contar(Trabajo& trabajo, const PeticionHistoria& peticion) {
    const aplicacion::RespuestaHistoria historia = aplicacion::HistoriaDe(trabajo.sesion, peticion);
    Documentar(trabajo.respuesta, historia);
    if (!peticion.svg.empty()) {
        FicheroProvisional fichero("svg", peticion.svg);
        fichero.Escribir(ASvg(historia, trabajo.respuesta.Separador()));
        fichero.Guardar();
        trabajo.respuesta.Dato("svg", "Dibujada en", peticion.svg);
    }
    trabajo.Escribir();
    if (!historia.ConPrecio()) throw Termina{kNegativo};
}

}  // namespace

void AnadirHistoria(CLI::App& programa) {
    using Peticion = aplicacion::PeticionHistoriaDe;
    Orden<PeticionHistoria>(programa, "historia", "El precio de un artículo para un cliente, de un día a otro")
        .Exige("articulo", &Peticion::articulo, "N", "Código del artículo")
        .Exige("cliente", &Peticion::cliente, "N", "Código del cliente")
        .Admite("desde", &Peticion::desde, "FECHA", "Primer día (hoy si no se dice)")
        .Admite("hasta", &Peticion::hasta, "FECHA", "Último día (sin fin si no se dice)")
        .Admite("tarifa", &Peticion::tarifa, "N", "Tarifa; -1 vende a coste (la de la empresa si no se dice)",
                Rango{-1, INT16_MAX})
        .Admite("almacen", &Peticion::almacen, "N", "Almacén (1 si no se dice)")
        .Admite("decimales", &Peticion::decimales, "N",
                "Decimales del precio, de 0 a 4 (los de la empresa si no se dice)", Rango{0, 4})
        .Admite("unidades", &Peticion::unidades, "X", "Unidades de la línea (1 si no se dice)")
        .Admite("cualidadX", &Peticion::cualidadX, "N", "Cualidad X (talla...), de 0 a 255")
        .Admite("cualidadY", &Peticion::cualidadY, "N", "Cualidad Y (color...), de 0 a 255")
        .Admite("svg", &PeticionHistoria::svg, "FICHERO", "Dibuja además los escalones en un fichero SVG")
        .Hace(aplicacion::Acceso::Leer, Contar);
}

}  // namespace kv::host
