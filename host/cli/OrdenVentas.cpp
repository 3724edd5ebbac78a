#include "kvdatosart/application/Ventas.h"
#include "kvdatosart/host/cli/Orden.h"
#include "kvdatosart/host/cli/Ordenes.h"

namespace kv::host {

void AnadirVentas(CLI::App& programa) {
    CLI::App* ventas = programa.add_subcommand("ventas", "Estadística de ventas de los clientes");
    ventas->require_subcommand(1);
    using Peticion = aplicacion::PeticionVenta;
    Orden<Peticion>(*ventas, "acumular", "Suma una venta (negativa: una devolución) a su día")
        .Exige("articulo", &Peticion::articulo, "N", "Código del artículo")
        .Exige("cliente", &Peticion::cliente, "N", "Código del cliente")
        .Admite("almacen", &Peticion::almacen, "N", "Almacén (1 si no se dice)")
        .Exige("unidades", &Peticion::unidades, "X", "Unidades")
        .Exige("importe", &Peticion::importe, "X", "Importe de la venta")
        .Admite("coste", &Peticion::coste, "X", "Importe del coste; 0 lo toma del almacén")
        .Admite("fecha", &Peticion::fecha, "FECHA", "Hoy si no se dice")
        .Admite("cualidadX", &Peticion::cualidadX, "N", "Cualidad X de la variante")
        .Admite("cualidadY", &Peticion::cualidadY, "N", "Cualidad Y de la variante")
        .Marca("forzar", &Peticion::forzar, "Aunque el día no haya llegado")
        .Responde(aplicacion::Acceso::Escribir, aplicacion::AcumularVenta, "Venta acumulada; así queda el día:");
}

}  // namespace kv::host
