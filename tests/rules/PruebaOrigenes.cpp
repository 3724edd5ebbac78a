#include <gtest/gtest.h>

#include <functional>

#include "customers/clsCliente.h"
#include "rules/clsCliente_Articulo.h"
#include "rules/clsCliente_DtosFamilias.h"
#include "rules/clsCliente_Grp_Dtos.h"
#include "rules/clsClientes_Cadenas_ConvArt.h"
#include "tests/comun/EmpresaFija.h"
#include "tests/comun/Errores.h"

namespace kv::prueba {
namespace {

// Without a connection every method fails with the same error: what it names as its source is its own.
TEST(Origenes, CadaMetodoDiceElSuyo) {
    const auto empresa = std::make_shared<EmpresaFija>();
    clsCliente_DtosFamilias f;
    clsCliente_Grp_Dtos g;
    clsCliente_Articulo p;
    clsClientes_Cadenas_ConvArt c;
    clsCliente m;
    for (Inyectado* objeto : std::initializer_list<Inyectado*>{&f, &g, &p, &c, &m}) objeto->cEmpresa(empresa);
    c.Cod_Nivel1 = 1;
    std::unique_ptr<Recordset> rs;
    std::string camino;
    Fecha dia;
    Valor valor = std::int32_t{1};
    p.Key(valor);
    Currency uno = Currency::DeEntero(1);
    const std::pair<const char*, std::function<void()>> kCasos[] = {
        {"clsDescuentos_Familia::Insertar", [&] { f.Insertar(); }},
        {"clsDescuentos_Familia::Borrar", [&] { f.Eliminar(); }},
        {"clsDescuentos_Familia::Borrar", [&] { f.Modificar(); }},
        {"clsDescuentos_Familia::Dev_Descuento", [&] { f.Dev_Descuento(); }},
        {"clsDescuentos_Familia::Cargar_Todos", [&] { f.Cargar_Todos(); }},
        {"clsCliente_DtosFamilias::Cargar_Articulos", [&] { f.Cargar_Articulos(1, 0, 0); }},
        {"clsCliente_Grp_Dtos::Insertar", [&] { g.Insertar(); }},
        {"clsCliente_Grp_Dtos::Borrar", [&] { g.Eliminar(); }},
        {"clsCliente_Grp_Dtos::Borrar", [&] { g.Modificar(); }},
        {"clsCliente_Grp_Dtos::Dev_Descuento", [&] { g.Dev_Descuento(uno); }},
        {"clsCliente_Grp_Dtos::Cargar_Todos", [&] { g.Cargar_Todos(); }},
        {"clsCliente_Grp_Dtos::Cargar_Articulos", [&] { g.Cargar_Articulos(1, 0, 0); }},
        {"KVDatosArt", [&] { g.Comprobar_Encajados(uno, uno); }},
        {"clsCliente_Articulo::Dev_Precio", [&] { p.Dev_Precio(dia); }},
        {"clsClientes_Art_PVP::Insertar", [&] { p.Insertar(); }},
        {"clsClientes_Art_PVP::Eliminar", [&] { p.Eliminar(1, dia, dia); }},
        {"clsClientes_Art_PVP::Modificar", [&] { p.Modificar(1); }},
        {"clsCliente_Articulo::Cargar", [&] { p.Cargar(rs, true, valor, nullptr); }},
        {"clsCliente_Articulo::Cargar", [&] { p.Cargar_Siguiente(rs); }},
        {"clsCliente_Articulo::Cargar", [&] { p.Cargar_Anterior(rs); }},
        {"clsCliente_Articulo::Cargar", [&] { p.Cargar_Primero(rs); }},
        {"clsCliente_Articulo::Cargar", [&] { p.Cargar_Ultimo(rs); }},
        {"clsClientes_Articulo::Acumular", [&] { p.Acumular(dia, uno, uno, uno); }},
        {"clsCliente_Articulo::Acumular_C", [&] { p.Acumular_C(dia, uno, uno, uno, 1, 1); }},
        {"clsClientes_Cadenas_ConvArt::Dev_Descuentos", [&] { c.Dev_Neto(dia); }},
        {"clsClientes_Cadenas_ConvArt::Dev_Descuentos", [&] { c.Dev_CadenaConvenio_Total(dia); }},
        {"clsClientes_Cadenas_ConvArt::Dev_PBase", [&] { c.Devuelve_PBase(camino, dia, valor, dia); }},
        {"clsClientes_Cadenas_ConvArt::Dev_CadenaConvenio_Nivel", [&] { c.Dev_CadenaConvenio_Nivel(dia); }},
        {"clsClientes_Cadenas_ConvArt::Insertar", [&] { c.Insertar(); }},
        {"clsClientes_Cadenas_ConvArt::Modificar", [&] { c.Modificar(); }},
        {"clsClientes_Cadenas_ConvArt::Eliminar", [&] { c.Eliminar(); }},
        {"KVDatosArt", [&] { c.Cargar(); }},
        {"clsCliente::Cargar", [&] { m.Cargar(); }},
        {"clsCliente::Cargar_Primero", [&] { m.Cargar_Primero(); }},
        {"clsCliente::Cargar_Ultimo", [&] { m.Cargar_Ultimo(); }},
        {"clsCliente::Cargar_Anterior", [&] { m.Cargar_Anterior(); }},
        {"clsCliente::Cargar_Siguiente", [&] { m.Cargar_Siguiente(); }},
        {"clsCliente::Cargar_Telefonos", [&] { m.Cargar_Telefonos(); }},
        {"clsCliente::Insertar", [&] { m.Insertar(); }},
        {"clsCliente::Modificar", [&] { m.Modificar(); }},
        {"clsCliente::Insertar_Telefono", [&] { m.Insertar_Telefono(1, ""); }},
        {"clsCliente::Eliminar", [&] { m.Eliminar(true); }},
        {"clsCliente::Verif_Notas", [&] { m.Verif_Notas(); }},
        {"clsCliente::Existe", [&] { m.Existe(); }},
    };
    for (const auto& [origen, accion] : kCasos) EsperarError(kErrObjetoNoEstablecido, origen, accion);
}

}  // namespace
}  // namespace kv::prueba
