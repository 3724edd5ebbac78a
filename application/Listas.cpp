#include "kvdatosart/application/Listas.h"

#include <algorithm>

#include "kvdatosart/application/Acuerdos.h"
#include "kvdatosart/application/Comprobaciones.h"
#include "kvdatosart/application/Palabras.h"
#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/db/ValoresSql.h"

namespace kv::aplicacion {
namespace {

constexpr const char* kComoArticulos = "se esperan los códigos, o {familias} y {buscar}, no los dos";
constexpr const char* kComoClientes = "se espera {clientes} con códigos o todos, o {grupo} y {nodo}, no los dos";

void ExigirTerminos(const Sesion& sesion, const PeticionListaPrecios& p) {
    if (p.tarifa.value_or(0) < 0 && !p.conCoste)
        RechazarImposible("tarifa", "-1 vende a coste, y sin {conCoste} una lista no enseña costes");
    if (p.parte < 1 || p.parte > p.partes)
        RechazarImposible("parte", "«" + std::to_string(p.parte) + "/" + std::to_string(p.partes) +
                                       "» no vale; la parte va de 1 a cuantas sean");
    for (auto una = p.unidades.begin(); una != p.unidades.end(); ++una) {
        ExigirNoNegativo("unidades", *una);
        if (std::find(p.unidades.begin(), una, *una) != una)
            RechazarImposible("unidades", "«" + una->ATexto('.').Cadena() + "» está dos veces");
    }
    ExigirAlmacen(sesion, p.almacen);
    if (p.tarifa.value_or(0) > 0) ExigirTarifa(sesion, *p.tarifa);
}

void ExigirSeleccion(const Sesion& sesion, const PeticionListaPrecios& p) {
    const bool reduceArticulos = !p.familias.empty() || !p.buscar.empty();
    if (!p.articulos.codigos.empty() && reduceArticulos) RechazarImposible("articulos", kComoArticulos);
    const bool reduceClientes = p.grupo || p.nodo;
    const int maneras = int{!p.clientes.codigos.empty()} + int{reduceClientes} + int{p.todosLosClientes};
    if (maneras == 0) RechazarImposible("", "falta para qué clientes: {clientes}, {grupo} o {nodo}");
    if (maneras > 1) RechazarImposible("clientes", kComoClientes);
    if (p.grupo) ExigirGrupo(sesion, *p.grupo);
    if (p.nodo) ExigirNodo(sesion, *p.nodo);
}

// The first one, in the order in which they were given, that the base does not have.
void ExigirCodigos(FuenteCodigos fuente, const CodigosPedidos& pedidos, const char* campo, const char* que) {
    std::vector<std::int32_t> hay;
    while (const auto codigo = fuente.Siguiente()) hay.push_back(*codigo);
    for (std::size_t i = 0; i < pedidos.codigos.size(); ++i) {
        if (std::binary_search(hay.begin(), hay.end(), pedidos.codigos[i])) continue;
        const std::string texto = "no existe el " + (que + (" " + std::to_string(pedidos.codigos[i])));
        if (pedidos.fichero.empty()) RechazarNegativa(campo, texto);
        RechazarNegativa("", pedidos.fichero + ", línea " + std::to_string(pedidos.lineas[i]) + ": " + texto);
    }
}

std::string EnUnaLista(const std::vector<std::string>& textos) {
    std::string lista;
    for (const std::string& texto : textos) lista += (lista.empty() ? "" : ", ") + texto;
    return lista;
}

std::string Nombre(const Sesion& sesion, std::string_view consulta) {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, sesion.Cnx(), consulta);
    return rs->Eof() ? "" : AString(rs->Fields("Nombre").Value(), '.');
}

std::string TextoCodigos(const CodigosPedidos& pedidos, const char* cuales) {
    if (!pedidos.fichero.empty()) return "los de " + pedidos.fichero;
    if (pedidos.codigos.size() > 20) return std::to_string(pedidos.codigos.size()) + cuales;
    std::vector<std::string> textos;
    for (const std::int32_t codigo : pedidos.codigos) textos.push_back(std::to_string(codigo));
    return EnUnaLista(textos);
}

std::string TextoArticulos(const PeticionListaPrecios& p) {
    if (!p.articulos.codigos.empty()) return TextoCodigos(p.articulos, " artículos");
    std::vector<std::string> textos;
    for (const Familias& familia : p.familias) {
        std::string texto = "familia " + std::to_string(familia[0]);
        for (std::size_t i = 1; i < familia.size() && familia[i] != 0; ++i) texto += "." + std::to_string(familia[i]);
        textos.push_back(texto);
    }
    if (!p.buscar.empty()) textos.push_back("con «" + p.buscar + "»");
    return textos.empty() ? "todos" : EnUnaLista(textos);
}

std::string TextoClientes(const Sesion& sesion, const PeticionListaPrecios& p) {
    if (p.clientes.codigos.size() == 1) {
        const std::string codigo = std::to_string(p.clientes.codigos[0]);
        return codigo + " " +
               Nombre(sesion, TextoSql("SELECT Nombre FROM Clientes WHERE Cod_Empresa =",
                                       SqlEntero(sesion.Emp().CodEmpresaClientes()), " AND Codigo =", codigo));
    }
    if (!p.clientes.codigos.empty()) return TextoCodigos(p.clientes, " clientes");
    std::vector<std::string> textos;
    if (p.grupo) textos.push_back("grupo " + std::to_string(*p.grupo));
    if (p.nodo) textos.push_back("nodo " + TextoDe(*p.nodo));
    return textos.empty() ? "todos" : EnUnaLista(textos);
}

std::string TextoTerminos(const Sesion& sesion, const PeticionListaPrecios& p) {
    const int tarifa = p.tarifa.value_or(sesion.Emp().TarifaEmpresa());
    std::vector<std::string> textos = {tarifa < 0    ? "a coste"
                                       : tarifa == 0 ? "sin tarifa pedida"
                                                     : "tarifa " + std::to_string(tarifa),
                                       "almacén " + std::to_string(p.almacen)};
    if (p.todos) textos.push_back("también bloqueados y de baja");
    if (p.soloComprados) textos.push_back("solo lo que ha comprado");
    if (p.omitirSinPrecio) textos.push_back("solo con precio");
    if (p.partes > 1) textos.push_back("parte " + std::to_string(p.parte) + " de " + std::to_string(p.partes));
    return EnUnaLista(textos);
}

}  // namespace

