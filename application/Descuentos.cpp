#include "kvdatosart/application/Descuentos.h"

#include <memory>

#include "kvdatosart/application/Comprobaciones.h"
#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/db/Transaccion.h"
#include "kvdatosart/db/ValoresSql.h"
#include "kvdatosart/rules/clsCliente_DtosFamilias.h"
#include "kvdatosart/rules/clsCliente_Grp_Dtos.h"

namespace kv::aplicacion {
namespace {

constexpr ColumnaTabla kDtosFamilia[] = {
    {"Nivel", "nivel", "Nivel", ClaseDato::Codigo},
    {"Familia_1", "familia1", "Fam. 1", ClaseDato::Codigo},
    {"Familia_2", "familia2", "Fam. 2", ClaseDato::Codigo},
    {"Familia_3", "familia3", "Fam. 3", ClaseDato::Codigo},
    {"Cod_Articulo", "articulo", "Artículo", ClaseDato::Codigo},
    {"Nombre", "nombre", "Nombre"},
    {"Descuento", "descuento", "Dto. %", ClaseDato::Porcentaje},
};

constexpr ColumnaTabla kDtosGrupo[] = {
    {"Nivel", "nivel", "Nivel", ClaseDato::Codigo},
    {"Familia_1", "familia1", "Fam. 1", ClaseDato::Codigo},
    {"Familia_2", "familia2", "Fam. 2", ClaseDato::Codigo},
    {"Familia_3", "familia3", "Fam. 3", ClaseDato::Codigo},
    {"Cod_Articulo", "articulo", "Artículo", ClaseDato::Codigo},
    {"Nombre", "nombre", "Nombre"},
    {"Unidades_Min", "minimo", "Desde unidades", ClaseDato::Cantidad},
    {"Unidades_Max", "maximo", "Hasta unidades", ClaseDato::Cantidad},
    {"Descuento", "descuento", "Dto. %", ClaseDato::Porcentaje},
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
        RechazarImposible("clave", "«" + TextoDe(clave) + "» no vale; el nivel va de 1 a " + std::to_string(articulo));
    dtos.Nivel = clave.nivel;
    dtos.Cod_Articulo = clave.nivel == articulo ? clave.articulo : 0;
    dtos.Familia_1 = clave.familias[0];
    dtos.Familia_2 = clave.familias[1];
    dtos.Familia_3 = clave.familias[2];
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
    ExigirNoNegativo("minimo", clave.minimo);
    if (clave.maximo < clave.minimo)
        RechazarImposible("maximo", "«" + clave.maximo.ATexto('.').Cadena() + "» es menor que {minimo}");
    dtos.Unidades_Min = clave.minimo;
    dtos.Unidades_Max = clave.maximo;
}

template <class Peticion, class Clase>
void AbrirConDescuento(Clase& dtos, const Sesion& sesion, const Peticion& peticion) {
    ExigirPorcentaje("descuento", peticion.descuento);
    Abrir(dtos, sesion, peticion);
    dtos.Descuento = peticion.descuento.ADouble();
}

Familias LeerFamilias(const Sesion& sesion, std::int32_t articulo) {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, sesion.Cnx(),
                 TextoSql("SELECT Familia_1, Familia_2, Familia_3 FROM Articulos WHERE Cod_Empresa =",
                          SqlEntero(sesion.Emp().CodEmpresaArticulos()), " AND Codigo =", SqlEntero(articulo)));
    return {AInteger(rs->Fields("Familia_1").Value()), AInteger(rs->Fields("Familia_2").Value()),
            AInteger(rs->Fields("Familia_3").Value())};
}

// The look-ups compare every level in use: a row that says others is never found.
void ExigirCoherente(const Sesion& sesion, const ClaveDescuento& clave, std::int16_t numNiveles) {
    ClaveDescuento buena = clave;
    if (clave.nivel > numNiveles) {
        ExigirArticulo(sesion, clave.articulo);
        buena.familias = LeerFamilias(sesion, clave.articulo);
        for (std::size_t i = static_cast<std::size_t>(numNiveles); i < buena.familias.size(); ++i)
            if (clave.familias[i] == 0) buena.familias[i] = 0;
    } else {
        buena.articulo = 0;
        for (std::size_t i = 0; i < buena.familias.size(); ++i) {
            if (i >= clave.nivel) buena.familias[i] = 0;
            if (i < clave.nivel && clave.familias[i] == 0)
                RechazarImposible("clave", "«" + TextoDe(clave) + "» no vale; el nivel " + std::to_string(clave.nivel) +
                                               " lleva " + std::to_string(clave.nivel) + " familias");
        }
    }
    if (TextoDe(buena) != TextoDe(clave))
        RechazarImposible("clave",
                          "«" + TextoDe(clave) + "» no casa artículo y familias; se espera «" + TextoDe(buena) + "»");
}

std::string CondicionClave(const ClaveDescuento& clave, std::int32_t articulo) {
    return TextoSql(" AND Nivel =", SqlEntero(clave.nivel), " AND Familia_1 =", SqlEntero(clave.familias[0]),
                    " AND Familia_2 =", SqlEntero(clave.familias[1]), " AND Familia_3 =", SqlEntero(clave.familias[2]),
                    " AND Cod_Articulo =", SqlEntero(articulo));
}

bool Existe(const Sesion& sesion, const clsCliente_DtosFamilias& dtos, const ClaveDescuento& clave) {
    return sesion.Hay(
        TextoSql("SELECT Descuento FROM Descuentos_Familias WHERE Cod_Empresa =", SqlEntero(sesion.Emp().CodEmpresa()),
                 " AND Cod_Cliente =", SqlEntero(dtos.Cliente), CondicionClave(clave, dtos.Cod_Articulo)));
}

bool Existe(const Sesion& sesion, const clsCliente_Grp_Dtos& dtos, const ClaveDescuento& clave) {
    return sesion.Hay(TextoSql(
        "SELECT Descuento FROM Clientes_Grp_Descuentos_Fam WHERE Cod_Empresa =", SqlEntero(sesion.Emp().CodEmpresa()),
        " AND Cod_Grupo =", SqlEntero(dtos.Cod_Grupo), CondicionClave(clave, dtos.Cod_Articulo), " AND Unidades_Min =",
        SqlCurrencyConPunto(dtos.Unidades_Min), " AND Unidades_Max =", SqlCurrencyConPunto(dtos.Unidades_Max)));
}

// The component's own statements say nothing of a key that matches no row, and mark the group all the same.
template <class Clase>
void ExigirFila(const Sesion& sesion, const Clase& dtos, const ClaveDescuento& clave) {
    if (!Existe(sesion, dtos, clave)) RechazarNegativa("clave", "no hay ningún descuento de clave " + TextoDe(clave));
}

void ExigirSinSolape(clsCliente_Grp_Dtos& dtos) {
    Currency minimo;
    Currency maximo;
    if (dtos.Comprobar_Encajados(minimo, maximo))
        RechazarNegativa("minimo", "el tramo se solapa con el de " + minimo.ATexto('.').Cadena() + " a " +
                                       maximo.ATexto('.').Cadena() + " y no se ha puesto");
}

// Changes or takes away a row that is there.
template <class Clase>
void EnSuFila(const Sesion& sesion, Clase& dtos, const ClaveDescuento& clave, void (Clase::*metodo)()) {
    Transaccion transaccion(sesion.Cnx());
    ExigirFila(sesion, dtos, clave);
    (dtos.*metodo)();
    transaccion.Confirmar();
}

bool Cumple(const FilaTabla& fila, const FiltroDescuentos& filtro) {
    // The columns that both lists begin with.
    constexpr std::size_t kPrimeraFamilia = 1;
    constexpr std::size_t kArticulo = 4;
    if (filtro.articulo && ALong(fila[kArticulo]) != *filtro.articulo) return false;
    for (std::size_t i = 0; filtro.familia && i < filtro.familia->size(); ++i)
        if ((*filtro.familia)[i] != 0 && AInteger(fila[kPrimeraFamilia + i]) != (*filtro.familia)[i]) return false;
    return true;
}

Tabla Filtrar(Tabla tabla, const FiltroDescuentos& filtro, const char* campo, const char* quien) {
    std::erase_if(tabla.filas, [&](const FilaTabla& fila) { return !Cumple(fila, filtro); });
    const bool filtrada = filtro.articulo || filtro.familia;
    if (tabla.filas.empty())
        RechazarNegativa(campo, std::string(quien) + (filtrada ? " no tiene descuentos así" : " no tiene descuentos"));
    return tabla;
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
    return Filtrar(LeerTabla(*dtos.Cargar_Todos(), "descuentos", kDtosFamilia), peticion, "cliente", "el cliente");
}

RespuestaDescuento PonerDtoFamilia(const Sesion& sesion, const PeticionDtoFamilia& peticion) {
    clsCliente_DtosFamilias dtos;
    AbrirConDescuento(dtos, sesion, peticion);
    ExigirCliente(sesion, peticion.cliente);
    ExigirCoherente(sesion, peticion.clave, dtos.NumNiveles);
    Transaccion transaccion(sesion.Cnx());
    if (Existe(sesion, dtos, peticion.clave))
        RechazarNegativa("clave", "el cliente ya tiene un descuento de clave " + TextoDe(peticion.clave));
    dtos.Insertar();
    transaccion.Confirmar();
    return {peticion.clave, peticion.descuento};
}

RespuestaDescuento CambiarDtoFamilia(const Sesion& sesion, const PeticionDtoFamilia& peticion) {
    clsCliente_DtosFamilias dtos;
    AbrirConDescuento(dtos, sesion, peticion);
    EnSuFila(sesion, dtos, peticion.clave, &clsCliente_DtosFamilias::Modificar);
    return {peticion.clave, peticion.descuento};
}

RespuestaDescuento QuitarDtoFamilia(const Sesion& sesion, const ClaveDtoFamilia& peticion) {
    clsCliente_DtosFamilias dtos;
    Abrir(dtos, sesion, peticion);
    EnSuFila(sesion, dtos, peticion.clave, &clsCliente_DtosFamilias::Eliminar);
    return {peticion.clave, std::nullopt};
}

Tabla ListarDtosGrupo(const Sesion& sesion, const PeticionDtosGrupo& peticion) {
    clsCliente_Grp_Dtos dtos;
    sesion.Inyectar(dtos);
    dtos.Cod_Grupo = peticion.grupo;
    return Filtrar(LeerTabla(*dtos.Cargar_Todos(), "descuentos", kDtosGrupo), peticion, "grupo", "el grupo");
}

RespuestaDescuento PonerDtoGrupo(const Sesion& sesion, const PeticionDtoGrupo& peticion) {
    clsCliente_Grp_Dtos dtos;
    AbrirConDescuento(dtos, sesion, peticion);
    ExigirGrupo(sesion, peticion.grupo);
    ExigirCoherente(sesion, peticion.clave, dtos.NumNiveles);
    Transaccion transaccion(sesion.Cnx());
    ExigirSinSolape(dtos);
    dtos.Insertar();
    transaccion.Confirmar();
    return {peticion.clave, peticion.descuento};
}

RespuestaDescuento CambiarDtoGrupo(const Sesion& sesion, const PeticionDtoGrupo& peticion) {
    clsCliente_Grp_Dtos dtos;
    AbrirConDescuento(dtos, sesion, peticion);
    EnSuFila(sesion, dtos, peticion.clave, &clsCliente_Grp_Dtos::Modificar);
    return {peticion.clave, peticion.descuento};
}

RespuestaDescuento QuitarDtoGrupo(const Sesion& sesion, const ClaveDtoGrupo& peticion) {
    clsCliente_Grp_Dtos dtos;
    Abrir(dtos, sesion, peticion);
    EnSuFila(sesion, dtos, peticion.clave, &clsCliente_Grp_Dtos::Eliminar);
    return {peticion.clave, std::nullopt};
}

}  // namespace kv::aplicacion
