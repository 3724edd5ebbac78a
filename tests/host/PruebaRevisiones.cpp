#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <set>

#include "kvdatosart/application/Revisiones.h"
#include "kvdatosart/host/cli/Ordenes.h"
#include "kvdatosart/tests/comun/BaseDemo.h"
#include "kvdatosart/tests/comun/EmpresaFija.h"

namespace kv::host {
namespace {

using aplicacion::Hallazgo;
using prueba::BaseDePrueba;

const Fecha kHoy = Fecha::DeAmd(2026, 3, 5);

const std::string kArticulo = "INSERT INTO Articulos (Cod_Empresa, Codigo) VALUES ";
const std::string kTarifa = "INSERT INTO Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa) VALUES ";
const std::string kCliente =
    "INSERT INTO Clientes (Cod_Empresa, Codigo, Cad_Nivel_1, Cad_Nivel_2, Cad_Nivel_3) VALUES ";
const std::string kPrecio =
    "INSERT INTO Clientes_Art_PVP (Cod_Empresa, Cod_Cliente, Cod_Articulo, Fecha_Inicial, Fecha_Final) VALUES ";
const std::string kTramo =
    "INSERT INTO Clientes_Grp_Descuentos_Fam (Cod_Empresa, Cod_Grupo, Nivel, Familia_1, Familia_2, Familia_3,"
    " Cod_Articulo, Unidades_Min, Unidades_Max) VALUES (1, 9, 4, 1, 2, 3, ";
const std::string kFamilia =
    "INSERT INTO Descuentos_Familias (Cod_Empresa, Cod_Cliente, Nivel, Familia_1, Familia_2, Familia_3, Cod_Articulo)"
    " VALUES ";
const std::string kAcuerdo =
    "INSERT INTO Clientes_Cadenas_ConvArt (Cod_Empresa, Cod_Nivel1, Cod_Nivel2, Cod_Nivel3, Cod_Nivel4, Cod_Nivel5,"
    " Cod_Nivel6, Cod_Nivel7, Cod_Nivel8, Cod_Nivel9, Cod_Nivel10, Cod_Articulo, FechaEntrada, FechaSalida)"
    " VALUES (1, 1, 2, 0, 0, 0, 0, 0, 0, 0, 0, ";
const std::string kCambio =
    "INSERT INTO Tarifas_Modificacion (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Codigo, Fecha_Entrada, Pvp, Actualizado,"
    " Borrado) VALUES (2, 101, ";
const std::string kCambioC =
    "INSERT INTO Tarifas_Modificacion_C (Cod_Empresa, Cod_Articulo, CualidadX, Cod_Tarifa, Codigo, Fecha_Entrada, Pvp,"
    " Actualizado, Borrado) VALUES (2, 101, 38, ";
const std::string kConvenio =
    "INSERT INTO Clientes_Convenio_Pvp (Cod_Empresa, Cod_Cliente, Cod_Articulo, Cod_ArticuloB) VALUES ";
const std::string kStock =
    "INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, Stock_Actual, P_Medio) VALUES ";
const std::string kStockC =
    "INSERT INTO Almacen_Articulos_C (Cod_Empresa, Cod_Almacen, Cod_Articulo, CualidadX, CualidadY, Stock_Actual)"
    " VALUES ";

// Sound rows, each as near to a finding as a sound row can be.
const std::string kSanas[] = {
    "INSERT INTO Empresas (Codigo, Cod_EmpresaArticulos, Cod_EmpresaClientes, Cod_EmpresaExtra) VALUES (1, 2, 3, 4)",
    kArticulo + "(2, 101), (2, 102)",
    kTarifa + "(2, 101, 1), (2, 102, 2)",
    kCliente + "(3, 7, 0, 0, 0), (1, 7, 1, 2, 0)",
    kPrecio + "(1, 7, 101, '01/01/2026', '31/01/2026'), (1, 7, 101, '01/02/2026', '28/02/2026')",
    kPrecio + "(1, 7, 102, '31/01/2026', '31/01/2026')",
    kTramo + "101, 0, 0)",
    kTramo + "101, 1, 9)",
    kTramo + "101, 10, 99)",
    kTramo + "0, 9, 10)",
    kFamilia + "(1, 7, 4, 1, 2, 3, 101), (1, 7, 1, 1, 0, 0, 0)",
    kAcuerdo + "101, '01/01/2026', '31/01/2026')",
    kAcuerdo + "101, '01/02/2026', '28/02/2026')",
    kAcuerdo + "101, '01/01/2025', '31/12/2050')",
    kAcuerdo + "101, '06/03/2026', '31/12/2050')",
    kAcuerdo + "102, '05/03/2026', '05/03/2026')",
    kCambio + "1, 1, '01/04/2026', 9, 1, 0)",
    kCambio + "2, 2, '01/04/2026', 9, 1, 0)",
    kCambio + "1, 3, '05/03/2026', 0, 0, 1)",
    kCambioC + "1, 1, '01/04/2026', 9, 1, 0)",
    kCambioC + "1, 2, '02/04/2026', 9, 1, 0)",
    kConvenio + "(1, 7, 102, 101)",
    kStock + "(1, 1, 101, 5, 2), (1, 1, 102, 0, 0)",
    kStockC + "(1, 1, 101, 38, 2, 0)",
};

struct Caso {
    const char* que;
    std::string siembra;
    const char* clave;
};

const Caso kCasos[] = {
    {"precios de cliente solapados", kPrecio + "(1, 7, 101, '31/01/2026', '31/01/2026')",
     "Cod_Cliente 7, Cod_Articulo 101, Fecha_Inicial 01/01/2026, Fecha_Final 31/01/2026, Otra_Inicial 31/01/2026,"
     " Otra_Final 31/01/2026"},
    {"precios de cliente al revés", kPrecio + "(1, 7, 101, '15/01/2026', '14/01/2026')",
     "Cod_Cliente 7, Cod_Articulo 101, Fecha_Inicial 15/01/2026, Fecha_Final 14/01/2026"},
    {"tramos de unidades solapados", kTramo + "101, 9, 9.5)",
     "Cod_Grupo 9, Nivel 4, Familia_1 1, Familia_2 2, Familia_3 3, Cod_Articulo 101, Unidades_Min 1, Unidades_Max 9,"
     " Otro_Min 9, Otro_Max 9,5"},
    {"tramos de unidades al revés", kTramo + "101, 50, 40)",
     "Cod_Grupo 9, Nivel 4, Familia_1 1, Familia_2 2, Familia_3 3, Cod_Articulo 101, Unidades_Min 50, Unidades_Max 40"},
    {"acuerdos solapados", kAcuerdo + "101, '28/02/2026', '01/03/2026')",
     "Cod_Articulo 101, Nodo 1.2, FechaEntrada 01/02/2026, FechaSalida 28/02/2026, Otra_Entrada 28/02/2026"},
    {"acuerdos tapados para siempre", kAcuerdo + "101, '05/03/2026', '31/12/2050')",
     "Cod_Articulo 101, Nodo 1.2, FechaEntrada 01/01/2025, Otra_Entrada 05/03/2026"},
    {"acuerdos al revés", kAcuerdo + "101, '15/01/2026', '14/01/2026')",
     "Cod_Articulo 101, Nodo 1.2, FechaEntrada 15/01/2026, FechaSalida 14/01/2026"},
    {"cambios de tarifa sin uso", kCambio + "1, 9, '06/03/2026', 0, 1, 0)",
     "Codigo 9, Cod_Articulo 101, Cod_Tarifa 1, Pvp 0, Fecha_Entrada 06/03/2026, Actualizado Verdadero, Borrado Falso"},
    {"cambios de tarifa sin uso", kCambio + "1, 9, '01/04/2026', 5, 0, 0)",
     "Codigo 9, Cod_Articulo 101, Cod_Tarifa 1, Pvp 5, Fecha_Entrada 01/04/2026, Actualizado Falso, Borrado Falso"},
    {"cambios de tarifa sin uso", kCambio + "1, 9, '01/04/2026', 5, 1, 1)",
     "Codigo 9, Cod_Articulo 101, Cod_Tarifa 1, Pvp 5, Fecha_Entrada 01/04/2026, Actualizado Verdadero, Borrado "
     "Verdadero"},
    {"cambios de tarifa de variante sin uso", kCambioC + "1, 9, '01/04/2026', 0, 1, 0)",
     "Codigo 9, Cod_Articulo 101, CualidadX 38, Cod_Tarifa 1, Pvp 0, Fecha_Entrada 01/04/2026, Actualizado Verdadero,"
     " Borrado Falso"},
    {"cambios de tarifa repetidos", kCambio + "1, 9, '01/04/2026', 5, 1, 0)",
     "Codigo 1, Cod_Articulo 101, Cod_Tarifa 1, Fecha_Entrada 01/04/2026, Otro 9"},
    {"cambios de tarifa de variante repetidos", kCambioC + "1, 9, '02/04/2026', 5, 1, 0)",
     "Codigo 2, Cod_Articulo 101, CualidadX 38, Cod_Tarifa 1, Fecha_Entrada 02/04/2026, Otro 9"},
    {"tarifas sin artículo", kTarifa + "(2, 999, 1)", "Cod_Articulo 999, Cod_Tarifa 1"},
    {"precios de cliente sin artículo", kPrecio + "(1, 7, 999, '01/01/2026', '31/01/2026')",
     "Cod_Cliente 7, Cod_Articulo 999"},
    {"precios de cliente sin cliente", kPrecio + "(1, 99, 101, '01/01/2026', '31/01/2026')",
     "Cod_Cliente 99, Cod_Articulo 101"},
    {"descuentos de familia sin cliente", kFamilia + "(1, 99, 1, 5, 0, 0, 0)",
     "Cod_Cliente 99, Nivel 1, Familia_1 5, Familia_2 0, Familia_3 0"},
    {"descuentos de familia sin artículo", kFamilia + "(1, 7, 4, 1, 2, 3, 999)", "Cod_Cliente 7, Cod_Articulo 999"},
    {"descuentos de grupo sin artículo", kTramo + "999, 1, 9)", "Cod_Grupo 9, Cod_Articulo 999, Unidades_Min 1"},
    {"acuerdos sin artículo", kAcuerdo + "999, '01/01/2026', '31/01/2026')",
     "Cod_Articulo 999, Nodo 1.2, FechaEntrada 01/01/2026"},
    {"convenios sin artículo base con tarifa 1", kConvenio + "(1, 7, 101, 102)",
     "Cod_Cliente 7, Cod_Articulo 101, Cod_ArticuloB 102"},
    {"convenios sin cliente", kConvenio + "(1, 99, 101, 101)", "Cod_Cliente 99, Cod_Articulo 101"},
    {"existencias sin artículo", kStock + "(1, 1, 999, 5, 2)", "Cod_Almacen 1, Cod_Articulo 999, Stock_Actual 5"},
    {"existencias de variante sin artículo", kStockC + "(1, 1, 999, 38, 2, 5)",
     "Cod_Almacen 1, Cod_Articulo 999, CualidadX 38, CualidadY 2, Stock_Actual 5"},
    {"caminos de cadena con huecos", kCliente + "(1, 8, 1, 0, 3)", "Cod_Cliente 8, Nodo 1.0.3"},
    {"existencias negativas", kStock + "(1, 2, 101, -0.5, 2)", "Cod_Almacen 2, Cod_Articulo 101, Stock_Actual -0,5"},
    {"existencias de variante negativas", kStockC + "(1, 2, 101, 38, 2, -1)",
     "Cod_Almacen 2, Cod_Articulo 101, CualidadX 38, CualidadY 2, Stock_Actual -1"},
    {"existencias sin coste", "UPDATE Almacen_Articulos SET P_Medio = 0, PU_Compra = 3 WHERE Cod_Articulo =101",
     "Cod_Almacen 1, Cod_Articulo 101, Stock_Actual 5"},
};

std::string TextoDe(const Hallazgo& hallazgo) {
    std::string texto;
    for (const auto& [columna, valor] : hallazgo.clave)
        texto += (texto.empty() ? "" : ", ") + std::string(columna->columna) + ' ' + AString(valor, ',');
    return texto;
}

class Revisiones : public testing::Test {
  protected:
    Revisiones() {
        conexion->BeginTrans();
        for (const std::string& sana : kSanas) conexion->Ejecutar(sana);
        conexion->CommitTrans();
    }
    std::vector<Hallazgo> Hallar() {
        return aplicacion::Revisar({conexion, empresa, kHoy},
                                   [this](std::size_t, std::size_t cuantas) { todas = cuantas; });
    }

