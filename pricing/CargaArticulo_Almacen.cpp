#include "kvdatosart/pricing/CargaArticulo.h"
#include "kvdatosart/rules/clsCliente_DtosFamilias.h"
#include "kvdatosart/rules/clsCliente_Grp_Dtos.h"

namespace kv {
namespace {

// A company parameter holds a value when it is neither NULL nor empty text.
bool TieneValor(const Valor& parametro) {
    if (const std::string* texto = std::get_if<std::string>(&parametro)) return !texto->empty();
    return !EsNulo(parametro);
}

template <class Descuentos>
void PonerArticulo(Descuentos& descuentos, const DatosArticulo& articulo, std::uint8_t nivel) {
    descuentos.Cod_Articulo = articulo.Codigo;
    descuentos.Familia_1 = articulo.Familia_1;
    descuentos.Familia_2 = articulo.Familia_2;
    descuentos.Familia_3 = articulo.Familia_3;
    descuentos.Nivel = nivel;
}

template <class Descuentos>
void AvisarDescuento(ObservadorCarga* observador, FuenteDescuento fuente, const Descuentos& descuentos,
                     Currency porcentaje) {
    if (observador == nullptr) return;
    if (descuentos.Fallo())
        observador->DescuentoFallido(fuente, Descuentos::kProcedimiento, *descuentos.Fallo());
    else
        observador->DescuentoLinea(fuente, porcentaje);
}

}  // namespace

Currency CargaArticulo::LeerAlmacen(Consulta& consulta, DatosArticulo& objPadre, std::int16_t intCod_Almacen) {
    const char* columnaCoste = Emp().CosteUltimaCompra() ? "PU_Compra" : "P_Medio";
    // clang-format off
    Recordset& rs = consulta.Abrir(Cnx(),
        "SELECT Bloqueo, BloqueoVenta, (Stock_Actual + Stock_MiniCompra) AS Stock, Pend_Servir, Pend_Recibir, ",
        columnaCoste,
        " AS Costo",
        " FROM Almacen_Articulos WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresa()),
        " AND Cod_Almacen =", SqlEntero(intCod_Almacen),
        " AND Cod_Articulo =", SqlEntero(objPadre.Codigo));
    // clang-format on
    Currency coste;
    if (!rs.Eof()) {
        objPadre.Bloqueado = ABoolean(rs.Fields("Bloqueo").Value());
        objPadre.BloqueadoVenta = ABoolean(rs.Fields("BloqueoVenta").Value());
        objPadre.Stock = ACurrency(rs.Fields("Stock").Value());
        objPadre.PendienteServir = ACurrency(rs.Fields("Pend_Servir").Value());
        objPadre.PendienteRecibir = ACurrency(rs.Fields("Pend_Recibir").Value());
        coste = ACurrency(rs.Fields("Costo").Value());
    }
    rs.Close();
    // A variant with one quality only uses the article's figures.
    if (objPadre.CualidadX > 0 && objPadre.CualidadY > 0)
        LeerAlmacenCualidades(consulta, objPadre, intCod_Almacen, columnaCoste, coste);
    return coste;
}

void CargaArticulo::LeerAlmacenCualidades(Consulta& consulta, DatosArticulo& objPadre, std::int16_t intCod_Almacen,
                                          const char* columnaCoste, Currency& coste) {
    // clang-format off
    Recordset& rs = consulta.Abrir(Cnx(),
        "SELECT (Stock_Actual + Stock_MiniCompra) AS Stock, ",
        columnaCoste,
        " AS Costo",
        " FROM Almacen_Articulos_C WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresa()),
        " AND Cod_Almacen =", SqlEntero(intCod_Almacen),
        " AND Cod_Articulo =", SqlEntero(objPadre.Codigo),
        " AND CualidadX =", SqlEntero(objPadre.CualidadX),
        " AND CualidadY =", SqlEntero(objPadre.CualidadY));
    // clang-format on
    if (!rs.Eof()) {
        objPadre.Stock = ACurrency(rs.Fields("Stock").Value());
        const Currency costeCualidad = ACurrency(rs.Fields("Costo").Value());
        // A variant without a cost of its own keeps the article's.
        if (costeCualidad > Currency()) coste = costeCualidad;
    }
    rs.Close();
}

void CargaArticulo::LeerNivelesCadena(Consulta& consulta, clsClientes_Cadenas_ConvArt& cadena,
                                      std::int32_t lngCod_Cliente) {
    // Quirk (0009): the customer is read under the company's own code, not under the customer-master code.
    // clang-format off
    Recordset& rs = consulta.Abrir(Cnx(),
        "SELECT Cad_Nivel_1, Cad_Nivel_2, Cad_Nivel_3, Cad_Nivel_4, Cad_Nivel_5, ",
        "Cad_Nivel_6, Cad_Nivel_7, Cad_Nivel_8, Cad_Nivel_9, Cad_Nivel_10 ",
        " FROM Clientes WHERE Cod_Empresa=", SqlEntero(Emp().CodEmpresa()),
        " AND Codigo=", SqlEntero(lngCod_Cliente));
    // clang-format on
    if (!rs.Eof()) {
        cadena.Cod_Nivel1 = AInteger(rs.Fields("Cad_Nivel_1").Value());
        cadena.Cod_Nivel2 = AInteger(rs.Fields("Cad_Nivel_2").Value());
        cadena.Cod_Nivel3 = AInteger(rs.Fields("Cad_Nivel_3").Value());
        cadena.Cod_Nivel4 = AInteger(rs.Fields("Cad_Nivel_4").Value());
        cadena.Cod_Nivel5 = AInteger(rs.Fields("Cad_Nivel_5").Value());
        cadena.Cod_Nivel6 = AInteger(rs.Fields("Cad_Nivel_6").Value());
        cadena.Cod_Nivel7 = AInteger(rs.Fields("Cad_Nivel_7").Value());
        cadena.Cod_Nivel8 = AInteger(rs.Fields("Cad_Nivel_8").Value());
        cadena.Cod_Nivel9 = AInteger(rs.Fields("Cad_Nivel_9").Value());
        cadena.Cod_Nivel10 = AInteger(rs.Fields("Cad_Nivel_10").Value());
    }
    rs.Close();
}

// One more than the number of family levels that the company's parameters 1 and 2 say are in use.
std::uint8_t CargaArticulo::NivelArticulo() const {
    if (TieneValor(Emp().Parametro(2))) return 4;
    return TieneValor(Emp().Parametro(1)) ? 3 : 2;
}

Currency CargaArticulo::BuscarDescuento(const DatosArticulo& objPadre, Currency curUnidades) {
    const std::uint8_t nivel = NivelArticulo();
    clsCliente_Grp_Dtos grupos;
    Inyectar(grupos);
    PonerArticulo(grupos, objPadre, nivel);
    const Currency deGrupo = grupos.Dev_Descuento_Activo(cliente_->Codigo, curUnidades);
    AvisarDescuento(observador_, FuenteDescuento::Grupo, grupos, deGrupo);
    if (deGrupo != Currency()) return deGrupo;

    clsCliente_DtosFamilias familias;
    Inyectar(familias);
    familias.Cliente = cliente_->Codigo;
    PonerArticulo(familias, objPadre, nivel);
    const Currency deFamilia = Currency::DeDouble(familias.Dev_Descuento_Activo());
    AvisarDescuento(observador_, FuenteDescuento::Familia, familias, deFamilia);
    return deFamilia;
}

}  // namespace kv
