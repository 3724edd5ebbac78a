#include "rules/clsCliente_Articulo.h"
#include "tests/comun/ConGuion.h"

namespace kv::prueba {
namespace {

class ClienteArticulo : public ConGuion<clsCliente_Articulo> {
  protected:
    ClienteArticulo() {
        objeto.Cod_Empresa = 1;
        objeto.Cod_Almacen = 2;
        objeto.Cod_Cliente = 77;
        objeto.Cod_EmpresaExtra = 4;
        objeto.Cod_Articulo = 1042;
        objeto.precio = 12.5;
        objeto.Fecha_Inicial = Fecha::DeAmd(2026, 1, 1);
        objeto.Fecha_Final = Fecha::DeAmd(2026, 12, 31);
    }
};

const std::string kDeArticulo =
    " SELECT a.* , b.Nombre as Descripcion from Clientes b  INNER JOIN Clientes_Art_PVP a "
    " ON (b.Codigo = a.Cod_Cliente)  and (b.Cod_Empresa = 4)";
const std::string kDeCliente =
    " SELECT a.* , b.Descripcion from Articulos b  INNER JOIN Clientes_Art_PVP a "
    " ON (b.Codigo = a.Cod_Articulo)  and (b.Cod_Empresa = 4)";
constexpr const char* kInsertar =
    "INSERT INTO Clientes_Art_PVP (Cod_Cliente,Cod_Empresa,Cod_Articulo,PVP,Fecha_Inicial,Fecha_Final) Values (";

TEST_F(ClienteArticulo, DevPrecio_ConElBlancoTrasLaComilla) {
    constexpr const char* kSql =
        " SELECT Pvp FROM Clientes_Art_PVP WHERE Cod_Empresa =1 AND Cod_Cliente =77 AND Cod_Articulo =1042"
        " AND Fecha_Inicial <=' 05/03/2026' AND Fecha_Final >=' 05/03/2026'";
    guion->EsperaConsulta(kSql);
    EXPECT_FALSE(Hacer(objeto, "clsCliente_Articulo::Dev_Precio", [&] { return objeto.Dev_Precio(dia); }));
    EXPECT_EQ(12.5, objeto.precio);
    guion->EsperaConsulta(kSql, {"PVP"}, {{9.25}, {8.0}});
    EXPECT_TRUE(objeto.Dev_Precio(dia));
    EXPECT_EQ(9.25, objeto.precio);
}

TEST_F(ClienteArticulo, Escrituras_EnLosDosModos) {
    guion->EsperaEjecucion(std::string(kInsertar) + "77,1,1042,12.5,'01/01/2026','31/12/2026')");
    Hacer(objeto, "clsClientes_Art_PVP::Insertar", [&] { objeto.Insertar(); });
    for (const bool porArticulo : {false, true}) {
        objeto.Por_Articulo(porArticulo);
        guion->EsperaEjecucion(std::string(porArticulo ? " " : "") +
                               "DELETE FROM Clientes_Art_PVP WHERE Cod_Empresa = 1 AND Cod_Articulo = " +
                               (porArticulo ? "1042 AND Cod_Cliente =  5" : "5 AND Cod_Cliente =  77") +
                               " AND Fecha_Inicial ='05/03/2026' AND Fecha_Final = '06/03/2026'");
        Hacer(objeto, "clsClientes_Art_PVP::Eliminar", [&] { objeto.Eliminar(5, dia, dia + 1); });
        guion->EsperaEjecucion(
            " UPDATE Clientes_Art_PVP SET Cod_Articulo=1042 ,Cod_Cliente=77,PVP=12.5 WHERE Cod_Empresa =1"
            " AND Cod_Articulo =" +
            std::string(porArticulo ? "1042 AND Cod_Cliente =5" : "5 AND Cod_Cliente =77") +
            " AND Fecha_Inicial = '01/01/2026' AND Fecha_Final = '31/12/2026'");
        Hacer(objeto, "clsClientes_Art_PVP::Modificar", [&] { objeto.Modificar(5); });
    }
}

TEST_F(ClienteArticulo, Recorrido_EnLosDosModos) {
    using C = clsCliente_Articulo;
    const std::string tabla = " FROM Clientes_Art_PVP  WHERE Cod_Empresa =1";
    objeto.Key(30);
    std::unique_ptr<Recordset> rs;
    const auto recorre = [&](bool (C::*metodo)(std::unique_ptr<Recordset>&), const std::string& sql) {
        guion->EsperaConsulta(sql);
        EXPECT_FALSE(Hacer(objeto, "clsCliente_Articulo::Cargar", [&] { return (objeto.*metodo)(rs); }));
        rs->Close();
    };
    for (const bool porArticulo : {false, true}) {
        objeto.Por_Articulo(porArticulo);
        const std::string c = porArticulo ? "Cod_Articulo" : "Cod_Cliente";
        const std::string igual =
            (porArticulo ? kDeArticulo : kDeCliente) + " WHERE a.Cod_Empresa=1 and a." + c + " = (SELECT ";
        recorre(&C::Cargar_Siguiente, igual + "TOP 1 " + c + tabla + " AND " + c + "  > 30 ORDER BY " + c + " ASC)");
        recorre(&C::Cargar_Anterior, igual + "TOP 1 " + c + tabla + " AND " + c + "  < 30 ORDER BY " + c + " DESC)");
        recorre(&C::Cargar_Ultimo, igual + "ISNULL(MAX(" + c + "), 0) AS " + c + tabla + ")");
        if (!porArticulo)
            recorre(&C::Cargar_Primero, igual + "ISNULL(MIN(Cod_Cliente), 0) AS Cod_Cliente" + tabla + ")");
    }
    // The first article is asked for with brackets of its own and without a name.
    recorre(&C::Cargar_Primero,
            kDeArticulo + " WHERE (a.Cod_Empresa=1) and (a.Cod_Articulo = (SELECT ISNULL(MIN(Cod_Articulo), 0)" +
                tabla + "))");
}

TEST_F(ClienteArticulo, Cargar_CopiaLaPrimeraFilaYCambiaDeConexion) {
    std::unique_ptr<Recordset> rs;
    guion->EsperaConsulta(kDeArticulo + " Where a.Cod_Articulo = 12,5 and a.Cod_Empresa = 1");
    EXPECT_FALSE(Hacer(objeto, "clsCliente_Articulo::Cargar", [&] { return objeto.Cargar(rs, true, 12.5, nullptr); }));
    const auto otra = std::make_shared<ConexionGuion>();
    otra->EsperaConsulta(
        kDeCliente + " Where a.Cod_Cliente = 5 and a.Cod_Empresa = 1",
        {"Cod_Articulo", "Cod_Empresa", "Cod_Cliente", "Descripcion", "Fecha_Inicial", "Fecha_Final", "PVP"},
        {{std::int32_t{8}, std::int16_t{6}, std::int32_t{9}, std::string("Taladro"), dia, dia + 1, 3.5}});
    EXPECT_TRUE(objeto.Cargar(rs, false, std::int32_t{5}, otra));
    EXPECT_EQ("Taladro", objeto.Descripcion);
    EXPECT_EQ(ObjectState::adStateOpen, rs->State());
    otra->EsperaEjecucion(std::string(kInsertar) + "9,6,8,3.5,'05/03/2026','06/03/2026')");
    objeto.Insertar();
    rs.reset();
}

// A sale in both tables in turn: its row is there, or there is none and it is made.
void EsperarVenta(ConexionGuion& guion, bool variante, int filas, const std::string& unidades, const std::string& pvp,
                  const std::string& coste) {
    for (const char* gemela : {"", "_Tx"}) {
        const std::string tabla = std::string("Clientes_Articulos") + (variante ? "_C" : "") + gemela;
        guion.EsperaEscritura(
            " UPDATE " + tabla + " SET Unidades = Unidades + " + unidades + ", Importe_PVP = Importe_PVP + " + pvp +
                ", Importe_Costo = Importe_Costo + " + coste +
                " WHERE Cod_Empresa = 1 AND Cod_Almacen =2 AND Cod_Cliente = 77 AND Cod_Articulo ="
                " 1042" +
                (variante ? " AND CualidadX = 38 AND CualidadY = 4" : "") + " AND Fecha ='05/03/2026'",
            filas);
        if (filas != 0) continue;
        guion.EsperaEjecucion(" INSERT INTO " + tabla + " (Cod_Empresa, Cod_Almacen, Cod_Cliente, Cod_Articulo," +
                              (variante ? " CualidadX, CualidadY," : "") +
                              " Fecha, Unidades, Importe_PVP, Importe_Costo) VALUES (1, 2, 77, 1042, " +
                              (variante ? "38, 4, " : "") + "'05/03/2026', " + unidades + ", " + pvp + ", " + coste +
                              ")");
    }
}

TEST_F(ClienteArticulo, Acumular_EnLasDosTablasYConElCosteDelAlmacen) {
    for (const int filas : {0, 1}) {
        EsperarVenta(*guion, false, filas, "-2.5", "10.13", "4.01");
        objeto.Acumular(dia, Currency::DeDouble(-2.5), Currency::DeDouble(10.125), Currency::DeDouble(4.005));
    }
    const std::string fila = " FROM Almacen_Articulos WHERE Cod_Empresa =1 AND Cod_Almacen =2 AND Cod_Articulo =1042";
    guion->EsperaConsulta("SELECT Bloqueo, Stock_Actual, P_Medio AS Costo" + fila, {"Costo"}, {{1.5}});
    EsperarVenta(*guion, false, 1, "2", "10", "3");
    Hacer(objeto, "clsClientes_Articulo::Acumular",
          [&] { objeto.Acumular(dia, Currency::DeEntero(2), Currency::DeEntero(10), Currency()); });
    EsperarVenta(*guion, true, 1, "3", "10", "5");
    Hacer(objeto, "clsCliente_Articulo::Acumular_C",
          [&] { objeto.Acumular_C(dia, Currency::DeEntero(3), Currency::DeEntero(10), Currency::DeEntero(5), 38, 4); });
    empresa->costeUltimaCompra = true;
    guion->EsperaConsulta("SELECT PU_Compra AS Costo" + fila, {"Costo"}, {{2.0}});
    EsperarVenta(*guion, true, 0, "3", "10", "6");
    objeto.Acumular_C(dia, Currency::DeEntero(3), Currency::DeEntero(10), Currency(), 38, 4);
    guion->EsperaConsulta("SELECT PU_Compra AS Costo" + fila);
    EsperarVenta(*guion, true, 1, "3", "10", "0");
    objeto.Acumular_C(dia, Currency::DeEntero(3), Currency::DeEntero(10), Currency(), 38, 4);
}

}  // namespace
}  // namespace kv::prueba
