#include <array>

#include "kvdatosart/db/Columnas.h"
#include "kvdatosart/pricing/CargaArticulo.h"

namespace kv {
namespace {

using Datos = DatosArticulo;

constexpr auto kHastaPrecio = std::to_array<Columna<Datos>>({
    {"Descripcion", &Datos::Descripcion},
    {"Familia_1", &Datos::Familia_1},
    {"Familia_2", &Datos::Familia_2},
    {"Familia_3", &Datos::Familia_3},
    {"UxCaja", &Datos::UxB},
    {"Control_NSeries", &Datos::Control_Series},
    {"Control_Caducidad", &Datos::Control_Caducidad},
    {"DStock", &Datos::DStock},
    {"CtaVentas", &Datos::CtaVentas},
    {"CtaDVentas", &Datos::CtaDVentas},
    {"TipoImpuesto", &Datos::Impuesto},
    {"TipoImpuesto2", &Datos::Impuesto2},
    {"ArticuloGenerico", &Datos::Tipo},
    {"Envase", &Datos::Cod_Envase},
});

constexpr auto kHastaConvenio = std::to_array<Columna<Datos>>({
    {"RAEE", &Datos::RAEE},
    {"ECORAEE", &Datos::ECORAEE},
    {"FidelizacionPuntos", &Datos::FidelizacionPuntos},
});

constexpr auto kResto = std::to_array<Columna<Datos>>({
    {"TipoRep", &Datos::TipoRep},
    {"Control_Lotes", &Datos::Control_Lotes},
    {"Largo", &Datos::Largo},
    {"Ancho", &Datos::Ancho},
    {"Altura", &Datos::Altura},
    {"Bloqueado", &Datos::BloqueadoGral},
    {"MsjAlerta", &Datos::MsjAlerta},
    {"MotivoBaja", &Datos::MotivoBaja},
    {"BajoPedido", &Datos::BajoPedido},
    {"UnidadesDecimales", &Datos::UnidadesDecimales},
    {"Peso", &Datos::Peso},
});

}  // namespace

Recordset& CargaArticulo::AbrirMaestro(Consulta& consulta, std::int32_t lngCod_Articulo,
                                       std::int16_t intCod_Almacen) const {
    // clang-format off
    return consulta.Abrir(Cnx(),
        "SELECT a.Codigo, a.Descripcion, a.Familia_1, a.Familia_2, a.Familia_3, a.UxCaja, a.Largo, a.Ancho, a.Altura,",
        " a.Control_NSeries, a.DStock, a.TipoImpuesto, a.CtaVentas, a.CtaDVentas, a.Bloqueado, a.MsjAlerta,",
        " a.Envase, a.RAEE, a.ECORAEE, a.FidelizacionPuntos, a.Control_Caducidad, a.TipoRep, a.Control_Lotes, a.Peso,",
        " a.MotivoBaja, a.BajoPedido, a.TipoImpuesto2, ISNULL(aa.ArticuloGenerico, 0) AS ArticuloGenerico, a.UnidadesDecimales, a.PadreVenta",
        " FROM Articulos a",
        " LEFT JOIN Almacen_Articulos aa",
        " ON aa.Cod_Empresa =", SqlEntero(Emp().CodEmpresa()),
        " AND aa.Cod_Almacen =", SqlEntero(intCod_Almacen),
        " AND aa.Cod_Articulo = a.Codigo",
        " WHERE a.Cod_Empresa =", SqlEntero(Emp().CodEmpresaArticulos()),
        " AND a.Codigo =", SqlEntero(lngCod_Articulo));
    // clang-format on
}

bool CargaArticulo::LeerMaestro(Consulta& consulta, DatosArticulo& objPadre, std::int32_t lngCod_Articulo,
                                std::int16_t intCod_Almacen) {
    Recordset& rs = AbrirMaestro(consulta, lngCod_Articulo, intCod_Almacen);
    const bool hallado = !rs.Eof();
    if (hallado) {
        objPadre.Codigo = lngCod_Articulo;
        // The resets stand among the columns: a failing column must not leave the former article's price behind.
        LeerColumnas(rs, objPadre, kHastaPrecio);
        objPadre.Pvp = 0;
        objPadre.PvpOriginal = 0;
        objPadre.TarifaPVP = 0;
        LeerColumnas(rs, objPadre, kHastaConvenio);
        objPadre.Convenio.clear();
        LeerColumnas(rs, objPadre, kResto);
        objPadre.PadreVenta = ALong(rs.Fields("PadreVenta").Value());
        if (objPadre.PadreVenta != 0) objPadre.CrearPadre();
    }
    rs.Close();
    return hallado;
}

}  // namespace kv
