#include "kvdatosart/application/Existencias.h"

#include "kvdatosart/application/Comprobaciones.h"
#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/db/Transaccion.h"
#include "kvdatosart/db/ValoresSql.h"
#include "kvdatosart/stock/Movimiento.h"
#include "kvdatosart/stock/clsAlmacen_Articulo.h"

namespace kv::aplicacion {
namespace {

constexpr ColumnaTabla kAlmacenes[] = {
    {"Cod_Almacen", "almacen", "Almacén", ClaseDato::Codigo},
    {"Stock_Actual", "existencias", "Existencias", ClaseDato::Cantidad},
    {"Stock_MiniCompra", "minimoCompra", "Mínimo de compra", ClaseDato::Cantidad},
    {"Pend_Recibir", "pendienteRecibir", "Por recibir", ClaseDato::Cantidad},
    {"Pend_Servir", "pendienteServir", "Por servir", ClaseDato::Cantidad},
    {"PU_Compra", "precioCompra", "Precio de compra", ClaseDato::Importe},
    {"P_Medio", "costeMedio", "Coste medio", ClaseDato::Importe},
    {"FUlt_Compra", "ultimaCompra", "Última compra", ClaseDato::Fecha},
    {"FUlt_Venta", "ultimaVenta", "Última venta", ClaseDato::Fecha},
    {"Bloqueo", "bloqueado", "Bloqueado", ClaseDato::Logico},
    {"Desglosa_Pack", "desglosaPack", "Desglosa el lote", ClaseDato::Logico},
};

constexpr ColumnaTabla kVariantes[] = {
    {"Cod_Almacen", "almacen", "Almacén", ClaseDato::Codigo},
    {"CualidadX", "cualidadX", "Cualidad X", ClaseDato::Codigo},
    {"CualidadY", "cualidadY", "Cualidad Y", ClaseDato::Codigo},
    {"Stock_Actual", "existencias", "Existencias", ClaseDato::Cantidad},
    {"Pend_Recibir", "pendienteRecibir", "Por recibir", ClaseDato::Cantidad},
    {"Pend_Servir", "pendienteServir", "Por servir", ClaseDato::Cantidad},
    {"PU_Compra", "precioCompra", "Precio de compra", ClaseDato::Importe},
    {"P_Medio", "costeMedio", "Coste medio", ClaseDato::Importe},
};

constexpr ColumnaTabla kUbicaciones[] = {
    {"Cod_Almacen", "almacen", "Almacén", ClaseDato::Codigo},
    {"Ubic1", "ubic1", "Nivel 1"},
    {"Ubic2", "ubic2", "Nivel 2"},
    {"Ubic3", "ubic3", "Nivel 3"},
    {"Ubic4", "ubic4", "Nivel 4"},
    {"Ubic5", "ubic5", "Nivel 5"},
    {"Stock_Actual", "existencias", "Existencias", ClaseDato::Cantidad},
};

RespuestaExistencias LeerExistencias(const Sesion& sesion, std::int32_t articulo) {
    const TextoNumero empresa = SqlEntero(sesion.Emp().CodEmpresa());
    const TextoNumero codigo = SqlEntero(articulo);
    return {LeerTabla(sesion.Cnx(), "almacenes", kAlmacenes,
                      TextoSql("FROM Almacen_Articulos WHERE Cod_Empresa =", empresa, " AND Cod_Articulo =", codigo,
                               " ORDER BY Cod_Almacen")),
            LeerTabla(sesion.Cnx(), "variantes", kVariantes,
                      TextoSql("FROM Almacen_Articulos_C WHERE Cod_Empresa =", empresa, " AND Cod_Articulo =", codigo,
                               " ORDER BY Cod_Almacen, CualidadX, CualidadY")),
            LeerTabla(sesion.Cnx(), "ubicaciones", kUbicaciones,
                      TextoSql("FROM Almacen_Articulos_Ubic WHERE Cod_Empresa =", empresa, " AND Cod_Articulo =",
                               codigo, " ORDER BY Cod_Almacen, Ubic1, Ubic2, Ubic3, Ubic4, Ubic5"))};
}

void TaparCostes(Tabla& tabla) {
    for (std::size_t i = 0; i < tabla.columnas.size(); ++i)
        if (tabla.columnas[i].clave == "precioCompra" || tabla.columnas[i].clave == "costeMedio")
            for (FilaTabla& fila : tabla.filas) fila[i] = Nulo{};
}

// What a posting to a code that does not exist would quietly create.
void ExigirClave(const Sesion& sesion, const ClaveExistencias& clave) {
    ExigirArticulo(sesion, clave.articulo);
    ExigirAlmacen(sesion, clave.almacen);
}

bool EsVariante(const ClaveVariante& clave) {
    if ((clave.cualidadX == 0) != (clave.cualidadY == 0))
        RechazarImposible("", "{cualidadX} y {cualidadY} van las dos o ninguna");
    return clave.cualidadX != 0;
}

// Writes through the class with the key in its properties; what there is then is read before it stays.
template <class Accion>
RespuestaExistencias ConClave(const Sesion& sesion, const ClaveExistencias& clave, Accion accion) {
    ExigirClave(sesion, clave);
    clsAlmacen_Articulo almacen;
    sesion.Inyectar(almacen);
    almacen.Almacen = clave.almacen;
    almacen.Articulo = clave.articulo;
    Transaccion transaccion(sesion.Cnx());
    accion(almacen);
    RespuestaExistencias quedan = LeerExistencias(sesion, clave.articulo);
    transaccion.Confirmar();
    return quedan;
}

// Of the columns of a location's levels.
constexpr std::size_t kLargoUbicacion = 10;

std::int16_t Operacion(TipoMovimiento tipo) {
    switch (tipo) {
        case TipoMovimiento::Compra:
            return kOpCompra;
        case TipoMovimiento::Entrada:
            return kOpEntradaConPrecio;
        case TipoMovimiento::Salida:
            return kOpSalida8;
        case TipoMovimiento::Venta:
        case TipoMovimiento::Devolucion:
            break;
    }
    return kOpVenta;
}

}  // namespace

std::string_view NombreDe(TipoMovimiento tipo) {
    constexpr std::string_view kNombres[] = {"compra", "venta", "devolucion", "entrada", "salida"};
    return kNombres[static_cast<std::size_t>(tipo)];
}

RespuestaExistencias VerExistencias(const Sesion& sesion, const PeticionExistencias& peticion) {
    RespuestaExistencias hay = LeerExistencias(sesion, peticion.articulo);
    if (hay.almacenes.filas.empty())
        RechazarNegativa("articulo", "el artículo " + std::to_string(peticion.articulo) + " no está en ningún almacén");
    if (!peticion.conCoste) {
        TaparCostes(hay.almacenes);
        TaparCostes(hay.variantes);
    }
    return hay;
}

RespuestaMovimiento MoverExistencias(const Sesion& sesion, const PeticionMovimiento& p) {
    const bool variante = EsVariante(p);
    if (p.unidades <= Currency())
        RechazarImposible("unidades",
                          "«" + p.unidades.ATexto('.').Cadena() + "» no vale; se espera una cantidad mayor que 0");
    ExigirNoNegativo("peso", p.peso);
    ExigirNoNegativo("coste", p.coste);
    // The lines of returns carry what comes back as negative.
    const double signo = p.tipo == TipoMovimiento::Devolucion ? -1 : 1;
    const double unidades = p.unidades.ADouble() * signo;
    const double peso = p.peso.ADouble() * signo;
    const double neto = p.coste.ADouble();
    const Fecha fecha = p.fecha.value_or(sesion.Hoy());
    if (p.tipo == TipoMovimiento::Venta) ExigirPasada("fecha", fecha, sesion.Hoy(), p.forzar);
    double puc = 0;
    RespuestaMovimiento respuesta{p, 0, 0, {}};
    respuesta.quedan = ConClave(sesion, p, [&](clsAlmacen_Articulo& almacen) {
        if (variante)
            almacen.Act_Stock_Cualidades(p.almacen, p.articulo, p.cualidadX, p.cualidadY, unidades, peso, neto,
                                         Operacion(p.tipo), fecha, puc, respuesta.costeMedio, respuesta.existencias,
                                         p.fichas);
        else
            almacen.Act_Stock(p.almacen, p.articulo, unidades, peso, neto, Operacion(p.tipo), fecha, puc,
                              respuesta.costeMedio, respuesta.existencias, p.fichas);
    });
    return respuesta;
}

RespuestaExistencias BloquearExistencias(const Sesion& sesion, const PeticionBloqueo& peticion) {
    return ConClave(sesion, peticion, [&](clsAlmacen_Articulo& almacen) {
        almacen.Bloqueado = peticion.bloqueado;
        almacen.Act_Bloqueo();
    });
}

RespuestaExistencias PonerCoste(const Sesion& sesion, const PeticionCoste& peticion) {
    ExigirNoNegativo("coste", peticion.coste);
    return ConClave(sesion, peticion, [&](clsAlmacen_Articulo& almacen) { almacen.Act_Costo(peticion.coste); });
}

RespuestaExistencias SumarPendiente(const Sesion& sesion, const PeticionPendiente& p) {
    EsVariante(p);
    if (p.recibir == Currency() && p.servir == Currency()) RechazarImposible("", "se espera {recibir} o {servir}");
    return ConClave(sesion, p, [&](clsAlmacen_Articulo& almacen) {
        if (p.recibir != Currency()) almacen.Act_PendRecibir(p.recibir);
        if (p.servir != Currency()) almacen.Act_PendServir(p.servir);
        if (p.recibir != Currency()) almacen.Act_PendRecibir_Cualidades(p.cualidadX, p.cualidadY, p.recibir);
        if (p.servir != Currency()) almacen.Act_PendServir_Cualidades(p.cualidadX, p.cualidadY, p.servir);
    });
}

RespuestaExistencias SumarEnUbicacion(const Sesion& sesion, const PeticionUbicacion& peticion) {
    for (std::size_t i = 0; i < peticion.niveles.size(); ++i)
        ExigirTexto("ubic" + std::to_string(i + 1), peticion.niveles[i], kLargoUbicacion);
    return ConClave(sesion, peticion, [&](clsAlmacen_Articulo& almacen) {
        const auto& u = peticion.niveles;
        almacen.Act_Stock_Ubicaciones(peticion.almacen, peticion.articulo, u[0], u[1], u[2], u[3], u[4],
                                      peticion.unidades);
    });
}

}  // namespace kv::aplicacion
