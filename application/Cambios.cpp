#include "kvdatosart/application/Cambios.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "kvdatosart/application/Comprobaciones.h"
#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/db/Transaccion.h"
#include "kvdatosart/db/ValoresSql.h"

namespace kv::aplicacion {
namespace {

constexpr ColumnaTabla kCambios[] = {
    {"Codigo", "codigo", "Cambio", ClaseDato::Codigo},
    {"Cod_Articulo", "articulo", "Artículo", ClaseDato::Codigo},
    {"Cod_Tarifa", "tarifa", "Tarifa", ClaseDato::Codigo},
    {"", "cualidadX", "Cualidad X", ClaseDato::Codigo},
    {"Fecha_Entrada", "desde", "Desde", ClaseDato::Fecha},
    {"Pvp", "precio", "Precio", ClaseDato::Importe},
    {"", "situacion", "Situación"},
};

constexpr std::string_view TablaDe(bool deVariante) {
    return deVariante ? "Tarifas_Modificacion_C" : "Tarifas_Modificacion";
}

std::string DeLaEmpresa(const Sesion& sesion, bool deVariante) {
    return TextoSql(" FROM ", TablaDe(deVariante),
                    " WHERE Cod_Empresa =", SqlEntero(sesion.Emp().CodEmpresaArticulos()));
}

void LeerCambios(const Sesion& sesion, const PeticionCambios& peticion, bool deVariante, Tabla& tabla) {
    std::string sql = "SELECT Codigo, Cod_Articulo, Cod_Tarifa, Fecha_Entrada, Pvp, Actualizado, Borrado";
    if (deVariante) sql += ", CualidadX";
    sql += DeLaEmpresa(sesion, deVariante);
    if (peticion.articulo) Agregar(sql, " AND Cod_Articulo =", SqlEntero(*peticion.articulo));
    if (peticion.tarifa) Agregar(sql, " AND Cod_Tarifa =", SqlEntero(*peticion.tarifa));
    if (peticion.desde) Agregar(sql, " AND Fecha_Entrada >='", SqlFecha(*peticion.desde), "'");
    if (peticion.hasta) Agregar(sql, " AND Fecha_Entrada <='", SqlFecha(*peticion.hasta), "'");
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, sesion.Cnx(), sql);
    for (; !rs->Eof(); rs->MoveNext())
        tabla.filas.push_back(
            {rs->Fields("Codigo").Value(), rs->Fields("Cod_Articulo").Value(), rs->Fields("Cod_Tarifa").Value(),
             deVariante ? rs->Fields("CualidadX").Value() : Valor(std::uint8_t{0}), rs->Fields("Fecha_Entrada").Value(),
             rs->Fields("Pvp").Value(), std::string(SituacionCambio(*rs, sesion.Hoy()))});
}

bool Antes(const FilaTabla& a, const FilaTabla& b) {
    const auto clave = [](const FilaTabla& fila) {
        return std::tuple(ALong(fila[1]), AInteger(fila[2]), AByte(fila[3]), ADate(fila[4]), ALong(fila[0]));
    };
    return clave(a) < clave(b);
}

/// One that there is.
struct Cambio {
    std::int32_t codigo;
    Currency precio;
    bool cuenta;
};

std::string Condicion(const Sesion& sesion, const ClaveCambio& clave) {
    std::string sql = DeLaEmpresa(sesion, clave.cualidadX != 0);
    Agregar(sql, " AND Cod_Articulo =", SqlEntero(clave.articulo), " AND Cod_Tarifa =", SqlEntero(clave.tarifa),
            " AND Fecha_Entrada ='", SqlFecha(clave.desde), "'");
    if (clave.cualidadX != 0) Agregar(sql, " AND CualidadX =", SqlEntero(clave.cualidadX));
    return sql;
}

std::vector<Cambio> LeerDia(const Sesion& sesion, const ClaveCambio& clave) {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, sesion.Cnx(),
                 "SELECT Codigo, Pvp, Actualizado, Borrado" + Condicion(sesion, clave) + " ORDER BY Codigo");
    std::vector<Cambio> cambios;
    for (; !rs->Eof(); rs->MoveNext())
        cambios.push_back({ALong(rs->Fields("Codigo").Value()), ACurrency(rs->Fields("Pvp").Value()),
                           ABoolean(rs->Fields("Actualizado").Value()) && !ABoolean(rs->Fields("Borrado").Value())});
    return cambios;
}

void ExigirDiaLibre(const Sesion& sesion, const PeticionPonerCambio& peticion) {
    const std::string dia = peticion.desde.ATexto().Cadena();
    if (peticion.desde <= sesion.Hoy() && !peticion.forzar)
        RechazarNegativa("desde", "el " + dia + " ya ha llegado; con {forzar} se pone igual");
    for (const Cambio& cambio : LeerDia(sesion, peticion)) {
        if (!cambio.cuenta) continue;
        const std::string hay = "ya hay un cambio de ese artículo y tarifa el " + dia;
        if (cambio.precio == peticion.precio) RechazarNegativa("desde", hay + ", con ese mismo precio");
        if (!peticion.forzar) RechazarNegativa("desde", hay + "; con {forzar} se pone otro, que es el que vale");
    }
}

