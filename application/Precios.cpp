#include "application/Precios.h"

#include <memory>
#include <string>

#include "application/Rechazo.h"
#include "db/ValoresSql.h"
#include "rules/clsCliente_Articulo.h"

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

void AbrirFila(clsCliente_Articulo& precios, const Sesion& sesion, const ClavePrecio& clave) {
    if (clave.hasta < clave.desde)
        RechazarImposible("hasta", "el " + clave.hasta.ATexto().Cadena() + " es anterior a {desde}");
    Abrir(precios, sesion);
    precios.Cod_Articulo = clave.articulo;
    precios.Cod_Cliente = clave.cliente;
    precios.Fecha_Inicial = clave.desde;
    precios.Fecha_Final = clave.hasta;
}

// The component's own statements say nothing of a key that matches no row.
void ExigirFila(const Sesion& sesion, const ClavePrecio& clave) {
    if (!sesion.Hay(TextoSql(
            "SELECT PVP FROM Clientes_Art_PVP WHERE Cod_Empresa =", SqlEntero(sesion.Emp().CodEmpresa()),
            " AND Cod_Cliente =", SqlEntero(clave.cliente), " AND Cod_Articulo =", SqlEntero(clave.articulo),
            " AND Fecha_Inicial ='", SqlFecha(clave.desde), "' AND Fecha_Final ='", SqlFecha(clave.hasta), "'")))
        RechazarNegativa("", "no hay un precio de ese artículo, cliente y fechas");
}

}  // namespace

Tabla ListarPrecios(const Sesion& sesion, const PeticionPrecios& peticion) {
    if (peticion.articulo.has_value() == peticion.cliente.has_value())
        RechazarImposible("", "se espera {articulo} o {cliente}, uno de los dos");
    clsCliente_Articulo precios;
    Abrir(precios, sesion);
    std::unique_ptr<Recordset> rs;
    const bool porArticulo = peticion.articulo.has_value();
    precios.Cargar(rs, porArticulo, porArticulo ? *peticion.articulo : *peticion.cliente, nullptr);
    Tabla tabla = LeerTabla(*rs, "precios", kPrecios);
    if (tabla.filas.empty()) RechazarNegativa("", "no hay precios propios");
    return tabla;
}

RespuestaPrecio PonerPrecio(const Sesion& sesion, const PeticionPrecio& peticion) {
    clsCliente_Articulo precios;
    AbrirFila(precios, sesion, peticion);
    precios.precio = peticion.precio.ADouble();
    precios.Insertar();
    return {peticion, peticion.precio};
}

RespuestaPrecio CambiarPrecio(const Sesion& sesion, const PeticionPrecio& peticion) {
    clsCliente_Articulo precios;
    AbrirFila(precios, sesion, peticion);
    ExigirFila(sesion, peticion);
    precios.precio = peticion.precio.ADouble();
    precios.Modificar(precios.Cod_Articulo);
    return {peticion, peticion.precio};
}

RespuestaPrecio QuitarPrecio(const Sesion& sesion, const ClavePrecio& peticion) {
    clsCliente_Articulo precios;
    AbrirFila(precios, sesion, peticion);
    ExigirFila(sesion, peticion);
    precios.Eliminar(precios.Cod_Articulo, precios.Fecha_Inicial, precios.Fecha_Final);
    return {peticion, std::nullopt};
}

}  // namespace kv::aplicacion
