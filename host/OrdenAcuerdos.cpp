#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <sstream>

#include "db/BibliotecaComun.h"
#include "db/ValoresSql.h"
#include "host/Fallo.h"
#include "host/Lectura.h"
#include "host/Ordenes.h"
#include "host/Sesion.h"
#include "rules/DescuentosAcuerdo.h"
#include "rules/clsClientes_Cadenas_ConvArt.h"

namespace kv::host {
namespace {

struct OpcionesAcuerdo {
    OpcionesComunes comunes;
    std::string articulo;
    std::string nodo;
    std::string fecha;
    std::vector<std::string> descuentos;
    bool sinPadre = false;
};

using Opciones = std::shared_ptr<OpcionesAcuerdo>;

std::vector<std::string> Partir(const std::string& texto, char separador) {
    std::vector<std::string> trozos;
    std::istringstream flujo(texto);
    for (std::string trozo; std::getline(flujo, trozo, separador);) trozos.push_back(trozo);
    return trozos;
}

// "1.1.2": level codes from the top down.
void LeerNodo(clsClientes_Cadenas_ConvArt& acuerdo, const std::string& nodo) {
    std::int16_t* const niveles[] = {&acuerdo.Cod_Nivel1, &acuerdo.Cod_Nivel2, &acuerdo.Cod_Nivel3, &acuerdo.Cod_Nivel4,
                                     &acuerdo.Cod_Nivel5, &acuerdo.Cod_Nivel6, &acuerdo.Cod_Nivel7, &acuerdo.Cod_Nivel8,
                                     &acuerdo.Cod_Nivel9, &acuerdo.Cod_Nivel10};
    const std::vector<std::string> codigos = Partir(nodo, '.');
    if (codigos.empty() || codigos.size() > std::size(niveles))
        throw Fallo(kUso, "--nodo: se esperan de 1 a 10 códigos separados por puntos");
    for (std::size_t i = 0; i < codigos.size(); ++i) *niveles[i] = LeerCodigo("--nodo", codigos[i]);
    acuerdo.Nivel = static_cast<std::int16_t>(codigos.size());
}

// "porcentaje:10", "cascada:5", "importe:1,50", "oferta:5+1", in the order of their slots.
void LeerDescuentos(clsClientes_Cadenas_ConvArt& acuerdo, const std::vector<std::string>& descuentos) {
    if (descuentos.size() > 5) throw Fallo(kUso, "--dto: caben cinco descuentos");
    for (std::size_t i = 0; i < descuentos.size(); ++i) {
        const auto casilla = static_cast<std::int16_t>(i);
        const auto partes = Partir(descuentos[i], ':');
        const std::string clase = partes.size() == 2 ? partes[0] : "";
        if (clase == "oferta") {
            const auto unidades = Partir(partes[1], '+');
            if (unidades.size() != 2) throw Fallo(kUso, "--dto: la oferta se escribe oferta:PAGADAS+GRATIS");
            acuerdo.TipoDto(casilla, kDtoOferta);
            acuerdo.ImporteDto(casilla, LeerImporte("--dto", unidades[0]));
            acuerdo.UnidadesDto(casilla, LeerCodigo("--dto", unidades[1], 0));
        } else if (clase == "porcentaje" || clase == "cascada" || clase == "importe") {
            acuerdo.TipoDto(casilla, clase == "importe" ? kDtoImporte : kDtoPorcentaje);
            acuerdo.ImporteDto(casilla, LeerImporte("--dto", partes[1]));
            acuerdo.AplicarCascada(casilla, clase == "cascada");
        } else {
            throw Fallo(kUso, "--dto: «" + descuentos[i] +
                                  "» no vale; se espera porcentaje:X, cascada:X, importe:X u oferta:N+N");
        }
    }
}

void Preparar(clsClientes_Cadenas_ConvArt& acuerdo, const Sesion& sesion, const OpcionesAcuerdo& o) {
    sesion.Inyectar(acuerdo);
    acuerdo.Cod_Articulo = LeerEntero("--articulo", o.articulo, 1, INT32_MAX);
    LeerNodo(acuerdo, o.nodo);
    LeerDescuentos(acuerdo, o.descuentos);
    acuerdo.DtoPadre = !o.sinPadre;
}

std::string TextoAcuerdos(const Sesion& sesion, std::int32_t articulo) {
    return TextoSql(
        "SELECT Cod_Nivel1, Cod_Nivel2, Cod_Nivel3, Cod_Nivel4, FechaEntrada, FechaSalida, PBase, TDto1, ImporteDto1,"
        " CantidadDto1, Aplicar_Cascada1, TDto2, ImporteDto2, CantidadDto2, Aplicar_Cascada2, Dto_Padre FROM"
        " Clientes_Cadenas_ConvArt WHERE Cod_Empresa =",
        SqlEntero(sesion.Emp().CodEmpresa()), " AND Cod_Articulo =", SqlEntero(articulo),
        " ORDER BY Cod_Nivel1, Cod_Nivel2, Cod_Nivel3, Cod_Nivel4, FechaEntrada");
}

std::size_t EscribirAcuerdos(Sesion& sesion, std::int32_t articulo) {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, sesion.Cnx(), TextoAcuerdos(sesion, articulo));
    return sesion.respuesta.TablaDe("acuerdos", *rs);
}

void Ver(const OpcionesAcuerdo& o) {
    const std::int32_t articulo = LeerEntero("--articulo", o.articulo, 1, INT32_MAX);
    const Fecha fecha = o.fecha.empty() ? Biblioteca().Hoy() : LeerFecha("--fecha", o.fecha);
    Sesion sesion(o.comunes, true);
    if (!o.nodo.empty()) {
        clsClientes_Cadenas_ConvArt acuerdo;
        Preparar(acuerdo, sesion, o);
        sesion.respuesta.Dato("nodo", "Nodo " + o.nodo, acuerdo.Dev_CadenaConvenio_Nivel(fecha));
    }
    if (EscribirAcuerdos(sesion, articulo) == 0) throw Fallo(kNegativo, "el artículo no tiene acuerdos");
    sesion.Escribir(std::cout);
}

void Escribir(const OpcionesAcuerdo& o, void (clsClientes_Cadenas_ConvArt::*metodo)(), const char* hecho) {
    Sesion sesion(o.comunes, false);
    clsClientes_Cadenas_ConvArt acuerdo;
    Preparar(acuerdo, sesion, o);
    (acuerdo.*metodo)();
    sesion.respuesta.Linea(hecho);
    EscribirAcuerdos(sesion, acuerdo.Cod_Articulo);
    sesion.Escribir(std::cout);
}

CLI::App* Anadir(CLI::App& acuerdos, const Opciones& o, const char* nombre, const char* ayuda, bool conDescuentos) {
    CLI::App* orden = acuerdos.add_subcommand(nombre, ayuda);
    o->comunes.Anadir(*orden);
    orden->add_option("--articulo", o->articulo, "Código del artículo")->required()->type_name("N");
    orden->add_option("--nodo", o->nodo, "Nodo de la cadena, de arriba abajo (1.1.2)")->type_name("NODO");
    if (!conDescuentos) return orden;
    orden->add_option("--dto", o->descuentos, "porcentaje:X, cascada:X, importe:X u oferta:N+N; hasta cinco")
        ->type_name("DTO");
    orden->add_flag("--sin-padre", o->sinPadre, "No se aplican además los acuerdos del nodo superior");
    return orden;
}

}  // namespace

