#include "kvdatosart/application/AcuerdosListados.h"

#include <memory>

#include "kvdatosart/application/Acuerdos.h"
#include "kvdatosart/application/Comprobaciones.h"
#include "kvdatosart/db/ValoresSql.h"
#include "kvdatosart/rules/DescuentosAcuerdo.h"

namespace kv::aplicacion {
namespace {

constexpr ColumnaTabla kAcuerdos[] = {
    {"", "nodo", "Nodo"},
    {"", "desde", "Desde", ClaseDato::Fecha},
    {"", "hasta", "Hasta", ClaseDato::Fecha},
    {"", "precioBase", "Precio base", ClaseDato::Importe},
    {"", "dto1", "Dto. 1"},
    {"", "dto2", "Dto. 2"},
    {"", "dto3", "Dto. 3"},
    {"", "dto4", "Dto. 4"},
    {"", "dto5", "Dto. 5"},
    {"", "sumaPadre", "Suma los de encima", ClaseDato::Logico},
};

constexpr std::size_t kNiveles = std::tuple_size_v<NivelesCadena>;

NivelesCadena LeerNodo(Recordset& rs) {
    NivelesCadena nodo{};
    for (std::size_t i = 0; i < kNiveles; ++i)
        nodo[i] = AInteger(rs.Fields("Cod_Nivel" + std::to_string(i + 1)).Value());
    return nodo;
}

std::string TextoDescuento(Recordset& rs, const ColumnasDescuento& columnas, Currency importe) {
    using Tipo = DescuentoAcuerdo::Tipo;
    const std::int16_t clase = AInteger(rs.Fields(columnas.tipo).Value());
    switch (clase) {
        case kDtoPorcentaje:
            return TextoDe({ABoolean(rs.Fields(columnas.cascada).Value()) ? Tipo::Cascada : Tipo::Porcentaje, importe});
        case kDtoImporte:
            return TextoDe({Tipo::Importe, importe});
        case kDtoOferta:
            return TextoDe({Tipo::Oferta, importe, AInteger(rs.Fields(columnas.cantidad).Value())});
        default:
            return "clase " + std::to_string(clase) + ": " + importe.ATexto('.').Cadena();
    }
}

// The discount of a slot, NULL when it is unused; with its own days when it does not last as long as the agreement.
Valor LeerDescuento(Recordset& rs, const ColumnasDescuento& columnas) {
    const Currency importe = ACurrency(rs.Fields(columnas.importe).Value());
    if (importe == Currency()) return Nulo{};
    std::string texto = TextoDescuento(rs, columnas, importe);
    const Fecha desde = ADate(rs.Fields(columnas.entrada).Value());
    const Fecha hasta = ADate(rs.Fields(columnas.salida).Value());
    if (desde > ADate(rs.Fields("FechaEntrada").Value()) || hasta < ADate(rs.Fields("FechaSalida").Value()))
        Agregar(texto, " (", SqlFecha(desde), "-", SqlFecha(hasta), ")");
    return texto;
}

std::string Consulta(const Sesion& sesion, std::int32_t articulo, const std::optional<NivelesCadena>& nodo,
                     const std::optional<Fecha>& fecha) {
    std::string sql =
        TextoSql("SELECT * FROM Clientes_Cadenas_ConvArt WHERE Cod_Empresa =", SqlEntero(sesion.Emp().CodEmpresa()),
                 " AND Cod_Articulo =", SqlEntero(articulo));
    if (nodo) sql += CondicionNodo("Cod_Nivel", *nodo);
    if (fecha) Agregar(sql, " AND FechaEntrada <='", SqlFecha(*fecha), "' AND FechaSalida >='", SqlFecha(*fecha), "'");
    sql += " ORDER BY ";
    for (std::size_t i = 1; i <= kNiveles; ++i) Agregar(sql, "Cod_Nivel", SqlEntero(static_cast<int>(i)), ", ");
    return sql + "FechaEntrada";
}

}  // namespace

Tabla ListarAcuerdos(const Sesion& sesion, std::int32_t articulo, const std::optional<NivelesCadena>& nodo,
                     const std::optional<Fecha>& fecha) {
    Tabla tabla{"acuerdos", kAcuerdos};
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, sesion.Cnx(), Consulta(sesion, articulo, nodo, fecha));
    for (; !rs->Eof(); rs->MoveNext()) {
        FilaTabla fila = {TextoDe(LeerNodo(*rs)), rs->Fields("FechaEntrada").Value(), rs->Fields("FechaSalida").Value(),
                          rs->Fields("PBase").Value()};
        for (const ColumnasDescuento& columnas : kDescuentosAcuerdo) fila.push_back(LeerDescuento(*rs, columnas));
        fila.push_back(rs->Fields("Dto_Padre").Value());
        tabla.filas.push_back(std::move(fila));
    }
    return tabla;
}

}  // namespace kv::aplicacion
