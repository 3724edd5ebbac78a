#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "host/Fallo.h"
#include "host/Lectura.h"
#include "host/Ordenes.h"
#include "host/Sesion.h"
#include "rules/clsCliente_Articulo.h"

namespace kv::host {
namespace {

struct OpcionesPrecios {
    OpcionesComunes comunes;
    std::string articulo;
    std::string cliente;
    std::string precio;
    std::string desde;
    std::string hasta = "31/12/2050";
};

void Preparar(clsCliente_Articulo& precios, const Sesion& sesion) {
    sesion.Inyectar(precios);
    precios.Cod_Empresa = sesion.Emp().CodEmpresa();
    precios.Cod_EmpresaExtra = sesion.Emp().CodEmpresaExtra();
}

void PrepararFila(clsCliente_Articulo& precios, const Sesion& sesion, const OpcionesPrecios& o) {
    Preparar(precios, sesion);
    precios.Cod_Articulo = LeerEntero("--articulo", o.articulo, 1, INT32_MAX);
    precios.Cod_Cliente = LeerEntero("--cliente", o.cliente, 1, INT32_MAX);
    precios.Fecha_Inicial = LeerFecha("--desde", o.desde);
    precios.Fecha_Final = LeerFecha("--hasta", o.hasta);
    if (precios.Fecha_Final < precios.Fecha_Inicial)
        throw Fallo(kUso, "--hasta: el " + precios.Fecha_Final.ATexto().Cadena() + " es anterior a --desde");
}

void Responder(Sesion& sesion, const clsCliente_Articulo& precios, const char* hecho, bool conPrecio) {
    sesion.respuesta.Linea(hecho);
    sesion.respuesta.Dato("articulo", "Artículo", precios.Cod_Articulo);
    sesion.respuesta.Dato("cliente", "Cliente", precios.Cod_Cliente);
    if (conPrecio) sesion.respuesta.Dato("precio", "Precio", precios.precio);
    sesion.respuesta.Dato("desde", "Desde", precios.Fecha_Inicial);
    sesion.respuesta.Dato("hasta", "Hasta", precios.Fecha_Final);
    sesion.Escribir(std::cout);
}

void Listar(const OpcionesPrecios& o) {
    if (o.articulo.empty() == o.cliente.empty()) throw Fallo(kUso, "se espera --articulo o --cliente, uno de los dos");
    const bool porArticulo = !o.articulo.empty();
    const std::int32_t codigo = porArticulo ? LeerEntero("--articulo", o.articulo, 1, INT32_MAX)
                                            : LeerEntero("--cliente", o.cliente, 1, INT32_MAX);
    Sesion sesion(o.comunes, true);
    clsCliente_Articulo precios;
    Preparar(precios, sesion);
    std::unique_ptr<Recordset> rs;
    precios.Cargar(rs, porArticulo, codigo, nullptr);
    if (sesion.respuesta.TablaDe("precios", *rs) == 0) throw Fallo(kNegativo, "no hay precios propios");
    sesion.Escribir(std::cout);
}

void Poner(const OpcionesPrecios& o) {
    const Currency precio = LeerImporte("--precio", o.precio);
    Sesion sesion(o.comunes, false);
    clsCliente_Articulo precios;
    PrepararFila(precios, sesion, o);
    precios.precio = precio.ADouble();
    precios.Insertar();
    Responder(sesion, precios, "Precio puesto", true);
}

// Looks for the row before it is touched: the component's own statements say nothing of a key that matches none.
void ExigirFila(const Sesion& sesion, const clsCliente_Articulo& precios) {
    clsCliente_Articulo lista;
    Preparar(lista, sesion);
    std::unique_ptr<Recordset> rs;
    lista.Cargar(rs, false, precios.Cod_Cliente, nullptr);
    for (; !rs->Eof(); rs->MoveNext())
        if (ALong(rs->Fields("Cod_Articulo").Value()) == precios.Cod_Articulo &&
            ADate(rs->Fields("Fecha_Inicial").Value()) == precios.Fecha_Inicial &&
            ADate(rs->Fields("Fecha_Final").Value()) == precios.Fecha_Final)
            return;
    throw Fallo(kNegativo, "no hay un precio de ese artículo, cliente y fechas");
}

void Cambiar(const OpcionesPrecios& o) {
    const Currency precio = LeerImporte("--precio", o.precio);
    Sesion sesion(o.comunes, false);
    clsCliente_Articulo precios;
    PrepararFila(precios, sesion, o);
    ExigirFila(sesion, precios);
    precios.precio = precio.ADouble();
    precios.Modificar(precios.Cod_Articulo);
    Responder(sesion, precios, "Precio cambiado", true);
}

void Quitar(const OpcionesPrecios& o) {
    Sesion sesion(o.comunes, false);
    clsCliente_Articulo precios;
    PrepararFila(precios, sesion, o);
    ExigirFila(sesion, precios);
    precios.Eliminar(precios.Cod_Articulo, precios.Fecha_Inicial, precios.Fecha_Final);
    Responder(sesion, precios, "Precio quitado", false);
}

CLI::App* Anadir(CLI::App& precios, const std::shared_ptr<OpcionesPrecios>& o, const char* nombre, const char* ayuda,
                 bool conPrecio) {
    CLI::App* orden = precios.add_subcommand(nombre, ayuda);
    o->comunes.Anadir(*orden);
    orden->add_option("--articulo", o->articulo, "Código del artículo")->required()->type_name("N");
    orden->add_option("--cliente", o->cliente, "Código del cliente")->required()->type_name("N");
    orden->add_option("--desde", o->desde, "Primer día")->required()->type_name("FECHA");
    orden->add_option("--hasta", o->hasta, "Último día (31/12/2050 si no se dice)")->type_name("FECHA");
    if (conPrecio) orden->add_option("--precio", o->precio, "Precio unitario")->required()->type_name("X");
    return orden;
}

}  // namespace

void AnadirPrecios(CLI::App& programa) {
    CLI::App* precios = programa.add_subcommand("precios", "Precios propios de los clientes");
    precios->require_subcommand(1);
    const auto o = std::make_shared<OpcionesPrecios>();
    CLI::App* listar = precios->add_subcommand("listar", "Los clientes de un artículo o los artículos de un cliente");
    o->comunes.Anadir(*listar);
    listar->add_option("--articulo", o->articulo, "Código del artículo")->type_name("N");
    listar->add_option("--cliente", o->cliente, "Código del cliente")->type_name("N");
    listar->callback([o] { Listar(*o); });
    Anadir(*precios, o, "poner", "Pone un precio entre dos días", true)->callback([o] { Poner(*o); });
    Anadir(*precios, o, "cambiar", "Cambia el importe de un precio", true)->callback([o] { Cambiar(*o); });
    Anadir(*precios, o, "quitar", "Quita un precio", false)->callback([o] { Quitar(*o); });
}

}  // namespace kv::host
