#include "kvdatosart/host/Documentos.h"

namespace kv::host {
namespace {

using C = aplicacion::ClaseDato;

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

void DocumentarPrecio(Documento& d, const aplicacion::RespuestaCarga& carga) {
    const clsDatosArt& a = *carga.articulo;
    d.Dato("precio", "Precio", a.Pvp, C::Importe);
    d.Dato("precioOriginal", "Precio antes del descuento", a.PvpOriginal, C::Importe);
    d.Dato("descuento", "Descuento de la línea %", a.PDescuento, C::Porcentaje);
    d.Dato("neto", "Neto de la línea", carga.neto ? Valor(*carga.neto) : Valor(Nulo{}), C::Importe);
    d.Dato("precioBase", "Precio base", a.PvpBase, C::Importe);
    d.Dato("convenio", "Convenio", a.Convenio);
    d.Dato("tarifa", "Tarifa del precio", a.TarifaPVP, C::Codigo);
    d.Dato("coste", "Coste", carga.conCoste ? Valor(a.PCosto) : Valor(Nulo{}), C::Importe);
}

void DocumentarAlmacen(Documento& d, const clsDatosArt& a) {
    d.Dato("existencias", "Existencias", a.Stock, C::Cantidad);
    d.Dato("pendienteServir", "Por servir", a.PendienteServir, C::Cantidad);
    d.Dato("pendienteRecibir", "Por recibir", a.PendienteRecibir, C::Cantidad);
    d.Dato("bloqueadoAlmacen", "Bloqueado en el almacén", a.Bloqueado, C::Logico);
    d.Dato("bloqueadoVenta", "Bloqueado para la venta", a.BloqueadoVenta, C::Logico);
    d.Dato("bloqueadoCatalogo", "Bloqueado en el catálogo", a.BloqueadoGral, C::Logico);
    d.Dato("generico", "Genérico", a.Tipo, C::Logico);
}

void DocumentarMaestro(Documento& d, const clsDatosArt& a) {
    d.Dato("familia1", "Familia 1", a.Familia_1, C::Codigo);
    d.Dato("familia2", "Familia 2", a.Familia_2, C::Codigo);
    d.Dato("familia3", "Familia 3", a.Familia_3, C::Codigo);
    d.Dato("unidadesPorCaja", "Unidades por caja", a.UxB, C::Cantidad);
    d.Dato("impuesto", "Impuesto", a.Impuesto, C::Codigo);
    d.Dato("impuesto2", "Segundo impuesto", a.Impuesto2, C::Codigo);
    d.Dato("cuentaVentas", "Cuenta de ventas", a.CtaVentas);
    d.Dato("cuentaDevoluciones", "Cuenta de devoluciones", a.CtaDVentas);
    d.Dato("raee", "RAEE", a.RAEE, C::Importe);
    d.Dato("ecoRaee", "ECORAEE", a.ECORAEE, C::Importe);
    d.Dato("puntos", "Puntos", a.FidelizacionPuntos, C::Cantidad);
    d.Dato("mueveExistencias", "Mueve existencias", a.DStock, C::Logico);
    d.Dato("controlSeries", "Control de series", a.Control_Series, C::Logico);
    d.Dato("controlCaducidad", "Control de caducidad", a.Control_Caducidad, C::Logico);
    d.Dato("controlLotes", "Control de lotes", a.Control_Lotes, C::Logico);
    d.Dato("envase", "Envase", a.Cod_Envase, C::Codigo);
    d.Dato("tipoReposicion", "Tipo de reposición", a.TipoRep, C::Codigo);
    d.Dato("largo", "Largo", a.Largo, C::Cantidad);
    d.Dato("ancho", "Ancho", a.Ancho, C::Cantidad);
    d.Dato("alto", "Alto", a.Altura, C::Cantidad);
    d.Dato("peso", "Peso", a.Peso, C::Cantidad);
    d.Dato("mensajeAlerta", "Mensaje de alerta", a.MsjAlerta);
    d.Dato("motivoBaja", "Motivo de baja", a.MotivoBaja, C::Codigo);
    d.Dato("bajoPedido", "Bajo pedido", a.BajoPedido, C::Logico);
    d.Dato("unidadesDecimales", "Unidades con decimales", a.UnidadesDecimales, C::Logico);
}

// A parent that was not found in the catalogue has nothing to show.
void DocumentarPadre(Documento& d, const clsDatosArt* padre) {
    const bool hallado = padre != nullptr && padre->Codigo != 0;
    d.Dato("padre", "Padre de venta", hallado ? Valor(padre->Codigo) : Valor(Nulo{}), C::Codigo);
    if (padre != nullptr && !hallado) d.Dato("padreEstado", "Estado del padre", std::string("no existe"));
    if (!hallado) return;
    d.Dato("padreDescripcion", "Descripción del padre", padre->Descripcion);
    d.Dato("padrePrecio", "Precio del padre", padre->Pvp, C::Importe);
    d.Dato("padreExistencias", "Existencias del padre", padre->Stock, C::Cantidad);
}

constexpr aplicacion::ColumnaTabla kParaGente[] = {
    {"", "fuente", "Fuente"},
    {"", "clave", "Clave"},
    {"", "resultado", "Resultado"},
    {"", "antes", "Antes", C::Importe},
    {"", "despues", "Después", C::Importe},
};
constexpr aplicacion::ColumnaTabla kParaProgramas[] = {
    {"", "fuente", ""},
    {"", "clave", ""},
    {"", "tarifa", "", C::Codigo},
    {"", "nodo", ""},
    {"", "importe", "", C::Importe},
    {"", "resultado", ""},
    {"", "antes", "", C::Importe},
    {"", "despues", "", C::Importe},
    {"", "decide", "", C::Logico},
    {"", "vacia", "", C::Logico},
};

void DocumentarExplicacion(Documento& d, const std::vector<aplicacion::PasoExplicado>& pasos) {
    Cuadro gente{{"explicacion", kParaGente}, "Por qué este precio:", {}, Cuadro::Para::Gente};
    Cuadro programas{{"explicacion", kParaProgramas}, "", {}, Cuadro::Para::Programas};
    const char separador = d.Separador();
    for (const auto& paso : pasos) {
        if (paso.decide) gente.destacada = gente.tabla.filas.size();
        gente.tabla.filas.push_back({paso.fuente, paso.clave.ParaGente(separador), paso.resultado.ParaGente(separador),
                                     paso.antes, paso.despues});
        programas.tabla.filas.push_back({paso.fuente, paso.clave.ParaProgramas(), paso.tarifa, paso.nodo, paso.importe,
                                         paso.resultado.ParaProgramas(), paso.antes, paso.despues, paso.decide,
                                         paso.vacia});
    }
    d.Anadir(std::move(gente));
    d.Anadir(std::move(programas));
}

}  // namespace

void Documentar(Documento& d, const aplicacion::RespuestaPvp& pvp) {
    d.Dato("articulo", "Artículo", pvp.articulo, C::Codigo);
    d.Dato("cualidadX", "Cualidad X", pvp.cualidadX, C::Codigo);
    d.Dato("fecha", "Fecha", pvp.fecha, C::Fecha);
    d.Dato("precio", "Precio", pvp.pvp, C::Importe);
    d.Dato("tarifa", "Tarifa", pvp.tarifa, C::Codigo);
}

void Documentar(Documento& d, const aplicacion::RespuestaCarga& carga) {
    const clsDatosArt& articulo = *carga.articulo;
    d.Dato("estado", "Estado", std::string(EnPalabras(carga.estado)));
    d.Dato("codigoEstado", "Código de estado", carga.estado, C::Codigo);
    d.Dato("articulo", "Artículo", articulo.Codigo, C::Codigo);
    d.Dato("descripcion", "Descripción", articulo.Descripcion);
    d.Dato("cualidadX", "Cualidad X", articulo.CualidadX, C::Codigo);
    d.Dato("cualidadY", "Cualidad Y", articulo.CualidadY, C::Codigo);
    DocumentarPrecio(d, carga);
    DocumentarAlmacen(d, articulo);
    DocumentarMaestro(d, articulo);
    if (carga.conPadre) DocumentarPadre(d, carga.padre.get());
    if (carga.conExplicacion) DocumentarExplicacion(d, carga.explicacion);
}

}  // namespace kv::host
