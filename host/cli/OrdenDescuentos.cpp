#include "kvdatosart/application/Descuentos.h"
#include "kvdatosart/host/cli/Orden.h"
#include "kvdatosart/host/cli/Ordenes.h"

namespace kv::host {
namespace {

using aplicacion::Acceso;
using aplicacion::ClaveDtoFamilia;
using aplicacion::ClaveDtoGrupo;
using aplicacion::PeticionDtoFamilia;
using aplicacion::PeticionDtoGrupo;

template <class Peticion>
Orden<Peticion> DeCliente(CLI::App& familia, const char* nombre, const char* ayuda) {
    Orden<Peticion> orden(familia, nombre, ayuda);
    orden.Exige("cliente", &Peticion::cliente, "N", "Código del cliente");
    return orden;
}

template <class Peticion>
Orden<Peticion> DeGrupo(CLI::App& grupo, const char* nombre, const char* ayuda) {
    Orden<Peticion> orden(grupo, nombre, ayuda);
    orden.Exige("grupo", &Peticion::grupo, "N", "Código del grupo");
    return orden;
}

template <class Peticion>
Orden<Peticion> ConClave(Orden<Peticion> orden) {
    orden.Exige("clave", &Peticion::clave, "CLAVE", "artículo-nivel-familia1-familia2-familia3 (0-2-3-12-0)");
    return orden;
}

template <class Peticion>
Orden<Peticion> ConTramo(Orden<Peticion> orden) {
    orden.Admite("minimo", &Peticion::minimo, "X", "Primera cantidad del tramo (0 a 0: cualquiera)")
        .Admite("maximo", &Peticion::maximo, "X", "Última cantidad del tramo");
    return orden;
}

template <class Peticion>
Orden<Peticion> ConDescuento(Orden<Peticion> orden) {
    orden.Exige("descuento", &Peticion::descuento, "X", "Porcentaje");
    return orden;
}

template <class Peticion>
Orden<Peticion>& ConFiltro(Orden<Peticion>& orden) {
    return orden.Admite("articulo", &Peticion::articulo, "N", "Solo los de este artículo")
        .Admite("familia", &Peticion::familia, "FAMILIA", "Solo los de esta familia y sus subfamilias (1.2)");
}

void AnadirFamilia(CLI::App& programa) {
    CLI::App* familia = programa.add_subcommand("dto-familia", "Descuentos de un cliente por familia o artículo");
    familia->require_subcommand(1);
    auto listar = DeCliente<aplicacion::PeticionDtosFamilia>(*familia, "listar", "Los del cliente");
    ConFiltro(listar).Responde(Acceso::Leer, aplicacion::ListarDtosFamilia);
    ConDescuento(ConClave(DeCliente<PeticionDtoFamilia>(*familia, "poner", "Pone uno")))
        .Responde(Acceso::Escribir, aplicacion::PonerDtoFamilia, "Descuento puesto");
    ConDescuento(ConClave(DeCliente<PeticionDtoFamilia>(*familia, "cambiar", "Cambia el porcentaje de uno")))
        .Responde(Acceso::Escribir, aplicacion::CambiarDtoFamilia, "Descuento cambiado");
    ConClave(DeCliente<ClaveDtoFamilia>(*familia, "quitar", "Quita uno"))
        .Responde(Acceso::Escribir, aplicacion::QuitarDtoFamilia, "Descuento quitado");
}

void AnadirGrupo(CLI::App& programa) {
    CLI::App* grupo = programa.add_subcommand("dto-grupo", "Descuentos de un grupo por familia, artículo y tramo");
    grupo->require_subcommand(1);
    auto listar = DeGrupo<aplicacion::PeticionDtosGrupo>(*grupo, "listar", "Los del grupo");
    ConFiltro(listar).Responde(Acceso::Leer, aplicacion::ListarDtosGrupo);
    ConDescuento(ConTramo(ConClave(DeGrupo<PeticionDtoGrupo>(*grupo, "poner", "Pone uno, si su tramo no se solapa"))))
        .Responde(Acceso::Escribir, aplicacion::PonerDtoGrupo, "Descuento puesto");
    ConDescuento(ConTramo(ConClave(DeGrupo<PeticionDtoGrupo>(*grupo, "cambiar", "Cambia el porcentaje de uno"))))
        .Responde(Acceso::Escribir, aplicacion::CambiarDtoGrupo, "Descuento cambiado");
    ConTramo(ConClave(DeGrupo<ClaveDtoGrupo>(*grupo, "quitar", "Quita uno")))
        .Responde(Acceso::Escribir, aplicacion::QuitarDtoGrupo, "Descuento quitado");
}

}  // namespace

void AnadirDescuentos(CLI::App& programa) {
    AnadirFamilia(programa);
    AnadirGrupo(programa);
}

}  // namespace kv::host
