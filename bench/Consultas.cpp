#include "kvdatosart/bench/Consultas.h"

#include "kvdatosart/customers/ColumnasCliente.h"
#include "kvdatosart/db/ValoresSql.h"

namespace kv::bench {
namespace {

using L = Lectura;

template <int Niveles, bool Final>
std::string TextoNodo(int articulo, int cliente) {
    const int nivel1 = 1 + cliente % 20;
    const int nivel2 = Niveles > 1 ? 1 + cliente % 7 : 0;
    // clang-format off
    return TextoSql(
        "SELECT TOP 1 a.* FROM Clientes_Cadenas_ConvArt a",
        " WHERE a.Cod_Empresa = 1 AND a.Cod_Articulo = ", SqlEntero(articulo),
        " AND Cod_Nivel1 =", SqlEntero(nivel1), " AND Cod_Nivel2 =", SqlEntero(nivel2),
        " AND Cod_Nivel3 =0 AND Cod_Nivel4 =0 AND Cod_Nivel5 =0 AND Cod_Nivel6 =0 AND Cod_Nivel7 =0"
        " AND Cod_Nivel8 =0 AND Cod_Nivel9 =0 AND Cod_Nivel10 =0",
        " AND a.FechaEntrada <='21/11/2026' AND a.FechaSalida >='21/11/2026'",
        std::string_view(Final ? " AND a.FechaSalida < '31/12/2050'" : ""),
        " ORDER BY a.FechaEntrada DESC");
    // clang-format on
}

std::string TextoCliente(int, int cliente) {
    return TextoSql("SELECT * FROM Clientes WHERE Cod_Empresa =1 AND Codigo =", SqlEntero(cliente));
}

std::string TextoMaestro(int articulo, int) {
    // clang-format off
    return TextoSql(
        "SELECT a.Codigo, a.Descripcion, a.Familia_1, a.Familia_2, a.Familia_3, a.UxCaja, a.Largo, a.Ancho, a.Altura,"
        " a.Control_NSeries, a.DStock, a.TipoImpuesto, a.CtaVentas, a.CtaDVentas, a.Bloqueado, a.MsjAlerta,"
        " a.Envase, a.RAEE, a.ECORAEE, a.FidelizacionPuntos, a.Control_Caducidad, a.TipoRep, a.Control_Lotes, a.Peso,"
        " a.MotivoBaja, a.BajoPedido, a.TipoImpuesto2, ISNULL(aa.ArticuloGenerico, 0) AS ArticuloGenerico,"
        " a.UnidadesDecimales, a.PadreVenta FROM Articulos a LEFT JOIN Almacen_Articulos aa ON aa.Cod_Empresa =1"
        " AND aa.Cod_Almacen =1 AND aa.Cod_Articulo = a.Codigo WHERE a.Cod_Empresa =1 AND a.Codigo =",
        SqlEntero(articulo));
    // clang-format on
}

std::string TextoAlmacen(int articulo, int) {
    return TextoSql(
        "SELECT Bloqueo, BloqueoVenta, (Stock_Actual + Stock_MiniCompra) AS Stock, Pend_Servir, Pend_Recibir,"
        " P_Medio AS Costo FROM Almacen_Articulos WHERE Cod_Empresa =1 AND Cod_Almacen =1 AND Cod_Articulo =",
        SqlEntero(articulo));
}

std::string TextoTarifa(int articulo, int) {
    return TextoSql("SELECT Cod_Tarifa, Pvp FROM Articulos_Tarifas WHERE Cod_Empresa =1 AND Cod_Articulo =",
                    SqlEntero(articulo), " AND Cod_Tarifa =1 AND Pvp <> 0");
}

std::string TextoPrecio(int articulo, int cliente) {
    return TextoSql(" SELECT Pvp FROM Clientes_Art_PVP WHERE Cod_Empresa =1 AND Cod_Cliente =", SqlEntero(cliente),
                    " AND Cod_Articulo =", SqlEntero(articulo),
                    " AND Fecha_Inicial <=' 21/11/2026' AND Fecha_Final >=' 21/11/2026'");
}

std::string TextoNiveles(int, int cliente) {
    return TextoSql(
        "SELECT Cad_Nivel_1, Cad_Nivel_2, Cad_Nivel_3, Cad_Nivel_4, Cad_Nivel_5, Cad_Nivel_6, Cad_Nivel_7,"
        " Cad_Nivel_8, Cad_Nivel_9, Cad_Nivel_10  FROM Clientes WHERE Cod_Empresa=1 AND Codigo=",
        SqlEntero(cliente));
}

std::string TextoConvenio(int articulo, int cliente) {
    return TextoSql(
        "SELECT a.PUC, a.Pvp, b.PU_Compra AS PUC_Base, ISNULL(c.Pvp, 0) AS Pvp_Base FROM Clientes_Convenio_Pvp a"
        " INNER JOIN Articulos b ON a.Cod_ArticuloB = b.Codigo AND b.Cod_Empresa =1 LEFT JOIN Articulos_Tarifas c"
        " ON a.Cod_ArticuloB = c.Cod_Articulo AND c.Cod_Empresa =1 WHERE a.Cod_Empresa =1 AND c.Cod_Tarifa = 1"
        " AND a.Cod_Cliente =",
        SqlEntero(cliente), " AND a.Cod_Articulo =", SqlEntero(articulo));
}

std::string TextoEmpresa(int, int) {
    return "SELECT TarifasxFechas FROM Empresas WHERE Codigo=1";
}

std::string TextoTipo(int articulo, int) {
    return TextoSql("SELECT Tipo FROM Articulos WHERE Cod_Empresa =1 AND Codigo =", SqlEntero(articulo));
}

std::vector<ColumnaLeida> ColumnasDelCliente() {
    struct Visita {
        L operator()(std::string clsCliente::*) const { return L::Texto; }
        L operator()(Currency clsCliente::*) const { return L::Dinero; }
        L operator()(std::optional<Fecha> clsCliente::*) const { return L::Dia; }
        L operator()(double clsCliente::*) const { return L::Real; }
        L operator()(float clsCliente::*) const { return L::Real; }
        L operator()(bool clsCliente::*) const { return L::Entero; }
        L operator()(std::uint8_t clsCliente::*) const { return L::Entero; }
        L operator()(std::int16_t clsCliente::*) const { return L::Entero; }
        L operator()(std::int32_t clsCliente::*) const { return L::Entero; }
    };
    std::vector<ColumnaLeida> columnas;
    for (const auto& columna : kColumnasCliente)
        columnas.push_back({std::string(columna.nombre), std::visit(Visita{}, columna.destino)});
    return columnas;
}

}  // namespace

const std::array<Consulta, kConsultas>& Consultas() {
    static const std::vector<ColumnaLeida> kMaestro = {{"Descripcion", L::Texto},
                                                       {"Familia_1", L::Entero},
                                                       {"Familia_2", L::Entero},
                                                       {"Familia_3", L::Entero},
                                                       {"UxCaja", L::Dinero},
                                                       {"Control_NSeries", L::Entero},
                                                       {"Control_Caducidad", L::Entero},
                                                       {"DStock", L::Entero},
                                                       {"CtaVentas", L::Texto},
                                                       {"CtaDVentas", L::Texto},
                                                       {"TipoImpuesto", L::Entero},
                                                       {"TipoImpuesto2", L::Entero},
                                                       {"ArticuloGenerico", L::Entero},
                                                       {"Envase", L::Entero},
                                                       {"RAEE", L::Dinero},
                                                       {"ECORAEE", L::Dinero},
                                                       {"FidelizacionPuntos", L::Entero},
                                                       {"TipoRep", L::Entero},
                                                       {"Control_Lotes", L::Entero},
                                                       {"Largo", L::Dinero},
                                                       {"Ancho", L::Dinero},
                                                       {"Altura", L::Dinero},
                                                       {"Bloqueado", L::Entero},
                                                       {"MsjAlerta", L::Texto},
                                                       {"MotivoBaja", L::Entero},
                                                       {"BajoPedido", L::Entero},
                                                       {"UnidadesDecimales", L::Entero},
                                                       {"Peso", L::Dinero},
                                                       {"PadreVenta", L::Entero}};
    static const std::vector<ColumnaLeida> kAlmacen = {{"Bloqueo", L::Entero},      {"BloqueoVenta", L::Entero},
                                                       {"Stock", L::Dinero},        {"Pend_Servir", L::Dinero},
                                                       {"Pend_Recibir", L::Dinero}, {"Costo", L::Dinero}};
    static const std::vector<ColumnaLeida> kNodo = {
        {"ImporteDto5", L::Dinero}, {"ImporteDto4", L::Dinero}, {"ImporteDto3", L::Dinero},
        {"ImporteDto2", L::Dinero}, {"ImporteDto1", L::Dinero}, {"FechaEntrada1", L::Dia},
        {"FechaSalida1", L::Dia},   {"TDto1", L::Entero},       {"Dto_Padre", L::Entero}};
    static const std::vector<ColumnaLeida> kNiveles = {
        {"Cad_Nivel_1", L::Entero}, {"Cad_Nivel_2", L::Entero}, {"Cad_Nivel_3", L::Entero}, {"Cad_Nivel_4", L::Entero},
        {"Cad_Nivel_5", L::Entero}, {"Cad_Nivel_6", L::Entero}, {"Cad_Nivel_7", L::Entero}, {"Cad_Nivel_8", L::Entero},
        {"Cad_Nivel_9", L::Entero}, {"Cad_Nivel_10", L::Entero}};
    static const std::array<Consulta, kConsultas> kTodas = {{
        {TextoCliente, ColumnasDelCliente()},
        {TextoMaestro, kMaestro},
        {TextoAlmacen, kAlmacen},
        {TextoEmpresa, {{"TarifasxFechas", L::Entero}}},
        {TextoTarifa, {{"Pvp", L::Dinero}}},
        {TextoPrecio, {{"Pvp", L::Real}}},
        {TextoNiveles, kNiveles},
        {TextoNodo<2, true>, kNodo},
        {TextoNodo<2, false>, kNodo},
        {TextoNodo<1, true>, kNodo},
        {TextoNodo<1, false>, kNodo},
        {TextoConvenio, {{"PUC", L::Dinero}, {"Pvp", L::Dinero}}},
        {TextoNodo<2, true>, kNodo},
        {TextoNodo<2, false>, kNodo},
        {TextoNodo<1, true>, kNodo},
        {TextoNodo<1, false>, kNodo},
        {TextoTipo, {{"Tipo", L::Entero}}},
        {TextoAlmacen, kAlmacen},
    }};
    return kTodas;
}

}  // namespace kv::bench
