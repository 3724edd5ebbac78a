#include "kvdatosart/application/Ventas.h"

#include "kvdatosart/application/Comprobaciones.h"
#include "kvdatosart/db/Transaccion.h"
#include "kvdatosart/db/ValoresSql.h"
#include "kvdatosart/rules/clsCliente_Articulo.h"

namespace kv::aplicacion {
namespace {

constexpr ColumnaTabla kVentas[] = {
    {"Cod_Almacen", "almacen", "Almacén", ClaseDato::Codigo},
    {"Cod_Cliente", "cliente", "Cliente", ClaseDato::Codigo},
    {"Cod_Articulo", "articulo", "Artículo", ClaseDato::Codigo},
    {"Fecha", "fecha", "Fecha", ClaseDato::Fecha},
    {"Unidades", "unidades", "Unidades", ClaseDato::Cantidad},
    {"Importe_PVP", "importe", "Importe", ClaseDato::Importe},
    {"Importe_Costo", "coste", "Coste", ClaseDato::Importe},
};

bool EsVariante(const PeticionVenta& peticion) {
    return peticion.cualidadX != 0 || peticion.cualidadY != 0;
}

Tabla LeerDia(const Sesion& sesion, const PeticionVenta& p, Fecha fecha) {
    std::string resto =
        TextoSql(std::string_view(EsVariante(p) ? "FROM Clientes_Articulos_C" : "FROM Clientes_Articulos"),
                 " WHERE Cod_Empresa =", SqlEntero(sesion.Emp().CodEmpresa()),
                 " AND Cod_Almacen =", SqlEntero(p.almacen), " AND Cod_Cliente =", SqlEntero(p.cliente),
                 " AND Cod_Articulo =", SqlEntero(p.articulo), " AND Fecha ='", SqlFecha(fecha), "'");
    if (EsVariante(p))
        Agregar(resto, " AND CualidadX =", SqlEntero(p.cualidadX), " AND CualidadY =", SqlEntero(p.cualidadY));
    return LeerTabla(sesion.Cnx(), "ventas", kVentas, resto);
}

}  // namespace

Tabla AcumularVenta(const Sesion& sesion, const PeticionVenta& p) {
    const Fecha fecha = p.fecha.value_or(sesion.Hoy());
    ExigirPasada("fecha", fecha, sesion.Hoy(), p.forzar);
    ExigirArticulo(sesion, p.articulo);
    ExigirCliente(sesion, p.cliente);
    ExigirAlmacen(sesion, p.almacen);
    clsCliente_Articulo venta;
    sesion.Inyectar(venta);
    venta.Cod_Empresa = sesion.Emp().CodEmpresa();
    venta.Cod_Almacen = p.almacen;
    venta.Cod_Cliente = p.cliente;
    venta.Cod_Articulo = p.articulo;
    // The sale goes to two tables, and it must not stay in one of them only.
    Transaccion transaccion(sesion.Cnx());
    if (EsVariante(p))
        venta.Acumular_C(fecha, p.unidades, p.importe, p.coste, p.cualidadX, p.cualidadY);
    else
        venta.Acumular(fecha, p.unidades, p.importe, p.coste);
    Tabla dia = LeerDia(sesion, p, fecha);
    transaccion.Confirmar();
    return dia;
}

}  // namespace kv::aplicacion
