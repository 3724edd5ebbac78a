#include <gtest/gtest.h>

#include <functional>

#include "stock/clsAlmacen_Articulo.h"
#include "tests/comun/ConexionGuion.h"
#include "tests/comun/EmpresaFija.h"
#include "tests/comun/Errores.h"

namespace kv::prueba {
namespace {

const Fecha kDia = Fecha::DeAmd(2026, 3, 5);
const std::vector<std::string> kColumnas = {"Stock_Actual", "Stock_Peso", "P_Medio", "PU_Compra"};
constexpr const char* kTipo = "SELECT Tipo FROM Articulos WHERE Cod_Empresa =2 AND Codigo =1042";
constexpr const char* kLeer =
    "SELECT Stock_Actual, Stock_Peso, P_Medio, PU_Compra FROM Almacen_Articulos WHERE Cod_Empresa =1"
    " And Cod_Almacen =6 And Cod_Articulo =1042";
constexpr const char* kDonde = " WHERE Cod_Empresa =1 AND Cod_Almacen =6 AND Cod_Articulo =1042";
constexpr const char* kDonde3 = " WHERE Cod_Empresa =1 And Cod_Almacen =6 And Cod_Articulo =1042";
constexpr const char* kInsertar =
    "INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, Stock_Actual, Stock_Peso, PU_Compra,"
    " P_Medio, FUlt_Compra, FUlt_Venta, FIni_Existencias, FFin_Existencias) VALUES (1, 6, 1042, ";

class Movimientos : public testing::Test {
  protected:
    Movimientos() {
        almacen.Conexion(guion);
        almacen.cEmpresa(empresa);
    }
    void Lee(int tipo, std::vector<ConexionGuion::Fila> filas) {
        guion->EsperaConsulta(kTipo, {"Tipo"}, {{static_cast<std::uint8_t>(tipo)}});
        guion->EsperaConsulta(kLeer, kColumnas, std::move(filas));
    }
    void Escribe(const std::string& cambios, int afectados = 1) {
        guion->EsperaEscritura("UPDATE Almacen_Articulos SET" + cambios + kDonde, afectados);
    }
    // A purchase carried to the masters, with this price or none; a sale.
    void CompraEnMaestros(const std::string& precio) {
        guion->EsperaEjecucion("UPDATE Articulos SET FUCompra ='05/03/2026'" + precio +
                               " WHERE Cod_Empresa = 2 AND Codigo =1042 AND FUCompra<='05/03/2026'");
        guion->EsperaEjecucion(
            "UPDATE Almacenes SET FUCompra ='05/03/2026' WHERE Cod_Empresa = 1 AND Codigo =6"
            " AND FUCompra<='05/03/2026'");
    }
    void VentaEnMaestros() {
        guion->EsperaEjecucion("UPDATE Articulos SET FUVenta ='05/03/2026' WHERE Cod_Empresa = 2 AND Codigo =1042");
        guion->EsperaEjecucion("UPDATE Almacenes SET FUVenta ='05/03/2026' WHERE Cod_Empresa = 1 AND Codigo =6");
    }
    void FechaCompra(const std::string& precio) {
        guion->EsperaEjecucion("UPDATE Almacen_Articulos SET FUlt_Compra ='05/03/2026'" + precio + kDonde3 +
                               " AND FUlt_Compra<='05/03/2026'");
    }
    void Mover(double unidades, double peso, double neto, int op, bool fichas = false) {
        almacen.Act_Stock(6, 1042, unidades, peso, neto, static_cast<std::int16_t>(op), kDia, puc, medio, stock,
                          fichas);
    }

