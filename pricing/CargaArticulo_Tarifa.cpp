#include <array>

#include "kvdatosart/db/BibliotecaComun.h"
#include "kvdatosart/pricing/CargaArticulo.h"

namespace kv {
namespace {

constexpr std::array<OrigenTarifa, 4> kCandidatas = {OrigenTarifa::Pedida, OrigenTarifa::PromocionCliente,
                                                     OrigenTarifa::Cliente, OrigenTarifa::Empresa};

}  // namespace

Currency CargaArticulo::DevPvp(DatosArticulo& objPadre, std::int16_t intTarifa, Fecha dteFecha,
                               bool blnForzarAnterior) {
    Consulta consulta;
    return PrecioTarifa(consulta, objPadre, intTarifa, dteFecha, blnForzarAnterior);
}

Currency CargaArticulo::PrecioTarifa(Consulta& consulta, DatosArticulo& objPadre, std::int16_t intTarifa,
                                     Fecha dteFecha, bool blnForzarAnterior) {
    const bool programada = UsarCambiosProgramados(consulta, dteFecha, blnForzarAnterior);
    Currency precio;
    if (objPadre.CualidadX != 0) precio = BuscarEnTarifas(consulta, objPadre, intTarifa, dteFecha, true, programada);
    if (precio == Currency()) precio = BuscarEnTarifas(consulta, objPadre, intTarifa, dteFecha, false, programada);
    return precio;
}

// Only a date after today is priced by the scheduled changes, and then because the caller forces it or because the
// company has them on.
bool CargaArticulo::UsarCambiosProgramados(Consulta& consulta, Fecha dteFecha, bool blnForzarAnterior) {
    if (Hoy() >= dteFecha) return false;
    if (blnForzarAnterior) return true;
    Recordset& rs =
        consulta.Abrir(Cnx(), "SELECT TarifasxFechas FROM Empresas WHERE Codigo=", SqlEntero(Emp().CodEmpresa()));
    bool programada = false;
    if (!rs.Eof()) programada = ABoolean(rs.Fields("TarifasxFechas").Value());
    rs.Close();
    return programada;
}

std::int16_t CargaArticulo::TarifaCandidata(OrigenTarifa origen, std::int16_t intTarifa) const {
    if (origen == OrigenTarifa::Pedida) return intTarifa;
    if (origen == OrigenTarifa::Empresa) return Emp().TarifaEmpresa();
    if (!cliente_) LanzarError(kErrObjetoNoEstablecido, "no hay cliente fuera de Cargar");
    return origen == OrigenTarifa::PromocionCliente ? cliente_->TarifaPromocion : cliente_->TarifaPVP;
}

Currency CargaArticulo::BuscarEnTarifas(Consulta& consulta, DatosArticulo& objPadre, std::int16_t intTarifa,
                                        Fecha dteFecha, bool porCualidad, bool programada) {
    for (const OrigenTarifa origen : kCandidatas) {
        const std::int16_t tarifa = TarifaCandidata(origen, intTarifa);
        if (tarifa <= 0) continue;
        Recordset& rs = programada ? AbrirCambio(consulta, objPadre, tarifa, dteFecha, porCualidad)
                                   : AbrirTarifa(consulta, objPadre, tarifa, porCualidad);
        const bool hallada = !rs.Eof();
        Currency precio;
        if (hallada) {
            precio = ACurrency(rs.Fields("Pvp").Value());
            objPadre.TarifaPVP = tarifa;
        }
        rs.Close();
        if (observador_ != nullptr) observador_->Tarifa({origen, tarifa, porCualidad, programada, hallada, precio});
        if (hallada) return precio;
    }
    return {};
}

// clang-format off
Recordset& CargaArticulo::AbrirTarifa(Consulta& consulta, const DatosArticulo& objPadre, std::int16_t tarifa, bool porCualidad) const {
    const std::int16_t empresa = Emp().CodEmpresaArticulos();
    if (porCualidad)
        return consulta.Abrir(Cnx(),
            "SELECT Cod_Tarifa, Pvp FROM Articulos_Tarifas_C WHERE Cod_Empresa =", SqlEntero(empresa),
            " AND Cod_Articulo =", SqlEntero(objPadre.Codigo),
            " AND CualidadX =", SqlEntero(objPadre.CualidadX),
            " AND Cod_Tarifa =", SqlEntero(tarifa),
            " AND Pvp <> 0");
    return consulta.Abrir(Cnx(),
        "SELECT Cod_Tarifa, Pvp FROM Articulos_Tarifas WHERE Cod_Empresa =", SqlEntero(empresa),
        " AND Cod_Articulo =", SqlEntero(objPadre.Codigo),
        " AND Cod_Tarifa =", SqlEntero(tarifa),
        " AND Pvp <> 0");
}

Recordset& CargaArticulo::AbrirCambio(Consulta& consulta, const DatosArticulo& objPadre, std::int16_t tarifa, Fecha dteFecha,
                                       bool porCualidad) const {
    const std::int16_t empresa = Emp().CodEmpresaArticulos();
    if (porCualidad)
        return consulta.Abrir(Cnx(),
            "SELECT TOP 1 Cod_Tarifa, Pvp FROM Tarifas_Modificacion_C WHERE Cod_Empresa =", SqlEntero(empresa),
            " AND Cod_Articulo =", SqlEntero(objPadre.Codigo),
            " AND CualidadX =", SqlEntero(objPadre.CualidadX),
            " AND Cod_Tarifa =", SqlEntero(tarifa),
            " AND Pvp <> 0",
            " AND Actualizado=1 AND Borrado=0 ",
            " AND Fecha_Entrada<='", SqlFecha(dteFecha), "'",
            " ORDER BY Fecha_Entrada DESC, Codigo DESC");
    return consulta.Abrir(Cnx(),
        "SELECT TOP 1 Cod_Tarifa, Pvp FROM Tarifas_Modificacion WHERE Cod_Empresa =", SqlEntero(empresa),
        " AND Cod_Articulo =", SqlEntero(objPadre.Codigo),
        " AND Cod_Tarifa =", SqlEntero(tarifa),
        " AND Pvp <> 0",
        " AND Actualizado=1 AND Borrado=0 ",
        " AND Fecha_Entrada<='", SqlFecha(dteFecha), "'",
        " ORDER BY Fecha_Entrada DESC, Codigo DESC");
}
// clang-format on

}  // namespace kv
