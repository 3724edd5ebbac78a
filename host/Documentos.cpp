#include "host/Documentos.h"

#include "customers/ColumnasCliente.h"

namespace kv::host {
namespace {

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

void EscribirPadre(Respuesta& r, const clsDatosArt* padre) {
    // A parent that was not found in the catalogue has nothing to show.
    if (padre == nullptr || padre->Codigo == 0) {
        r.Dato("padre", "Padre de venta", Nulo{});
        if (padre != nullptr) r.Dato("padreEstado", "Estado del padre", std::string("no existe"));
        return;
    }
    r.Dato("padre", "Padre de venta", padre->Codigo);
    r.Dato("padreDescripcion", "Descripción del padre", padre->Descripcion);
    r.Dato("padrePvp", "Precio del padre", padre->Pvp);
    r.Dato("padreStock", "Existencias del padre", padre->Stock);
}

void EscribirExplicacion(Respuesta& r, const std::vector<aplicacion::PasoExplicado>& pasos) {
    r.Linea("");
    r.Linea("Por qué este precio:");
    r.Tabla("explicacion", {"fuente", "clave", "resultado", "antes", "después"});
    for (const auto& paso : pasos) r.Fila({paso.fuente, paso.clave, paso.resultado, paso.antes, paso.despues});
}

struct AValor {
    const clsCliente& cliente;
    Valor operator()(std::optional<Fecha> clsCliente::*miembro) const {
        return cliente.*miembro ? Valor(*(cliente.*miembro)) : Valor(Nulo{});
    }
    template <class T>
    Valor operator()(T clsCliente::*miembro) const {
        return cliente.*miembro;
    }
};

// A table that has nothing is not shown among others.
void AnadirSiHay(Respuesta& r, const aplicacion::Tabla& tabla) {
    if (!tabla.filas.empty()) r.Anadir(tabla);
}

}  // namespace

void Documentar(Respuesta& r, const aplicacion::RespuestaPvp& pvp) {
    r.Dato("articulo", "Artículo", pvp.articulo);
    if (pvp.cualidadX != 0) r.Dato("cualidadX", "Cualidad X", pvp.cualidadX);
    r.Dato("fecha", "Fecha", pvp.fecha);
    r.Dato("pvp", "Precio", pvp.pvp);
    r.Dato("tarifaPvp", "Tarifa", pvp.tarifa);
}

void Documentar(Respuesta& r, const aplicacion::RespuestaCarga& carga) {
    const clsDatosArt& articulo = *carga.articulo;
    r.Dato("estadoTexto", "Estado", std::string(EnPalabras(carga.estado)));
    r.Dato("estado", "Código de estado", carga.estado);
    r.Dato("Codigo", "Artículo", articulo.Codigo);
    r.Dato("Descripcion", "Descripción", articulo.Descripcion);
    r.Dato("CualidadX", "Cualidad X", articulo.CualidadX);
    r.Dato("CualidadY", "Cualidad Y", articulo.CualidadY);
    EscribirPrecio(r, articulo);
    EscribirAlmacen(r, articulo);
    EscribirMaestro(r, articulo);
    if (carga.conPadre) EscribirPadre(r, carga.padre.get());
    if (carga.conExplicacion) EscribirExplicacion(r, carga.explicacion);
}

void Documentar(Respuesta& r, const aplicacion::RespuestaExistencias& existencias) {
    AnadirSiHay(r, existencias.almacenes);
    AnadirSiHay(r, existencias.variantes);
    AnadirSiHay(r, existencias.ubicaciones);
}

void Documentar(Respuesta& r, const aplicacion::RespuestaMovimiento& movimiento) {
    r.Dato("articulo", "Artículo", movimiento.hecho.articulo);
    r.Dato("almacen", "Almacén", movimiento.hecho.almacen);
    r.Dato("movimiento", "Movimiento", std::string(NombreDe(movimiento.hecho.tipo)));
    r.Dato("stock", "Existencias", movimiento.existencias);
    r.Dato("costeMedio", "Coste medio", movimiento.costeMedio);
    Documentar(r, movimiento.quedan);
}

void Documentar(Respuesta& r, const aplicacion::RespuestaCliente& cliente) {
    for (const auto& columna : kColumnasCliente)
        r.Dato(std::string(columna.nombre), std::string(columna.nombre),
               std::visit(AValor{cliente.ficha}, columna.destino));
    r.Tabla("Telefonos", {"Telefono"});
    for (const std::string& telefono : cliente.telefonos) r.Fila({telefono});
}

void Documentar(Respuesta& r, const aplicacion::RespuestaEliminado& eliminado) {
    r.Dato("eliminado", "Cliente eliminado", eliminado.codigo);
}

void Documentar(Respuesta& r, const aplicacion::RespuestaResumen& resumen) {
    r.Dato("codigo", "Cliente", resumen.codigo);
    r.Dato("saldoAlbaranes", "Albaranes sin facturar", resumen.saldoAlbaranes);
    r.Dato("saldoPuntos", "Puntos", resumen.saldoPuntos);
    r.Dato("notasVencidas", "Notas vencidas en la empresa", resumen.notasVencidas);
    r.Dato("codigoNuevo", "Siguiente código libre", resumen.codigoNuevo);
}

void Documentar(Respuesta& r, const aplicacion::RespuestaPrecio& precio) {
    r.Dato("articulo", "Artículo", precio.clave.articulo);
    r.Dato("cliente", "Cliente", precio.clave.cliente);
    if (precio.precio) r.Dato("precio", "Precio", *precio.precio);
    r.Dato("desde", "Desde", precio.clave.desde);
    r.Dato("hasta", "Hasta", precio.clave.hasta);
}

void Documentar(Respuesta& r, const aplicacion::RespuestaDescuento& descuento) {
    r.Dato("clave", "Clave", TextoDe(descuento.clave));
    if (descuento.descuento) r.Dato("descuento", "Descuento %", *descuento.descuento);
}

void Documentar(Respuesta& r, const aplicacion::RespuestaAcuerdos& acuerdos) {
    if (acuerdos.nodo) r.Dato("nodo", "Nodo " + aplicacion::TextoDe(*acuerdos.nodo), acuerdos.texto);
    r.Anadir(acuerdos.acuerdos);
}

void Documentar(Respuesta& r, const aplicacion::RespuestaEscritura& escritura) {
    r.Dato("cuantos", "Acuerdos", static_cast<std::int32_t>(escritura.cuantos));
    r.Anadir(escritura.acuerdos);
}

void Documentar(Respuesta& r, const aplicacion::RespuestaListado& listado) {
    r.Anadir(listado.tabla);
    if (listado.hallados > listado.tabla.filas.size())
        r.Linea(std::to_string(listado.tabla.filas.size()) + " de " + std::to_string(listado.hallados));
}

void Documentar(Respuesta& r, const aplicacion::Tabla& tabla) {
    r.Anadir(tabla);
}

}  // namespace kv::host