void AnadirAcuerdos(CLI::App& programa) {
    CLI::App* acuerdos = programa.add_subcommand("acuerdos", "Acuerdos de las cadenas de clientes");
    acuerdos->require_subcommand(1);
    const auto o = std::make_shared<OpcionesAcuerdo>();
    using Clase = clsClientes_Cadenas_ConvArt;
    CLI::App* ver = Anadir(*acuerdos, o, "ver", "Los de un artículo; con --nodo, además el texto del suyo", false);
    ver->add_option("--fecha", o->fecha, "Hoy si no se dice")->type_name("FECHA");
    ver->callback([o] { Ver(*o); });
    CLI::App* poner = Anadir(*acuerdos, o, "poner", "Pone uno desde hoy y sin fin", true);
    poner->callback([o] { Escribir(*o, &Clase::Insertar, "Acuerdo puesto"); });
    CLI::App* cambiar = Anadir(*acuerdos, o, "cambiar", "Cambia los descuentos de todos los de un nodo", true);
    cambiar->callback([o] { Escribir(*o, &Clase::Modificar, "Acuerdos cambiados"); });
    CLI::App* quitar = Anadir(*acuerdos, o, "quitar", "Quita todos los de un nodo", false);
    quitar->callback([o] { Escribir(*o, &Clase::Eliminar, "Acuerdos quitados"); });
    for (CLI::App* orden : {poner, cambiar, quitar}) orden->get_option("--nodo")->required();
}

}  // namespace kv::host