std::int32_t SiguienteCodigo(const Sesion& sesion, bool deVariante) {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, sesion.Cnx(), "SELECT MAX(Codigo) AS Ultimo" + DeLaEmpresa(sesion, deVariante));
    const Valor& ultimo = rs->Fields("Ultimo").Value();
    return EsNulo(ultimo) ? 1 : ALong(ultimo) + 1;
}

void Insertar(const Sesion& sesion, const PeticionPonerCambio& peticion, std::int32_t codigo) {
    const bool deVariante = peticion.cualidadX != 0;
    std::string sql = TextoSql("INSERT INTO ", TablaDe(deVariante),
                               " (Codigo, Cod_Empresa, Cod_Articulo, Cod_Tarifa,"
                               " Pvp, Fecha_Entrada, Actualizado, Borrado",
                               std::string_view(deVariante ? ", CualidadX" : ""), ") VALUES (", SqlEntero(codigo), ", ",
                               SqlEntero(sesion.Emp().CodEmpresaArticulos()), ", ", SqlEntero(peticion.articulo), ", ",
                               SqlEntero(peticion.tarifa), ", ", SqlCurrencyConPunto(peticion.precio), ", '",
                               SqlFecha(peticion.desde), "', 1, 0");
    if (deVariante) Agregar(sql, ", ", SqlEntero(peticion.cualidadX));
    sesion.Cnx().Ejecutar(sql + ")");
}

// Which of those of that day is meant.
std::int32_t Elegir(const std::vector<Cambio>& cambios, std::optional<std::int32_t> codigo) {
    if (cambios.empty()) RechazarNegativa("", "no hay un cambio de ese artículo, tarifa y día");
    if (!codigo) {
        if (cambios.size() == 1) return cambios[0].codigo;
        std::string cuales;
        for (const Cambio& cambio : cambios) cuales += (cuales.empty() ? "" : ", ") + std::to_string(cambio.codigo);
        RechazarImposible(
            "", "hay " + std::to_string(cambios.size()) + " cambios ese día: se espera {codigo} con uno de " + cuales);
    }
    if (std::none_of(cambios.begin(), cambios.end(), [&](const Cambio& cambio) { return cambio.codigo == *codigo; }))
        RechazarNegativa("codigo", "ninguno de ese artículo, tarifa y día es el " + std::to_string(*codigo));
    return *codigo;
}

}  // namespace

const char* SituacionCambio(Recordset& fila, Fecha hoy) {
    if (ABoolean(fila.Fields("Borrado").Value())) return "retirado";
    if (!ABoolean(fila.Fields("Actualizado").Value())) return "no toma parte";
    return ADate(fila.Fields("Fecha_Entrada").Value()) <= hoy ? "ya entró" : "programado";
}

Tabla VerCambios(const Sesion& sesion, const PeticionCambios& peticion) {
    if (peticion.desde && peticion.hasta) ExigirPlazo(*peticion.desde, *peticion.hasta);
    if (peticion.articulo) ExigirArticulo(sesion, *peticion.articulo);
    if (peticion.tarifa) ExigirTarifa(sesion, *peticion.tarifa);
    Tabla tabla{"cambios", kCambios};
    for (const bool deVariante : {false, true}) LeerCambios(sesion, peticion, deVariante, tabla);
    if (tabla.filas.empty()) RechazarNegativa("", "no hay cambios de tarifa así");
    std::sort(tabla.filas.begin(), tabla.filas.end(), Antes);
    return tabla;
}

RespuestaCambio PonerCambio(const Sesion& sesion, const PeticionPonerCambio& peticion) {
    if (peticion.precio <= Currency())
        RechazarImposible("precio", "«" + std::string(peticion.precio.ATexto('.').Cadena()) +
                                        "» no vale; se espera un número mayor que 0");
    ExigirArticulo(sesion, peticion.articulo);
    ExigirTarifa(sesion, peticion.tarifa);
    Transaccion transaccion(sesion.Cnx());
    ExigirDiaLibre(sesion, peticion);
    const std::int32_t codigo = SiguienteCodigo(sesion, peticion.cualidadX != 0);
    Insertar(sesion, peticion, codigo);
    transaccion.Confirmar();
    return {peticion, codigo, peticion.precio};
}

RespuestaCambio QuitarCambio(const Sesion& sesion, const PeticionQuitarCambio& peticion) {
    Transaccion transaccion(sesion.Cnx());
    const std::int32_t codigo = Elegir(LeerDia(sesion, peticion), peticion.codigo);
    sesion.Cnx().Ejecutar(TextoSql("DELETE", Condicion(sesion, peticion), " AND Codigo =", SqlEntero(codigo)));
    transaccion.Confirmar();
    return {peticion, codigo, std::nullopt};
}

}  // namespace kv::aplicacion
