#include "kvdatosart/application/Sesion.h"

#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/catalog/Tasacion.h"
#include "kvdatosart/db/EmpresaTabla.h"
#include "kvdatosart/db/ValoresSql.h"

namespace kv::aplicacion {

kv::Puesto Sesion::EnPuesto() const {
    return {conexion_, empresa_};
}

bool Sesion::Hay(std::string_view sql) const {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, Cnx(), sql);
    return !rs->Eof();
}

std::string NombreEmpresa(const Sesion& sesion) {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, sesion.Cnx(),
                 TextoSql("SELECT Nombre FROM Empresas WHERE Codigo =", SqlEntero(sesion.Emp().CodEmpresa())));
    if (rs->Eof() || EsNulo(rs->Fields("Nombre").Value())) return {};
    return AString(rs->Fields("Nombre").Value(), '.');
}

std::shared_ptr<kv::cEmpresa> LeerEmpresa(Connection& conexion, std::int16_t codigo) {
    auto empresa = EmpresaTabla::Leer(conexion, codigo);
    if (!empresa) RechazarImposible("empresa", "no existe la empresa " + std::to_string(codigo));
    return empresa;
}

}  // namespace kv::aplicacion