PeticionLista PrepararLista(const EstadoFijo& estado, const PeticionListaPrecios& p) {
    const Sesion sesion = estado.Sesion();
    const Puesto& puesto = estado.puestos.front();
    ExigirSeleccion(sesion, p);
    ExigirTerminos(sesion, p);
    PeticionLista lista;
    lista.articulos.codigos = p.articulos.codigos;
    lista.articulos.familias = p.familias;
    if (!p.buscar.empty())
        lista.articulos.busca = [palabras = Palabras(p.buscar)](std::int32_t codigo, const std::string& descripcion) {
            return palabras.Hallan(std::to_string(codigo), descripcion);
        };
    lista.clientes = {p.clientes.codigos, p.grupo, p.nodo};
    ExigirCodigos(FuenteCodigos::DeArticulos(puesto, lista.articulos, false), p.articulos, "articulos", "artículo");
    ExigirCodigos(FuenteCodigos::DeClientes(puesto, lista.clientes), p.clientes, "clientes", "cliente");
    if (!FuenteCodigos::DeArticulos(puesto, lista.articulos, false).Siguiente())
        RechazarNegativa("", "no hay artículos en lo elegido: " + TextoArticulos(p));
    if (!FuenteCodigos::DeClientes(puesto, lista.clientes).Siguiente())
        RechazarNegativa("", "no hay clientes en lo elegido: " + TextoClientes(sesion, p));
    lista.orden = p.orden;
    lista.terminos.fecha = p.fecha.value_or(estado.hoy);
    lista.terminos.tarifa = p.tarifa.value_or(sesion.Emp().TarifaEmpresa());
    lista.terminos.almacen = p.almacen;
    lista.terminos.decimales = p.decimales.value_or(sesion.Emp().DecPrecios());
    if (!p.unidades.empty()) lista.unidades = p.unidades;
    lista.hoy = estado.hoy;
    lista.todos = p.todos;
    lista.omitirSinPrecio = p.omitirSinPrecio;
    lista.soloComprados = p.soloComprados;
    lista.conCoste = p.conCoste;
    lista.parte = p.parte;
    lista.partes = p.partes;
    return lista;
}

std::vector<std::pair<std::string, std::string>> TitulosLista(const EstadoFijo& estado, const PeticionListaPrecios& p) {
    const Sesion sesion = estado.Sesion();
    return {{"Empresa", Nombre(sesion, TextoSql("SELECT Nombre FROM Empresas WHERE Codigo =",
                                                SqlEntero(sesion.Emp().CodEmpresa())))},
            {p.clientes.codigos.size() == 1 ? "Cliente" : "Clientes", TextoClientes(sesion, p)},
            {"Día", p.fecha.value_or(estado.hoy).ATexto().Cadena()},
            {"Artículos", TextoArticulos(p)},
            {"Condiciones", TextoTerminos(sesion, p)},
            {"Precios", "según tarifa, sin calcular impuestos"}};
}

}  // namespace kv::aplicacion
