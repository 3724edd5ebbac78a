#include "kvdatosart/db/EmpresaTabla.h"

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/Columnas.h"
#include "kvdatosart/db/ValoresSql.h"

namespace kv {

std::shared_ptr<EmpresaTabla> EmpresaTabla::Leer(Connection& conexion, std::int16_t codigo) {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, conexion, TextoSql("SELECT * FROM Empresas WHERE Codigo =", SqlEntero(codigo)));
    std::shared_ptr<EmpresaTabla> empresa;
    if (!rs->Eof()) empresa.reset(new EmpresaTabla(*rs, codigo));
    rs->Close();
    if (empresa) empresa->LeerParametros(conexion);
    return empresa;
}

EmpresaTabla::EmpresaTabla(Recordset& fila, std::int16_t codigo) : codigo_(codigo) {
    const auto campo = [&](std::string_view nombre) -> const Valor& { return fila.Fields(nombre).Value(); };
    Asignar(nombre_, campo("Nombre"));
    articulos_ = AInteger(campo("Cod_EmpresaArticulos"));
    clientes_ = AInteger(campo("Cod_EmpresaClientes"));
    extra_ = AInteger(campo("Cod_EmpresaExtra"));
    tarifa_ = AInteger(campo("Tarifa"));
    venderSinStock_ = ABoolean(campo("VenderSinStock"));
    costeUltimaCompra_ = ABoolean(campo("CosteUltimaCompra"));
    decPrecios_ = AInteger(campo("DecPrecios"));
    decImportes_ = AInteger(campo("DecImportes"));
    decCostes_ = AInteger(campo("DecCostes"));
    Asignar(captions_[0], campo("CaptionFamilia1"));
    Asignar(captions_[1], campo("CaptionFamilia2"));
    Asignar(captions_[2], campo("CaptionFamilia3"));
}

void EmpresaTabla::LeerParametros(Connection& conexion) {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, conexion,
                 TextoSql("SELECT Numero, Valor FROM Empresas_Parametros WHERE Cod_Empresa =", SqlEntero(codigo_)));
    for (; !rs->Eof(); rs->MoveNext())
        parametros_[AInteger(rs->Fields("Numero").Value())] = rs->Fields("Valor").Value();
    rs->Close();
}

Valor EmpresaTabla::Parametro(std::int16_t numero) const {
    const auto hallado = parametros_.find(numero);
    return hallado == parametros_.end() ? Valor(Nulo{}) : hallado->second;
}

std::string EmpresaTabla::CaptionFamilia(std::int16_t indice) const {
    if (indice < 0 || indice > 2) LanzarError(kErrSubindice, "nivel de familia " + std::to_string(indice));
    return captions_[static_cast<std::size_t>(indice)];
}

}  // namespace kv
