#include <CLI/CLI.hpp>
#include <array>
#include <iostream>
#include <memory>

#include "db/BibliotecaComun.h"
#include "db/ValoresSql.h"
#include "host/Fallo.h"
#include "host/Lectura.h"
#include "host/Ordenes.h"
#include "host/Sesion.h"
#include "stock/Movimiento.h"
#include "stock/clsAlmacen_Articulo.h"

namespace kv::host {
namespace {

struct OpcionesStock {
    OpcionesComunes comunes;
    std::string articulo;
    std::string almacen = "1";
    std::string tipo;
    std::string unidades = "0";
    std::string peso = "0";
    std::string coste = "0";
    std::string fecha;
    std::string cualidadX = "0";
    std::string cualidadY = "0";
    std::string recibir = "0";
    std::string servir = "0";
    std::array<std::string, 5> ubicacion;
    bool fichas = false;
};

using Opciones = std::shared_ptr<OpcionesStock>;

struct Clave {
    std::int32_t articulo;
    std::int16_t almacen;
    std::uint8_t x;
    std::uint8_t y;

    bool EsVariante() const { return x != 0 && y != 0; }
};

Clave LeerClave(const OpcionesStock& o) {
    const Clave clave{LeerEntero("--articulo", o.articulo, 1, INT32_MAX), LeerCodigo("--almacen", o.almacen),
                      static_cast<std::uint8_t>(LeerEntero("--cualidad-x", o.cualidadX, 0, 255)),
                      static_cast<std::uint8_t>(LeerEntero("--cualidad-y", o.cualidadY, 0, 255))};
    if ((clave.x == 0) != (clave.y == 0)) throw Fallo(kUso, "--cualidad-x y --cualidad-y van las dos o ninguna");
    return clave;
}

// What a posting to a code that does not exist would quietly create.
void ExigirClave(Sesion& sesion, const Clave& clave) {
    if (!sesion.Hay(
            TextoSql("SELECT Codigo FROM Articulos WHERE Cod_Empresa =", SqlEntero(sesion.Emp().CodEmpresaArticulos()),
                     " AND Codigo =", SqlEntero(clave.articulo))))
        throw Fallo(kNegativo, "no existe el artículo " + std::to_string(clave.articulo));
    sesion.ExigirAlmacen(clave.almacen);
}

void Tabla(Sesion& sesion, const char* nombre, const std::string& sql) {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, sesion.Cnx(), sql);
    if (rs->Eof()) return;
    sesion.respuesta.TablaDe(nombre, *rs);
}

void EscribirExistencias(Sesion& sesion, std::int32_t articulo) {
    const TextoNumero empresa = SqlEntero(sesion.Emp().CodEmpresa());
    const TextoNumero codigo = SqlEntero(articulo);
    Tabla(sesion, "almacenes",
          TextoSql("SELECT Cod_Almacen, Stock_Actual, Stock_MiniCompra, Pend_Recibir, Pend_Servir, PU_Compra, P_Medio,"
                   " FUlt_Compra, FUlt_Venta, Bloqueo, Desglosa_Pack FROM Almacen_Articulos WHERE Cod_Empresa =",
                   empresa, " AND Cod_Articulo =", codigo, " ORDER BY Cod_Almacen"));
    Tabla(sesion, "variantes",
          TextoSql("SELECT Cod_Almacen, CualidadX, CualidadY, Stock_Actual, Pend_Recibir, Pend_Servir, PU_Compra,"
                   " P_Medio FROM Almacen_Articulos_C WHERE Cod_Empresa =",
                   empresa, " AND Cod_Articulo =", codigo, " ORDER BY Cod_Almacen, CualidadX, CualidadY"));
    Tabla(sesion, "ubicaciones",
          TextoSql("SELECT Cod_Almacen, Ubic1, Ubic2, Ubic3, Ubic4, Ubic5, Stock_Actual FROM Almacen_Articulos_Ubic"
                   " WHERE Cod_Empresa =",
                   empresa, " AND Cod_Articulo =", codigo, " ORDER BY Cod_Almacen"));
}

void Ver(const OpcionesStock& o) {
    const std::int32_t articulo = LeerEntero("--articulo", o.articulo, 1, INT32_MAX);
    Sesion sesion(o.comunes, true);
    if (!sesion.Hay(TextoSql("SELECT Cod_Almacen FROM Almacen_Articulos WHERE Cod_Empresa =",
                             SqlEntero(sesion.Emp().CodEmpresa()), " AND Cod_Articulo =", SqlEntero(articulo))))
        throw Fallo(kNegativo, "el artículo " + o.articulo + " no está en ningún almacén");
    EscribirExistencias(sesion, articulo);
    sesion.Escribir(std::cout);
}

struct Clase {
    std::int16_t op;
    /// Units that a person writes as positive, as the document line signs them.
    double signo;
};

Clase LeerTipo(const std::string& tipo) {
    if (tipo == "compra") return {kOpCompra, 1};
    if (tipo == "venta") return {kOpVenta, 1};
    if (tipo == "devolucion") return {kOpVenta, -1};
    if (tipo == "entrada") return {kOpEntradaConPrecio, 1};
    if (tipo == "salida") return {kOpSalida8, 1};
    throw Fallo(kUso, "--tipo: «" + tipo + "» no vale; se espera compra, venta, devolucion, entrada o salida");
}

void Mover(const OpcionesStock& o) {
    const Clave clave = LeerClave(o);
    const Clase clase = LeerTipo(o.tipo);
    const double unidades = LeerImporte("--unidades", o.unidades).ADouble() * clase.signo;
    if (unidades * clase.signo <= 0) throw Fallo(kUso, "--unidades: se espera una cantidad mayor que 0");
    const double peso = LeerImporte("--peso", o.peso).ADouble() * clase.signo;
    const double neto = LeerImporte("--coste", o.coste).ADouble();
    const Fecha fecha = o.fecha.empty() ? Biblioteca().Hoy() : LeerFecha("--fecha", o.fecha);
    Sesion sesion(o.comunes, false);
    ExigirClave(sesion, clave);
    clsAlmacen_Articulo almacen;
    sesion.Inyectar(almacen);
    double puc = 0;
    double medio = 0;
    double stock = 0;
    sesion.EnTransaccion([&] {
        if (clave.EsVariante())
            almacen.Act_Stock_Cualidades(clave.almacen, clave.articulo, clave.x, clave.y, unidades, peso, neto,
                                         clase.op, fecha, puc, medio, stock, o.fichas);
        else
            almacen.Act_Stock(clave.almacen, clave.articulo, unidades, peso, neto, clase.op, fecha, puc, medio, stock,
                              o.fichas);
    });
    Respuesta& r = sesion.respuesta;
    r.Dato("articulo", "Artículo", clave.articulo);
    r.Dato("almacen", "Almacén", clave.almacen);
    r.Dato("movimiento", "Movimiento", o.tipo);
    r.Dato("stock", "Existencias", stock);
    r.Dato("costeMedio", "Coste medio", medio);
    EscribirExistencias(sesion, clave.articulo);
    sesion.Escribir(std::cout);
}

// A command that writes through the class with the key in its properties, then shows what there is.
template <class Accion>
void ConClave(const OpcionesStock& o, Accion accion) {
    const Clave clave = LeerClave(o);
    Sesion sesion(o.comunes, false);
    ExigirClave(sesion, clave);
    clsAlmacen_Articulo almacen;
    sesion.Inyectar(almacen);
    almacen.Almacen = clave.almacen;
    almacen.Articulo = clave.articulo;
    sesion.EnTransaccion([&] { accion(almacen, clave); });
    EscribirExistencias(sesion, clave.articulo);
    sesion.Escribir(std::cout);
}

void Bloquear(const OpcionesStock& o, bool bloqueado) {
    ConClave(o, [&](clsAlmacen_Articulo& almacen, const Clave&) {
        almacen.Bloqueado = bloqueado;
        almacen.Act_Bloqueo();
    });
}

void PonerCoste(const OpcionesStock& o) {
    const Currency coste = LeerImporte("--coste", o.coste);
    if (coste < Currency()) throw Fallo(kUso, "--coste: no puede ser negativo");
    ConClave(o, [&](clsAlmacen_Articulo& almacen, const Clave&) { almacen.Act_Costo(coste); });
}

void Pendientes(const OpcionesStock& o) {
    const Currency recibir = LeerImporte("--recibir", o.recibir);
    const Currency servir = LeerImporte("--servir", o.servir);
    if (recibir == Currency() && servir == Currency()) throw Fallo(kUso, "se espera --recibir o --servir");
    ConClave(o, [&](clsAlmacen_Articulo& almacen, const Clave& clave) {
        if (recibir != Currency()) almacen.Act_PendRecibir(recibir);
        if (servir != Currency()) almacen.Act_PendServir(servir);
        if (recibir != Currency()) almacen.Act_PendRecibir_Cualidades(clave.x, clave.y, recibir);
        if (servir != Currency()) almacen.Act_PendServir_Cualidades(clave.x, clave.y, servir);
    });
}

void Ubicar(const OpcionesStock& o) {
    const Currency unidades = LeerImporte("--unidades", o.unidades);
    ConClave(o, [&](clsAlmacen_Articulo& almacen, const Clave& clave) {
        const auto& u = o.ubicacion;
        almacen.Act_Stock_Ubicaciones(clave.almacen, clave.articulo, u[0], u[1], u[2], u[3], u[4], unidades);
    });
}

CLI::App* Anadir(CLI::App& stock, const Opciones& o, const char* nombre, const char* ayuda) {
    CLI::App* orden = stock.add_subcommand(nombre, ayuda);
    o->comunes.Anadir(*orden);
    orden->add_option("--articulo", o->articulo, "Código del artículo")->required()->type_name("N");
    return orden;
}

CLI::App* AnadirEscritura(CLI::App& stock, const Opciones& o, const char* nombre, const char* ayuda) {
    CLI::App* orden = Anadir(stock, o, nombre, ayuda);
    orden->add_option("--almacen", o->almacen, "Almacén (1 si no se dice)")->type_name("N");
    return orden;
}

void AnadirCualidades(CLI::App& orden, const Opciones& o) {
    orden.add_option("--cualidad-x", o->cualidadX, "Cualidad X de la variante")->type_name("N");
    orden.add_option("--cualidad-y", o->cualidadY, "Cualidad Y de la variante")->type_name("N");
}

void AnadirMover(CLI::App& stock, const Opciones& o) {
    CLI::App* mover = AnadirEscritura(stock, o, "mover", "Contabiliza un movimiento");
    mover->add_option("--tipo", o->tipo, "compra, venta, devolucion (de una venta), entrada o salida")
        ->required()
        ->type_name("TIPO");
    mover->add_option("--unidades", o->unidades, "Unidades, siempre positivas")->required()->type_name("X");
    mover->add_option("--peso", o->peso, "Peso")->type_name("X");
    mover->add_option("--coste", o->coste, "Coste unitario neto de una compra o entrada")->type_name("X");
    mover->add_option("--fecha", o->fecha, "Hoy si no se dice")->type_name("FECHA");
    mover->add_flag("--fichas", o->fichas, "Lleva las fechas a las fichas del artículo y del almacén");
    AnadirCualidades(*mover, o);
    mover->callback([o] { Mover(*o); });
}

}  // namespace

