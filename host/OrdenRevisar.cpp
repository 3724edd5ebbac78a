#include <unistd.h>

#include <CLI/CLI.hpp>
#include <chrono>
#include <cstdio>
#include <iostream>
#include <memory>

#include "db/BibliotecaComun.h"
#include "db/ValoresSql.h"
#include "host/Fallo.h"
#include "host/Ordenes.h"
#include "host/Sesion.h"

namespace kv::host {
namespace {

/// One thing that makes prices or stock surprising. In its statement, {E} is the company, {A} the article company,
/// {C} the customer company and {H} today.
struct Revision {
    const char* nombre;
    const char* motivo;
    const char* consulta;
};

// clang-format off
constexpr Revision kRevisiones[] = {
    {"precios de cliente solapados", "en los días comunes vale el que la base devuelva primero",
     "SELECT a.Cod_Cliente, a.Cod_Articulo, a.Fecha_Inicial, a.Fecha_Final, b.Fecha_Inicial AS Otra_Inicial,"
     " b.Fecha_Final AS Otra_Final FROM Clientes_Art_PVP a INNER JOIN Clientes_Art_PVP b ON b.Cod_Empresa = a.Cod_Empresa"
     " AND b.Cod_Cliente = a.Cod_Cliente AND b.Cod_Articulo = a.Cod_Articulo WHERE a.Cod_Empresa ={E}"
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
     " AND a.Unidades_Min <= b.Unidades_Max AND b.Unidades_Min <= a.Unidades_Max AND (a.Unidades_Min < b.Unidades_Min"
     " OR (a.Unidades_Min = b.Unidades_Min AND a.Unidades_Max < b.Unidades_Max))"},
    {"tramos de unidades al revés", "acaban antes de empezar y nunca valen",
     "SELECT Cod_Grupo, Nivel, Familia_1, Familia_2, Familia_3, Cod_Articulo, Unidades_Min, Unidades_Max FROM"
     " Clientes_Grp_Descuentos_Fam WHERE Cod_Empresa ={E} AND Unidades_Min > Unidades_Max"},
    {"acuerdos solapados", "en los días comunes vale el que empezó más tarde",
     "SELECT a.Cod_Articulo, a.Cod_Nivel1, a.Cod_Nivel2, a.Cod_Nivel3, a.FechaEntrada, a.FechaSalida,"
     " b.FechaEntrada AS Otra_Entrada FROM Clientes_Cadenas_ConvArt a INNER JOIN Clientes_Cadenas_ConvArt b ON"
     " b.Cod_Empresa = a.Cod_Empresa AND b.Cod_Articulo = a.Cod_Articulo AND b.Cod_Nivel1 = a.Cod_Nivel1"
     " AND b.Cod_Nivel2 = a.Cod_Nivel2 AND b.Cod_Nivel3 = a.Cod_Nivel3 AND b.Cod_Nivel4 = a.Cod_Nivel4"
     " AND b.Cod_Nivel5 = a.Cod_Nivel5 AND b.Cod_Nivel6 = a.Cod_Nivel6 AND b.Cod_Nivel7 = a.Cod_Nivel7"
     " AND b.Cod_Nivel8 = a.Cod_Nivel8 AND b.Cod_Nivel9 = a.Cod_Nivel9 AND b.Cod_Nivel10 = a.Cod_Nivel10"
     " WHERE a.Cod_Empresa ={E} AND a.FechaSalida < '31/12/2050' AND b.FechaSalida < '31/12/2050'"
     " AND a.FechaEntrada < b.FechaEntrada AND a.FechaSalida >= b.FechaEntrada"},
    {"acuerdos tapados para siempre", "otro sin fin del mismo nodo empezó después y los sustituye",
     "SELECT a.Cod_Articulo, a.Cod_Nivel1, a.Cod_Nivel2, a.Cod_Nivel3, a.FechaEntrada, b.FechaEntrada AS Otra_Entrada"
     " FROM Clientes_Cadenas_ConvArt a INNER JOIN Clientes_Cadenas_ConvArt b ON b.Cod_Empresa = a.Cod_Empresa"
     " AND b.Cod_Articulo = a.Cod_Articulo AND b.Cod_Nivel1 = a.Cod_Nivel1 AND b.Cod_Nivel2 = a.Cod_Nivel2"
     " AND b.Cod_Nivel3 = a.Cod_Nivel3 AND b.Cod_Nivel4 = a.Cod_Nivel4 AND b.Cod_Nivel5 = a.Cod_Nivel5"
     " AND b.Cod_Nivel6 = a.Cod_Nivel6 AND b.Cod_Nivel7 = a.Cod_Nivel7 AND b.Cod_Nivel8 = a.Cod_Nivel8"
     " AND b.Cod_Nivel9 = a.Cod_Nivel9 AND b.Cod_Nivel10 = a.Cod_Nivel10 WHERE a.Cod_Empresa ={E}"
     " AND b.FechaSalida >= '31/12/2050' AND a.FechaSalida >= '31/12/2050' AND a.FechaEntrada < b.FechaEntrada"
     " AND b.FechaEntrada <= '{H}'"},
    {"acuerdos al revés", "acaban antes de empezar y nunca valen",
     "SELECT Cod_Articulo, Cod_Nivel1, Cod_Nivel2, Cod_Nivel3, FechaEntrada, FechaSalida FROM Clientes_Cadenas_ConvArt"
     " WHERE Cod_Empresa ={E} AND FechaEntrada > FechaSalida"},
    {"cambios de tarifa sin uso", "no toman parte, se retiraron o su precio es 0",
     "SELECT Codigo, Cod_Articulo, Cod_Tarifa, Pvp, Fecha_Entrada, Actualizado, Borrado FROM Tarifas_Modificacion"
     " WHERE Cod_Empresa ={A} AND Fecha_Entrada > '{H}' AND (Actualizado = 0 OR Borrado = 1 OR Pvp = 0)"},
    {"cambios de tarifa repetidos", "hay otro posterior del mismo día, que es el que vale",
     "SELECT a.Codigo, a.Cod_Articulo, a.Cod_Tarifa, a.Fecha_Entrada, b.Codigo AS Otro FROM Tarifas_Modificacion a"
     " INNER JOIN Tarifas_Modificacion b ON b.Cod_Empresa = a.Cod_Empresa AND b.Cod_Articulo = a.Cod_Articulo"
     " AND b.Cod_Tarifa = a.Cod_Tarifa AND b.Fecha_Entrada = a.Fecha_Entrada WHERE a.Cod_Empresa ={A}"
     " AND a.Codigo < b.Codigo AND a.Actualizado = 1 AND a.Borrado = 0 AND b.Actualizado = 1 AND b.Borrado = 0"},
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
    {"acuerdos sin artículo", "nadie los usa",
     "SELECT p.Cod_Articulo, p.Cod_Nivel1, p.Cod_Nivel2 FROM Clientes_Cadenas_ConvArt p LEFT JOIN Articulos a ON"
     " a.Codigo = p.Cod_Articulo AND a.Cod_Empresa ={A} WHERE p.Cod_Empresa ={E} AND a.Codigo IS NULL"},
    {"convenios sin artículo base con tarifa 1", "no dan precio alguno",
     "SELECT v.Cod_Cliente, v.Cod_Articulo, v.Cod_ArticuloB FROM Clientes_Convenio_Pvp v LEFT JOIN Articulos_Tarifas t ON"
     " t.Cod_Articulo = v.Cod_ArticuloB AND t.Cod_Tarifa = 1 AND t.Cod_Empresa ={A} WHERE v.Cod_Empresa ={E}"
     " AND t.Cod_Articulo IS NULL"},
    {"existencias sin artículo", "nadie las ve",
     "SELECT s.Cod_Almacen, s.Cod_Articulo, s.Stock_Actual FROM Almacen_Articulos s LEFT JOIN Articulos a ON"
     " a.Codigo = s.Cod_Articulo AND a.Cod_Empresa ={A} WHERE s.Cod_Empresa ={E} AND a.Codigo IS NULL"},
    {"caminos de cadena con huecos", "el nodo de encima del hueco se aplica más de una vez",
     "SELECT Codigo, Cad_Nivel_1, Cad_Nivel_2, Cad_Nivel_3, Cad_Nivel_4 FROM Clientes WHERE Cod_Empresa ={E}"
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
     " AND P_Medio = 0 AND PU_Compra = 0"},
};
// clang-format on

std::string Sustituir(std::string texto, const char* marca, std::string_view valor) {
    for (auto pos = texto.find(marca); pos != std::string::npos; pos = texto.find(marca, pos))
        texto.replace(pos, std::string_view(marca).size(), valor);
    return texto;
}

std::string Consulta(const Revision& revision, const kv::cEmpresa& empresa) {
    std::string sql = Sustituir(revision.consulta, "{E}", SqlEntero(empresa.CodEmpresa()));
    sql = Sustituir(std::move(sql), "{A}", SqlEntero(empresa.CodEmpresaArticulos()));
    sql = Sustituir(std::move(sql), "{C}", SqlEntero(empresa.CodEmpresaClientes()));
    return Sustituir(std::move(sql), "{H}", SqlFecha(Biblioteca().Hoy()));
}

/// A bar on the terminal, only when there is one and the check takes long.
class Progreso {
  public:
    void Mostrar(std::size_t hechas, std::size_t todas) {
        const auto pasado = std::chrono::steady_clock::now() - inicio_;
        if (isatty(STDERR_FILENO) == 0 || pasado < std::chrono::milliseconds(700)) return;
        const std::size_t lleno = hechas * 30 / todas;
        std::cerr << "\r[" << std::string(lleno, '#') << std::string(30 - lleno, ' ') << "] " << hechas << '/' << todas
                  << std::flush;
        visible_ = true;
    }
    ~Progreso() {
        if (visible_) std::cerr << '\r' << std::string(45, ' ') << '\r' << std::flush;
    }
    Progreso() = default;
    Progreso(const Progreso&) = delete;
    Progreso& operator=(const Progreso&) = delete;

