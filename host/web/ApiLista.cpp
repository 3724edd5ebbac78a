#include <chrono>
#include <filesystem>
#include <fstream>

#include "kvdatosart/application/CarpetaPrivada.h"
#include "kvdatosart/application/ColumnasLista.h"
#include "kvdatosart/application/EstadoFijo.h"
#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/base/Ruta.h"
#include "kvdatosart/host/EscribirJson.h"
#include "kvdatosart/host/EscritorFilas.h"
#include "kvdatosart/host/EscritorXlsx.h"
#include "kvdatosart/host/LecturaLista.h"
#include "kvdatosart/host/web/Consulta.h"
#include "kvdatosart/host/web/Limites.h"

namespace kv::host {
namespace {

using aplicacion::FilasLista;
using aplicacion::PeticionListaPrecios;
using Reloj = std::chrono::steady_clock;

/// Ends a list before its last line.
struct Corte {
    const char* limite;
};

/// Takes so many rows of a list after the first ones, in the time that a question has.
class Ventana : public DestinoLista {
  public:
    Ventana(const Consulta& consulta, FilasLista& filas, FilasLista::AlRecibir recibe)
        : consulta_(consulta), filas_(filas), recibe_(std::move(recibe)) {}

    std::uint64_t saltar = 0, lineas = kMaximoDescarga;

    void Linea(const LineaLista& linea) override {
        if (vistas_ >= saltar + lineas) throw Corte{"lineas"};
        if (vistas_++ >= saltar) filas_.Poner(linea, recibe_);
    }
    void Progreso(std::uint64_t, std::uint64_t) override {
        if (consulta_.cerrada || Reloj::now() - comienzo_ > kMaximoPregunta) throw Corte{"tiempo"};
    }

