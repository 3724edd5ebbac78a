#include "kvdatosart/db/BibliotecaComun.h"
#include "kvdatosart/db/ValoresSql.h"
#include "kvdatosart/rules/DescuentosAcuerdo.h"
#include "kvdatosart/rules/clsClientes_Cadenas_ConvArt.h"

namespace kv {
namespace {

constexpr std::string_view kCabecera = "  DTOS:";

std::string TextoDe(Currency valor, std::int16_t decimales) {
    return Biblioteca().Redondear(valor, decimales).ATexto(Biblioteca().SeparadorDecimal()).Cadena();
}

std::string Porcentaje(Currency valor) {
    return " " + Biblioteca().FormatoPantalla(Biblioteca().Redondear(valor, 2), 2) + "%";
}

// The company is asked for its decimals afresh each time: to round, and to write what was rounded.
std::string Importe(Currency valor, const cEmpresa& empresa, std::int16_t (cEmpresa::*decimales)() const) {
    const Currency redondeado = Biblioteca().Redondear(valor, (empresa.*decimales)());
    return " E" + Biblioteca().FormatoPantalla(redondeado, (empresa.*decimales)());
}

std::string Recortar(const std::string& texto) {
    const auto primero = texto.find_first_not_of(' ');
    if (primero == std::string::npos) return {};
    return texto.substr(primero, texto.find_last_not_of(' ') - primero + 1);
}

}  // namespace

std::string clsClientes_Cadenas_ConvArt::Dev_CadenaConvenio_Total(Fecha dteFechaEval) {
    std::vector<Descuento> lista;
    Dev_Descuentos(dteFechaEval, lista);
    std::string texto;
    for (auto descuento = lista.rbegin(); descuento != lista.rend(); ++descuento) {
        if (texto.empty()) texto += kCabecera;
        if (descuento->Tipo == kDtoPorcentaje) {
            texto += Porcentaje(descuento->Importe);
        } else if (descuento->Tipo == kDtoImporte) {
            texto += Importe(descuento->Importe, Emp(), &kv::cEmpresa::DecPrecios);
        } else if (descuento->Tipo == kDtoOferta) {
            texto += " M" + TextoDe(descuento->Importe, 0) + "," + TextoDe(descuento->Cantidad, 0);
        }
    }
    return Recortar("PB: " + TextoDe(PrecioBase, Emp().DecPrecios()) + texto);
}

// clang-format off
std::string clsClientes_Cadenas_ConvArt::TextoNivel(Fecha dteFechaEval, bool conFinal) const {
    const TextoNumero fecha = SqlFechaLiteral(dteFechaEval);
    return TextoSql(
        "SELECT p.*, a.TipoImpuesto FROM Clientes_Cadenas_ConvArt p",
        " INNER JOIN Articulos a ON (a.codigo = p.Cod_Articulo AND a.Cod_Empresa = ",
            SqlEntero(Emp().CodEmpresaArticulos()), ")",
        " WHERE p.Cod_Empresa = ", SqlEntero(Emp().CodEmpresa()),
        " AND p.Cod_Articulo = ", SqlEntero(Cod_Articulo),
        " AND p.Cod_Nivel1 = ", SqlEntero(Cod_Nivel1),
        " AND p.Cod_Nivel2 = ", SqlEntero(Cod_Nivel2),
        " AND p.Cod_Nivel3= ", SqlEntero(Cod_Nivel3),
        " AND p.Cod_Nivel4= ", SqlEntero(Cod_Nivel4),
        " AND p.Cod_Nivel5= ", SqlEntero(Cod_Nivel5),
        " AND p.Cod_Nivel6= ", SqlEntero(Cod_Nivel6),
        " AND p.Cod_Nivel7= ", SqlEntero(Cod_Nivel7),
        " AND p.Cod_Nivel8= ", SqlEntero(Cod_Nivel8),
        " AND p.Cod_Nivel9= ", SqlEntero(Cod_Nivel9),
        " AND p.Cod_Nivel10 = ", SqlEntero(Cod_Nivel10),
        " AND p.FechaEntrada <='", fecha, "'",
        " AND p.FechaSalida >='", fecha, "'",
        std::string_view(conFinal ? " AND p.FechaSalida < '31/12/2050'" : ""),
        " ORDER BY p.FechaEntrada DESC");
}
// clang-format on

std::string clsClientes_Cadenas_ConvArt::Dev_CadenaConvenio_Nivel(Fecha dteFechaEval) try {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, Cnx(), TextoNivel(dteFechaEval, true));
    if (rs->Eof()) {
        rs->Close();
        AbrirLectura(rs, Cnx(), TextoNivel(dteFechaEval, false));
    }
    std::string texto;
    if (!rs->Eof()) {
        FechaEntrada = ADate(rs->Fields("FechaEntrada").Value());
        FechaSalida = ADate(rs->Fields("FechaSalida").Value());
        bool primero = true;
        for (const ColumnasDescuento& columnas : kDescuentosAcuerdo) {
            if (!DescuentoVigente(*rs, columnas, dteFechaEval)) continue;
            const std::int16_t tipo = AInteger(rs->Fields(columnas.tipo).Value());
            const Currency importe = ACurrency(rs->Fields(columnas.importe).Value());
            const std::string cabecera(primero ? kCabecera : "");
            // Quirk (0013): a discount of an unknown kind counts as the first one, so that the heading is never
            // written.
            primero = false;
            if (tipo == kDtoPorcentaje) {
                texto += cabecera + Porcentaje(importe);
            } else if (tipo == kDtoImporte) {
                texto += cabecera + Importe(importe, Emp(), &kv::cEmpresa::DecImportes);
            } else if (tipo == kDtoOferta) {
                texto += cabecera + " M" + TextoDe(importe, 0) + "," +
                         TextoDe(ACurrency(rs->Fields(columnas.cantidad).Value()), 0);
            }
        }
        const Valor& dtoPadre = rs->Fields("Dto_Padre").Value();
        if (!EsNulo(dtoPadre) && !ABoolean(dtoPadre)) texto += "  NADS";
    }
    rs->Close();
    return Recortar(texto);
} catch (...) {
    Relanzar("clsClientes_Cadenas_ConvArt::Dev_CadenaConvenio_Nivel");
}

}  // namespace kv
