#include "kvdatosart/host/Documentos.h"

#include <algorithm>

namespace kv::host {
namespace {

using aplicacion::ColumnaTabla;
using C = aplicacion::ClaseDato;

// For people, the discounts of an agreement, mostly fewer than five, are one column, with their own decimal separator.
constexpr ColumnaTabla kAcuerdosParaGente[] = {
    {"", "nodo", "Nodo"},
    {"", "desde", "Desde", C::Fecha},
    {"", "hasta", "Hasta", C::Fecha},
    {"", "precioBase", "Precio base", C::Importe},
    {"", "descuentos", "Descuentos"},
    {"", "sumaPadre", "Suma los de encima", C::Logico},
};

void DocumentarAcuerdos(Documento& d, const aplicacion::Tabla& acuerdos) {
    Cuadro gente{{acuerdos.clave, kAcuerdosParaGente}, "", {}, Cuadro::Para::Gente};
    for (const auto& fila : acuerdos.filas) {
        std::string descuentos;
        for (std::size_t i = 0; i < fila.size(); ++i)
            if (acuerdos.columnas[i].clave.starts_with("dto") && !EsNulo(fila[i]))
                descuentos += (descuentos.empty() ? "" : ", ") + AString(fila[i], '.');
        std::replace(descuentos.begin(), descuentos.end(), '.', d.Separador());
        gente.tabla.filas.push_back({fila.at(0), fila.at(1), fila.at(2), fila.at(3), descuentos, fila.back()});
    }
    d.Anadir(std::move(gente));
    d.Anadir({acuerdos, "", {}, Cuadro::Para::Programas});
}

}  // namespace

void Documentar(Documento& d, const aplicacion::RespuestaExistencias& existencias) {
    d.Anadir({existencias.almacenes, "Almacenes"});
    d.Anadir({existencias.variantes, "Variantes"});
    d.Anadir({existencias.ubicaciones, "Ubicaciones"});
}

void Documentar(Documento& d, const aplicacion::RespuestaMovimiento& movimiento) {
    d.Dato("articulo", "Artículo", movimiento.hecho.articulo, C::Codigo);
    d.Dato("almacen", "Almacén", movimiento.hecho.almacen, C::Codigo);
    d.Dato("movimiento", "Movimiento", std::string(aplicacion::NombreDe(movimiento.hecho.tipo)));
    d.Dato("existencias", "Existencias", movimiento.existencias, C::Cantidad);
    d.Dato("costeMedio", "Coste medio", movimiento.costeMedio, C::Importe);
    Documentar(d, movimiento.quedan);
}

void Documentar(Documento& d, const aplicacion::RespuestaPrecio& precio) {
    d.Dato("articulo", "Artículo", precio.clave.articulo, C::Codigo);
    d.Dato("cliente", "Cliente", precio.clave.cliente, C::Codigo);
    d.Dato("precio", "Precio", precio.precio ? Valor(*precio.precio) : Valor(Nulo{}), C::Importe);
    d.Dato("desde", "Desde", precio.clave.desde, C::Fecha);
    d.Dato("hasta", "Hasta", precio.clave.hasta, C::Fecha);
}

void Documentar(Documento& d, const aplicacion::RespuestaCambio& cambio) {
    d.Dato("codigo", "Cambio", cambio.codigo, C::Codigo);
    d.Dato("articulo", "Artículo", cambio.clave.articulo, C::Codigo);
    d.Dato("tarifa", "Tarifa", cambio.clave.tarifa, C::Codigo);
    d.Dato("cualidadX", "Cualidad X", cambio.clave.cualidadX, C::Codigo);
    d.Dato("desde", "Desde", cambio.clave.desde, C::Fecha);
    d.Dato("precio", "Precio", cambio.precio ? Valor(*cambio.precio) : Valor(Nulo{}), C::Importe);
}

void Documentar(Documento& d, const aplicacion::RespuestaDescuento& descuento) {
    d.Dato("clave", "Clave", aplicacion::TextoDe(descuento.clave));
    d.Dato("descuento", "Descuento %", descuento.descuento ? Valor(*descuento.descuento) : Valor(Nulo{}),
           C::Porcentaje);
}

void Documentar(Documento& d, const aplicacion::RespuestaAcuerdos& acuerdos) {
    if (acuerdos.nodo) {
        d.Dato("nodo", "Nodo", aplicacion::TextoDe(*acuerdos.nodo));
        d.Dato("convenio", "Convenio", acuerdos.texto);
    }
    DocumentarAcuerdos(d, acuerdos.acuerdos);
}

void Documentar(Documento& d, const aplicacion::RespuestaEscritura& escritura) {
    d.Dato("cuantos", "Acuerdos", static_cast<std::int32_t>(escritura.cuantos), C::Cantidad);
    DocumentarAcuerdos(d, escritura.acuerdos);
}

void Documentar(Documento& d, const aplicacion::RespuestaListado& listado) {
    const std::size_t mostrados = listado.tabla.filas.size();
    d.Anadir({listado.tabla, ""});
    d.Dato("hallados", "Hallados", static_cast<std::int64_t>(listado.hallados), C::Cantidad);
    if (listado.hallados > mostrados) d.Decir("Se muestran " + std::to_string(mostrados) + "; --limite dice cuántos");
}

void Documentar(Documento& d, const aplicacion::Tabla& tabla) {
    d.Anadir({tabla, ""});
}

}  // namespace kv::host