  private:
    const Consulta& consulta_;
    FilasLista& filas_;
    FilasLista::AlRecibir recibe_;
    std::uint64_t vistas_ = 0;
    Reloj::time_point comienzo_ = Reloj::now();
};

std::vector<std::string> PorComas(const std::string& texto) {
    std::vector<std::string> partes(1);
    for (const char c : texto) {
        if (c == ',')
            partes.emplace_back();
        else
            partes.back() += c;
    }
    return partes;
}

bool LeerMarca(const std::string& campo, const std::string& texto) {
    if (texto != "1") aplicacion::RechazarImposible(campo, "«" + texto + "» no vale; se espera 1, o que no se dé");
    return true;
}

PeticionListaPrecios LeerLista(Consulta& c) {
    PeticionListaPrecios p;
    std::string articulos, familias, clientes, orden, todos, omitir, comprados;
    c.parametros.Admite("articulos", articulos)
        .Admite("familias", familias)
        .Admite("buscar", p.buscar)
        .Admite("clientes", clientes)
        .Admite("grupo", p.grupo)
        .Admite("nodo", p.nodo)
        .Admite("fecha", p.fecha)
        .Admite("tarifa", p.tarifa, Rango{-1, INT16_MAX})
        .Admite("almacen", p.almacen)
        .Admite("decimales", p.decimales, Rango{0, 4})
        .Admite("unidades", p.unidades.emplace_back(Currency::DeEntero(1)))
        .Admite("orden", orden)
        .Admite("todos", todos)
        .Admite("omitirSinPrecio", omitir)
        .Admite("soloComprados", comprados);
    if (!articulos.empty()) p.articulos = LeerCodigos("articulos", PorComas(articulos));
    if (!familias.empty())
        for (const std::string& familia : PorComas(familias)) p.familias.push_back(LeerFamilias("familias", familia));
    p.todosLosClientes = clientes == "todos";
    if (!clientes.empty() && !p.todosLosClientes) p.clientes = LeerCodigos("clientes", PorComas(clientes));
    if (!orden.empty()) p.orden = LeerOrdenLista("orden", orden);
    p.todos = !todos.empty() && LeerMarca("todos", todos);
    p.omitirSinPrecio = !omitir.empty() && LeerMarca("omitirSinPrecio", omitir);
    p.soloComprados = !comprados.empty() && LeerMarca("soloComprados", comprados);
    p.conCoste = c.ajustes.conCoste;
    return p;
}

aplicacion::EstadoFijo EstadoDe(const Consulta& c) {
    return {{c.sesion.EnPuesto()}, c.sesion.Hoy(), !c.ajustes.base.odbc.empty()};
}

void Hacer(const Consulta& c, const PeticionListaPrecios& peticion, Ventana& ventana) {
    const aplicacion::EstadoFijo estado = EstadoDe(c);
    HacerLista(estado.puestos, PrepararLista(estado, peticion), ventana);
}

// A file is whole or there is none.
void Bajar(const Consulta& c, const PeticionListaPrecios& peticion, FilasLista& filas, EscritorFilas& escritor) {
    Ventana ventana(c, filas, [&](std::span<const Valor> fila) { escritor.Fila(fila); });
    try {
        Hacer(c, peticion, ventana);
    } catch (const Corte&) {
        aplicacion::RechazarImposible("", "la lista es demasiado larga para bajarla de aquí: pasa de " +
                                              std::to_string(kMaximoDescarga) + " líneas o de " +
                                              std::to_string(kMaximoPregunta.count()) +
                                              " segundos; la orden kvdatosart lista no tiene ese límite");
    }
    escritor.Acabar();
}

}  // namespace

void ContestarLista(Consulta& c) {
    const PeticionListaPrecios peticion = LeerLista(c);
    FilasLista filas(peticion, {}, FilasLista::Forma::Ancha);
    aplicacion::Tabla tabla{"lineas", filas.Columnas()};
    Ventana ventana(c, filas, [&](std::span<const Valor> fila) { tabla.filas.emplace_back(fila.begin(), fila.end()); });
    std::int32_t saltar = 0, lineas = kLineasPagina;
    c.parametros.Admite("saltar", saltar, Rango{0, INT32_MAX - kMaximoPagina})
        .Admite("lineas", lineas, Rango{1, kMaximoPagina})
        .Terminar();
    ventana.saltar = static_cast<std::uint64_t>(saltar);
    ventana.lineas = static_cast<std::uint64_t>(lineas);
    try {
        Hacer(c, peticion, ventana);
    } catch (const Corte& corte) {
        c.respuesta.limite = corte.limite;
    }
    const auto cuantas = static_cast<std::int32_t>(tabla.filas.size());
    c.documento.Anadir({std::move(tabla), ""});
    c.documento.Dato("siguiente", "", c.respuesta.limite == "lineas" ? Valor(saltar + cuantas) : Valor(Nulo{}));
    c.documento.Dato("limite", "", c.respuesta.limite.empty() ? Valor(Nulo{}) : Valor(c.respuesta.limite));
    // The columns go with this function.
    c.respuesta.cuerpo = AJson(c.documento);
}

void ContestarListaCsv(Consulta& c) {
    const PeticionListaPrecios peticion = LeerLista(c);
    std::string excel;
    c.parametros.Admite("excel", excel).Terminar();
    const EstiloCsv estilo = !excel.empty() && LeerMarca("excel", excel) ? EstiloCsv::Excel : EstiloCsv::Rfc;
    FilasLista filas(peticion, {}, FilasLista::Forma::Ancha);
    const auto escritor =
        EscritorCsv(filas.Columnas(), estilo, [&](std::string_view trozo) { c.respuesta.cuerpo += trozo; });
    Bajar(c, peticion, filas, *escritor);
    c.respuesta.tipo = "text/csv; charset=utf-8";
    c.respuesta.fichero = "lista.csv";
}

void ContestarListaXlsx(Consulta& c) {
    const PeticionListaPrecios peticion = LeerLista(c);
    c.parametros.Terminar();
    const aplicacion::CarpetaPrivada carpeta("el libro");
    FilasLista filas(peticion, {}, FilasLista::Forma::Ancha);
    const auto escritor = EscritorXlsx(filas.Columnas(), TitulosLista(EstadoDe(c), peticion),
                                       peticion.decimales.value_or(c.sesion.Emp().DecPrecios()),
                                       NombreDeRuta(carpeta.Fichero("lista.xlsx")));
    Bajar(c, peticion, filas, *escritor);
    std::ifstream fichero(carpeta.Fichero("lista.xlsx"), std::ios::binary);
    c.respuesta.cuerpo.assign(std::istreambuf_iterator<char>(fichero), {});
    c.respuesta.tipo = "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet";
    c.respuesta.fichero = "lista.xlsx";
}

}  // namespace kv::host
