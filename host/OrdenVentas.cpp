#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "db/BibliotecaComun.h"
#include "db/ValoresSql.h"
#include "host/Fallo.h"
#include "host/Lectura.h"
#include "host/Ordenes.h"
#include "host/Sesion.h"
#include "rules/clsCliente_Articulo.h"

namespace kv::host {
namespace {

struct OpcionesVenta {
    OpcionesComunes comunes;
    std::string articulo;
    std::string cliente;
    std::string almacen = "1";
    std::string unidades;
    std::string importe;
    std::string coste = "0";
    std::string fecha;
    std::string cualidadX = "0";
    std::string cualidadY = "0";
};

void Acumular(const OpcionesVenta& o) {
    const Fecha fecha = o.fecha.empty() ? Biblioteca().Hoy() : LeerFecha("--fecha", o.fecha);
    const Currency unidades = LeerImporte("--unidades", o.unidades);
    const Currency importe = LeerImporte("--importe", o.importe);
    const Currency coste = LeerImporte("--coste", o.coste);
    const auto x = static_cast<std::int16_t>(LeerEntero("--cualidad-x", o.cualidadX, 0, 255));
    const auto y = static_cast<std::int16_t>(LeerEntero("--cualidad-y", o.cualidadY, 0, 255));
    const bool variante = x != 0 || y != 0;
    Sesion sesion(o.comunes, false);
    clsCliente_Articulo venta;
    sesion.Inyectar(venta);
    venta.Cod_Empresa = sesion.Emp().CodEmpresa();
    venta.Cod_Almacen = LeerCodigo("--almacen", o.almacen);
    venta.Cod_Cliente = LeerEntero("--cliente", o.cliente, 1, INT32_MAX);
    venta.Cod_Articulo = LeerEntero("--articulo", o.articulo, 1, INT32_MAX);
    // The sale goes to two tables, and it must not stay in one of them only.
    sesion.EnTransaccion([&] {
        if (variante)
            venta.Acumular_C(fecha, unidades, importe, coste, x, y);
        else
            venta.Acumular(fecha, unidades, importe, coste);
    });
    std::string sql =
        TextoSql("SELECT Cod_Almacen, Cod_Cliente, Cod_Articulo, Fecha, Unidades, Importe_PVP, Importe_Costo FROM ",
                 std::string_view(variante ? "Clientes_Articulos_C" : "Clientes_Articulos"),
                 " WHERE Cod_Empresa =", SqlEntero(venta.Cod_Empresa),
                 " AND Cod_Almacen =", SqlEntero(venta.Cod_Almacen), " AND Cod_Cliente =", SqlEntero(venta.Cod_Cliente),
                 " AND Cod_Articulo =", SqlEntero(venta.Cod_Articulo), " AND Fecha ='", SqlFecha(fecha), "'");
    if (variante) Agregar(sql, " AND CualidadX =", SqlEntero(x), " AND CualidadY =", SqlEntero(y));
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, sesion.Cnx(), sql);
    sesion.respuesta.Linea("Venta acumulada; así queda el día:");
    sesion.respuesta.TablaDe("ventas", *rs);
    sesion.Escribir(std::cout);
}

}  // namespace

void AnadirVentas(CLI::App& programa) {
    CLI::App* ventas = programa.add_subcommand("ventas", "Estadística de ventas de los clientes");
    ventas->require_subcommand(1);
    CLI::App* acumular = ventas->add_subcommand("acumular", "Suma una venta (negativa: una devolución) a su día");
    const auto o = std::make_shared<OpcionesVenta>();
    o->comunes.Anadir(*acumular);
    acumular->add_option("--articulo", o->articulo, "Código del artículo")->required()->type_name("N");
    acumular->add_option("--cliente", o->cliente, "Código del cliente")->required()->type_name("N");
    acumular->add_option("--almacen", o->almacen, "Almacén (1 si no se dice)")->type_name("N");
    acumular->add_option("--unidades", o->unidades, "Unidades")->required()->type_name("X");
    acumular->add_option("--importe", o->importe, "Importe de la venta")->required()->type_name("X");
    acumular->add_option("--coste", o->coste, "Importe del coste; 0 lo toma del almacén")->type_name("X");
    acumular->add_option("--fecha", o->fecha, "Hoy si no se dice")->type_name("FECHA");
    acumular->add_option("--cualidad-x", o->cualidadX, "Cualidad X de la variante")->type_name("N");
    acumular->add_option("--cualidad-y", o->cualidadY, "Cualidad Y de la variante")->type_name("N");
    acumular->callback([o] { Acumular(*o); });
}

}  // namespace kv::host
