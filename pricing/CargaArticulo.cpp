#include "kvdatosart/pricing/CargaArticulo.h"

#include "kvdatosart/db/BibliotecaComun.h"
#include "kvdatosart/rules/clsCliente_Articulo.h"

namespace kv {

std::int16_t CargaArticulo::Cargar(DatosArticulo& objPadre, std::int32_t lngCod_Articulo,
                                   const ArgumentosCarga& argumentos) {
    objPadre.Stock = Currency();
    std::int16_t resultado = kCargado;

    cliente_.emplace();
    Inyectar(*cliente_);
    cliente_->Codigo = argumentos.lngCod_Cliente;
    cliente_->Cargar();
    clsCliente_Articulo precios;
    Inyectar(precios);
    precios.Cod_Empresa = Emp().CodEmpresa();
    precios.Cod_EmpresaExtra = Emp().CodEmpresaExtra();

    Consulta consulta;
    if (!LeerMaestro(consulta, objPadre, lngCod_Articulo, argumentos.intCod_Almacen)) {
        cliente_.reset();
        return kArticuloNoExiste;
    }
    objPadre.PCosto = LeerAlmacen(consulta, objPadre, argumentos.intCod_Almacen).ADouble();
    PonerPrecioInicial(consulta, objPadre, argumentos);
    if (objPadre.Stock <= Currency() && !Emp().VenderSinStock()) resultado = kSinStock;
    if (cliente_->TipoCliente != 0) {
        PonerCosteTipoCliente(objPadre);
        cliente_.reset();
        return resultado;
    }

    AplicarPrecioCliente(objPadre, precios, argumentos);
    clsClientes_Cadenas_ConvArt cadena;
    Inyectar(cadena);
    cadena.Observador(observador_);
    AplicarPrecioBaseCadena(consulta, objPadre, cadena, argumentos.dteFecha);
    AplicarConvenioPvp(consulta, objPadre, argumentos.lngCod_Cliente, lngCod_Articulo);
    objPadre.PDescuento = static_cast<float>(BuscarDescuento(objPadre, argumentos.curUnidades).ADouble());
    if (objPadre.Bloqueado && resultado == kCargado) resultado = kBloqueadoEnAlmacen;
    AplicarNetoCadena(objPadre, cadena, argumentos.dteFecha);
    RedondearPrecio(objPadre, argumentos.intDec_Pvp);
    cliente_.reset();
    return resultado;
}

void CargaArticulo::PonerPrecioInicial(Consulta& consulta, DatosArticulo& objPadre, const ArgumentosCarga& argumentos) {
    const double antes = objPadre.Pvp;
    if (argumentos.intTarifa == -1) {
        objPadre.Pvp = objPadre.PCosto;
        Avisar(FuentePrecio::Coste, true, true, antes, objPadre.Pvp);
        return;
    }
    objPadre.Pvp = PrecioTarifa(consulta, objPadre, argumentos.intTarifa, argumentos.dteFecha, false).ADouble();
    Avisar(FuentePrecio::Tarifa, objPadre.Pvp != 0, true, antes, objPadre.Pvp);
}

void CargaArticulo::PonerCosteTipoCliente(DatosArticulo& objPadre) {
    const double antes = objPadre.Pvp;
    objPadre.Pvp = objPadre.PCosto;
    objPadre.PvpOriginal = objPadre.PCosto;
    objPadre.TarifaPVP = 0;
    Avisar(FuentePrecio::CosteTipoCliente, true, true, antes, objPadre.Pvp);
}

void CargaArticulo::AplicarPrecioCliente(DatosArticulo& objPadre, clsCliente_Articulo& precios,
                                         const ArgumentosCarga& argumentos) {
    const double antes = objPadre.Pvp;
    precios.Cod_Cliente = argumentos.lngCod_Cliente;
    precios.Cod_Articulo = objPadre.Codigo;
    const bool hallado = precios.Dev_Precio(argumentos.dteFecha);
    if (hallado) {
        objPadre.Pvp = precios.precio;
        objPadre.TarifaPVP = 0;
    }
    Avisar(FuentePrecio::PrecioCliente, hallado, hallado, antes, objPadre.Pvp);
}

void CargaArticulo::AplicarPrecioBaseCadena(Consulta& consulta, DatosArticulo& objPadre,
                                            clsClientes_Cadenas_ConvArt& cadena, Fecha dteFecha) {
    const double antes = objPadre.Pvp;
    cadena.Cod_Articulo = objPadre.Codigo;
    LeerNivelesCadena(consulta, cadena, cliente_->Codigo);
    std::string nodo;
    Fecha entrada;
    Valor salida;
    const Currency base = cadena.Devuelve_PBase(nodo, entrada, salida, dteFecha);
    if (base != Currency()) objPadre.Pvp = base.ADouble();
    objPadre.PvpBase = Currency::DeDouble(objPadre.Pvp);
    Avisar(FuentePrecio::PrecioBaseCadena, base != Currency(), base != Currency(), antes, objPadre.Pvp);
}

void CargaArticulo::AplicarConvenioPvp(Consulta& consulta, DatosArticulo& objPadre, std::int32_t lngCod_Cliente,
                                       std::int32_t lngCod_Articulo) {
    const std::int16_t articulos = Emp().CodEmpresaArticulos();
    // clang-format off
    Recordset& rs = consulta.Abrir(Cnx(),
        "SELECT a.PUC, a.Pvp, b.PU_Compra AS PUC_Base,",
        " ISNULL(c.Pvp, 0) AS Pvp_Base",
        " FROM Clientes_Convenio_Pvp a INNER JOIN Articulos b",
        " ON a.Cod_ArticuloB = b.Codigo AND b.Cod_Empresa =", SqlEntero(articulos),
        " LEFT JOIN Articulos_Tarifas c",
        " ON a.Cod_ArticuloB = c.Cod_Articulo AND c.Cod_Empresa =", SqlEntero(articulos),
        " WHERE a.Cod_Empresa =", SqlEntero(Emp().CodEmpresa()),
        " AND c.Cod_Tarifa = 1",
        " AND a.Cod_Cliente =", SqlEntero(lngCod_Cliente),
        " AND a.Cod_Articulo =", SqlEntero(lngCod_Articulo));
    // clang-format on
    const double antes = objPadre.Pvp;
    const bool hallado = !rs.Eof();
    bool aplicado = false;
    if (hallado) {
        const Currency menos = ACurrency(rs.Fields("Pvp").Value());
        const Currency precio = menos != Currency()
                                    ? ACurrency(rs.Fields("Pvp_Base").Value()) - menos
                                    : ACurrency(rs.Fields("PUC_Base").Value()) + ACurrency(rs.Fields("PUC").Value());
        aplicado = precio > Currency();
        if (aplicado) {
            objPadre.Pvp = precio.ADouble();
            objPadre.TarifaPVP = 0;
        }
    }
    rs.Close();
    Avisar(FuentePrecio::ConvenioPvp, hallado, aplicado, antes, objPadre.Pvp);
}

void CargaArticulo::AplicarNetoCadena(DatosArticulo& objPadre, clsClientes_Cadenas_ConvArt& cadena, Fecha dteFecha) {
    const double antes = objPadre.Pvp;
    if (cadena.Cod_Nivel1 == 0) {
        Avisar(FuentePrecio::NetoCadena, false, false, antes, antes);
        return;
    }
    cadena.PrecioBase = Currency::DeDouble(objPadre.Pvp);
    objPadre.Pvp = cadena.Dev_Neto(dteFecha).ADouble();
    objPadre.PvpBase = cadena.PrecioBase;
    // The text walks the hierarchy once more; what it finds was already reported by the net price.
    cadena.Observador(nullptr);
    objPadre.Convenio = cadena.Dev_CadenaConvenio_Total(dteFecha);
    objPadre.TarifaPVP = 0;
    Avisar(FuentePrecio::NetoCadena, true, true, antes, objPadre.Pvp);
}

void CargaArticulo::RedondearPrecio(DatosArticulo& objPadre, std::int16_t intDec_Pvp) {
    const double antes = objPadre.Pvp;
    objPadre.Pvp = Biblioteca().Redondear(Currency::DeDouble(antes), intDec_Pvp).ADouble();
    objPadre.PvpOriginal = objPadre.Pvp;
    Avisar(FuentePrecio::Redondeo, true, true, antes, objPadre.Pvp);
}

void CargaArticulo::Avisar(FuentePrecio fuente, bool hallada, bool aplicada, double antes, double despues) const {
    if (observador_ != nullptr) observador_->Paso({fuente, hallada, aplicada, antes, despues});
}

}  // namespace kv
