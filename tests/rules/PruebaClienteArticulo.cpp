#include <gtest/gtest.h>

#include "rules/clsCliente_Articulo.h"
#include "tests/comun/ConexionGuion.h"
#include "tests/comun/EmpresaFija.h"
#include "tests/comun/Errores.h"

namespace kv::prueba {
namespace {

class ClienteArticulo : public testing::Test {
  protected:
    ClienteArticulo() {
        objeto.Conexion(guion);
        objeto.cEmpresa(empresa);
        objeto.Cod_Empresa = 1;
        objeto.Cod_Almacen = 2;
        objeto.Cod_Cliente = 77;
        objeto.Cod_EmpresaExtra = 4;
        objeto.Cod_Articulo = 1042;
        objeto.precio = 12.5;
        objeto.Fecha_Inicial = Fecha::DeAmd(2026, 1, 1);
        objeto.Fecha_Final = Fecha::DeAmd(2026, 12, 31);
    }

    const Fecha dia = Fecha::DeAmd(2026, 3, 5);
    BibliotecaDePrueba biblioteca{dia, ','};
    std::shared_ptr<ConexionGuion> guion = std::make_shared<ConexionGuion>();
    std::shared_ptr<EmpresaFija> empresa = std::make_shared<EmpresaFija>();
    clsCliente_Articulo objeto;
};

TEST_F(ClienteArticulo, DevPrecio_ConElBlancoTrasLaComilla) {
    constexpr const char* kSql =
        " SELECT Pvp FROM Clientes_Art_PVP WHERE Cod_Empresa =1 AND Cod_Cliente =77 AND Cod_Articulo =1042"
        " AND Fecha_Inicial <=' 05/03/2026' AND Fecha_Final >=' 05/03/2026'";
    guion->EsperaConsulta(kSql);
    EXPECT_FALSE(objeto.Dev_Precio(dia));
    EXPECT_EQ(12.5, objeto.precio);
    guion->EsperaConsulta(kSql, {"PVP"}, {{9.25}, {8.0}});
    EXPECT_TRUE(objeto.Dev_Precio(dia));
    EXPECT_EQ(9.25, objeto.precio);
}

TEST_F(ClienteArticulo, Escrituras_EnLosDosModos) {
    guion->EsperaEjecucion(
        "INSERT INTO Clientes_Art_PVP (Cod_Cliente,Cod_Empresa,Cod_Articulo,PVP,Fecha_Inicial,Fecha_Final) Values ("
        "77,1,1042,12.5,'01/01/2026','31/12/2026')");
    objeto.Insertar();
    guion->EsperaEjecucion(
        "DELETE FROM Clientes_Art_PVP WHERE Cod_Empresa = 1 AND Cod_Articulo = 5 AND Cod_Cliente =  77"
        " AND Fecha_Inicial ='05/03/2026' AND Fecha_Final = '31/12/2026'");
    objeto.Eliminar(5, dia, objeto.Fecha_Final);
    guion->EsperaEjecucion(
        " UPDATE Clientes_Art_PVP SET Cod_Articulo=1042 ,Cod_Cliente=77,PVP=12.5 WHERE Cod_Empresa =1"
        " AND Cod_Articulo =5 AND Cod_Cliente =77 AND Fecha_Inicial = '01/01/2026' AND Fecha_Final = '31/12/2026'");
    objeto.Modificar(5);
    objeto.Por_Articulo(true);
    guion->EsperaEjecucion(
        " DELETE FROM Clientes_Art_PVP WHERE Cod_Empresa = 1 AND Cod_Articulo = 1042 AND Cod_Cliente =  5"
        " AND Fecha_Inicial ='05/03/2026' AND Fecha_Final = '31/12/2026'");
    objeto.Eliminar(5, dia, objeto.Fecha_Final);
    guion->EsperaEjecucion(
        " UPDATE Clientes_Art_PVP SET Cod_Articulo=1042 ,Cod_Cliente=77,PVP=12.5 WHERE Cod_Empresa =1"
        " AND Cod_Articulo =1042 AND Cod_Cliente =5 AND Fecha_Inicial = '01/01/2026' AND Fecha_Final = '31/12/2026'");
    objeto.Modificar(5);
}

TEST_F(ClienteArticulo, Recorrido_EnLosDosModos) {
    const std::string articulos =
        " SELECT a.* , b.Nombre as Descripcion from Clientes b  INNER JOIN Clientes_Art_PVP a "
        " ON (b.Codigo = a.Cod_Cliente)  and (b.Cod_Empresa = 4)";
    const std::string clientes =
        " SELECT a.* , b.Descripcion from Articulos b  INNER JOIN Clientes_Art_PVP a "
        " ON (b.Codigo = a.Cod_Articulo)  and (b.Cod_Empresa = 4)";
    using C = clsCliente_Articulo;
    struct Caso {
        bool (C::*metodo)(std::unique_ptr<Recordset>&);
        const std::string& cabeza;
        const char* donde;
    };
    objeto.Key(std::int32_t{30});
    for (const Caso& caso :
         {Caso{&C::Cargar_Siguiente, articulos,
               " WHERE a.Cod_Empresa=1 and a.Cod_Articulo = (SELECT TOP 1 Cod_Articulo FROM Clientes_Art_PVP "
               " WHERE Cod_Empresa =1 AND Cod_Articulo  > 30 ORDER BY Cod_Articulo ASC)"},
          {&C::Cargar_Anterior, articulos,
           " WHERE a.Cod_Empresa=1 and a.Cod_Articulo = (SELECT TOP 1 Cod_Articulo FROM Clientes_Art_PVP "
           " WHERE Cod_Empresa =1 AND Cod_Articulo  < 30 ORDER BY Cod_Articulo DESC)"},
          {&C::Cargar_Primero, articulos,
           " WHERE (a.Cod_Empresa=1) and (a.Cod_Articulo = (SELECT ISNULL(MIN(Cod_Articulo), 0) FROM"
           " Clientes_Art_PVP  WHERE Cod_Empresa =1))"},
          {&C::Cargar_Ultimo, articulos,
           " WHERE a.Cod_Empresa=1 and a.Cod_Articulo = (SELECT ISNULL(MAX(Cod_Articulo), 0) AS Cod_Articulo FROM"
           " Clientes_Art_PVP  WHERE Cod_Empresa =1)"},
          {&C::Cargar_Siguiente, clientes,
           " WHERE a.Cod_Empresa=1 and a.Cod_Cliente = (SELECT TOP 1 Cod_Cliente FROM Clientes_Art_PVP "
           " WHERE Cod_Empresa =1 AND Cod_Cliente  > 30 ORDER BY Cod_Cliente ASC)"},
          {&C::Cargar_Anterior, clientes,
           " WHERE a.Cod_Empresa=1 and a.Cod_Cliente = (SELECT TOP 1 Cod_Cliente FROM Clientes_Art_PVP "
           " WHERE Cod_Empresa =1 AND Cod_Cliente  < 30 ORDER BY Cod_Cliente DESC)"},
          {&C::Cargar_Primero, clientes,
           " WHERE a.Cod_Empresa=1 and a.Cod_Cliente = (SELECT ISNULL(MIN(Cod_Cliente), 0) AS Cod_Cliente FROM"
           " Clientes_Art_PVP  WHERE Cod_Empresa =1)"},
          {&C::Cargar_Ultimo, clientes,
           " WHERE a.Cod_Empresa=1 and a.Cod_Cliente = (SELECT ISNULL(MAX(Cod_Cliente), 0) AS Cod_Cliente FROM"
           " Clientes_Art_PVP  WHERE Cod_Empresa =1)"}}) {
        objeto.Por_Articulo(&caso.cabeza == &articulos);
        guion->EsperaConsulta(caso.cabeza + caso.donde);
        std::unique_ptr<Recordset> rs;
        EXPECT_FALSE((objeto.*caso.metodo)(rs));
        guion->Terminar();
    }
}

TEST_F(ClienteArticulo, Cargar_CopiaLaPrimeraFilaYCambiaDeConexion) {
    const auto otra = std::make_shared<ConexionGuion>();
    std::unique_ptr<Recordset> rs;
    otra->EsperaConsulta(
        " SELECT a.* , b.Descripcion from Articulos b  INNER JOIN Clientes_Art_PVP a  ON (b.Codigo = a.Cod_Articulo) "
        " and (b.Cod_Empresa = 4) Where a.Cod_Cliente = 12,5 and a.Cod_Empresa = 1",
        {"Cod_Articulo", "Cod_Empresa", "Cod_Cliente", "Descripcion", "Fecha_Inicial", "Fecha_Final", "PVP"},
        {{std::int32_t{8}, std::int16_t{6}, std::int32_t{9}, std::string("Taladro"), dia, dia, 3.5}});
    EXPECT_TRUE(objeto.Cargar(rs, false, Valor(12.5), otra));
    EXPECT_EQ(8, objeto.Cod_Articulo);
    EXPECT_EQ(6, objeto.Cod_Empresa);
    EXPECT_EQ("Taladro", objeto.Descripcion);
    EXPECT_EQ(3.5, objeto.precio);
    EXPECT_EQ(ObjectState::adStateOpen, rs->State());
    rs->Close();
    otra->EsperaEjecucion(
        "INSERT INTO Clientes_Art_PVP (Cod_Cliente,Cod_Empresa,Cod_Articulo,PVP,Fecha_Inicial,Fecha_Final) Values ("
        "9,6,8,3.5,'05/03/2026','05/03/2026')");
    objeto.Insertar();
    rs.reset();
}

// Both tables in turn: the row that is not there is made.
void EsperarEnLasDos(ConexionGuion& guion, const std::string& tabla, const std::string& totales,
                     const std::string& valores) {
    for (const char* gemela : {"", "_Tx"}) {
        guion.EsperaEscritura(" UPDATE " + tabla + gemela + " SET" + totales, 0);
        guion.EsperaEjecucion(" INSERT INTO " + tabla + gemela +
                              " (Cod_Empresa, Cod_Almacen, Cod_Cliente, Cod_Articulo," + valores);
    }
}

TEST_F(ClienteArticulo, Acumular_ConSuCosteYEnLasDosTablas) {
    const std::string totales =
        " Unidades = Unidades + -2.5, Importe_PVP = Importe_PVP + 10.13, Importe_Costo = Importe_Costo + 4.01"
        " WHERE Cod_Empresa = 1 AND Cod_Almacen =2 AND Cod_Cliente = 77 AND Cod_Articulo = 1042 AND Fecha "
        "='05/03/2026'";
    EsperarEnLasDos(*guion, "Clientes_Articulos", totales,
                    " Fecha, Unidades, Importe_PVP, Importe_Costo) VALUES (1, 2, 77, 1042, '05/03/2026', -2.5, 10.13,"
                    " 4.01)");
    guion->EsperaEscritura(" UPDATE Clientes_Articulos SET" + totales, 1);
    guion->EsperaEscritura(" UPDATE Clientes_Articulos_Tx SET" + totales, 1);
    for (int vez = 0; vez < 2; ++vez)
        objeto.Acumular(dia, Currency::DeDouble(-2.5), Currency::DeDouble(10.125), Currency::DeDouble(4.005));
}

TEST_F(ClienteArticulo, Acumular_SinCoste_LoPideAlAlmacen) {
    guion->EsperaConsulta(
        "SELECT Bloqueo, Stock_Actual, P_Medio AS Costo FROM Almacen_Articulos WHERE Cod_Empresa =1 AND Cod_Almacen =2"
        " AND Cod_Articulo =1042",
        {"Costo"}, {{1.5}});
    guion->EsperaEscritura(
        " UPDATE Clientes_Articulos SET Unidades = Unidades + 2, Importe_PVP = Importe_PVP + 10, Importe_Costo ="
        " Importe_Costo + 3 WHERE Cod_Empresa = 1 AND Cod_Almacen =2 AND Cod_Cliente = 77 AND Cod_Articulo = 1042"
        " AND Fecha ='05/03/2026'",
        0);
    guion->YFalla(1205, "bloqueo");
    EsperarError(1205, "clsClientes_Articulo::Acumular",
                 [&] { objeto.Acumular(dia, Currency::DeEntero(2), Currency::DeEntero(10), Currency()); });
}

TEST_F(ClienteArticulo, AcumularC_LeeElCosteDelArticulo) {
    empresa->costeUltimaCompra = true;
    guion->EsperaConsulta(
        "SELECT PU_Compra AS Costo FROM Almacen_Articulos WHERE Cod_Empresa =1 AND Cod_Almacen =2 AND Cod_Articulo "
        "=1042",
        {"Costo"}, {{2.0}});
    EsperarEnLasDos(*guion, "Clientes_Articulos_C",
                    " Unidades = Unidades + 3, Importe_PVP = Importe_PVP + 10, Importe_Costo = Importe_Costo + 6"
                    " WHERE Cod_Empresa = 1 AND Cod_Almacen =2 AND Cod_Cliente = 77 AND Cod_Articulo = 1042"
                    " AND CualidadX = 38 AND CualidadY = 4 AND Fecha ='05/03/2026'",
                    " CualidadX, CualidadY, Fecha, Unidades, Importe_PVP, Importe_Costo) VALUES (1, 2, 77, 1042, 38, 4,"
                    " '05/03/2026', 3, 10, 6)");
    objeto.Acumular_C(dia, Currency::DeEntero(3), Currency::DeEntero(10), Currency(), 38, 4);
}

}  // namespace
}  // namespace kv::prueba
