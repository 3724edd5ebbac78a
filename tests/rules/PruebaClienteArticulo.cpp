#include "kvdatosart/db/ValoresSql.h"
#include "kvdatosart/rules/clsCliente_Articulo.h"
#include "kvdatosart/tests/comun/ConGuion.h"

namespace kv::prueba {
namespace {

// The price and the company of its rows are none of the context's codes.
class ClienteArticulo : public ConGuion<clsCliente_Articulo> {
  protected:
    ClienteArticulo() {
        objeto.Cod_Empresa = 8;
        objeto.Cod_EmpresaExtra = 9;
        objeto.Cod_Almacen = 6;
        objeto.Cod_Cliente = 77;
        objeto.Cod_Articulo = 1042;
        objeto.precio = 12.5;
        objeto.Fecha_Inicial = Fecha::DeAmd(2026, 1, 1);
        objeto.Fecha_Final = Fecha::DeAmd(2026, 12, 31);
    }
    std::string Campos() const {
        return TextoSql(TextoEntero(objeto.Cod_Articulo), " ", TextoEntero(objeto.Cod_Empresa), " ",
                        TextoEntero(objeto.Cod_Cliente), " ", objeto.Descripcion, " ", objeto.Fecha_Inicial.ATexto(),
                        " ", objeto.Fecha_Final.ATexto(), " ", TextoDouble(objeto.precio, '.'));
    }