    prueba::BibliotecaDePrueba biblioteca{kHoy, ','};
    BaseDePrueba base{BaseDePrueba::Datos::Ninguno, kHoy};
    std::shared_ptr<ConexionSqlite> conexion = base.Abrir();
    std::shared_ptr<prueba::EmpresaFija> empresa = std::make_shared<prueba::EmpresaFija>();
    std::size_t todas = 0;
};

TEST_F(Revisiones, CadaUnaHallaLoSuyoYSoloEso) {
    for (const Hallazgo& falso : Hallar()) ADD_FAILURE() << falso.que << ": " << TextoDe(falso);
    std::set<std::string_view> vistas;
    for (const Caso& caso : kCasos) {
        SCOPED_TRACE(caso.siembra);
        conexion->BeginTrans();
        EXPECT_EQ(1, conexion->EjecutarContando(caso.siembra));
        const std::vector<Hallazgo> hallazgos = Hallar();
        conexion->RollbackTrans();
        EXPECT_EQ(1U, hallazgos.size());
        for (const Hallazgo& hallazgo : hallazgos) {
            EXPECT_EQ(caso.que, hallazgo.que);
            EXPECT_EQ(caso.clave, TextoDe(hallazgo));
            vistas.insert(hallazgo.que);
        }
    }
    // Those of the procedures have a test of their own.
    EXPECT_EQ(todas, vistas.size() + 2) << "una revisión sin caso";
}

TEST_F(Revisiones, Huecos_EnCualquierNivel) {
    for (int hueco = 1; hueco <= 9; ++hueco) {
        conexion->BeginTrans();
        for (int nivel = 1; nivel <= 10; ++nivel)
            conexion->Ejecutar("UPDATE Clientes SET Cad_Nivel_" + std::to_string(nivel) + " =" +
                               (nivel == hueco ? "0" : "5") + " WHERE Cod_Empresa =1");
        EXPECT_EQ(1U, Hallar().size()) << hueco;
        conexion->RollbackTrans();
    }
}

TEST_F(Revisiones, Procedimientos_QueNoSePuedenLlamar) {
    conexion->Ejecutar("DELETE FROM Procedimientos WHERE Nombre ='KVP_DevDtoClientesGrupos'");
    conexion->Ejecutar("UPDATE Procedimientos SET Cuerpo ='SELECT Dto FROM Nada'");
    const std::vector<Hallazgo> hallazgos = Hallar();
    ASSERT_EQ(2U, hallazgos.size());
    EXPECT_EQ("descuento de familia que falla", hallazgos[0].que);
    EXPECT_TRUE(
        TextoDe(hallazgos[0]).starts_with("Procedimiento KVP_DevDtoDescuentosFamilias, Fallo no such table: Nada"));
    EXPECT_EQ("descuento de grupo que falla", hallazgos[1].que);
    EXPECT_EQ(
        "Procedimiento KVP_DevDtoClientesGrupos, Fallo No existe el procedimiento almacenado"
        " «KVP_DevDtoClientesGrupos»",
        TextoDe(hallazgos[1]));
}

TEST_F(Revisiones, Coste_ElQueLaEmpresaElige) {
    empresa->costeUltimaCompra = true;
    ASSERT_EQ(1U, Hallar().size());
    EXPECT_EQ("existencias sin coste", Hallar()[0].que);
}

TEST_F(Revisiones, Orden_SinHallazgos) {
    CLI::App programa;
    AnadirRevisar(programa);
    testing::internal::CaptureStdout();
    programa.parse("revisar --json --base " + base.Ruta());
    EXPECT_EQ("{\n  \"formato\": 1,\n  \"hallazgos\": []\n}\n", testing::internal::GetCapturedStdout());
}

}  // namespace
}  // namespace kv::host
