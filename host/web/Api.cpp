#include "kvdatosart/host/web/Api.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <thread>

#include "kvdatosart/application/Averias.h"
#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/BibliotecaComun.h"
#include "kvdatosart/db/Transaccion.h"
#include "kvdatosart/host/Documentos.h"
#include "kvdatosart/host/EscribirJson.h"
#include "kvdatosart/host/web/Consulta.h"
#include "kvdatosart/host/web/Limites.h"

namespace kv::host {
namespace {

using aplicacion::Rechazo;
using C = aplicacion::ClaseDato;

void Sesion(Consulta& c) {
    c.parametros.Terminar();
    const cEmpresa& empresa = c.sesion.Emp();
    const std::string& fichero = c.ajustes.base.fichero;
    Documento& d = c.documento;
    d.Dato("version", "", std::string(KV_VERSION));
    d.Dato("base", "", fichero.empty() ? Valor(Nulo{}) : Valor(std::filesystem::path(fichero).filename().string()));
    d.Dato("odbc", "", fichero.empty(), C::Logico);
    d.Dato("empresa", "", empresa.CodEmpresa(), C::Codigo);
    d.Dato("nombre", "", NombreEmpresa(c.sesion));
    d.Dato("hoy", "", c.sesion.Hoy(), C::Fecha);
    d.Dato("tarifa", "", empresa.TarifaEmpresa(), C::Codigo);
    d.Dato("decimales", "", empresa.DecPrecios(), C::Cantidad);
    d.Dato("venderSinStock", "", empresa.VenderSinStock(), C::Logico);
    constexpr std::array<const char*, 3> kFamilias = {"familia1", "familia2", "familia3"};
    for (std::int16_t i = 0; i < 3; ++i) {
        const std::string rotulo = empresa.CaptionFamilia(i);
        d.Dato(kFamilias[static_cast<std::size_t>(i)], "", rotulo.empty() ? Valor(Nulo{}) : Valor(rotulo));
    }
    d.Dato("conCoste", "", c.ajustes.conCoste, C::Logico);
    d.Dato("limiteHallados", "", kMaximoHallados, C::Cantidad);
    d.Dato("limitePagina", "", kMaximoPagina, C::Cantidad);
    d.Dato("limiteDescarga", "", kMaximoDescarga, C::Cantidad);
    d.Dato("limiteSegundos", "", static_cast<std::int32_t>(kMaximoPregunta.count()), C::Cantidad);
}

// The terms of a line, which a price and its history share.
template <class Peticion>
void LeerLinea(Consulta& c, Peticion& p) {
    c.parametros.Exige("articulo", p.articulo)
        .Exige("cliente", p.cliente)
        .Admite("tarifa", p.tarifa, Rango{-1, INT16_MAX})
        .Admite("almacen", p.almacen)
        .Admite("decimales", p.decimales, Rango{0, 4})
        .Admite("unidades", p.unidades)
        .Admite("cualidadX", p.cualidadX)
        .Admite("cualidadY", p.cualidadY);
    p.conCoste = c.ajustes.conCoste;
}

void Cargar(Consulta& c) {
    aplicacion::PeticionCarga p;
    LeerLinea(c, p);
    c.parametros.Admite("fecha", p.fecha).Terminar();
    p.explica = true;
    Documentar(c.documento, Cargar(c.sesion, p));
}

void Historia(Consulta& c) {
    aplicacion::PeticionHistoriaDe p;
    LeerLinea(c, p);
    c.parametros.Admite("desde", p.desde).Admite("hasta", p.hasta).Terminar();
    Documentar(c.documento, HistoriaDe(c.sesion, p));
}

void Existencias(Consulta& c) {
    aplicacion::PeticionExistencias p;
    c.parametros.Exige("articulo", p.articulo).Terminar();
    p.conCoste = c.ajustes.conCoste;
    Documentar(c.documento, VerExistencias(c.sesion, p));
}

void Precios(Consulta& c) {
    aplicacion::PeticionTarifasDe p;
    c.parametros.Exige("articulo", p.articulo).Admite("tarifa", p.tarifa).Admite("fecha", p.fecha).Terminar();
    Documentar(c.documento, TarifasDe(c.sesion, p));
}

void Propios(Parametros&, aplicacion::PeticionListado&) {}
void Propios(Parametros& parametros, aplicacion::PeticionArticulos& p) {
    parametros.Admite("familia", p.familia);
}
void Propios(Parametros& parametros, aplicacion::PeticionClientes& p) {
    parametros.Admite("grupo", p.grupo).Admite("nodo", p.nodo);
}

template <class Peticion, aplicacion::RespuestaListado (*Listar)(const aplicacion::Sesion&, const Peticion&)>
void Listado(Consulta& c) {
    Peticion p;
    p.limite = kHallados;
    Propios(c.parametros, p);
    c.parametros.Admite("texto", p.texto).Admite("limite", p.limite, Rango{1, kMaximoHallados}).Terminar();
    const aplicacion::RespuestaListado hay = Listar(c.sesion, p);
    if (hay.hallados > hay.tabla.filas.size()) c.respuesta.limite = "lineas";
    Documentar(c.documento, hay);
}

struct Direccion {
    const char* ruta;
    void (*contestar)(Consulta&);
    /// Begins a transaction of its own.
    bool fijaEstado = false;
};

using aplicacion::PeticionListado;

constexpr Direccion kDirecciones[] = {
    {"/api/cargar", Cargar},
    {"/api/historia", Historia, true},
    {"/api/lista", ContestarLista},
    {"/api/lista.csv", ContestarListaCsv},
    {"/api/lista.xlsx", ContestarListaXlsx},
    {"/api/sesion", Sesion},
    {"/api/articulos", Listado<aplicacion::PeticionArticulos, aplicacion::ListarArticulos>},
    {"/api/clientes", Listado<aplicacion::PeticionClientes, aplicacion::ListarClientes>},
    {"/api/tarifas", Listado<PeticionListado, aplicacion::ListarTarifas>},
    {"/api/almacenes", Listado<PeticionListado, aplicacion::ListarAlmacenes>},
    {"/api/grupos", Listado<PeticionListado, aplicacion::ListarGrupos>},
    {"/api/cadenas", Listado<PeticionListado, aplicacion::ListarCadenas>},
    {"/api/empresas", Listado<PeticionListado, aplicacion::ListarEmpresas>},
    {"/api/existencias", Existencias},
    {"/api/precios", Precios},
};

// {hasta} is the parameter of that name here.
std::string SinLlaves(std::string texto) {
    std::erase_if(texto, [](char c) { return c == '{' || c == '}'; });
    return texto;
}

// What the numbers of the question bring about in the computation, as opposed to a database that fails.
bool EsDeCalculo(const RuntimeError& error) {
    return error.numero == kErrDesbordamiento || error.numero == kErrDivisionPorCero || error.numero == kErrTipo;
}

std::size_t Conexiones() {
    return std::clamp(2 * std::thread::hardware_concurrency(), 4U, 16U);
}

}  // namespace

Contestacion Negar(int estado, const std::string& mensaje, const std::string& campo) {
    const int codigo = estado >= 500 ? 3 : estado == 403 || estado == 404 ? 1 : 2;
    Contestacion respuesta;
    respuesta.estado = estado;
    respuesta.cuerpo = ErrorAJson(codigo, mensaje, campo);
    return respuesta;
}

Api::Api(AjustesApi ajustes) : ajustes_(std::move(ajustes)), reserva_(ajustes_.base, Conexiones()) {
    Reserva::Prestamo prestamo(reserva_);
    aplicacion::LeerEmpresa(*prestamo.Conexion(), ajustes_.empresa);
}

Contestacion Api::Contestar(const std::string& ruta, const std::string& consulta) {
    try {
        return Preguntar(ruta, consulta);
    } catch (const Rechazo& rechazo) {
        const bool imposible = rechazo.clase == Rechazo::Clase::Imposible;
        return Negar(imposible ? 400 : 404, SinLlaves(rechazo.what()), rechazo.campo);
    } catch (const SinConexiones& ocupado) {
        return Negar(503, ocupado.what());
    } catch (const RuntimeError& error) {
        return Fallida(error);
    } catch (const std::exception& error) {
        ajustes_.avisar(error.what());
        return Negar(500, "el servidor ha fallado; su programa dice por qué");
    }
}

Contestacion Api::Preguntar(const std::string& ruta, const std::string& consulta) {
    const auto* direccion = std::find_if(std::begin(kDirecciones), std::end(kDirecciones),
                                         [&](const Direccion& d) { return ruta == d.ruta; });
    if (direccion == std::end(kDirecciones)) return Negar(404, "no hay nada en «" + ruta + "»");
    Parametros parametros(consulta);
    std::int16_t empresa = ajustes_.empresa;
    parametros.Admite("empresa", empresa);
    const Fecha hoy = ajustes_.hoy ? *ajustes_.hoy : Biblioteca().Hoy();
    const HoyFijado fijado(hoy);
    Reserva::Prestamo prestamo(reserva_);
    try {
        std::optional<Transaccion> estado;
        // A server goes on answering after a failed procedure only outside a transaction.
        if (ajustes_.base.odbc.empty() && !direccion->fijaEstado) estado.emplace(*prestamo.Conexion());
        const auto& conexion = prestamo.Conexion();
        const aplicacion::Sesion sesion(conexion, aplicacion::LeerEmpresa(*conexion, empresa), hoy);
        Consulta c{ajustes_, sesion, parametros, cerrada_};
        direccion->contestar(c);
        if (c.respuesta.cuerpo.empty()) c.respuesta.cuerpo = AJson(c.documento);
        return c.respuesta;
    } catch (const RuntimeError& error) {
        if (!EsDeCalculo(error)) prestamo.Desechar();
        throw;
    }
}

Contestacion Api::Fallida(const RuntimeError& error) const {
    if (EsDeCalculo(error)) return Negar(400, "con esos números la línea no se puede calcular: " + error.descripcion);
    ajustes_.avisar(SinLlaves(aplicacion::Averia(ajustes_.base, error).what()));
    return Negar(500, "la base de datos ha fallado; el programa que la sirve dice por qué");
}

}  // namespace kv::host
