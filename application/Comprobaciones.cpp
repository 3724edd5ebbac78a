#include "application/Comprobaciones.h"

#include <string>

#include "application/Rechazo.h"
#include "db/ValoresSql.h"

namespace kv::aplicacion {
namespace {

void Exigir(bool hay, const char* campo, const char* que, std::int32_t codigo) {
    if (!hay) RechazarNegativa(campo, "no existe " + std::string(que) + " " + std::to_string(codigo));
}

}  // namespace

void ExigirArticulo(const Sesion& sesion, std::int32_t codigo) {
    Exigir(sesion.Hay(TextoSql("SELECT Codigo FROM Articulos WHERE Cod_Empresa =",
                               SqlEntero(sesion.Emp().CodEmpresaArticulos()), " AND Codigo =", SqlEntero(codigo))),
           "articulo", "el artículo", codigo);
}

void ExigirCliente(const Sesion& sesion, std::int32_t codigo) {
    Exigir(sesion.Hay(TextoSql("SELECT Codigo FROM Clientes WHERE Cod_Empresa =",
                               SqlEntero(sesion.Emp().CodEmpresaClientes()), " AND Codigo =", SqlEntero(codigo))),
           "cliente", "el cliente", codigo);
}

void ExigirAlmacen(const Sesion& sesion, std::int16_t codigo) {
    Exigir(sesion.Hay(TextoSql("SELECT Codigo FROM Almacenes WHERE Cod_Empresa =", SqlEntero(sesion.Emp().CodEmpresa()),
                               " AND Codigo =", SqlEntero(codigo))),
           "almacen", "el almacén", codigo);
}

}  // namespace kv::aplicacion
