#include "application/Descuentos.h"

#include <memory>

#include "application/Rechazo.h"
#include "db/Transaccion.h"
#include "rules/clsCliente_DtosFamilias.h"
#include "rules/clsCliente_Grp_Dtos.h"

namespace kv::aplicacion {
namespace {

constexpr ColumnaTabla kDtosFamilia[] = {
    {"Nivel", "nivel", "Nivel", ClaseDato::Codigo},
    {"Familia_1", "familia1", "Familia 1", ClaseDato::Codigo},
    {"Familia_2", "familia2", "Familia 2", ClaseDato::Codigo},
    {"Familia_3", "familia3", "Familia 3", ClaseDato::Codigo},
    {"Cod_Articulo", "articulo", "Artículo", ClaseDato::Codigo},
    {"Nombre", "nombre", "Nombre"},
    {"Descuento", "descuento", "Descuento %", ClaseDato::Porcentaje},
};

constexpr ColumnaTabla kDtosGrupo[] = {
    {"Nivel", "nivel", "Nivel", ClaseDato::Codigo},
    {"Familia_1", "familia1", "Familia 1", ClaseDato::Codigo},
    {"Familia_2", "familia2", "Familia 2", ClaseDato::Codigo},
    {"Familia_3", "familia3", "Familia 3", ClaseDato::Codigo},
    {"Cod_Articulo", "articulo", "Artículo", ClaseDato::Codigo},
    {"Nombre", "nombre", "Nombre"},
    {"Unidades_Min", "minimo", "Desde unidades", ClaseDato::Cantidad},
    {"Unidades_Max", "maximo", "Hasta unidades", ClaseDato::Cantidad},
    {"Descuento", "descuento", "Descuento %", ClaseDato::Porcentaje},
};

// Family levels that the company uses, by its captions.
std::int16_t NumNiveles(const kv::cEmpresa& empresa) {
    if (!empresa.CaptionFamilia(2).empty()) return 3;
    return empresa.CaptionFamilia(1).empty() ? 1 : 2;
}

template <class Clase>
void PonerClave(Clase& dtos, const Sesion& sesion, const ClaveDescuento& clave) {
    dtos.NumNiveles = NumNiveles(sesion.Emp());
    const int articulo = dtos.NumNiveles + 1;
    if (clave.nivel < 1 || clave.nivel > articulo)
        RechazarImposible("clave", "el nivel va de 1 a " + std::to_string(articulo));
    dtos.Nivel = clave.nivel;
    dtos.Cod_Articulo = clave.nivel == articulo ? clave.articulo : 0;
    dtos.Familia_1 = clave.familias[0];
    dtos.Familia_2 = clave.familias[1];
    dtos.Familia_3 = clave.familias[2];
}

double ExigirPorcentaje(Currency descuento) {
    if (descuento < Currency() || descuento > Currency::DeEntero(100)) RechazarImposible("descuento", "va de 0 a 100");
    return descuento.ADouble();
}

void Abrir(clsCliente_DtosFamilias& dtos, const Sesion& sesion, const ClaveDtoFamilia& clave) {
    sesion.Inyectar(dtos);
    dtos.Cliente = clave.cliente;
    PonerClave(dtos, sesion, clave.clave);
}

void Abrir(clsCliente_Grp_Dtos& dtos, const Sesion& sesion, const ClaveDtoGrupo& clave) {
    sesion.Inyectar(dtos);
    dtos.Cod_Grupo = clave.grupo;
    PonerClave(dtos, sesion, clave.clave);
    if (clave.maximo < clave.minimo) RechazarImposible("maximo", "es menor que {minimo}");
    dtos.Unidades_Min = clave.minimo;
    dtos.Unidades_Max = clave.maximo;
}

}  // namespace

std::string TextoDe(const ClaveDescuento& clave) {
    std::string texto = std::to_string(clave.articulo) + "-" + std::to_string(clave.nivel);
    for (const std::int16_t familia : clave.familias) texto += "-" + std::to_string(familia);
    return texto;
}

Tabla ListarDtosFamilia(const Sesion& sesion, const PeticionDtosFamilia& peticion) {
    clsCliente_DtosFamilias dtos;
    sesion.Inyectar(dtos);
    dtos.Cliente = peticion.cliente;
    Tabla tabla = LeerTabla(*dtos.Cargar_Todos(), "descuentos", kDtosFamilia);
    if (tabla.filas.empty()) RechazarNegativa("cliente", "el cliente no tiene descuentos");
    return tabla;
}

RespuestaDescuento PonerDtoFamilia(const Sesion& sesion, const PeticionDtoFamilia& peticion) {
    clsCliente_DtosFamilias dtos;
    dtos.Descuento = ExigirPorcentaje(peticion.descuento);
    Abrir(dtos, sesion, peticion);
    dtos.Insertar();
    return {peticion.clave, peticion.descuento};
}

RespuestaDescuento CambiarDtoFamilia(const Sesion& sesion, const PeticionDtoFamilia& peticion) {
    clsCliente_DtosFamilias dtos;
    dtos.Descuento = ExigirPorcentaje(peticion.descuento);
    Abrir(dtos, sesion, peticion);
    dtos.Modificar();
    return {peticion.clave, peticion.descuento};
}

RespuestaDescuento QuitarDtoFamilia(const Sesion& sesion, const ClaveDtoFamilia& peticion) {
    clsCliente_DtosFamilias dtos;
    Abrir(dtos, sesion, peticion);
    dtos.Eliminar();
    return {peticion.clave, std::nullopt};
}

Tabla ListarDtosGrupo(const Sesion& sesion, const PeticionDtosGrupo& peticion) {
    clsCliente_Grp_Dtos dtos;
    sesion.Inyectar(dtos);
    dtos.Cod_Grupo = peticion.grupo;
    Tabla tabla = LeerTabla(*dtos.Cargar_Todos(), "descuentos", kDtosGrupo);
    if (tabla.filas.empty()) RechazarNegativa("grupo", "el grupo no tiene descuentos");
    return tabla;
}

RespuestaDescuento PonerDtoGrupo(const Sesion& sesion, const PeticionDtoGrupo& peticion) {
    clsCliente_Grp_Dtos dtos;
    dtos.Descuento = ExigirPorcentaje(peticion.descuento);
    Abrir(dtos, sesion, peticion);
    Transaccion transaccion(sesion.Cnx());
    Currency minimo;
    Currency maximo;
    if (dtos.Comprobar_Encajados(minimo, maximo))
        RechazarNegativa("minimo", "el tramo se solapa con el de " + minimo.ATexto('.').Cadena() + " a " +
                                       maximo.ATexto('.').Cadena() + " y no se ha puesto");
    dtos.Insertar();
    transaccion.Confirmar();
    return {peticion.clave, peticion.descuento};
}

RespuestaDescuento CambiarDtoGrupo(const Sesion& sesion, const PeticionDtoGrupo& peticion) {
    clsCliente_Grp_Dtos dtos;
    dtos.Descuento = ExigirPorcentaje(peticion.descuento);
    Abrir(dtos, sesion, peticion);
    Transaccion transaccion(sesion.Cnx());
    dtos.Modificar();
    transaccion.Confirmar();
    return {peticion.clave, peticion.descuento};
}

RespuestaDescuento QuitarDtoGrupo(const Sesion& sesion, const ClaveDtoGrupo& peticion) {
    clsCliente_Grp_Dtos dtos;
    Abrir(dtos, sesion, peticion);
    Transaccion transaccion(sesion.Cnx());
    dtos.Eliminar();
    transaccion.Confirmar();
    return {peticion.clave, std::nullopt};
}

}  // namespace kv::aplicacion