    std::unique_ptr<Recordset> rs;
};

const std::string kDeArticulo =
    " SELECT a.* , b.Nombre as Descripcion from Clientes b  INNER JOIN Clientes_Art_PVP a "
    " ON (b.Codigo = a.Cod_Cliente)  and (b.Cod_Empresa = 9)";
const std::string kDeCliente =
    " SELECT a.* , b.Descripcion from Articulos b  INNER JOIN Clientes_Art_PVP a "
    " ON (b.Codigo = a.Cod_Articulo)  and (b.Cod_Empresa = 9)";

TEST_F(ClienteArticulo, DevPrecio_ConElBlancoTrasLaComilla) {
    constexpr const char* kSql =
        " SELECT Pvp FROM Clientes_Art_PVP WHERE Cod_Empresa =8 AND Cod_Cliente =77 AND Cod_Articulo =1042"
        " AND Fecha_Inicial <=' 05/03/2026' AND Fecha_Final >=' 05/03/2026'";
    guion->EsperaConsulta(kSql);
    EXPECT_FALSE(Hacer(objeto, "clsCliente_Articulo::Dev_Precio", [&] { return objeto.Dev_Precio(dia); }));
    EXPECT_EQ(12.5, objeto.precio);
    guion->EsperaConsulta(kSql, {"PVP"}, {{9.25}, {8.0}});
    EXPECT_TRUE(objeto.Dev_Precio(dia));
    EXPECT_EQ(9.25, objeto.precio);
}

TEST_F(ClienteArticulo, Escrituras_EnLosDosModos) {
    guion->EsperaEjecucion(
        "INSERT INTO Clientes_Art_PVP (Cod_Cliente,Cod_Empresa,Cod_Articulo,PVP,Fecha_Inicial,Fecha_Final) Values ("
        "77,8,1042,n12.5,'01/01/2026','31/12/2026')");
    Hacer(objeto, "clsClientes_Art_PVP::Insertar", [&] { objeto.Insertar(); });
    for (const bool porArticulo : {false, true}) {
        objeto.Por_Articulo(porArticulo);
        guion->EsperaEjecucion(std::string(porArticulo ? " " : "") +
                               "DELETE FROM Clientes_Art_PVP WHERE Cod_Empresa = 8 AND Cod_Articulo = " +
                               (porArticulo ? "1042 AND Cod_Cliente =  5" : "5 AND Cod_Cliente =  77") +
                               " AND Fecha_Inicial ='05/03/2026' AND Fecha_Final = '06/03/2026'");
        Hacer(objeto, "clsClientes_Art_PVP::Eliminar", [&] { objeto.Eliminar(5, dia, dia + 1); });
        guion->EsperaEjecucion(
            " UPDATE Clientes_Art_PVP SET Cod_Articulo=1042 ,Cod_Cliente=77,PVP=n12.5 WHERE Cod_Empresa =8"
            " AND Cod_Articulo =" +
            std::string(porArticulo ? "1042 AND Cod_Cliente =5" : "5 AND Cod_Cliente =77") +
            " AND Fecha_Inicial = '01/01/2026' AND Fecha_Final = '31/12/2026'");
        Hacer(objeto, "clsClientes_Art_PVP::Modificar", [&] { objeto.Modificar(5); });
    }
}

// The first row goes into the fields, the company among them, and none of it into the key; the rows stay open.
TEST_F(ClienteArticulo, Recorrido_EnLosDosModos) {
    using C = clsCliente_Articulo;
    const auto columnas = Palabras("Cod_Articulo Cod_Empresa Cod_Cliente Descripcion Fecha_Inicial Fecha_Final PVP");
    const ConexionGuion::Fila fila = {108, 18, 109, "Taladro", dia, dia + 1, 3.5};
    const auto busca = [&](auto accion, const std::string& sql) {
        objeto.Cod_Empresa = 8;
        guion->EsperaConsulta(sql, columnas, {fila, {}});
        EXPECT_TRUE(Hacer(objeto, "clsCliente_Articulo::Cargar", accion));
        EXPECT_EQ("108 18 109 Taladro 05/03/2026 06/03/2026 3.5", Campos());
        rs->Close();
    };
    const auto recorre = [&](bool (C::*metodo)(std::unique_ptr<Recordset>&), const std::string& sql) {
        busca([&] { return (objeto.*metodo)(rs); }, sql);
    };
    objeto.Key(30.5);
    const std::string tabla = " FROM Clientes_Art_PVP  WHERE Cod_Empresa =8";
    for (const bool porArticulo : {false, true}) {
        objeto.Por_Articulo(porArticulo);
        const std::string c = porArticulo ? "Cod_Articulo" : "Cod_Cliente";
        const std::string igual =
            (porArticulo ? kDeArticulo : kDeCliente) + " WHERE a.Cod_Empresa=8 and a." + c + " = (SELECT ";
        recorre(&C::Cargar_Siguiente, igual + "TOP 1 " + c + tabla + " AND " + c + "  > 30,5 ORDER BY " + c + " ASC)");
        recorre(&C::Cargar_Anterior, igual + "TOP 1 " + c + tabla + " AND " + c + "  < 30,5 ORDER BY " + c + " DESC)");
        recorre(&C::Cargar_Ultimo, igual + "ISNULL(MAX(" + c + "), 0) AS " + c + tabla + ")");
        if (!porArticulo)
            recorre(&C::Cargar_Primero, igual + "ISNULL(MIN(Cod_Cliente), 0) AS Cod_Cliente" + tabla + ")");
    }
    // The first article is asked for with brackets of its own and without a name.
    recorre(&C::Cargar_Primero,
            kDeArticulo + " WHERE (a.Cod_Empresa=8) and (a.Cod_Articulo = (SELECT ISNULL(MIN(Cod_Articulo), 0)" +
                tabla + "))");
    busca([&] { return objeto.Cargar(rs, false, 5, nullptr); },
          kDeCliente + " Where a.Cod_Cliente = 5 and a.Cod_Empresa = 8");
    // Another connection stays.
    const auto otra = std::make_shared<ConexionGuion>();
    const std::string sql = kDeArticulo + " Where a.Cod_Articulo = 12,5 and a.Cod_Empresa = 18";
    otra->EsperaConsulta(sql);
    EXPECT_FALSE(objeto.Cargar(rs, true, 12.5, otra));
    EXPECT_EQ("108 18 109 Taladro 05/03/2026 06/03/2026 3.5", Campos());
    rs->Close();
    otra->EsperaConsulta(sql);
    objeto.Cargar(rs, true, 12.5, nullptr);
    rs->Close();
}

// A sale in both tables in turn: its row is there, or there is none and it is made.
void EsperarVenta(ConexionGuion& guion, bool variante, int filas, const std::string& unidades, const std::string& pvp,
                  const std::string& coste) {
    for (const char* gemela : {"", "_Tx"}) {
        const std::string tabla = std::string("Clientes_Articulos") + (variante ? "_C" : "") + gemela;
        guion.EsperaEscritura(
            " UPDATE " + tabla + " SET Unidades = Unidades + " + unidades + ", Importe_PVP = Importe_PVP + " + pvp +
                ", Importe_Costo = Importe_Costo + " + coste +
                " WHERE Cod_Empresa = 8 AND Cod_Almacen =6 AND Cod_Cliente = 77 AND Cod_Articulo = 1042" +
                (variante ? " AND CualidadX = 38 AND CualidadY = 4" : "") + " AND Fecha ='d05/03/2026'",
            filas);
        if (filas != 0) continue;
        guion.EsperaEjecucion(" INSERT INTO " + tabla + " (Cod_Empresa, Cod_Almacen, Cod_Cliente, Cod_Articulo," +
                              (variante ? " CualidadX, CualidadY," : "") +
                              " Fecha, Unidades, Importe_PVP, Importe_Costo) VALUES (8, 6, 77, 1042, " +
                              (variante ? "38, 4, " : "") + "'d05/03/2026', " + unidades + ", " + pvp + ", " + coste +
                              ")");
    }
}

TEST_F(ClienteArticulo, Acumular_EnLasDosTablasYConElCosteDelAlmacen) {
    struct Caso {
        bool variante, ultimaCompra;
        int filas;
        double unidades, pvp, coste;
        Valor delAlmacen;  // none: it is not asked
        const char *enUnidades, *enPvp, *enCoste;
    };
    const Caso kCasos[] = {
        {false, false, 0, -2.5555, 10.125, 4.005, {}, "n-2.5555", "1010.13", "1004.01"},
        {false, true, 1, 4, 10, -6, {}, "n4", "1010", "994"},
        {true, true, 0, 5, 10, 7, {}, "n5", "1010", "1007"},
        {true, false, 1, 3, 10, -5, {}, "n3", "1010", "995"},
        {false, false, 1, 2, -10, 0, 1.5, "n2", "990", "1003"},
        {false, true, 1, -2, 10, 0, 1.25, "n-2", "1010", "997.5"},
        {true, false, 0, 0.5, 10, 0, 1.5, "n0.5", "1010", "1000.75"},
        {true, true, 1, -3, 10, 0, 2.0, "n-3", "1010", "994"},
    };
    biblioteca.masAlRedondear = Currency::DeEntero(1000);
    for (const Caso& caso : kCasos) {
        SCOPED_TRACE(caso.enCoste);
        const auto acumular = [&] {
            const Currency unidades = Currency::DeDouble(caso.unidades);
            const Currency pvp = Currency::DeDouble(caso.pvp);
            const Currency coste = Currency::DeDouble(caso.coste);
            if (caso.variante)
                objeto.Acumular_C(dia, unidades, pvp, coste, 38, 4);
            else
                objeto.Acumular(dia, unidades, pvp, coste);
        };
        empresa->costeUltimaCompra = caso.ultimaCompra;
        if (!EsNulo(caso.delAlmacen))
            guion->EsperaConsulta(std::string("SELECT ") + (caso.variante ? "" : "Bloqueo, Stock_Actual, ") +
                                      (caso.ultimaCompra ? "PU_Compra" : "P_Medio") +
                                      " AS Costo FROM Almacen_Articulos WHERE Cod_Empresa =1 AND Cod_Almacen =6"
                                      " AND Cod_Articulo =1042",
                                  {"Costo"}, {{caso.delAlmacen}});
        EsperarVenta(*guion, caso.variante, caso.filas, caso.enUnidades, caso.enPvp, caso.enCoste);
        Hacer(objeto, caso.variante ? "clsCliente_Articulo::Acumular_C" : "clsClientes_Articulo::Acumular", acumular);
        guion->Terminar();
    }
    guion->EsperaConsulta(
        "SELECT PU_Compra AS Costo FROM Almacen_Articulos WHERE Cod_Empresa =1 AND Cod_Almacen =6"
        " AND Cod_Articulo =1042");
    EsperarVenta(*guion, true, 1, "n1", "1001", "1000");
    objeto.Acumular_C(dia, Currency::DeEntero(1), Currency::DeEntero(1), Currency(), 38, 4);
}

}  // namespace
}  // namespace kv::prueba
