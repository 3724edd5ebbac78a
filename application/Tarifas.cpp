#include "kvdatosart/application/Tarifas.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>

#include "kvdatosart/application/Cambios.h"
#include "kvdatosart/application/Comprobaciones.h"
#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/component/clsDatosArt.h"
#include "kvdatosart/db/ValoresSql.h"

namespace kv::aplicacion {
namespace {

constexpr ColumnaTabla kPrecios[] = {
    {"", "tarifa", "Tarifa", ClaseDato::Codigo},        {"", "nombre", "Nombre"},
    {"", "cualidadX", "Cualidad X", ClaseDato::Codigo}, {"", "desde", "Desde", ClaseDato::Fecha},
    {"", "precio", "Precio", ClaseDato::Importe},       {"", "situacion", "Situación"},
};

std::string Condicion(const Sesion& sesion, const PeticionTarifasDe& peticion) {
    std::string sql = TextoSql(" WHERE p.Cod_Empresa =", SqlEntero(sesion.Emp().CodEmpresaArticulos()),
                               " AND p.Cod_Articulo =", SqlEntero(peticion.articulo));
    if (peticion.tarifa) Agregar(sql, " AND p.Cod_Tarifa =", SqlEntero(*peticion.tarifa));
    return sql;
}

// The rows of one of the four tables: today's prices or the changes, of the article or of its variants.
void LeerPrecios(const Sesion& sesion, const PeticionTarifasDe& peticion, bool cambio, bool variante, Tabla& tabla) {
    std::string sql = "SELECT p.Cod_Tarifa, t.Descripcion, p.Pvp";
    if (variante) sql += ", p.CualidadX";
    if (cambio) sql += ", p.Fecha_Entrada, p.Actualizado, p.Borrado";
    Agregar(sql, std::string_view(cambio ? " FROM Tarifas_Modificacion" : " FROM Articulos_Tarifas"),
            std::string_view(variante ? "_C" : ""),
            " p LEFT JOIN Tarifas t ON t.Cod_Empresa = p.Cod_Empresa AND t.Codigo = p.Cod_Tarifa",
            Condicion(sesion, peticion));
    if (cambio) Agregar(sql, " AND p.Fecha_Entrada >'", SqlFecha(sesion.Hoy()), "'");
    if (cambio && peticion.fecha) Agregar(sql, " AND p.Fecha_Entrada <='", SqlFecha(*peticion.fecha), "'");
    // Of two changes on one day, the last recorded counts.
    if (cambio) sql += " ORDER BY p.Codigo";
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, sesion.Cnx(), sql);
    for (; !rs->Eof(); rs->MoveNext())
        tabla.filas.push_back({rs->Fields("Cod_Tarifa").Value(), rs->Fields("Descripcion").Value(),
                               variante ? rs->Fields("CualidadX").Value() : Valor(std::uint8_t{0}),
                               cambio ? rs->Fields("Fecha_Entrada").Value() : Valor(Nulo{}), rs->Fields("Pvp").Value(),
                               std::string(cambio ? SituacionCambio(*rs, sesion.Hoy()) : "vigente")});
}

// By tariff and variant; today's price before the changes, these by their days.
bool Antes(const FilaTabla& a, const FilaTabla& b) {
    const auto clave = [](const FilaTabla& fila) {
        return std::tuple(AInteger(fila[0]), AByte(fila[2]), EsNulo(fila[3]) ? Fecha() : ADate(fila[3]));
    };
    return clave(a) < clave(b);
}

}  // namespace

RespuestaPvp PrecioTarifa(const Sesion& sesion, const PeticionPvp& peticion) {
    ExigirArticulo(sesion, peticion.articulo);
    ExigirTarifa(sesion, peticion.tarifa);
    const Fecha fecha = peticion.fecha.value_or(sesion.Hoy());
    clsDatosArt articulo;
    sesion.Inyectar(articulo);
    articulo.Codigo = peticion.articulo;
    articulo.CualidadX = peticion.cualidadX;
    Currency pvp;
    try {
        pvp = articulo.DevPvp(peticion.tarifa, fecha, peticion.forzar);
    } catch (const RuntimeError& error) {
        if (error.numero != kErrObjetoNoEstablecido) throw;
        // The search would go on through a customer's tariffs, and here there is no customer.
        RechazarNegativa("tarifa", "el artículo " + std::to_string(peticion.articulo) +
                                       " no tiene precio en la tarifa " + std::to_string(peticion.tarifa) + " el " +
                                       fecha.ATexto().Cadena());
    }
    return {peticion.articulo, peticion.cualidadX, fecha, pvp, articulo.TarifaPVP};
}

Tabla TarifasDe(const Sesion& sesion, const PeticionTarifasDe& peticion) {
    ExigirArticulo(sesion, peticion.articulo);
    if (peticion.tarifa) ExigirTarifa(sesion, *peticion.tarifa);
    Tabla tabla{"precios", kPrecios};
    for (const bool cambio : {false, true})
        for (const bool variante : {false, true}) LeerPrecios(sesion, peticion, cambio, variante, tabla);
    if (tabla.filas.empty()) RechazarNegativa("articulo", "el artículo no tiene precios así");
    std::stable_sort(tabla.filas.begin(), tabla.filas.end(), Antes);
    return tabla;
}

}  // namespace kv::aplicacion
