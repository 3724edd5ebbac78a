#include "kvdatosart/application/Listados.h"

#include <map>
#include <memory>

#include "kvdatosart/application/Acuerdos.h"
#include "kvdatosart/application/Palabras.h"
#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/db/ValoresSql.h"

namespace kv::aplicacion {
namespace {

constexpr ColumnaTabla kArticulos[] = {
    {"Codigo", "codigo", "Código", ClaseDato::Codigo},
    {"Descripcion", "descripcion", "Descripción"},
    {"Familia_1", "familia1", "Familia 1", ClaseDato::Codigo},
    {"Familia_2", "familia2", "Familia 2", ClaseDato::Codigo},
    {"Familia_3", "familia3", "Familia 3", ClaseDato::Codigo},
    {"Bloqueado", "bloqueado", "Bloqueado", ClaseDato::Logico},
};

constexpr ColumnaTabla kClientes[] = {
    {"Codigo", "codigo", "Código", ClaseDato::Codigo},           {"Nombre", "nombre", "Nombre"},
    {"Nombre_Comercial", "nombreComercial", "Nombre comercial"}, {"Localidad", "localidad", "Localidad"},
    {"Tarifa_Pvp", "tarifa", "Tarifa", ClaseDato::Codigo},       {"Grupo_Dto", "grupo", "Grupo", ClaseDato::Codigo},
    {"Bloqueado", "bloqueado", "Bloqueado", ClaseDato::Logico},
};

constexpr ColumnaTabla kTarifas[] = {
    {"Codigo", "codigo", "Código", ClaseDato::Codigo},
    {"Descripcion", "descripcion", "Descripción"},
};

constexpr ColumnaTabla kAlmacenes[] = {
    {"Codigo", "codigo", "Código", ClaseDato::Codigo},
    {"Nombre", "nombre", "Nombre"},
    {"FUCompra", "ultimaCompra", "Última compra", ClaseDato::Fecha},
    {"FUVenta", "ultimaVenta", "Última venta", ClaseDato::Fecha},
};

constexpr ColumnaTabla kGrupos[] = {
    {"Codigo", "codigo", "Código", ClaseDato::Codigo},
    {"Descripcion", "descripcion", "Descripción"},
};

constexpr ColumnaTabla kCadenas[] = {
    {"", "nodo", "Nodo"},
    {"", "clientes", "Clientes", ClaseDato::Cantidad},
    {"", "acuerdos", "Acuerdos", ClaseDato::Cantidad},
};

constexpr ColumnaTabla kEmpresas[] = {
    {"Codigo", "codigo", "Código", ClaseDato::Codigo},
    {"Nombre", "nombre", "Nombre"},
    {"Cod_EmpresaArticulos", "empresaArticulos", "Artículos de", ClaseDato::Codigo},
    {"Cod_EmpresaClientes", "empresaClientes", "Clientes de", ClaseDato::Codigo},
    {"Tarifa", "tarifa", "Tarifa", ClaseDato::Codigo},
    {"TarifasxFechas", "tarifasPorFechas", "Tarifas por fechas", ClaseDato::Logico},
    {"VenderSinStock", "venderSinStock", "Vende sin existencias", ClaseDato::Logico},
};

// The texts of a row after its code, together.
std::string Nombres(const FilaTabla& fila) {
    std::string nombres;
    for (const Valor& valor : fila)
        if (const std::string* texto = std::get_if<std::string>(&valor)) nombres += *texto + " ";
    return nombres;
}

RespuestaListado Buscar(Tabla tabla, const PeticionListado& peticion, const char* que) {
    if (peticion.limite && *peticion.limite < 1) RechazarImposible("limite", "se espera un número desde 1");
    const Palabras palabras(peticion.texto);
    std::erase_if(tabla.filas,
                  [&](const FilaTabla& fila) { return !palabras.Hallan(AString(fila[0], '.'), Nombres(fila)); });
    if (tabla.filas.empty())
        RechazarNegativa(
            "", "no hay " + std::string(que) + (peticion.texto.empty() ? "" : " con «" + peticion.texto + "»"));
    RespuestaListado respuesta{std::move(tabla), 0};
    respuesta.hallados = respuesta.tabla.filas.size();
    if (peticion.limite && respuesta.hallados > static_cast<std::size_t>(*peticion.limite))
        respuesta.tabla.filas.resize(static_cast<std::size_t>(*peticion.limite));
    return respuesta;
}

Tabla LeerMaestro(const Sesion& sesion, std::string_view clave, std::span<const ColumnaTabla> columnas,
                  std::string_view tabla, std::int16_t empresa, const std::string& filtro = {}) {
    return LeerTabla(sesion.Cnx(), clave, columnas,
                     TextoSql("FROM ", tabla, " WHERE Cod_Empresa =", SqlEntero(empresa), filtro, " ORDER BY Codigo"));
}

template <std::size_t N>
std::string Filtro(std::string_view prefijo, const std::array<std::int16_t, N>& niveles) {
    std::string sql;
    for (std::size_t i = 0; i < N && niveles[i] != 0; ++i)
        Agregar(sql, " AND ", prefijo, SqlEntero(static_cast<std::int32_t>(i) + 1), " =", SqlEntero(niveles[i]));
    return sql;
}

struct Nodo {
    std::int32_t clientes = 0;
    std::int32_t acuerdos = 0;
};
using Nodos = std::map<NivelesCadena, Nodo>;

NivelesCadena LeerNiveles(Recordset& rs, const std::string& prefijo) {
    NivelesCadena nodo{};
    for (std::size_t i = 0; i < nodo.size(); ++i) {
        nodo[i] = AInteger(rs.Fields(prefijo + std::to_string(i + 1)).Value());
        // What follows a gap is no place in a chain.
        if (nodo[i] == 0) break;
    }
    return nodo;
}

template <class Contar>
void ContarNodos(const Sesion& sesion, std::string_view tabla, const std::string& prefijo, Contar contar) {
    std::string sql = "SELECT ";
    for (int i = 1; i <= 10; ++i) Agregar(sql, std::string_view(i == 1 ? "" : ", "), prefijo, SqlEntero(i));
    Agregar(sql, " FROM ", tabla, " WHERE Cod_Empresa =", SqlEntero(sesion.Emp().CodEmpresa()), " AND ", prefijo,
            "1 <> 0");
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, sesion.Cnx(), sql);
    for (; !rs->Eof(); rs->MoveNext()) contar(LeerNiveles(*rs, prefijo));
}

Nodos LeerNodos(const Sesion& sesion) {
    Nodos nodos;
    ContarNodos(sesion, "Clientes", "Cad_Nivel_", [&](const NivelesCadena& camino) {
        NivelesCadena nodo{};
        for (std::size_t i = 0; i < camino.size() && camino[i] != 0; ++i) {
            nodo[i] = camino[i];
            ++nodos[nodo].clientes;
        }
    });
    ContarNodos(sesion, "Clientes_Cadenas_ConvArt", "Cod_Nivel",
                [&](const NivelesCadena& nodo) { ++nodos[nodo].acuerdos; });
    return nodos;
}

}  // namespace

