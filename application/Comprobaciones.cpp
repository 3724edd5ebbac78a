#include "kvdatosart/application/Comprobaciones.h"

#include <algorithm>

#include "kvdatosart/application/Acuerdos.h"
#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/db/ValoresSql.h"

namespace kv::aplicacion {
namespace {

void Exigir(bool hay, const char* campo, const std::string& que) {
    if (!hay) RechazarNegativa(campo, "no existe " + que);
}

void ExigirCodigo(const Sesion& sesion, std::string_view tabla, std::int16_t empresa, std::int32_t codigo,
                  const char* campo, const char* que) {
    Exigir(sesion.Hay(TextoSql("SELECT Codigo FROM ", tabla, " WHERE Cod_Empresa =", SqlEntero(empresa),
                               " AND Codigo =", SqlEntero(codigo))),
           campo, que + std::to_string(codigo));
}

std::string EntreComillas(const std::string& texto) {
    return "«" + texto + "» no vale; se espera ";
}

bool EsControl(char c) {
    const auto octeto = static_cast<unsigned char>(c);
    return octeto < 0x20 || octeto == 0x7F;
}

bool EmpiezaCaracter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
}

}  // namespace

void ExigirArticulo(const Sesion& sesion, std::int32_t codigo) {
    ExigirCodigo(sesion, "Articulos", sesion.Emp().CodEmpresaArticulos(), codigo, "articulo", "el artículo ");
}

void ExigirCliente(const Sesion& sesion, std::int32_t codigo) {
    ExigirCodigo(sesion, "Clientes", sesion.Emp().CodEmpresaClientes(), codigo, "cliente", "el cliente ");
}

void ExigirAlmacen(const Sesion& sesion, std::int16_t codigo) {
    ExigirCodigo(sesion, "Almacenes", sesion.Emp().CodEmpresa(), codigo, "almacen", "el almacén ");
}

void ExigirTarifa(const Sesion& sesion, std::int16_t codigo) {
    ExigirCodigo(sesion, "Tarifas", sesion.Emp().CodEmpresaArticulos(), codigo, "tarifa", "la tarifa ");
}

void ExigirGrupo(const Sesion& sesion, std::int16_t codigo) {
    ExigirCodigo(sesion, "Clientes_Grp_Descuentos", sesion.Emp().CodEmpresa(), codigo, "grupo", "el grupo ");
}

void ExigirSinCoste(const Sesion& sesion, std::int32_t cliente, std::int16_t tarifa) {
    if (tarifa == -1) RechazarNegativa("tarifa", "la tarifa -1 vende a coste, y aquí no se enseñan costes");
    if (sesion.Hay(
            TextoSql("SELECT Codigo FROM Clientes WHERE Cod_Empresa =", SqlEntero(sesion.Emp().CodEmpresaClientes()),
                     " AND Codigo =", SqlEntero(cliente), " AND TipoCliente <> 0")))
        RechazarNegativa("cliente",
                         "el cliente " + std::to_string(cliente) + " compra a coste, y aquí no se enseñan costes");
}

// A load reads the customer's path with the company's own code.
void ExigirNodo(const Sesion& sesion, const NivelesCadena& nodo) {
    std::string sql =
        TextoSql("SELECT TOP 1 Codigo FROM Clientes WHERE Cod_Empresa =", SqlEntero(sesion.Emp().CodEmpresa()));
    for (std::size_t i = 0; i < nodo.size() && nodo[i] != 0; ++i)
        Agregar(sql, " AND Cad_Nivel_", SqlEntero(static_cast<std::int32_t>(i) + 1), " =", SqlEntero(nodo[i]));
    Exigir(sesion.Hay(sql), "nodo", "el nodo " + TextoDe(nodo) + ": ningún cliente cuelga de él");
}

void ExigirNoNegativo(const char* campo, Currency valor) {
    if (valor < Currency()) RechazarImposible(campo, EntreComillas(valor.ATexto('.').Cadena()) + "un número desde 0");
}

void ExigirPorcentaje(const char* campo, Currency valor) {
    if (valor < Currency() || valor > Currency::DeEntero(100))
        RechazarImposible(campo, "«" + valor.ATexto('.').Cadena() + "» no vale; un descuento va de 0 a 100");
}

void ExigirPlazo(Fecha desde, Fecha hasta) {
    if (hasta < desde) RechazarImposible("hasta", "el " + hasta.ATexto().Cadena() + " es anterior a {desde}");
}

void ExigirPasada(const char* campo, Fecha fecha, Fecha hoy, bool forzar) {
    if (fecha > hoy && !forzar)
        RechazarImposible(campo, "el " + fecha.ATexto().Cadena() + " no ha llegado; con {forzar} se anota igual");
}

void ExigirTexto(const std::string& campo, const std::string& texto, std::size_t largo) {
    if (texto.find('\'') != std::string::npos || std::any_of(texto.begin(), texto.end(), EsControl))
        RechazarImposible(campo, EntreComillas(texto) + "un texto sin comillas simples ni caracteres de control");
    if (static_cast<std::size_t>(std::count_if(texto.begin(), texto.end(), EmpiezaCaracter)) > largo)
        RechazarImposible(campo, EntreComillas(texto) + std::to_string(largo) + " caracteres como mucho");
}

std::string CondicionNodo(std::string_view prefijo, const NivelesCadena& nodo) {
    std::string sql;
    for (std::size_t i = 0; i < nodo.size(); ++i)
        Agregar(sql, " AND ", prefijo, SqlEntero(static_cast<std::int32_t>(i) + 1), " =", SqlEntero(nodo[i]));
    return sql;
}

}  // namespace kv::aplicacion
