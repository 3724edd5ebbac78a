#include "kvdatosart/rules/clsClientes_Cadenas_ConvArt.h"

#include "kvdatosart/db/BibliotecaComun.h"
#include "kvdatosart/db/Consulta.h"
#include "kvdatosart/rules/DescuentosAcuerdo.h"

namespace kv {
namespace {

// Of a customer, from all the nodes of his chain; few have more.
constexpr std::size_t kDescuentosUsuales = 16;

// Index of the deepest level in use.
std::size_t MasProfundo(const NivelesCadena& nodo) {
    std::size_t i = nodo.size() - 1;
    while (i > 0 && nodo[i] == 0) --i;
    return i;
}

// "001 002": the codes with three digits at least, without the unused levels.
std::string TextoCadena(Recordset& rs) {
    constexpr std::array<std::string_view, 10> kNiveles = {"Cod_Nivel1", "Cod_Nivel2", "Cod_Nivel3", "Cod_Nivel4",
                                                           "Cod_Nivel5", "Cod_Nivel6", "Cod_Nivel7", "Cod_Nivel8",
                                                           "Cod_Nivel9", "Cod_Nivel10"};
    std::string cadena;
    for (const std::string_view columna : kNiveles) {
        const std::int32_t codigo = AInteger(rs.Fields(columna).Value());
        const std::string cifras = TextoEntero(codigo < 0 ? -codigo : codigo).Cadena();
        if (!cadena.empty()) cadena += ' ';
        if (codigo < 0) cadena += '-';
        if (cifras.size() < 3) cadena.append(3 - cifras.size(), '0');
        cadena += cifras;
    }
    for (auto pos = cadena.find(" 000"); pos != std::string::npos; pos = cadena.find(" 000")) cadena.erase(pos, 4);
    return cadena;
}

bool EsFalso(const Valor& valor) {
    return !EsNulo(valor) && !ABoolean(valor);
}

DiasAcuerdo DiasDe(Recordset& rs) {
    return {rs.Fields("FechaEntrada").Value(), rs.Fields("FechaSalida").Value()};
}

}  // namespace

NivelesCadena clsClientes_Cadenas_ConvArt::Niveles() const {
    return {Cod_Nivel1, Cod_Nivel2, Cod_Nivel3, Cod_Nivel4, Cod_Nivel5,
            Cod_Nivel6, Cod_Nivel7, Cod_Nivel8, Cod_Nivel9, Cod_Nivel10};
}

// clang-format off
Recordset& clsClientes_Cadenas_ConvArt::AbrirNodo(Consulta& consulta, const NivelesCadena& nodo, Fecha dteFechaEval,
                                                  bool conFinal) const {
    const TextoNumero fecha = SqlFechaLiteral(dteFechaEval);
    return consulta.Abrir(Cnx(),
        "SELECT TOP 1 a.* FROM Clientes_Cadenas_ConvArt a",
        " WHERE a.Cod_Empresa = ", SqlEntero(Emp().CodEmpresa()),
        " AND a.Cod_Articulo = ", SqlEntero(Cod_Articulo),
        " AND Cod_Nivel1 =", SqlEntero(nodo[0]),
        " AND Cod_Nivel2 =", SqlEntero(nodo[1]),
        " AND Cod_Nivel3 =", SqlEntero(nodo[2]),
        " AND Cod_Nivel4 =", SqlEntero(nodo[3]),
        " AND Cod_Nivel5 =", SqlEntero(nodo[4]),
        " AND Cod_Nivel6 =", SqlEntero(nodo[5]),
        " AND Cod_Nivel7 =", SqlEntero(nodo[6]),
        " AND Cod_Nivel8 =", SqlEntero(nodo[7]),
        " AND Cod_Nivel9 =", SqlEntero(nodo[8]),
        " AND Cod_Nivel10 =", SqlEntero(nodo[9]),
        " AND a.FechaEntrada <='", fecha, "'",
        " AND a.FechaSalida >='", fecha, "'",
        std::string_view(conFinal ? " AND a.FechaSalida < '31/12/2050'" : ""),
        " ORDER BY a.FechaEntrada DESC");
}
// clang-format on

// The newest agreement of a node on a day: one with a last day wins over any open-ended one.
Recordset& clsClientes_Cadenas_ConvArt::AbrirNodo(Consulta& consulta, const NivelesCadena& nodo,
                                                  Fecha dteFechaEval) const {
    Recordset& conFinal = AbrirNodo(consulta, nodo, dteFechaEval, true);
    if (!conFinal.Eof()) return conFinal;
    conFinal.Close();
    return AbrirNodo(consulta, nodo, dteFechaEval, false);
}

void clsClientes_Cadenas_ConvArt::Dev_Descuentos(Fecha dteFechaEval, std::vector<Descuento>& lista) try {
    lista.clear();
    NivelesCadena nodo = Niveles();
    Consulta consulta;
    for (std::size_t i = MasProfundo(nodo); nodo[0] != 0; --i) {
        const NivelesCadena visitado = nodo;
        Recordset& rs = AbrirNodo(consulta, nodo, dteFechaEval);
        const bool hallado = !rs.Eof();
        const std::size_t antes = lista.size();
        DiasAcuerdo dias;
        if (hallado) {
            if (observador_ != nullptr) dias = DiasDe(rs);
            for (std::size_t n = kDescuentosAcuerdo.size(); n-- > 0;) {
                const ColumnasDescuento& columnas = kDescuentosAcuerdo[n];
                if (!DescuentoVigente(rs, columnas, dteFechaEval)) continue;
                if (lista.empty()) lista.reserve(kDescuentosUsuales);
                lista.push_back(
                    {AInteger(rs.Fields(columnas.tipo).Value()), ACurrency(rs.Fields(columnas.importe).Value()),
                     ACurrency(rs.Fields(columnas.cantidad).Value()), ABoolean(rs.Fields(columnas.cascada).Value())});
            }
            // A NULL lets the walk go on.
            if (EsFalso(rs.Fields("Dto_Padre").Value())) nodo[0] = 0;
        }
        rs.Close();
        if (observador_ != nullptr)
            observador_->NodoDescuentos(visitado, hallado ? &dias : nullptr, static_cast<int>(lista.size() - antes));
        nodo[i] = 0;
        if (i == 0) break;
    }
} catch (...) {
    Relanzar("clsClientes_Cadenas_ConvArt::Dev_Descuentos");
}

// What a discount takes off its base, for an offer what the price becomes; nothing when its kind is unknown.
std::optional<Currency> clsClientes_Cadenas_ConvArt::Efecto(const Descuento& descuento, Currency base) {
    switch (descuento.Tipo) {
        case kDtoPorcentaje:
            return Currency::DeDouble((descuento.Importe * base).ADouble() / 100.0);
        case kDtoImporte:
            return descuento.Importe;
        case kDtoOferta: {
            const Currency unidades = descuento.Importe + descuento.Cantidad;
            if (unidades == Currency()) LanzarError(kErrDivisionPorCero);
            return Currency::DeDouble((base * descuento.Importe).ADouble() / unidades.ADouble());
        }
        default:
            return std::nullopt;
    }
}

Currency clsClientes_Cadenas_ConvArt::Aplicar(const Descuento& descuento, Currency precio) const {
    const Currency base = descuento.Tipo == kDtoPorcentaje && !descuento.Cascada ? PrecioBase : precio;
    DescuentoAplicado aplicado = {descuento.Tipo, descuento.Importe, descuento.Cantidad, descuento.Cascada,
                                  base,           Currency(),        Currency(),         precio,
                                  precio};
    if (const std::optional<Currency> efecto = Efecto(descuento, base)) {
        aplicado.sinRedondear = *efecto;
        aplicado.redondeado = Biblioteca().Redondear(*efecto, Emp().DecPrecios());
        aplicado.despues = descuento.Tipo == kDtoOferta ? aplicado.redondeado : precio - aplicado.redondeado;
    }
    if (observador_ != nullptr) observador_->DescuentoCadena(aplicado);
    return aplicado.despues;
}

Currency clsClientes_Cadenas_ConvArt::Dev_Neto(Fecha dteFechaEval) {
    std::vector<Descuento> lista;
    Dev_Descuentos(dteFechaEval, lista);
    Currency precio = PrecioBase;
    for (auto descuento = lista.rbegin(); descuento != lista.rend(); ++descuento) precio = Aplicar(*descuento, precio);
    return Biblioteca().Redondear(precio, Emp().DecPrecios());
}

Currency clsClientes_Cadenas_ConvArt::Devuelve_PBase(std::string& strCadena, Fecha& datFecha_Entrada,
                                                     Valor& datFecha_Salida, Fecha dteFechaEval) try {
    NivelesCadena nodo = Niveles();
    Currency precio;
    Consulta consulta;
    for (std::size_t i = MasProfundo(nodo); precio == Currency() && nodo[0] != 0; --i) {
        Recordset& rs = AbrirNodo(consulta, nodo, dteFechaEval);
        const bool hallado = !rs.Eof();
        DiasAcuerdo dias;
        if (hallado) {
            if (observador_ != nullptr) dias = DiasDe(rs);
            strCadena = TextoCadena(rs);
            datFecha_Entrada = ADate(rs.Fields("FechaEntrada").Value());
            datFecha_Salida = rs.Fields("FechaSalida").Value();
            precio = ACurrency(rs.Fields("PBase").Value());
        }
        rs.Close();
        if (observador_ != nullptr) observador_->NodoBase(nodo, hallado ? &dias : nullptr, precio);
        nodo[i] = 0;
        if (i == 0) break;
    }
    return precio;
} catch (...) {
    Relanzar("clsClientes_Cadenas_ConvArt::Dev_PBase");
}

}  // namespace kv
