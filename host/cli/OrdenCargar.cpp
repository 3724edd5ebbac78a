#include "kvdatosart/application/Carga.h"
#include "kvdatosart/host/cli/Orden.h"
#include "kvdatosart/host/cli/Ordenes.h"

namespace kv::host {

void AnadirCargar(CLI::App& programa) {
    using Peticion = aplicacion::PeticionCarga;
    Orden<Peticion>(programa, "cargar", "Todo lo que una línea de venta necesita de un artículo")
        .Exige("articulo", &Peticion::articulo, "N", "Código del artículo")
        .Exige("cliente", &Peticion::cliente, "N", "Código del cliente")
        .Admite("fecha", &Peticion::fecha, "FECHA", "Fecha de la venta (hoy si no se dice)")
        .Admite("tarifa", &Peticion::tarifa, "N", "Tarifa; -1 vende a coste (la de la empresa si no se dice)",
                Rango{-1, INT16_MAX})
        .Admite("almacen", &Peticion::almacen, "N", "Almacén (1 si no se dice)")
        .Admite("decimales", &Peticion::decimales, "N",
                "Decimales del precio, de 0 a 4 (los de la empresa si no se dice)", Rango{0, 4})
        .Admite("unidades", &Peticion::unidades, "X", "Unidades de la línea (1 si no se dice)")
        .Admite("cualidadX", &Peticion::cualidadX, "N", "Cualidad X (talla...), de 0 a 255")
        .Admite("cualidadY", &Peticion::cualidadY, "N", "Cualidad Y (color...), de 0 a 255")
        .Marca("padre", &Peticion::padre, "Carga también el padre de venta")
        .Marca("explica", &Peticion::explica, "Cuenta de dónde sale el precio, fuente por fuente")
        .Responde(aplicacion::Acceso::Leer, aplicacion::Cargar);
}

}  // namespace kv::host
