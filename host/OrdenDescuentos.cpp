#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>

#include "host/Fallo.h"
#include "host/Lectura.h"
#include "host/Ordenes.h"
#include "host/Sesion.h"
#include "rules/clsCliente_DtosFamilias.h"
#include "rules/clsCliente_Grp_Dtos.h"

namespace kv::host {
namespace {

struct OpcionesDescuento {
    OpcionesComunes comunes;
    std::string cliente;
    std::string grupo;
    std::string clave;
    std::string descuento;
    std::string minimo = "0";
    std::string maximo = "0";
};

using Opciones = std::shared_ptr<OpcionesDescuento>;

// Family levels that the company uses, by its captions.
std::int16_t NumNiveles(const kv::cEmpresa& empresa) {
    if (!empresa.CaptionFamilia(2).empty()) return 3;
    return empresa.CaptionFamilia(1).empty() ? 1 : 2;
}

template <class Clase>
void LeerClave(Clase& objeto, const Sesion& sesion, const OpcionesDescuento& o) {
    objeto.NumNiveles = NumNiveles(sesion.Emp());
    const auto guiones = std::count(o.clave.begin(), o.clave.end(), '-');
    if (guiones != 4 || o.clave.find_first_not_of("0123456789-") != std::string::npos)
        throw Fallo(kUso, "--clave: «" + o.clave + "» no vale; se espera artículo-nivel-familia1-familia2-familia3");
    objeto.Calcula_Nivel(o.clave);
    if (objeto.Nivel < 1 || objeto.Nivel > objeto.NumNiveles + 1)
        throw Fallo(kUso, "--clave: el nivel va de 1 a " + std::to_string(objeto.NumNiveles + 1));
}

void PrepararFamilia(clsCliente_DtosFamilias& dtos, const Sesion& sesion, const OpcionesDescuento& o) {
    sesion.Inyectar(dtos);
    dtos.Cliente = LeerEntero("--cliente", o.cliente, 1, INT32_MAX);
    LeerClave(dtos, sesion, o);
}

void PrepararGrupo(clsCliente_Grp_Dtos& dtos, const Sesion& sesion, const OpcionesDescuento& o) {
    sesion.Inyectar(dtos);
    dtos.Cod_Grupo = LeerCodigo("--grupo", o.grupo);
    LeerClave(dtos, sesion, o);
    dtos.Unidades_Min = LeerImporte("--minimo", o.minimo);
    dtos.Unidades_Max = LeerImporte("--maximo", o.maximo);
    if (dtos.Unidades_Max < dtos.Unidades_Min) throw Fallo(kUso, "--maximo es menor que --minimo");
}

double LeerPorcentaje(const std::string& texto) {
    const double porcentaje = LeerImporte("--descuento", texto).ADouble();
    if (porcentaje < 0 || porcentaje > 100) throw Fallo(kUso, "--descuento: va de 0 a 100");
    return porcentaje;
}

void Responder(Sesion& sesion, const OpcionesDescuento& o, const char* hecho) {
    sesion.respuesta.Linea(hecho);
    sesion.respuesta.Dato("clave", "Clave", o.clave);
    if (!o.descuento.empty()) sesion.respuesta.Dato("descuento", "Descuento %", LeerPorcentaje(o.descuento));
    sesion.Escribir(std::cout);
}

void ListarFamilia(const OpcionesDescuento& o) {
    const std::int32_t cliente = LeerEntero("--cliente", o.cliente, 1, INT32_MAX);
    Sesion sesion(o.comunes, true);
    clsCliente_DtosFamilias dtos;
    sesion.Inyectar(dtos);
    dtos.Cliente = cliente;
    const auto rs = dtos.Cargar_Todos();
    if (sesion.respuesta.TablaDe("descuentos", *rs) == 0) throw Fallo(kNegativo, "el cliente no tiene descuentos");
    sesion.Escribir(std::cout);
}

void ListarGrupo(const OpcionesDescuento& o) {
    const std::int16_t grupo = LeerCodigo("--grupo", o.grupo);
    Sesion sesion(o.comunes, true);
    clsCliente_Grp_Dtos dtos;
    sesion.Inyectar(dtos);
    dtos.Cod_Grupo = grupo;
    const auto rs = dtos.Cargar_Todos();
    if (sesion.respuesta.TablaDe("descuentos", *rs) == 0) throw Fallo(kNegativo, "el grupo no tiene descuentos");
    sesion.Escribir(std::cout);
}

void ConFamilia(const OpcionesDescuento& o, void (clsCliente_DtosFamilias::*metodo)(), const char* hecho) {
    const double porcentaje = o.descuento.empty() ? 0 : LeerPorcentaje(o.descuento);
    Sesion sesion(o.comunes, false);
    clsCliente_DtosFamilias dtos;
    PrepararFamilia(dtos, sesion, o);
    dtos.Descuento = porcentaje;
    (dtos.*metodo)();
    Responder(sesion, o, hecho);
}

// A range is stored only when no other one of the same key overlaps it.
void PonerGrupo(const OpcionesDescuento& o) {
    const double porcentaje = LeerPorcentaje(o.descuento);
    Sesion sesion(o.comunes, false);
    clsCliente_Grp_Dtos dtos;
    PrepararGrupo(dtos, sesion, o);
    dtos.Descuento = porcentaje;
    sesion.EnTransaccion([&] {
        Currency minimo;
        Currency maximo;
        if (dtos.Comprobar_Encajados(minimo, maximo))
            throw Fallo(kNegativo, "el tramo se solapa con el de " + minimo.ATexto('.').Cadena() + " a " +
                                       maximo.ATexto('.').Cadena() + " y no se ha puesto");
        dtos.Insertar();
    });
    Responder(sesion, o, "Descuento puesto");
}

// The discount row and the group's mark are two statements.
void ConGrupo(const OpcionesDescuento& o, void (clsCliente_Grp_Dtos::*metodo)(), const char* hecho) {
    const double porcentaje = o.descuento.empty() ? 0 : LeerPorcentaje(o.descuento);
    Sesion sesion(o.comunes, false);
    clsCliente_Grp_Dtos dtos;
    PrepararGrupo(dtos, sesion, o);
    dtos.Descuento = porcentaje;
    sesion.EnTransaccion([&] { (dtos.*metodo)(); });
    Responder(sesion, o, hecho);
}

CLI::App* Anadir(CLI::App& familia, const Opciones& o, const char* nombre, const char* ayuda, bool deGrupo,
                 bool conClave, bool conDescuento) {
    CLI::App* orden = familia.add_subcommand(nombre, ayuda);
    o->comunes.Anadir(*orden);
    if (deGrupo)
        orden->add_option("--grupo", o->grupo, "Código del grupo")->required()->type_name("N");
    else
        orden->add_option("--cliente", o->cliente, "Código del cliente")->required()->type_name("N");
    if (!conClave) return orden;
    orden->add_option("--clave", o->clave, "artículo-nivel-familia1-familia2-familia3 (0-2-3-12-0)")
        ->required()
        ->type_name("CLAVE");
    if (deGrupo) {
        orden->add_option("--minimo", o->minimo, "Primera cantidad del tramo (0 a 0: cualquiera)")->type_name("X");
        orden->add_option("--maximo", o->maximo, "Última cantidad del tramo")->type_name("X");
    }
    if (conDescuento) orden->add_option("--descuento", o->descuento, "Porcentaje")->required()->type_name("X");
    return orden;
}

}  // namespace

void AnadirDescuentos(CLI::App& programa) {
    const auto o = std::make_shared<OpcionesDescuento>();
    CLI::App* familia = programa.add_subcommand("dto-familia", "Descuentos de un cliente por familia o artículo");
    familia->require_subcommand(1);
    Anadir(*familia, o, "listar", "Los del cliente", false, false, false)->callback([o] { ListarFamilia(*o); });
    Anadir(*familia, o, "poner", "Pone uno", false, true, true)->callback([o] {
        ConFamilia(*o, &clsCliente_DtosFamilias::Insertar, "Descuento puesto");
    });
    Anadir(*familia, o, "cambiar", "Cambia el porcentaje de uno", false, true, true)->callback([o] {
        ConFamilia(*o, &clsCliente_DtosFamilias::Modificar, "Descuento cambiado, si lo había");
    });
    Anadir(*familia, o, "quitar", "Quita uno", false, true, false)->callback([o] {
        ConFamilia(*o, &clsCliente_DtosFamilias::Eliminar, "Descuento quitado, si lo había");
    });
    CLI::App* grupo = programa.add_subcommand("dto-grupo", "Descuentos de un grupo por familia, artículo y tramo");
    grupo->require_subcommand(1);
    Anadir(*grupo, o, "listar", "Los del grupo", true, false, false)->callback([o] { ListarGrupo(*o); });
    Anadir(*grupo, o, "poner", "Pone uno, si su tramo no se solapa", true, true, true)->callback([o] {
        PonerGrupo(*o);
    });
    Anadir(*grupo, o, "cambiar", "Cambia el porcentaje de uno", true, true, true)->callback([o] {
        ConGrupo(*o, &clsCliente_Grp_Dtos::Modificar, "Descuento cambiado, si lo había");
    });
    Anadir(*grupo, o, "quitar", "Quita uno", true, true, false)->callback([o] {
        ConGrupo(*o, &clsCliente_Grp_Dtos::Eliminar, "Descuento quitado, si lo había");
    });
}

}  // namespace kv::host
