#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "component/clsDatosArt.h"
#include "db/BibliotecaComun.h"
#include "host/Explicacion.h"
#include "host/Fallo.h"
#include "host/Lectura.h"
#include "host/Ordenes.h"
#include "host/Sesion.h"

namespace kv::host {
namespace {

struct OpcionesCargar {
    OpcionesComunes comunes;
    std::string articulo;
    std::string cliente;
    std::string fecha;
    std::string tarifa;
    std::string almacen = "1";
    std::string decimales;
    std::string unidades = "1";
    std::string cualidadX = "0";
    std::string cualidadY = "0";
    bool padre = false;
    bool explica = false;
};

const char* EnPalabras(std::int16_t estado) {
    switch (estado) {
        case kCargado:
            return "cargado";
        case kSinStock:
            return "sin existencias";
        case kBloqueadoEnAlmacen:
            return "bloqueado en el almacén";
        default:
            return "no existe";
    }
}

void EscribirPrecio(Respuesta& r, const clsDatosArt& a) {
    r.Dato("Pvp", "Precio", a.Pvp);
    r.Dato("PvpOriginal", "Precio antes del descuento", a.PvpOriginal);
    r.Dato("PDescuento", "Descuento de la línea %", a.PDescuento);
    r.Dato("PvpBase", "Precio base", a.PvpBase);
    r.Dato("Convenio", "Convenio", a.Convenio);
    r.Dato("TarifaPVP", "Tarifa del precio", a.TarifaPVP);
    r.Dato("PCosto", "Coste", a.PCosto);
}

void EscribirAlmacen(Respuesta& r, const clsDatosArt& a) {
    r.Dato("Stock", "Existencias", a.Stock);
    r.Dato("PendienteServir", "Pendiente de servir", a.PendienteServir);
    r.Dato("PendienteRecibir", "Pendiente de recibir", a.PendienteRecibir);
    r.Dato("Bloqueado", "Bloqueado en el almacén", a.Bloqueado);
    r.Dato("BloqueadoVenta", "Bloqueado para la venta", a.BloqueadoVenta);
    r.Dato("BloqueadoGral", "Bloqueado en el catálogo", a.BloqueadoGral);
    r.Dato("Tipo", "Genérico", a.Tipo);
}

void EscribirMaestro(Respuesta& r, const clsDatosArt& a) {
    r.Dato("Familia_1", "Familia 1", a.Familia_1);
    r.Dato("Familia_2", "Familia 2", a.Familia_2);
    r.Dato("Familia_3", "Familia 3", a.Familia_3);
    r.Dato("UxB", "Unidades por caja", a.UxB);
    r.Dato("Impuesto", "Impuesto", a.Impuesto);
    r.Dato("Impuesto2", "Segundo impuesto", a.Impuesto2);
    r.Dato("CtaVentas", "Cuenta de ventas", a.CtaVentas);
    r.Dato("CtaDVentas", "Cuenta de devoluciones", a.CtaDVentas);
    r.Dato("RAEE", "RAEE", a.RAEE);
    r.Dato("ECORAEE", "ECORAEE", a.ECORAEE);
    r.Dato("FidelizacionPuntos", "Puntos", a.FidelizacionPuntos);
    r.Dato("DStock", "Mueve existencias", a.DStock);
    r.Dato("Control_Series", "Control de series", a.Control_Series);
    r.Dato("Control_Caducidad", "Control de caducidad", a.Control_Caducidad);
    r.Dato("Control_Lotes", "Control de lotes", a.Control_Lotes);
    r.Dato("Cod_Envase", "Envase", a.Cod_Envase);
    r.Dato("TipoRep", "Tipo de reposición", a.TipoRep);
    r.Dato("Largo", "Largo", a.Largo);
    r.Dato("Ancho", "Ancho", a.Ancho);
    r.Dato("Altura", "Altura", a.Altura);
    r.Dato("Peso", "Peso", a.Peso);
    r.Dato("MsjAlerta", "Mensaje de alerta", a.MsjAlerta);
    r.Dato("MotivoBaja", "Motivo de baja", a.MotivoBaja);
    r.Dato("BajoPedido", "Bajo pedido", a.BajoPedido);
    r.Dato("UnidadesDecimales", "Unidades con decimales", a.UnidadesDecimales);
}

void EscribirPadre(Respuesta& r, clsDatosArt& articulo) {
    const auto padre = articulo.padre();
    // A parent that was not found in the catalogue has nothing to show.
    if (!padre || padre->Codigo == 0) {
        r.Dato("padre", "Padre de venta", Nulo{});
        if (padre) r.Dato("padreEstado", "Estado del padre", std::string("no existe"));
        return;
    }
    r.Dato("padre", "Padre de venta", padre->Codigo);
    r.Dato("padreDescripcion", "Descripción del padre", padre->Descripcion);
    r.Dato("padrePvp", "Precio del padre", padre->Pvp);
    r.Dato("padreStock", "Existencias del padre", padre->Stock);
}

// A load takes an unknown customer for one without terms, and an unknown warehouse for an empty one; a person who
// names one has made a mistake.
void ExigirCliente(const Sesion& sesion, std::int32_t codigo) {
    clsCliente cliente;
    sesion.Inyectar(cliente);
    cliente.Codigo = codigo;
    if (!cliente.Existe()) throw Fallo(kNegativo, "no existe el cliente " + std::to_string(codigo));
}

void Cargar(const OpcionesCargar& o) {
    const std::int32_t codigo = LeerEntero("--articulo", o.articulo, 1, INT32_MAX);
    const std::int32_t cliente = LeerEntero("--cliente", o.cliente, 1, INT32_MAX);
    const Fecha fecha = o.fecha.empty() ? Biblioteca().Hoy() : LeerFecha("--fecha", o.fecha);
    const std::int16_t almacen = LeerCodigo("--almacen", o.almacen);
    const Currency unidades = LeerImporte("--unidades", o.unidades);
    Sesion sesion(o.comunes, true);
    const std::int16_t tarifa = o.tarifa.empty() ? sesion.Emp().TarifaEmpresa() : LeerCodigo("--tarifa", o.tarifa, -1);
    const auto decimales = o.decimales.empty()
                               ? sesion.Emp().DecPrecios()
                               : static_cast<std::int16_t>(LeerEntero("--decimales", o.decimales, 0, 4));
    ExigirCliente(sesion, cliente);
    sesion.ExigirAlmacen(almacen);
    clsDatosArt articulo;
    sesion.Inyectar(articulo);
    articulo.CualidadX = static_cast<std::uint8_t>(LeerEntero("--cualidad-x", o.cualidadX, 0, 255));
    articulo.CualidadY = static_cast<std::uint8_t>(LeerEntero("--cualidad-y", o.cualidadY, 0, 255));
    Explicacion explicacion({codigo, cliente, fecha, articulo.CualidadX});
    if (o.explica) articulo.Observador(&explicacion);

    const std::int16_t estado = articulo.Cargar(codigo, cliente, fecha, tarifa, almacen, decimales, unidades);
    articulo.Observador(nullptr);
    if (estado == kArticuloNoExiste) throw Fallo(kNegativo, "no existe el artículo " + o.articulo);
    Respuesta& r = sesion.respuesta;
    r.Dato("estadoTexto", "Estado", std::string(EnPalabras(estado)));
    r.Dato("estado", "Código de estado", estado);
    r.Dato("Codigo", "Artículo", articulo.Codigo);
    r.Dato("Descripcion", "Descripción", articulo.Descripcion);
    r.Dato("CualidadX", "Cualidad X", articulo.CualidadX);
    r.Dato("CualidadY", "Cualidad Y", articulo.CualidadY);
    EscribirPrecio(r, articulo);
    EscribirAlmacen(r, articulo);
    EscribirMaestro(r, articulo);
    if (o.padre) EscribirPadre(r, articulo);
    if (o.explica) explicacion.Escribir(sesion);
    sesion.Escribir(std::cout);
}

}  // namespace

void AnadirCargar(CLI::App& programa) {
    CLI::App* orden = programa.add_subcommand("cargar", "Todo lo que una línea de venta necesita de un artículo");
    const auto o = std::make_shared<OpcionesCargar>();
    o->comunes.Anadir(*orden);
    orden->add_option("--articulo", o->articulo, "Código del artículo")->required()->type_name("N");
    orden->add_option("--cliente", o->cliente, "Código del cliente")->required()->type_name("N");
    orden->add_option("--fecha", o->fecha, "Fecha de la venta (hoy si no se dice)")->type_name("FECHA");
    orden->add_option("--tarifa", o->tarifa, "Tarifa; -1 vende a coste (la de la empresa si no se dice)")
        ->type_name("N");
    orden->add_option("--almacen", o->almacen, "Almacén (1 si no se dice)")->type_name("N");
    orden->add_option("--decimales", o->decimales, "Decimales del precio, de 0 a 4 (los de la empresa si no se dice)")
        ->type_name("N");
    orden->add_option("--unidades", o->unidades, "Unidades de la línea (1 si no se dice)")->type_name("X");
    orden->add_option("--cualidad-x", o->cualidadX, "Cualidad X (talla...), de 0 a 255")->type_name("N");
    orden->add_option("--cualidad-y", o->cualidadY, "Cualidad Y (color...), de 0 a 255")->type_name("N");
    orden->add_flag("--padre", o->padre, "Carga también el padre de venta");
    orden->add_flag("--explica", o->explica, "Cuenta de dónde sale el precio, fuente por fuente");
    orden->callback([o] { Cargar(*o); });
}

}  // namespace kv::host