void AnadirStock(CLI::App& programa) {
    CLI::App* stock = programa.add_subcommand("stock", "Existencias, movimientos, costes, bloqueos y ubicaciones");
    stock->require_subcommand(1);
    const auto o = std::make_shared<OpcionesStock>();
    Anadir(*stock, o, "ver", "Muestra un artículo en todos los almacenes")->callback([o] { Ver(*o); });
    AnadirMover(*stock, o);
    AnadirEscritura(*stock, o, "bloquear", "Bloquea un artículo en un almacén")->callback([o] { Bloquear(*o, true); });
    AnadirEscritura(*stock, o, "desbloquear", "Lo desbloquea")->callback([o] { Bloquear(*o, false); });
    CLI::App* coste = AnadirEscritura(*stock, o, "coste", "Pone el precio de compra y el coste medio");
    coste->add_option("--coste", o->coste, "Coste unitario")->required()->type_name("X");
    coste->callback([o] { PonerCoste(*o); });
    CLI::App* pendiente = AnadirEscritura(*stock, o, "pendiente", "Suma a lo pendiente de recibir o de servir");
    pendiente->add_option("--recibir", o->recibir, "Unidades, con su signo")->type_name("X");
    pendiente->add_option("--servir", o->servir, "Unidades, con su signo")->type_name("X");
    AnadirCualidades(*pendiente, o);
    pendiente->callback([o] { Pendientes(*o); });
    CLI::App* ubicacion = AnadirEscritura(*stock, o, "ubicacion", "Suma a las existencias de una ubicación");
    ubicacion->add_option("--unidades", o->unidades, "Unidades, con su signo")->required()->type_name("X");
    for (std::size_t i = 0; i < o->ubicacion.size(); ++i)
        ubicacion->add_option("--ubic" + std::to_string(i + 1), o->ubicacion[i], "Nivel de la ubicación")
            ->type_name("TEXTO");
    ubicacion->callback([o] { Ubicar(*o); });
}

}  // namespace kv::host