  private:
    std::chrono::steady_clock::time_point inicio_ = std::chrono::steady_clock::now();
    bool visible_ = false;
};

std::string ClaveDe(Recordset& rs) {
    std::string clave;
    for (std::int32_t i = 0; i < rs.NumeroCampos(); ++i) {
        const std::string columna(rs.NombreCampo(i));
        const Valor& valor = rs.Fields(columna).Value();
        clave += (i == 0 ? "" : ", ") + columna + " " +
                 (EsNulo(valor) ? "-" : AString(valor, Biblioteca().SeparadorDecimal()));
    }
    return clave;
}

void Revisar(const OpcionesComunes& opciones) {
    Sesion sesion(opciones, true);
    sesion.respuesta.Tabla("hallazgos", {"que", "clave", "porque"});
    int hallazgos = 0;
    {
        Progreso progreso;
        std::size_t hechas = 0;
        for (const Revision& revision : kRevisiones) {
            progreso.Mostrar(hechas++, std::size(kRevisiones));
            std::unique_ptr<Recordset> rs;
            AbrirLectura(rs, sesion.Cnx(), Consulta(revision, sesion.Emp()));
            for (; !rs->Eof(); rs->MoveNext(), ++hallazgos)
                sesion.respuesta.Fila({std::string(revision.nombre), ClaveDe(*rs), std::string(revision.motivo)});
            rs->Close();
        }
    }
    sesion.Escribir(std::cout);
    if (hallazgos != 0) throw Fallo(kNegativo, std::to_string(hallazgos) + " hallazgos");
}

}  // namespace

void AnadirRevisar(CLI::App& programa) {
    CLI::App* orden =
        programa.add_subcommand("revisar", "Busca lo que hace raros los precios o las existencias; solo lee");
    const auto o = std::make_shared<OpcionesComunes>();
    o->Anadir(*orden);
    orden->callback([o] { Revisar(*o); });
}

}  // namespace kv::host