RespuestaListado ListarArticulos(const Sesion& sesion, const PeticionArticulos& peticion) {
    const std::string filtro = peticion.familia ? Filtro("Familia_", *peticion.familia) : "";
    return Buscar(LeerMaestro(sesion, "articulos", kArticulos, "Articulos", sesion.Emp().CodEmpresaArticulos(), filtro),
                  peticion, "artículos");
}

RespuestaListado ListarClientes(const Sesion& sesion, const PeticionClientes& peticion) {
    std::string filtro;
    if (peticion.grupo) Agregar(filtro, " AND Grupo_Dto =", SqlEntero(*peticion.grupo));
    if (peticion.nodo) filtro += Filtro("Cad_Nivel_", *peticion.nodo);
    return Buscar(LeerMaestro(sesion, "clientes", kClientes, "Clientes", sesion.Emp().CodEmpresaClientes(), filtro),
                  peticion, "clientes");
}

RespuestaListado ListarTarifas(const Sesion& sesion, const PeticionListado& peticion) {
    return Buscar(LeerMaestro(sesion, "tarifas", kTarifas, "Tarifas", sesion.Emp().CodEmpresaArticulos()), peticion,
                  "tarifas");
}

RespuestaListado ListarAlmacenes(const Sesion& sesion, const PeticionListado& peticion) {
    return Buscar(LeerMaestro(sesion, "almacenes", kAlmacenes, "Almacenes", sesion.Emp().CodEmpresa()), peticion,
                  "almacenes");
}

RespuestaListado ListarGrupos(const Sesion& sesion, const PeticionListado& peticion) {
    return Buscar(LeerMaestro(sesion, "grupos", kGrupos, "Clientes_Grp_Descuentos", sesion.Emp().CodEmpresa()),
                  peticion, "grupos");
}

RespuestaListado ListarCadenas(const Sesion& sesion, const PeticionListado& peticion) {
    Tabla tabla{"cadenas", kCadenas};
    for (const auto& [nodo, hay] : LeerNodos(sesion))
        tabla.filas.push_back({TextoDe(nodo), hay.clientes, hay.acuerdos});
    return Buscar(std::move(tabla), peticion, "cadenas");
}

RespuestaListado ListarEmpresas(const Sesion& sesion, const PeticionListado& peticion) {
    return Buscar(LeerTabla(sesion.Cnx(), "empresas", kEmpresas, "FROM Empresas ORDER BY Codigo"), peticion,
                  "empresas");
}

}  // namespace kv::aplicacion
