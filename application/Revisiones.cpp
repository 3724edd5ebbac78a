#include "kvdatosart/application/Revisiones.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/BibliotecaComun.h"
#include "kvdatosart/db/Nombres.h"
#include "kvdatosart/db/ValoresSql.h"
#include "kvdatosart/rules/NivelesFamilia.h"

namespace kv::aplicacion {
namespace {

/// One thing that makes prices or stock surprising. In its statement, {E} is the company, {A} the article company,
/// {C} the customer company, {K} the column of costs that the company goes by, {H} today, {NODO} the ten levels of the
/// agreement `a`, and {MISMO NODO} joins its article and levels to those of `b`.
struct Revision {
    const char* nombre;
    const char* motivo;
    const char* consulta;
};

constexpr ColumnaTabla kColumnas[] = {
    {"Cod_Grupo", "grupo", "Grupo", ClaseDato::Codigo},
    {"Cod_Cliente", "cliente", "Cliente", ClaseDato::Codigo},
    {"Cod_Articulo", "articulo", "Artículo", ClaseDato::Codigo},
    {"Cod_ArticuloB", "articuloBase", "Artículo base", ClaseDato::Codigo},
    {"CualidadX", "cualidadX", "Cualidad X", ClaseDato::Codigo},
    {"CualidadY", "cualidadY", "Cualidad Y", ClaseDato::Codigo},
    {"Cod_Tarifa", "tarifa", "Tarifa", ClaseDato::Codigo},
    {"Codigo", "cambio", "Cambio", ClaseDato::Codigo},
    {"Otro", "otroCambio", "Otro cambio", ClaseDato::Codigo},
    {"Cod_Almacen", "almacen", "Almacén", ClaseDato::Codigo},
    {"Nodo", "nodo", "Nodo"},
    {"Nivel", "nivel", "Nivel", ClaseDato::Codigo},
    {"Familia_1", "familia1", "Familia 1", ClaseDato::Codigo},
    {"Familia_2", "familia2", "Familia 2", ClaseDato::Codigo},
    {"Familia_3", "familia3", "Familia 3", ClaseDato::Codigo},
    {"Unidades_Min", "minimo", "Desde unidades", ClaseDato::Cantidad},
    {"Unidades_Max", "maximo", "Hasta unidades", ClaseDato::Cantidad},
    {"Otro_Min", "otroMinimo", "Otro desde", ClaseDato::Cantidad},
    {"Otro_Max", "otroMaximo", "Otro hasta", ClaseDato::Cantidad},
    {"Fecha_Inicial", "desde", "Desde", ClaseDato::Fecha},
    {"Fecha_Final", "hasta", "Hasta", ClaseDato::Fecha},
    {"Otra_Inicial", "otroDesde", "Otro desde", ClaseDato::Fecha},
    {"Otra_Final", "otroHasta", "Otro hasta", ClaseDato::Fecha},
    {"FechaEntrada", "entrada", "Entrada", ClaseDato::Fecha},
    {"FechaSalida", "salida", "Salida", ClaseDato::Fecha},
    {"Otra_Entrada", "otraEntrada", "Otra entrada", ClaseDato::Fecha},
    {"Fecha_Entrada", "fecha", "Fecha", ClaseDato::Fecha},
    {"Pvp", "precio", "Precio", ClaseDato::Importe},
    {"Actualizado", "activo", "Toma parte", ClaseDato::Logico},
    {"Borrado", "retirado", "Retirado", ClaseDato::Logico},
    {"Stock_Actual", "existencias", "Existencias", ClaseDato::Cantidad},
    {"Procedimiento", "procedimiento", "Procedimiento"},
    {"Fallo", "fallo", "Fallo"},
};

// clang-format off
constexpr Revision kRevisiones[] = {
    {"precios de cliente solapados", "en los días comunes vale el que la base devuelva primero",
     "SELECT a.Cod_Cliente, a.Cod_Articulo, a.Fecha_Inicial, a.Fecha_Final, b.Fecha_Inicial AS Otra_Inicial,"
     " b.Fecha_Final AS Otra_Final FROM Clientes_Art_PVP a INNER JOIN Clientes_Art_PVP b ON b.Cod_Empresa = a.Cod_Empresa"
     " AND b.Cod_Cliente = a.Cod_Cliente AND b.Cod_Articulo = a.Cod_Articulo WHERE a.Cod_Empresa ={E}"
     " AND a.Fecha_Inicial <= a.Fecha_Final AND b.Fecha_Inicial <= b.Fecha_Final"
     " AND a.Fecha_Inicial <= b.Fecha_Final AND b.Fecha_Inicial <= a.Fecha_Final"
     " AND (a.Fecha_Inicial < b.Fecha_Inicial OR (a.Fecha_Inicial = b.Fecha_Inicial AND a.Fecha_Final < b.Fecha_Final))"},
    {"precios de cliente al revés", "acaban antes de empezar y nunca valen",
     "SELECT Cod_Cliente, Cod_Articulo, Fecha_Inicial, Fecha_Final FROM Clientes_Art_PVP WHERE Cod_Empresa ={E}"
     " AND Fecha_Inicial > Fecha_Final"},
    {"tramos de unidades solapados", "en las cantidades comunes gana el que empieza más arriba",
     "SELECT a.Cod_Grupo, a.Nivel, a.Familia_1, a.Familia_2, a.Familia_3, a.Cod_Articulo, a.Unidades_Min,"
     " a.Unidades_Max, b.Unidades_Min AS Otro_Min, b.Unidades_Max AS Otro_Max FROM Clientes_Grp_Descuentos_Fam a"
     " INNER JOIN Clientes_Grp_Descuentos_Fam b ON b.Cod_Empresa = a.Cod_Empresa AND b.Cod_Grupo = a.Cod_Grupo"
     " AND b.Nivel = a.Nivel AND b.Familia_1 = a.Familia_1 AND b.Familia_2 = a.Familia_2 AND b.Familia_3 = a.Familia_3"
     " AND b.Cod_Articulo = a.Cod_Articulo WHERE a.Cod_Empresa ={E} AND a.Unidades_Max <> 0 AND b.Unidades_Max <> 0"
     " AND a.Unidades_Min <= a.Unidades_Max AND b.Unidades_Min <= b.Unidades_Max"
     " AND a.Unidades_Min <= b.Unidades_Max AND b.Unidades_Min <= a.Unidades_Max AND (a.Unidades_Min < b.Unidades_Min"
     " OR (a.Unidades_Min = b.Unidades_Min AND a.Unidades_Max < b.Unidades_Max))"},
    {"tramos de unidades al revés", "acaban antes de empezar y nunca valen",
     "SELECT Cod_Grupo, Nivel, Familia_1, Familia_2, Familia_3, Cod_Articulo, Unidades_Min, Unidades_Max FROM"
     " Clientes_Grp_Descuentos_Fam WHERE Cod_Empresa ={E} AND Unidades_Min > Unidades_Max"},
    {"acuerdos solapados", "en los días comunes vale el que empezó más tarde",
     "SELECT a.Cod_Articulo, {NODO}, a.FechaEntrada, a.FechaSalida, b.FechaEntrada AS Otra_Entrada"
     " FROM Clientes_Cadenas_ConvArt a INNER JOIN Clientes_Cadenas_ConvArt b ON b.Cod_Empresa = a.Cod_Empresa{MISMO NODO}"
     " WHERE a.Cod_Empresa ={E} AND a.FechaSalida < '31/12/2050' AND b.FechaSalida < '31/12/2050'"
     " AND a.FechaEntrada < b.FechaEntrada AND a.FechaSalida >= b.FechaEntrada AND b.FechaEntrada <= b.FechaSalida"},
    {"acuerdos tapados para siempre", "otro sin fin del mismo nodo empezó después y los sustituye",
     "SELECT a.Cod_Articulo, {NODO}, a.FechaEntrada, b.FechaEntrada AS Otra_Entrada"
     " FROM Clientes_Cadenas_ConvArt a INNER JOIN Clientes_Cadenas_ConvArt b ON b.Cod_Empresa = a.Cod_Empresa{MISMO NODO}"
     " WHERE a.Cod_Empresa ={E} AND a.FechaSalida >= '31/12/2050' AND b.FechaSalida >= '31/12/2050'"
     " AND a.FechaEntrada < b.FechaEntrada AND b.FechaEntrada <= '{H}'"},
    {"acuerdos al revés", "acaban antes de empezar y nunca valen",
     "SELECT a.Cod_Articulo, {NODO}, a.FechaEntrada, a.FechaSalida FROM Clientes_Cadenas_ConvArt a"
     " WHERE a.Cod_Empresa ={E} AND a.FechaEntrada > a.FechaSalida"},
    {"cambios de tarifa sin uso", "no toman parte, se retiraron o su precio es 0",
     "SELECT Codigo, Cod_Articulo, Cod_Tarifa, Pvp, Fecha_Entrada, Actualizado, Borrado FROM Tarifas_Modificacion"
     " WHERE Cod_Empresa ={A} AND Fecha_Entrada > '{H}' AND (Actualizado = 0 OR Borrado = 1 OR Pvp = 0)"},
    {"cambios de tarifa de variante sin uso", "no toman parte, se retiraron o su precio es 0",
     "SELECT Codigo, Cod_Articulo, CualidadX, Cod_Tarifa, Pvp, Fecha_Entrada, Actualizado, Borrado"
     " FROM Tarifas_Modificacion_C"
     " WHERE Cod_Empresa ={A} AND Fecha_Entrada > '{H}' AND (Actualizado = 0 OR Borrado = 1 OR Pvp = 0)"},
    {"cambios de tarifa repetidos", "hay otro posterior del mismo día, que es el que vale",
     "SELECT a.Codigo, a.Cod_Articulo, a.Cod_Tarifa, a.Fecha_Entrada, b.Codigo AS Otro FROM Tarifas_Modificacion a"
     " INNER JOIN Tarifas_Modificacion b ON b.Cod_Empresa = a.Cod_Empresa AND b.Cod_Articulo = a.Cod_Articulo"
     " AND b.Cod_Tarifa = a.Cod_Tarifa AND b.Fecha_Entrada = a.Fecha_Entrada WHERE a.Cod_Empresa ={A}"
     " AND a.Codigo < b.Codigo AND a.Pvp <> 0 AND b.Pvp <> 0"
     " AND a.Actualizado = 1 AND a.Borrado = 0 AND b.Actualizado = 1 AND b.Borrado = 0"},
    {"cambios de tarifa de variante repetidos", "hay otro posterior del mismo día, que es el que vale",
     "SELECT a.Codigo, a.Cod_Articulo, a.CualidadX, a.Cod_Tarifa, a.Fecha_Entrada, b.Codigo AS Otro"
     " FROM Tarifas_Modificacion_C a INNER JOIN Tarifas_Modificacion_C b ON b.Cod_Empresa = a.Cod_Empresa"
     " AND b.Cod_Articulo = a.Cod_Articulo AND b.CualidadX = a.CualidadX AND b.Cod_Tarifa = a.Cod_Tarifa"
     " AND b.Fecha_Entrada = a.Fecha_Entrada WHERE a.Cod_Empresa ={A}"
     " AND a.Codigo < b.Codigo AND a.Pvp <> 0 AND b.Pvp <> 0"
     " AND a.Actualizado = 1 AND a.Borrado = 0 AND b.Actualizado = 1 AND b.Borrado = 0"},
    {"tarifas sin artículo", "nadie las usa",
     "SELECT t.Cod_Articulo, t.Cod_Tarifa FROM Articulos_Tarifas t LEFT JOIN Articulos a ON a.Cod_Empresa = t.Cod_Empresa"
     " AND a.Codigo = t.Cod_Articulo WHERE t.Cod_Empresa ={A} AND a.Codigo IS NULL"},
    {"precios de cliente sin artículo", "nadie los usa",
     "SELECT p.Cod_Cliente, p.Cod_Articulo FROM Clientes_Art_PVP p LEFT JOIN Articulos a ON a.Codigo = p.Cod_Articulo"
     " AND a.Cod_Empresa ={A} WHERE p.Cod_Empresa ={E} AND a.Codigo IS NULL"},
    {"precios de cliente sin cliente", "nadie los usa",
     "SELECT p.Cod_Cliente, p.Cod_Articulo FROM Clientes_Art_PVP p LEFT JOIN Clientes c ON c.Codigo = p.Cod_Cliente"
     " AND c.Cod_Empresa ={C} WHERE p.Cod_Empresa ={E} AND c.Codigo IS NULL"},
    {"descuentos de familia sin cliente", "nadie los usa",
     "SELECT d.Cod_Cliente, d.Nivel, d.Familia_1, d.Familia_2, d.Familia_3 FROM Descuentos_Familias d LEFT JOIN Clientes c"
     " ON c.Codigo = d.Cod_Cliente AND c.Cod_Empresa ={C} WHERE d.Cod_Empresa ={E} AND c.Codigo IS NULL"},
    {"descuentos de familia sin artículo", "nadie los usa",
     "SELECT d.Cod_Cliente, d.Cod_Articulo FROM Descuentos_Familias d LEFT JOIN Articulos a ON a.Codigo = d.Cod_Articulo"
     " AND a.Cod_Empresa ={A} WHERE d.Cod_Empresa ={E} AND d.Cod_Articulo <> 0 AND a.Codigo IS NULL"},
    {"descuentos de grupo sin artículo", "nadie los usa",
     "SELECT d.Cod_Grupo, d.Cod_Articulo, d.Unidades_Min FROM Clientes_Grp_Descuentos_Fam d LEFT JOIN Articulos a ON"
     " a.Codigo = d.Cod_Articulo AND a.Cod_Empresa ={A} WHERE d.Cod_Empresa ={E} AND d.Cod_Articulo <> 0"
     " AND a.Codigo IS NULL"},
    {"acuerdos sin artículo", "nadie los usa",
     "SELECT a.Cod_Articulo, {NODO}, a.FechaEntrada FROM Clientes_Cadenas_ConvArt a LEFT JOIN Articulos m ON"
     " m.Codigo = a.Cod_Articulo AND m.Cod_Empresa ={A} WHERE a.Cod_Empresa ={E} AND m.Codigo IS NULL"},
    {"convenios sin artículo base con tarifa 1", "no dan precio alguno",
     "SELECT v.Cod_Cliente, v.Cod_Articulo, v.Cod_ArticuloB FROM Clientes_Convenio_Pvp v"
     " LEFT JOIN Articulos a ON a.Codigo = v.Cod_ArticuloB AND a.Cod_Empresa ={A}"
     " LEFT JOIN Articulos_Tarifas t ON t.Cod_Articulo = v.Cod_ArticuloB AND t.Cod_Tarifa = 1 AND t.Cod_Empresa ={A}"
     " WHERE v.Cod_Empresa ={E} AND (a.Codigo IS NULL OR t.Cod_Articulo IS NULL)"},
    {"convenios sin cliente", "nadie los usa",
     "SELECT v.Cod_Cliente, v.Cod_Articulo FROM Clientes_Convenio_Pvp v LEFT JOIN Clientes c ON c.Codigo = v.Cod_Cliente"
     " AND c.Cod_Empresa ={C} WHERE v.Cod_Empresa ={E} AND c.Codigo IS NULL"},
    {"existencias sin artículo", "nadie las ve",
     "SELECT s.Cod_Almacen, s.Cod_Articulo, s.Stock_Actual FROM Almacen_Articulos s LEFT JOIN Articulos a ON"
     " a.Codigo = s.Cod_Articulo AND a.Cod_Empresa ={A} WHERE s.Cod_Empresa ={E} AND a.Codigo IS NULL"},
    {"existencias de variante sin artículo", "nadie las ve",
     "SELECT s.Cod_Almacen, s.Cod_Articulo, s.CualidadX, s.CualidadY, s.Stock_Actual FROM Almacen_Articulos_C s"
     " LEFT JOIN Articulos a ON a.Codigo = s.Cod_Articulo AND a.Cod_Empresa ={A} WHERE s.Cod_Empresa ={E}"
     " AND a.Codigo IS NULL"},
    {"caminos de cadena con huecos", "el nodo de encima del hueco se aplica más de una vez; sin el primero no hay cadena",
     "SELECT Codigo AS Cod_Cliente, Cad_Nivel_1, Cad_Nivel_2, Cad_Nivel_3, Cad_Nivel_4, Cad_Nivel_5, Cad_Nivel_6, Cad_Nivel_7,"
     " Cad_Nivel_8, Cad_Nivel_9, Cad_Nivel_10 FROM Clientes WHERE Cod_Empresa ={E}"
     " AND ((Cad_Nivel_1 = 0 AND Cad_Nivel_2 <> 0) OR (Cad_Nivel_2 = 0 AND Cad_Nivel_3 <> 0)"
     " OR (Cad_Nivel_3 = 0 AND Cad_Nivel_4 <> 0) OR (Cad_Nivel_4 = 0 AND Cad_Nivel_5 <> 0)"
     " OR (Cad_Nivel_5 = 0 AND Cad_Nivel_6 <> 0) OR (Cad_Nivel_6 = 0 AND Cad_Nivel_7 <> 0)"
     " OR (Cad_Nivel_7 = 0 AND Cad_Nivel_8 <> 0) OR (Cad_Nivel_8 = 0 AND Cad_Nivel_9 <> 0)"
     " OR (Cad_Nivel_9 = 0 AND Cad_Nivel_10 <> 0))"},
    {"existencias negativas", "se vendió lo que no consta que entrara",
     "SELECT Cod_Almacen, Cod_Articulo, Stock_Actual FROM Almacen_Articulos WHERE Cod_Empresa ={E} AND Stock_Actual < 0"},
    {"existencias de variante negativas", "se vendió lo que no consta que entrara",
     "SELECT Cod_Almacen, Cod_Articulo, CualidadX, CualidadY, Stock_Actual FROM Almacen_Articulos_C WHERE Cod_Empresa ={E}"
     " AND Stock_Actual < 0"},
    {"existencias sin coste", "lo que se venda a coste se regala",
     "SELECT Cod_Almacen, Cod_Articulo, Stock_Actual FROM Almacen_Articulos WHERE Cod_Empresa ={E} AND Stock_Actual > 0"
     " AND {K} <= 0"},
};
// clang-format on

/// A procedure that loads call and whose failures they pass over.
struct Procedimiento {
    const char* revision;
    const char* nombre;
    bool conUnidades;
};
constexpr Procedimiento kProcedimientos[] = {{"descuento de familia que falla", "KVP_DevDtoDescuentosFamilias", false},
                                             {"descuento de grupo que falla", "KVP_DevDtoClientesGrupos", true}};

// Why a call fails, empty when it does not. It asks about nobody's discount.
std::string Llamar(const Sesion& sesion, const Procedimiento& procedimiento) try {
    const auto comando = sesion.Cnx().CrearCommand();
    PrepararDescuento(*comando, procedimiento.nombre, sesion.Emp(), {0, 0, 0, 0, 0});
    if (procedimiento.conUnidades)
        comando->Parameters.Append(
            {"@Unidades", DataType::adCurrency, ParameterDirection::adParamInput, 0, Currency::DeEntero(1)});
    comando->Parameters.Append({"@Dto", DataType::adCurrency, ParameterDirection::adParamOutput, 0, Nulo{}});
    comando->Execute(CommandType::adOptionUnspecified);
    return "";
} catch (const RuntimeError& error) {
    return error.descripcion;
}

std::string Sustituir(std::string texto, const char* marca, std::string_view valor) {
    for (auto pos = texto.find(marca); pos != std::string::npos; pos = texto.find(marca, pos))
        texto.replace(pos, std::string_view(marca).size(), valor);
    return texto;
}

std::string Consulta(const Revision& revision, const Sesion& sesion) {
    const kv::cEmpresa& empresa = sesion.Emp();
    std::string sql = Sustituir(revision.consulta, "{E}", SqlEntero(empresa.CodEmpresa()));
    sql = Sustituir(std::move(sql), "{A}", SqlEntero(empresa.CodEmpresaArticulos()));
    sql = Sustituir(std::move(sql), "{C}", SqlEntero(empresa.CodEmpresaClientes()));
    sql = Sustituir(std::move(sql), "{K}", empresa.CosteUltimaCompra() ? "PU_Compra" : "P_Medio");
    std::string nodo;
    std::string mismoNodo = " AND b.Cod_Articulo = a.Cod_Articulo";
    for (int i = 1; i <= 10; ++i) {
        const std::string nivel = "Cod_Nivel" + std::to_string(i);
        nodo += (i == 1 ? "a." : ", a.") + nivel;
        mismoNodo += " AND b." + nivel + " = a." + nivel;
    }
    sql = Sustituir(std::move(sql), "{NODO}", nodo);
    sql = Sustituir(std::move(sql), "{MISMO NODO}", mismoNodo);
    return Sustituir(std::move(sql), "{H}", SqlFecha(sesion.Hoy()));
}

// Levels of a path of the chain, which are told together.
bool EsNivel(std::string_view columna) {
    return columna.starts_with("Cod_Nivel") || columna.starts_with("Cad_Nivel_");
}

std::string Camino(const std::vector<std::int16_t>& niveles) {
    std::size_t hondura = niveles.size();
    while (hondura > 1 && niveles[hondura - 1] == 0) --hondura;
    std::string camino;
    for (std::size_t i = 0; i < hondura; ++i) camino += (i == 0 ? "" : ".") + std::to_string(niveles[i]);
    return camino;
}

const ColumnaTabla* ColumnaDe(std::string_view nombre) {
    const auto* const columna = std::find_if(std::begin(kColumnas), std::end(kColumnas),
                                             [&](const ColumnaTabla& c) { return MismoNombre(c.columna, nombre); });
    if (columna == std::end(kColumnas))
        throw std::logic_error("revisión con una columna sin rótulo: " + std::string(nombre));
    return columna;
}

std::vector<std::pair<const ColumnaTabla*, Valor>> ClaveDe(Recordset& rs) {
    std::vector<std::pair<const ColumnaTabla*, Valor>> clave;
    std::vector<std::int16_t> niveles;
    for (std::int32_t i = 0; i < rs.NumeroCampos(); ++i) {
        const std::string columna(rs.NombreCampo(i));
        const Valor& valor = rs.Fields(columna).Value();
        if (EsNivel(columna)) {
            niveles.push_back(AInteger(valor));
            if (niveles.size() == 10) clave.emplace_back(ColumnaDe("Nodo"), Camino(niveles));
        } else {
            clave.emplace_back(ColumnaDe(columna), valor);
        }
    }
    return clave;
}

}  // namespace

std::span<const ColumnaTabla> ColumnasHallazgo() {
    return kColumnas;
}

std::vector<Hallazgo> Revisar(const Sesion& sesion, const std::function<void(std::size_t, std::size_t)>& avance) {
    std::vector<Hallazgo> hallazgos;
    std::unique_ptr<Recordset> rs;
    std::size_t hechas = 0;
    constexpr std::size_t kTodas = std::size(kRevisiones) + std::size(kProcedimientos);
    for (const Procedimiento& procedimiento : kProcedimientos) {
        avance(hechas++, kTodas);
        const std::string fallo = Llamar(sesion, procedimiento);
        if (!fallo.empty())
            hallazgos.push_back(
                {procedimiento.revision,
                 {{ColumnaDe("Procedimiento"), std::string(procedimiento.nombre)}, {ColumnaDe("Fallo"), fallo}},
                 "las cargas siguen sin ese descuento"});
    }
    for (const Revision& revision : kRevisiones) {
        avance(hechas++, kTodas);
        AbrirLectura(rs, sesion.Cnx(), Consulta(revision, sesion));
        for (; !rs->Eof(); rs->MoveNext()) hallazgos.push_back({revision.nombre, ClaveDe(*rs), revision.motivo});
        rs->Close();
    }
    return hallazgos;
}

}  // namespace kv::aplicacion
