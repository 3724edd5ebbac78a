#include "kvdatosart/application/Precios.h"

#include <memory>
#include <string>

#include "kvdatosart/application/Comprobaciones.h"
#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/db/Transaccion.h"
#include "kvdatosart/db/ValoresSql.h"
#include "kvdatosart/rules/clsCliente_Articulo.h"

namespace kv::aplicacion {
namespace {

constexpr ColumnaTabla kPrecios[] = {
    {"Cod_Cliente", "cliente", "Cliente", ClaseDato::Codigo},
    {"Cod_Articulo", "articulo", "Artículo", ClaseDato::Codigo},
    {"Descripcion", "nombre", "Nombre"},
    {"Fecha_Inicial", "desde", "Desde", ClaseDato::Fecha},
    {"Fecha_Final", "hasta", "Hasta", ClaseDato::Fecha},
    {"PVP", "precio", "Precio", ClaseDato::Importe},
};

void Abrir(clsCliente_Articulo& precios, const Sesion& sesion) {
    sesion.Inyectar(precios);
    precios.Cod_Empresa = sesion.Emp().CodEmpresa();
    precios.Cod_EmpresaExtra = sesion.Emp().CodEmpresaExtra();
}

std::string CondicionFila(const Sesion& sesion, const ClavePrecio& clave) {
    return TextoSql(" FROM Clientes_Art_PVP WHERE Cod_Empresa =", SqlEntero(sesion.Emp().CodEmpresa()),
                    " AND Cod_Cliente =", SqlEntero(clave.cliente), " AND Cod_Articulo =", SqlEntero(clave.articulo));
}

void AbrirFila(clsCliente_Articulo& precios, const Sesion& sesion, const ClavePrecio& clave) {
    ExigirPlazo(clave.desde, clave.hasta);
    Abrir(precios, sesion);
    precios.Cod_Articulo = clave.articulo;
    precios.Cod_Cliente = clave.cliente;
    precios.Fecha_Inicial = clave.desde;
    precios.Fecha_Final = clave.hasta;
}

bool Existe(const Sesion& sesion, const ClavePrecio& clave) {
    return sesion.Hay(TextoSql("SELECT PVP", CondicionFila(sesion, clave), " AND Fecha_Inicial ='",
                               SqlFecha(clave.desde), "' AND Fecha_Final ='", SqlFecha(clave.hasta), "'"));
}

// The component's own statements say nothing of a key that matches no row.
void ExigirFila(const Sesion& sesion, const ClavePrecio& clave) {
    if (!Existe(sesion, clave)) RechazarNegativa("", "no hay un precio de ese artículo, cliente y fechas");
}

// On a day that two prices share, the database decides which one counts.
void ExigirSinSolape(const Sesion& sesion, const ClavePrecio& clave) {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, sesion.Cnx(),
                 TextoSql("SELECT TOP 1 Fecha_Inicial, Fecha_Final", CondicionFila(sesion, clave),
                          " AND Fecha_Inicial <='", SqlFecha(clave.hasta), "' AND Fecha_Final >='",
                          SqlFecha(clave.desde), "' ORDER BY Fecha_Inicial, Fecha_Final"));
    if (rs->Eof()) return;
    RechazarNegativa("desde", TextoSql("ya hay un precio del ", SqlFecha(ADate(rs->Fields("Fecha_Inicial").Value())),
                                       " al ", SqlFecha(ADate(rs->Fields("Fecha_Final").Value())),
                                       ", que comparte días; con {forzar} se pone igual"));
}

bool Cumple(const FilaTabla& fila, const PeticionPrecios& peticion) {
    // Where the list has them.
    constexpr std::size_t kCliente = 0, kArticulo = 1, kDesde = 3, kHasta = 4;
    if (peticion.cliente && ALong(fila[kCliente]) != *peticion.cliente) return false;
    if (peticion.articulo && ALong(fila[kArticulo]) != *peticion.articulo) return false;
    return !peticion.fecha || (ADate(fila[kDesde]) <= *peticion.fecha && ADate(fila[kHasta]) >= *peticion.fecha);
}

}  // namespace

Tabla ListarPrecios(const Sesion& sesion, const PeticionPrecios& peticion) {
    if (!peticion.articulo && !peticion.cliente) RechazarImposible("", "se espera {articulo} o {cliente}");
    clsCliente_Articulo precios;
    Abrir(precios, sesion);
    std::unique_ptr<Recordset> rs;
    const bool porArticulo = !peticion.cliente;
    precios.Cargar(rs, porArticulo, porArticulo ? *peticion.articulo : *peticion.cliente, nullptr);
    Tabla tabla = LeerTabla(*rs, "precios", kPrecios);
    std::erase_if(tabla.filas, [&](const FilaTabla& fila) { return !Cumple(fila, peticion); });
    if (tabla.filas.empty()) RechazarNegativa("", "no hay precios propios");
    return tabla;
}

RespuestaPrecio PonerPrecio(const Sesion& sesion, const PeticionPonerPrecio& peticion) {
    ExigirNoNegativo("precio", peticion.precio);
    clsCliente_Articulo precios;
    AbrirFila(precios, sesion, peticion);
    ExigirArticulo(sesion, peticion.articulo);
    ExigirCliente(sesion, peticion.cliente);
    Transaccion transaccion(sesion.Cnx());
    if (Existe(sesion, peticion)) RechazarNegativa("", "ya hay un precio de ese artículo, cliente y fechas");
    if (!peticion.forzar) ExigirSinSolape(sesion, peticion);
    precios.precio = peticion.precio.ADouble();
    precios.Insertar();
    transaccion.Confirmar();
    return {peticion, peticion.precio};
}

RespuestaPrecio CambiarPrecio(const Sesion& sesion, const PeticionPrecio& peticion) {
    ExigirNoNegativo("precio", peticion.precio);
    clsCliente_Articulo precios;
    AbrirFila(precios, sesion, peticion);
    Transaccion transaccion(sesion.Cnx());
    ExigirFila(sesion, peticion);
    precios.precio = peticion.precio.ADouble();
    precios.Modificar(precios.Cod_Articulo);
    transaccion.Confirmar();
    return {peticion, peticion.precio};
}

RespuestaPrecio QuitarPrecio(const Sesion& sesion, const ClavePrecio& peticion) {
    clsCliente_Articulo precios;
    AbrirFila(precios, sesion, peticion);
    Transaccion transaccion(sesion.Cnx());
    ExigirFila(sesion, peticion);
    precios.Eliminar(precios.Cod_Articulo, precios.Fecha_Inicial, precios.Fecha_Final);
    transaccion.Confirmar();
    return {peticion, std::nullopt};
}

}  // namespace kv::aplicacion
