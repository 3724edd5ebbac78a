#include <gtest/gtest.h>

#include <functional>

#include "stock/clsAlmacen_Articulo.h"
#include "tests/comun/ConexionGuion.h"
#include "tests/comun/EmpresaFija.h"

namespace kv::prueba {
namespace {

const Fecha kDia = Fecha::DeAmd(2026, 3, 5);
const Currency kMedio = Currency::DeDouble(-2.5);

class Cantidades : public testing::Test {
  protected:
    Cantidades() {
        almacen.Conexion(guion);
        almacen.cEmpresa(empresa);
        almacen.Almacen = 6;
        almacen.Articulo = 1042;
    }

    BibliotecaDePrueba biblioteca{kDia, ','};
    std::shared_ptr<ConexionGuion> guion = std::make_shared<ConexionGuion>();
    std::shared_ptr<EmpresaFija> empresa = std::make_shared<EmpresaFija>();
    clsAlmacen_Articulo almacen;
};

TEST_F(Cantidades, ActualizaOInserta) {
    struct Caso {
        std::string actualizar;
        std::string insertar;
        std::function<void()> accion;
        bool marca = false;
    };
    const std::string poner = "UPDATE Almacen_Articulos SET ";
    const std::string donde = " WHERE Cod_Empresa = 1 AND Cod_Articulo = 1042 AND Cod_Almacen = 6";
    const std::string dondeC =
        " WHERE Cod_Empresa = 1 AND Cod_Articulo = 1042 AND CualidadX=38 AND CualidadY=2 AND Cod_Almacen = 6";
    const std::string insertar = "INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, ";
    const std::string insertarC =
        "INSERT INTO Almacen_Articulos_C (Cod_Empresa, Cod_Almacen, Cod_Articulo, CualidadX, CualidadY, ";
    const auto bloquear = [&](bool bloqueado) {
        almacen.Bloqueado = bloqueado;
        almacen.Act_Bloqueo();
    };
    const Caso kCasos[] = {
        {" " + poner + "Pend_Recibir = Pend_Recibir + -2.5" + donde,
         insertar + "Pend_Recibir) VALUES (1, 6, 1042, -2.5)", [&] { almacen.Act_PendRecibir(kMedio); }},
        {" " + poner + "Pend_Servir = Pend_Servir + -2.5" + donde, insertar + "Pend_Servir) VALUES (1, 6, 1042, -2.5)",
         [&] { almacen.Act_PendServir(kMedio); }},
        {" UPDATE Almacen_Articulos_C SET Pend_Recibir = Pend_Recibir + -2.5" + dondeC,
         insertarC + "Pend_Recibir) VALUES (1, 6, 1042, 38, 2, -2.5)",
         [&] { almacen.Act_PendRecibir_Cualidades(38, 2, kMedio); }},
        {" UPDATE Almacen_Articulos_C SET Pend_Servir = Pend_Servir + -2.5" + dondeC,
         insertarC + "Pend_Servir) VALUES (1, 6, 1042, 38, 2, -2.5)",
         [&] { almacen.Act_PendServir_Cualidades(38, 2, kMedio); }},
        {" " + poner + "Stock_MiniCompra = Stock_MiniCompra + -2.5" + donde,
         insertar + "Stock_MiniCompra) VALUES (1, 6, 1042, -2.5)", [&] { almacen.Act_StockMiniCompras(kMedio); }},
        {"UPDATE Almacen_Articulos_Ubic SET Stock_Actual=Stock_Actual+-2.5 WHERE Cod_Empresa=1 AND Cod_Almacen=7"
         " AND Cod_Articulo=9 AND Ubic1='A' AND Ubic2='B' AND Ubic3='C' AND Ubic4='' AND Ubic5='E'",
         "INSERT INTO Almacen_Articulos_Ubic  (Cod_Empresa, Cod_Almacen, Cod_Articulo, Ubic1, Ubic2, Ubic3, Ubic4,"
         " Ubic5, Stock_Actual) VALUES (1, 7, 9, 'A', 'B', 'C', '', 'E', -2.5)",
         [&] { almacen.Act_Stock_Ubicaciones(7, 9, "A", "B", "C", "", "E", kMedio); }},
        {poner + "PU_Compra =-2.5, P_Medio =-2.5" + donde,
         insertar + "PU_Compra, P_Medio) VALUES (1, 6, 1042, -2.5, -2.5)", [&] { almacen.Act_Costo(kMedio); }},
        {poner + "Bloqueo =1, F_Dormido ='05/03/2026'" + donde,
         insertar + "Bloqueo, F_Dormido) VALUES (1, 6, 1042, 1, '05/03/2026')", [&] { bloquear(true); }, true},
        {poner + "Bloqueo =0, F_Dormido ='01/01/1900'" + donde,
         insertar + "Bloqueo, F_Dormido) VALUES (1, 6, 1042, 0, '01/01/1900')", [&] { bloquear(false); }, true},
        {poner + "Desglosa_Pack =1" + donde, insertar + "Desglosa_Pack) VALUES (1, 6, 1042, 1)",
         [&] {
             almacen.Desglosa_Pack = true;
             almacen.Act_Desglosa_Pack();
         },
         true},
    };
    for (const Caso& caso : kCasos) {
        for (const int afectados : {1, 0}) {
            guion->EsperaEscritura(caso.actualizar, afectados);
            if (afectados == 0) guion->EsperaEjecucion(caso.insertar);
            if (caso.marca)
                guion->EsperaEjecucion("UPDATE Articulos SET Mod_Ficha = 1 WHERE Cod_Empresa =2 AND Codigo = 1042");
            caso.accion();
            guion->Terminar();
        }
    }
    almacen.Act_PendRecibir_Cualidades(0, 2, kMedio);
    almacen.Act_PendServir_Cualidades(38, 0, kMedio);
}

TEST_F(Cantidades, CosteDF) {
    constexpr const char* kLeer =
        "SELECT Stock_Actual, DF_P_Medio, DF_PU_Compra FROM Almacen_Articulos WHERE Cod_Empresa =1 And Cod_Almacen =6"
        " And Cod_Articulo =1042";
    constexpr const char* kDonde3 = " WHERE Cod_Empresa =1 And Cod_Almacen =6 And Cod_Articulo =1042";
    struct Caso {
        double cantidad;
        std::vector<ConexionGuion::Fila> filas;
        const char* cambios;
    };
    for (const Caso& caso : {Caso{10, {{10.0, 1.0, 1.0}}, " DF_P_Medio =1.5, DF_PU_Compra =2"},
                             {10, {{-10.0, 1.0, 1.0}}, " DF_P_Medio =2, DF_PU_Compra =2"},
                             {10, {{-5.0, 1.0, 1.0}}, " DF_P_Medio =3, DF_PU_Compra =2"},
                             {10, {{10.0, 0.0, 1.0}}, " DF_P_Medio =2, DF_PU_Compra =2"},
                             {10, {}, " DF_P_Medio =2, DF_PU_Compra =2"},
                             {0, {}, " DF_PU_Compra =2"}}) {
        if (caso.cantidad > 0) guion->EsperaConsulta(kLeer, {"Stock_Actual", "DF_P_Medio", "DF_PU_Compra"}, caso.filas);
        guion->EsperaEjecucion(std::string("UPDATE Almacen_Articulos SET") + caso.cambios + kDonde3);
        guion->EsperaEjecucion("UPDATE Articulos SET DF_PU_Compra =2 WHERE Cod_Empresa =2 And Codigo =1042");
        almacen.Act_Costo_DF(6, 1042, Currency::DeDouble(caso.cantidad), 2);
        guion->Terminar();
    }
}

TEST_F(Cantidades, DevCosto_PorEleccionYVariante) {
    const auto lee = [&](const std::string& columna, bool variante, std::vector<ConexionGuion::Fila> filas) {
        guion->EsperaConsulta("SELECT Bloqueo, Stock_Actual, " + columna + " AS Costo FROM Almacen_Articulos" +
                                  (variante ? "_C" : "") +
                                  " WHERE Cod_Empresa =1 AND Cod_Almacen =6 AND Cod_Articulo =9" +
                                  (variante ? " AND CualidadX =38 AND CualidadY =2" : ""),
                              {"Costo"}, std::move(filas));
    };
    lee("P_Medio", false, {});
    EXPECT_EQ(Currency(), almacen.Dev_Costo(6, 9, 38, 0));
    lee("P_Medio", false, {{1.25}});
    lee("P_Medio", true, {{0.0}});
    EXPECT_EQ(Currency::DeDouble(1.25), almacen.Dev_Costo(6, 9, 38, 2));
    lee("DF_P_Medio", false, {{1.25}});
    lee("DF_P_Medio", true, {{2.5}});
    EXPECT_EQ(Currency::DeDouble(2.5), almacen.Dev_CostoDF(6, 9, 38, 2));
    empresa->costeUltimaCompra = true;
    lee("PU_Compra", false, {{3.0}});
    EXPECT_EQ(Currency::DeEntero(3), almacen.Dev_Costo(6, 9, 0, 2));
    lee("DF_PU_Compra", false, {{4.0}});
    EXPECT_EQ(Currency::DeEntero(4), almacen.Dev_CostoDF(6, 9, 0, 0));
}

TEST_F(Cantidades, Cargar_SoloElStock) {
    constexpr const char* kSql =
        "SELECT * FROM Almacen_Articulos WHERE Cod_Empresa =1 AND Cod_Almacen =6 AND Cod_Articulo =1042";
    guion->EsperaConsulta(kSql, {"Stock_Actual", "P_Medio"}, {{7.5, 3.0}});
    almacen.Cargar();
    guion->EsperaConsulta(kSql);
    almacen.Cargar();
    EXPECT_EQ(7.5, almacen.Stock_Actual);
    EXPECT_EQ(0, almacen.P_Medio);
}

}  // namespace
}  // namespace kv::prueba