    BibliotecaDePrueba biblioteca{kDia, ','};
    std::shared_ptr<ConexionGuion> guion = std::make_shared<ConexionGuion>();
    std::shared_ptr<EmpresaFija> empresa = std::make_shared<EmpresaFija>();
    clsAlmacen_Articulo almacen;
    double puc = -1;
    double medio = -1;
    double stock = -1;
};

TEST_F(Movimientos, Compra_MediaYGuardasYMaestros) {
    Lee(0, {{10.0, 1.5, 1.0, 0.9}});
    Escribe(" Stock_Actual = Stock_Actual + 10, Stock_Peso = Stock_Peso + 0.5, P_Medio =1.5");
    FechaCompra(", PU_Compra =2");
    CompraEnMaestros(", PU_Compra =2");
    Mover(10, 0.5, 2, 3, true);
    EXPECT_EQ(0.9, puc);
    EXPECT_EQ(1.5, medio);
    EXPECT_EQ(20, stock);
}

TEST_F(Movimientos, Media_SegunStockYMediaAnteriores) {
    struct Caso {
        const char* nombre;
        double stock;
        double media;
        double unidades;
        double neto;
        const char* esperada;
        const char* periodo;
        std::int16_t decimales = 4;
    };
    const Caso kCasos[] = {
        {"stock negativo no pesa", -5, 1, 10, 2, "2", ", FIni_Existencias ='05/03/2026', FFin_Existencias =''"},
        {"media 0 no pesa", 10, 0, 10, 2, "2", ""},
        {"cuatro decimales alejando", 3, 1, 4, 2, "1.5714", ""},
        {"a medias aleja de cero", 1, 1, 1, 1.01, "1.01", "", 2},
        {"sin precio la conserva", 10, 1.25, 5, 0, "1.25", ""},
        {"devolución la conserva", 10, 1.25, -3, 2, "1.25", ""},
        {"se agota", 3, 1.25, -3, 2, "1.25", ", FIni_Existencias ='', FFin_Existencias ='05/03/2026'"},
    };
    for (const Caso& caso : kCasos) {
        SCOPED_TRACE(caso.nombre);
        empresa->decCostes = caso.decimales;
        Lee(0, {{caso.stock, 0.0, caso.media, 0.0}});
        const std::string precio = caso.neto > 0 ? ", PU_Compra =" + TextoDouble(caso.neto, '.').Cadena() : "";
        Escribe(" Stock_Actual = Stock_Actual + " + TextoDouble(caso.unidades, '.').Cadena() +
                ", Stock_Peso = Stock_Peso + 0, P_Medio =" + caso.esperada + precio + caso.periodo);
        Mover(caso.unidades, 0, caso.neto, 7);
        guion->Terminar();
    }
}

TEST_F(Movimientos, Clases_SignoYFechas) {
    struct Caso {
        int op;
        double unidades;
        const char* cambios;
    };
    for (const Caso& caso : {Caso{5, 3,
                                  " Stock_Actual = Stock_Actual + -3, Stock_Peso = Stock_Peso + -1,"
                                  " FUlt_Venta ='05/03/2026'"},
                             {5, -3, " Stock_Actual = Stock_Actual + 3, Stock_Peso = Stock_Peso + -1"},
                             {8, 3, " Stock_Actual = Stock_Actual + -3, Stock_Peso = Stock_Peso + -1"},
                             {13, 3, " Stock_Actual = Stock_Actual + -3, Stock_Peso = Stock_Peso + -1"},
                             {3, -3, " Stock_Actual = Stock_Actual + -3, Stock_Peso = Stock_Peso + 1, P_Medio =1"},
                             {1, 3, " Stock_Actual = Stock_Actual + 3, Stock_Peso = Stock_Peso + 1"}}) {
        Lee(0, {{10.0, 0.0, 1.0, 0.0}});
        Escribe(caso.cambios);
        if (caso.op == 5 && caso.unidades > 0) VentaEnMaestros();
        Mover(caso.unidades, 1, 9, caso.op, true);
        guion->Terminar();
    }
}

TEST_F(Movimientos, SinPrecio_LaCompraPoneSoloLaFecha) {
    Lee(0, {{10.0, 0.0, 1.0, 0.0}});
    Escribe(" Stock_Actual = Stock_Actual + 2, Stock_Peso = Stock_Peso + 0, P_Medio =1");
    FechaCompra("");
    Mover(2, 0, 0, 3);
}

TEST_F(Movimientos, SinExistencias_SoloSiguenLasFechas) {
    Lee(1, {{10.0, 0.0, 1.0, 0.0}});
    Escribe("  Stock_Actual = Stock_Actual + 0, FUlt_Venta ='05/03/2026'", 0);
    guion->EsperaEjecucion(
        "INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, FUlt_Compra, FUlt_Venta) VALUES (1, 6,"
        " 1042, '', '05/03/2026')");
    VentaEnMaestros();
    Mover(3, 0, 9, 5, true);
    Lee(1, {{10.0, 0.0, 1.0, 0.0}});
    Escribe("  Stock_Actual = Stock_Actual + 0");
    FechaCompra("");
    CompraEnMaestros("");
    Mover(3, 0, 9, 3, true);
}

TEST_F(Movimientos, PrimerMovimiento_HaceLaFila) {
    struct Caso {
        int op;
        double unidades;
        double neto;
        const char* cambios;
        const char* valores;
    };
    for (const Caso& caso :
         {Caso{5, 3, 9, " Stock_Actual = Stock_Actual + -3, Stock_Peso = Stock_Peso + 0, FUlt_Venta ='05/03/2026'",
               "-3, 0, 0, 0, '', '05/03/2026', '', '05/03/2026')"},
          {7, 4, 2.5,
           " Stock_Actual = Stock_Actual + 4, Stock_Peso = Stock_Peso + 0, P_Medio =2.5, PU_Compra =2.5,"
           " FIni_Existencias ='05/03/2026', FFin_Existencias =''",
           "4, 0, 2.5, 2.5, '', '', '05/03/2026', '')"},
          {7, 0, 2.5, " Stock_Actual = Stock_Actual + 0, Stock_Peso = Stock_Peso + 0, P_Medio =-1, PU_Compra =2.5",
           "0, 0, 2.5, 2.5, '', '', '', '05/03/2026')"}}) {
        medio = -1;
        Lee(0, {});
        Escribe(caso.cambios, 0);
        guion->EsperaEjecucion(std::string(kInsertar) + caso.valores);
        Mover(caso.unidades, 0, caso.neto, caso.op);
        guion->Terminar();
    }
}

TEST_F(Movimientos, FalloEnCadaPaso_LlegaComoVinoYNadaMasSeEscribe) {
    EsperarError(kErrObjetoNoEstablecido, "KVDatosArt", [] {
        double a = 0;
        clsAlmacen_Articulo().Act_Stock(1, 1, 1, 1, 1, 3, kDia, a, a, a, false);
    });
    guion->EsperaConsulta(kTipo);
    guion->EsperaConsulta(kLeer, kColumnas, {{1e18, 0.0, 1e18, 0.0}});
    EsperarError(kErrDesbordamiento, "KVDatosArt", [&] { Mover(1, 0, 1, 7); });
    Lee(0, {{Nulo{}, 0.0, 1.0, 0.0}});
    EsperarError(kErrNulo, "KVDatosArt", [&] { Mover(1, 0, 1, 7); });
    const std::function<void()> pasos[] = {
        [&] {
            Escribe(
                " Stock_Actual = Stock_Actual + 1, Stock_Peso = Stock_Peso + 0, P_Medio =1,"
                " FIni_Existencias ='05/03/2026', FFin_Existencias =''",
                0);
        },
        [&] { guion->EsperaEjecucion(std::string(kInsertar) + "1, 0, 1, 1, '05/03/2026', '', '05/03/2026', '')"); },
        [&] { FechaCompra(", PU_Compra =1"); },
        [&] { CompraEnMaestros(", PU_Compra =1"); },
    };
    for (std::size_t fallo = 0; fallo < std::size(pasos); ++fallo) {
        Lee(0, {});
        for (std::size_t i = 0; i <= fallo; ++i) pasos[i]();
        guion->YFalla(1205, "bloqueo");
        EsperarError(1205, "Proveedor", [&] { Mover(1, 0, 1, 3, true); });
        guion->Terminar();
    }
}

class Cualidades : public Movimientos {
  protected:
    void Lee(std::vector<ConexionGuion::Fila> filas) {
        guion->EsperaConsulta(
            "SELECT Stock_Actual, Stock_Peso, P_Medio, PU_Compra FROM Almacen_Articulos_C WHERE Cod_Empresa =1"
            " AND Cod_Almacen =6 AND Cod_Articulo =1042 AND CualidadX =38 AND CualidadY =2",
            kColumnas, std::move(filas));
    }
    void Escribe(const std::string& cambios, int afectados = 1) {
        guion->EsperaEscritura(
            "UPDATE Almacen_Articulos_C SET" + cambios + kDonde + " AND CualidadX =38 AND CualidadY =2", afectados);
    }
    void Mover(double unidades, double neto, int op, bool fichas = false) {
        almacen.Act_Stock_Cualidades(6, 1042, 38, 2, unidades, 0, neto, static_cast<std::int16_t>(op), kDia, puc, medio,
                                     stock, fichas);
    }
};

TEST_F(Cualidades, Media_ConSusPropiasGuardas) {
    struct Caso {
        const char* nombre;
        double stock;
        double media;
        double unidades;
        double neto;
        const char* esperada;
        std::int16_t decimales = 4;
    };
    for (const Caso& caso : {Caso{"stock negativo pesa", -5, 1, 10, 2, "3"},
                             {"-0.005 aleja de cero y cede", -5, 2.005, 10, 1, "1", 2},
                             {"media 0 pesa", 10, 0, 10, 2, "1"},
                             {"media negativa cede", 10, -1, 5, 2, "2"},
                             {"no queda stock", -10, 1, 5, 2, "1"},
                             {"sin precio", 10, 1.5, 5, 0, "1.5"}}) {
        SCOPED_TRACE(caso.nombre);
        empresa->decCostes = caso.decimales;
        Lee({{caso.stock, 0.0, caso.media, 0.0}});
        std::string cambios = " Stock_Actual = Stock_Actual + " + TextoDouble(caso.unidades, '.').Cadena() +
                              ", Stock_Peso = Stock_Peso + 0, P_Medio =" + caso.esperada;
        if (caso.stock == -5) cambios += ", FIni_Existencias ='05/03/2026', FFin_Existencias =''";
        Escribe(cambios);
        Mover(caso.unidades, caso.neto, 7);
        guion->Terminar();
    }
}

TEST_F(Cualidades, FilaNuevaGuardaEstrictaYMaestros) {
    Lee({});
    Escribe(
        " Stock_Actual = Stock_Actual + 4, Stock_Peso = Stock_Peso + 0, P_Medio =2.5,"
        " FIni_Existencias ='05/03/2026', FFin_Existencias =''",
        0);
    guion->EsperaEjecucion(
        "INSERT INTO Almacen_Articulos_C (Cod_Empresa, Cod_Almacen, Cod_Articulo, CualidadX, CualidadY, Stock_Actual,"
        " Stock_Peso, PU_Compra, P_Medio,  FUlt_Compra, FUlt_Venta, FIni_Existencias, FFin_Existencias) VALUES (1, 6,"
        " 1042, 38, 2, 4, 0, 2.5, 2.5, '05/03/2026', '', '05/03/2026', '')");
    guion->EsperaEjecucion(std::string("UPDATE Almacen_Articulos_C SET PU_Compra=2.5,P_Medio=2.5,"
                                       "FUlt_Compra='05/03/2026'") +
                           kDonde3 + " AND CualidadX =38 AND CualidadY =2 AND FUlt_Compra<='05/03/2026'");
    Mover(4, 2.5, 3);
    Lee({{1.0, 0.0, 1.0, 0.0}});
    Escribe(" Stock_Actual = Stock_Actual + 4, Stock_Peso = Stock_Peso + 0, P_Medio =1");
    CompraEnMaestros("");
    Mover(4, 0, 3, true);
    Lee({{9.0, 0.0, 1.0, 0.0}});
    Escribe(" Stock_Actual = Stock_Actual + -4, Stock_Peso = Stock_Peso + 0, FUlt_Venta ='05/03/2026'");
    VentaEnMaestros();
    Mover(4, 9, 5, true);
}

}  // namespace
}  // namespace kv::prueba
