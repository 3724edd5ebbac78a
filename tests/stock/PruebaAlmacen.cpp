#include <algorithm>
#include <functional>

#include "kvdatosart/stock/clsAlmacen_Articulo.h"
#include "kvdatosart/tests/comun/ConGuion.h"

namespace kv::prueba {
namespace {

using Filas = std::vector<ConexionGuion::Fila>;

const std::string kClave = " WHERE Cod_Empresa =1 AND Cod_Almacen =6 AND Cod_Articulo =1042";
const std::string kClaveMixta = " WHERE Cod_Empresa =1 And Cod_Almacen =6 And Cod_Articulo =1042";
const std::string kVariante = " AND CualidadX =38 AND CualidadY =2";
const std::string kInsertar = "INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, ";
const std::string kInsertarC =
    "INSERT INTO Almacen_Articulos_C (Cod_Empresa, Cod_Almacen, Cod_Articulo, CualidadX, CualidadY, ";

const std::string kPesa = ", Stock_Peso = Stock_Peso + 0.5";
const std::string kQuita = ", Stock_Peso = Stock_Peso + -0.5";
const std::string kEmpieza = ", FIni_Existencias ='05/03/2026', FFin_Existencias =''";
const std::string kVendido = ", FUlt_Venta ='05/03/2026'";

std::vector<double> V(auto... valores) {
    return {static_cast<double>(valores)...};
}

/// A movement that weighs 0.5, and what it writes.
struct Apunte {
    const char* nombre;
    int op;
    double unidades, neto;
    std::vector<double> antes = {};  // stock, average and purchase price of the row; empty: there is none yet
    std::vector<double> deja = {};   // the same three that the call gives back
    std::string cambios = {};        // of the row, from what is added to its stock on
    const char* precio = nullptr;    // what a purchase sets besides its dates; none: no purchase
    std::string nueva = {};          // the values of the row that is made
    int tipo = 0;                    // of the article; -1: there is no article
    const char* compraC = nullptr;   // what a purchase sets in the variant's row
};

class Almacen : public ConGuion<clsAlmacen_Articulo> {
  protected:
    Almacen() {
        empresa->decCostes = 3;
        objeto.Almacen = 6;
        objeto.Articulo = 1042;
    }
    void Leer(bool variante, int tipo, Filas filas) {
        if (!variante)
            guion->EsperaConsulta("SELECT Tipo FROM Articulos WHERE Cod_Empresa =2 AND Codigo =1042", {"Tipo"},
                                  tipo < 0 ? Filas() : Filas{{static_cast<std::uint8_t>(tipo)}});
        guion->EsperaConsulta("SELECT Stock_Actual, Stock_Peso, P_Medio, PU_Compra FROM Almacen_Articulos" +
                                  (variante ? "_C" + kClave + kVariante : kClaveMixta),
                              {"Stock_Actual", "P_Medio", "PU_Compra", "Stock_Peso"}, std::move(filas));
    }
    static std::vector<std::string> Escrituras(const Apunte& a, bool variante, bool fichas) {
        const std::string tabla = std::string("UPDATE Almacen_Articulos") + (variante ? "_C" : "") + " SET";
        const std::string y = variante ? kVariante : "";
        std::vector<std::string> textos = {tabla + (a.tipo > 0 ? " " : "") + " Stock_Actual = Stock_Actual + " +
                                           a.cambios + kClave + y};
        if (a.antes.empty()) {
            const std::string stock = a.tipo > 0 ? "" : "Stock_Actual, Stock_Peso, PU_Compra, P_Medio, ";
            const std::string periodo = a.tipo > 0 ? "" : ", FIni_Existencias, FFin_Existencias";
            textos.push_back((variante ? kInsertarC + stock + " " : kInsertar + stock) + "FUlt_Compra, FUlt_Venta" +
                             periodo + ") VALUES (1, 6, 1042, " + (variante ? "38, 2, " : "") + a.nueva);
        }
        if (variante ? a.compraC : a.precio)
            textos.push_back(tabla + (variante ? a.compraC : " FUlt_Compra ='05/03/2026'" + std::string(a.precio)) +
                             kClaveMixta + y + " AND FUlt_Compra<='05/03/2026'");
        const auto maestros = [&](const std::string& cambio, const std::string& precio, const std::string& guarda) {
            textos.push_back("UPDATE Articulos SET " + cambio + precio + " WHERE Cod_Empresa = 2 AND Codigo =1042" +
                             guarda);
            textos.push_back("UPDATE Almacenes SET " + cambio + " WHERE Cod_Empresa = 1 AND Codigo =6" + guarda);
        };
        if (fichas && a.precio != nullptr) maestros("FUCompra ='05/03/2026'", a.precio, " AND FUCompra<='05/03/2026'");
        if (fichas && a.cambios.find("FUlt_Venta") != std::string::npos) maestros("FUVenta ='05/03/2026'", "", "");
        return textos;
    }
    void Mover(const Apunte& a, bool variante, bool fichas) {
        const auto op = static_cast<std::int16_t>(a.op);
        puc = medio = stock = -1;
        if (variante)
            objeto.Act_Stock_Cualidades(6, 1042, 38, 2, a.unidades, 0.5, a.neto, op, dia, puc, medio, stock, fichas);
        else
            objeto.Act_Stock(6, 1042, a.unidades, 0.5, a.neto, op, dia, puc, medio, stock, fichas);
    }
    // Each write fails in its turn and nothing more is written; then none fails.
    void Probar(const Apunte& a, bool variante, bool fichas) {
        SCOPED_TRACE(a.nombre + std::string(fichas ? " con fichas" : " sin fichas"));
        const std::vector<std::string> textos = Escrituras(a, variante, fichas);
        for (std::size_t fallo = 1; fallo <= textos.size() + 1; ++fallo) {
            Leer(variante, a.tipo, a.antes.empty() ? Filas() : Filas{{a.antes[0], a.antes[1], a.antes[2], 0.25}});
            guion->EsperaEscritura(textos[0], a.antes.empty() ? 0 : 1);
            for (std::size_t i = 1; i < std::min(fallo, textos.size()); ++i) guion->EsperaEjecucion(textos[i]);
            if (fallo > textos.size()) {
                Mover(a, variante, fichas);
            } else {
                guion->YFalla(1205, "bloqueo");
                EsperarError(1205, "Proveedor", [&] { Mover(a, variante, fichas); });
            }
            guion->Terminar();
        }
        EXPECT_EQ(a.deja, (std::vector{stock, medio, puc}));
    }

    double puc = 0, medio = 0, stock = 0;
};

TEST_F(Almacen, Act_Stock_ClasesMediasPeriodosYMaestros) {
    const std::string acaba = ", FIni_Existencias ='', FFin_Existencias ='05/03/2026'";
    const Apunte kCasos[] = {
        {"compra", 3, 10, 2, V(10, 1, 0.9), V(20, 1.5, 0.9), "10" + kPesa + ", P_Medio =1.5", ", PU_Compra =2"},
        {"compra sin precio", 3, 2, 0, V(10, 1, 0), V(12, 1, 0), "2" + kPesa + ", P_Medio =1", ""},
        {"compra de precio negativo", 3, 2, -1, V(10, 1, 0), V(12, 1, 0), "2" + kPesa + ", P_Medio =1"},
        {"compra de 0 unidades", 3, 0, 2, V(10, 1, 0), V(10, 1, 0), "0" + kPesa + ", P_Medio =1"},
        {"compra devuelta", 3, -3, 9, V(10, 1, 0), V(7, 1, 0), "-3" + kPesa + ", P_Medio =1"},
        {"venta", 5, 3, 9, V(10, 1, 0.9), V(7, 1, 0.9), "-3" + kQuita + kVendido},
        {"venta devuelta", 5, -3, 9, V(10, 1, 0), V(13, 1, 0), "3" + kQuita},
        {"venta de 0 unidades", 5, 0, 9, V(10, 1, 0), V(10, 1, 0), "0" + kQuita},
        {"otra salida", 8, 3, 9, V(10, -1, 0), V(7, -1, 0), "-3" + kQuita},
        {"otra salida que agota", 13, 3, 9, V(3, 1, 0), V(0, 1, 0), "-3" + kQuita + acaba},
        {"otra clase desde 0", 1, 3, 9, V(0, 1, 0), V(3, 1, 0), "3" + kPesa + kEmpieza},
        {"entrada sin precio", 7, 5, 0, V(10, 1.25, 0), V(15, 1.25, 0), "5" + kPesa + ", P_Medio =1.25"},
        {"entrada devuelta", 7, -3, 2, V(10, 1.25, 0), V(7, 1.25, 0), "-3" + kPesa + ", P_Medio =1.25, PU_Compra =2"},
        {"stock negativo no pesa", 7, 10, 2, V(-5, 1, 0), V(5, 2, 0),
         "10" + kPesa + ", P_Medio =2, PU_Compra =2" + kEmpieza},
        {"stock 0 no pesa ni redondea", 7, 4, 2.0004, V(0, 1, 0), V(4, 2.0004, 0),
         "4" + kPesa + ", P_Medio =2.0004, PU_Compra =2.0004" + kEmpieza},
        {"media 0 no pesa", 7, 10, 2, V(10, 0, 0), V(20, 2, 0), "10" + kPesa + ", P_Medio =2, PU_Compra =2"},
        {"tres decimales", 7, 4, 2, V(3, 1, 0), V(7, 1.571, 0), "4" + kPesa + ", P_Medio =1.571, PU_Compra =2"},
        {"medio decimal se aleja de 0", 7, 1, 1.001, V(1, 1, 0), V(2, 1.001, 0),
         "1" + kPesa + ", P_Medio =1.001, PU_Compra =1.001"},
        {"primera compra", 3, 1, 2, V(), V(1, 2, 2), "1" + kPesa + ", P_Medio =2" + kEmpieza, ", PU_Compra =2",
         "1, 0.5, 2, 2, '05/03/2026', '', '05/03/2026', '')"},
        {"primera compra sin precio", 3, 1, 0, V(), V(1, 0, 0), "1" + kPesa + ", P_Medio =-1" + kEmpieza, "",
         "1, 0.5, 0, 0, '', '', '05/03/2026', '')"},
        {"primera venta", 5, 3, 9, V(), V(-3, 0, 0), "-3" + kQuita + kVendido, nullptr,
         "-3, -0.5, 0, 0, '', '05/03/2026', '', '05/03/2026')"},
        {"primera entrada de 0 unidades", 7, 0, 2.5, V(), V(0, 2.5, 2.5), "0" + kPesa + ", P_Medio =-1, PU_Compra =2.5",
         nullptr, "0, 0.5, 2.5, 2.5, '', '', '', '05/03/2026')"},
        {"primera entrada de precio negativo", 7, 4, -2, V(), V(4, 0, 0), "4" + kPesa + ", P_Medio =-1" + kEmpieza,
         nullptr, "4, 0.5, 0, 0, '', '', '05/03/2026', '')"},
        {"sin artículo", 1, 3, 9, V(10, 1, 0), V(13, 1, 0), "3" + kPesa, nullptr, "", -1},
        {"compra sin existencias", 3, 3, 9, V(10, 1, 0), V(13, 2.846, 0), "0", "", "", 1},
        {"primera compra sin existencias", 3, 3, 9, V(), V(3, 9, 9), "0", "", "'05/03/2026', '')", 1},
        {"primera venta sin existencias", 5, 3, 9, V(), V(-3, 0, 0), "0" + kVendido, nullptr, "'', '05/03/2026')", 2},
    };
    for (const Apunte& caso : kCasos)
        for (const bool fichas : {true, false}) Probar(caso, false, fichas);
}

TEST_F(Almacen, Act_Stock_Cualidades_ConSusPropiasGuardas) {
    const Apunte kCasos[] = {
        {"stock negativo pesa", 7, 10, 2, V(-5, 1, 0.9), V(5, 3, 0.9), "10" + kPesa + ", P_Medio =3" + kEmpieza},
        {"-0.0005 se aleja de 0 y cede", 7, 10, 1, V(-5, 2.0005, 0), V(5, 1, 0),
         "10" + kPesa + ", P_Medio =1" + kEmpieza},
        {"media que baja a 0", 7, 10, 1, V(-5, 2, 0), V(5, 0, 0), "10" + kPesa + ", P_Medio =0" + kEmpieza},
        {"media 0 pesa", 7, 10, 2, V(10, 0, 0), V(20, 1, 0), "10" + kPesa + ", P_Medio =1"},
        {"stock 0 redondea", 7, 4, 2.0004, V(0, 1, 0), V(4, 2, 0), "4" + kPesa + ", P_Medio =2" + kEmpieza},
        {"media negativa cede", 7, 5, 2.0004, V(10, -1, 0), V(15, 2.0004, 0), "5" + kPesa + ", P_Medio =2.0004"},
        {"y en una compra sin precio", 3, 5, 0, V(10, -1, 0), V(15, 0, 0), "5" + kPesa + ", P_Medio =0", ""},
        {"y en una venta", 5, 3, 9, V(10, -1, 0), V(7, 9, 0), "-3" + kQuita + kVendido},
        {"y en otra clase", 1, 3, 9, V(10, -1, 0), V(13, 9, 0), "3" + kPesa},
        {"no queda stock", 7, 5, 2, V(-10, 1, 0), V(-5, 1, 0), "5" + kPesa + ", P_Medio =1"},
        {"llega a 0", 7, 5, 2, V(-5, 1, 0), V(0, 1, 0), "5" + kPesa + ", P_Medio =1"},
        {"entrada sin precio", 7, 5, 0, V(10, 1.5, 0), V(15, 1.5, 0), "5" + kPesa + ", P_Medio =1.5"},
        {"compra", 3, 10, 2, V(10, 1, 0.9), V(20, 1.5, 0.9), "10" + kPesa + ", P_Medio =1.5", ", PU_Compra =2", "", 0,
         " PU_Compra=2,P_Medio=1.5,FUlt_Compra='05/03/2026'"},
        {"compra sin precio", 3, 4, 0, V(1, 1, 0), V(5, 1, 0), "4" + kPesa + ", P_Medio =1", ""},
        {"venta", 5, 4, 9, V(9, 1, 0), V(5, 1, 0), "-4" + kQuita + kVendido},
        {"primera compra", 3, 4, 2.5, V(), V(4, 2.5, 2.5), "4" + kPesa + ", P_Medio =2.5" + kEmpieza,
         ", PU_Compra =2.5", "4, 0.5, 2.5, 2.5, '05/03/2026', '', '05/03/2026', '')", 0,
         " PU_Compra=2.5,P_Medio=2.5,FUlt_Compra='05/03/2026'"},
        {"primera salida", 8, 4, 9, V(), V(-4, 0, 0), "-4" + kQuita, nullptr,
         "-4, -0.5, 0, 0, '', '', '', '05/03/2026')"},
    };
    for (const Apunte& caso : kCasos)
        for (const bool fichas : {true, false}) Probar(caso, true, fichas);
}

TEST_F(Almacen, FilaQueOtroHaceEntretanto_SeSumaYNoTieneCostes) {
    const Apunte entretanto = {"", 1, 4, 9, V(), V(), "4" + kPesa + kEmpieza};
    Leer(false, 0, {});
    guion->EsperaEscritura(Escrituras(entretanto, false, false)[0], 1);
    Mover(entretanto, false, false);
    EXPECT_EQ(V(4, -1, 0), (std::vector{stock, medio, puc}));
}

TEST_F(Almacen, FilaQueNoSirve_NadaSeEscribe) {
    using A = clsAlmacen_Articulo;
    for (const auto& metodo : std::initializer_list<void (*)(A&)>{
             [](A& a) { a.Act_Costo_DF(1, 1, {}, 1); }, [](A& a) { a.Dev_Costo(1, 1, 0, 0); },
             [](A& a) { a.Dev_CostoDF(1, 1, 0, 0); }, [](A& a) { a.Cargar(); }, [](A& a) { a.Act_PendRecibir({}); },
             [](A& a) { a.Act_PendServir_Cualidades(1, 1, {}); }, [](A& a) { a.Act_Costo({}); },
             [](A& a) { a.Act_Bloqueo(); }, [](A& a) { a.Act_Desglosa_Pack(); },
             [](A& a) { a.Act_Stock_Ubicaciones(1, 1, "", "", "", "", "", {}); }})
        EsperarError(kErrObjetoNoEstablecido, "KVDatosArt", [&] { metodo(*std::make_unique<A>()); });
    Leer(false, 0, {{1e18, 1e18, 0.0, 0.0}});
    EsperarError(kErrDesbordamiento, "KVDatosArt", [&] { Mover({"", 7, 1, 1}, false, false); });
    for (std::size_t columna = 0; columna < 4; ++columna) {
        ConexionGuion::Fila fila = {1, 1, 1, 1};
        fila[columna] = Nulo{};
        Leer(true, 0, {fila});
        EsperarError(kErrNulo, "KVDatosArt", [&] { Mover({"", 7, 1, 1}, true, false); });
    }
}

TEST_F(Almacen, Cantidades_ActualizaOInserta) {
    struct Caso {
        std::string actualizar;
        std::string insertar;
        std::function<void()> accion;
        bool marca = false;
    };
    const Currency menos = Currency::DeDouble(-2.5);
    const std::string poner = "UPDATE Almacen_Articulos SET ";
    const std::string donde = " WHERE Cod_Empresa = 1 AND Cod_Articulo = 1042 AND Cod_Almacen = 6";
    const std::string dondeC =
        " WHERE Cod_Empresa = 1 AND Cod_Articulo = 1042 AND CualidadX=38 AND CualidadY=2 AND Cod_Almacen = 6";
    const auto bloquear = [&](bool bloqueado) {
        objeto.Bloqueado = bloqueado;
        objeto.Act_Bloqueo();
    };
    const auto desglosar = [&](bool desglosa) {
        objeto.Desglosa_Pack = desglosa;
        objeto.Act_Desglosa_Pack();
    };
    const Caso kCasos[] = {
        {" " + poner + "Pend_Recibir = Pend_Recibir + n-2.5" + donde,
         kInsertar + "Pend_Recibir) VALUES (1, 6, 1042, n-2.5)", [&] { objeto.Act_PendRecibir(menos); }},
        {" " + poner + "Pend_Servir = Pend_Servir + n-2.5" + donde,
         kInsertar + "Pend_Servir) VALUES (1, 6, 1042, n-2.5)", [&] { objeto.Act_PendServir(menos); }},
        {" UPDATE Almacen_Articulos_C SET Pend_Recibir = Pend_Recibir + n-2.5" + dondeC,
         kInsertarC + "Pend_Recibir) VALUES (1, 6, 1042, 38, 2, n-2.5)",
         [&] { objeto.Act_PendRecibir_Cualidades(38, 2, menos); }},
        {" UPDATE Almacen_Articulos_C SET Pend_Servir = Pend_Servir + n-2.5" + dondeC,
         kInsertarC + "Pend_Servir) VALUES (1, 6, 1042, 38, 2, n-2.5)",
         [&] { objeto.Act_PendServir_Cualidades(38, 2, menos); }},
        {" " + poner + "Stock_MiniCompra = Stock_MiniCompra + n-2.5" + donde,
         kInsertar + "Stock_MiniCompra) VALUES (1, 6, 1042, n-2.5)", [&] { objeto.Act_StockMiniCompras(menos); }},
        {"UPDATE Almacen_Articulos_Ubic SET Stock_Actual=Stock_Actual+n-2.5 WHERE Cod_Empresa=1 AND Cod_Almacen=7"
         " AND Cod_Articulo=9 AND Ubic1='A' AND Ubic2='B' AND Ubic3='C' AND Ubic4='' AND Ubic5='E'",
         "INSERT INTO Almacen_Articulos_Ubic  (Cod_Empresa, Cod_Almacen, Cod_Articulo, Ubic1, Ubic2, Ubic3, Ubic4,"
         " Ubic5, Stock_Actual) VALUES (1, 7, 9, 'A', 'B', 'C', '', 'E', n-2.5)",
         [&] { objeto.Act_Stock_Ubicaciones(7, 9, "A", "B", "C", "", "E", menos); }},
        {poner + "PU_Compra =n-2.5, P_Medio =n-2.5" + donde,
         kInsertar + "PU_Compra, P_Medio) VALUES (1, 6, 1042, n-2.5, n-2.5)", [&] { objeto.Act_Costo(menos); }},
        {poner + "Bloqueo =1, F_Dormido ='17/04/2026'" + donde,
         kInsertar + "Bloqueo, F_Dormido) VALUES (1, 6, 1042, 1, '17/04/2026')", [&] { bloquear(true); }, true},
        {poner + "Bloqueo =0, F_Dormido ='01/01/1900'" + donde,
         kInsertar + "Bloqueo, F_Dormido) VALUES (1, 6, 1042, 0, '01/01/1900')", [&] { bloquear(false); }, true},
        {poner + "Desglosa_Pack =1" + donde, kInsertar + "Desglosa_Pack) VALUES (1, 6, 1042, 1)",
         [&] { desglosar(true); }, true},
        {poner + "Desglosa_Pack =0" + donde, kInsertar + "Desglosa_Pack) VALUES (1, 6, 1042, 0)",
         [&] { desglosar(false); }, true},
    };
    for (const Caso& caso : kCasos)
        for (const int afectados : {1, 0}) {
            SCOPED_TRACE(caso.actualizar);
            guion->EsperaEscritura(caso.actualizar, afectados);
            if (afectados == 0) guion->EsperaEjecucion(caso.insertar);
            if (caso.marca)
                guion->EsperaEjecucion("UPDATE Articulos SET Mod_Ficha = 1 WHERE Cod_Empresa =2 AND Codigo = 1042");
            caso.accion();
            guion->Terminar();
        }
    objeto.Act_PendRecibir_Cualidades(0, 2, menos);
    objeto.Act_PendServir_Cualidades(38, 0, menos);
}

TEST_F(Almacen, Act_Costo_DF_MediaYMaestro) {
    const auto comprar = [&](double cantidad, Filas filas, const std::string& media) {
        SCOPED_TRACE(media);
        if (cantidad > 0)
            guion->EsperaConsulta("SELECT Stock_Actual, DF_P_Medio, DF_PU_Compra FROM Almacen_Articulos" + kClaveMixta,
                                  {"Stock_Actual", "DF_P_Medio"}, std::move(filas));
        guion->EsperaEjecucion("UPDATE Almacen_Articulos SET" + media + " DF_PU_Compra =2" + kClaveMixta);
        guion->EsperaEjecucion("UPDATE Articulos SET DF_PU_Compra =2 WHERE Cod_Empresa =2 And Codigo =1042");
        objeto.Act_Costo_DF(6, 1042, Currency::DeDouble(cantidad), 2);
        guion->Terminar();
    };
    comprar(10, {{10.0, 1.0}}, " DF_P_Medio =1.5,");
    comprar(10, {{-10.0, 1.0}}, " DF_P_Medio =2,");
    comprar(10, {{-5.0, 1.0}}, " DF_P_Medio =3,");
    comprar(10, {{10.0, 0.0}}, " DF_P_Medio =2,");
    comprar(10, {{10.0, -1.0}}, " DF_P_Medio =2,");
    comprar(4, {{3.0, 1.0}}, " DF_P_Medio =1.571,");
    comprar(10, {}, " DF_P_Medio =2,");
    comprar(0, {}, "");
    comprar(-3, {}, "");
    biblioteca.masAlRedondear = Currency::DeEntero(10);
    comprar(10, {{10.0, 1.0}}, " DF_P_Medio =11.5,");
}

TEST_F(Almacen, Dev_Costo_PorEleccionYVariante) {
    const auto lee = [&](const std::string& columna, bool variante, Filas filas) {
        guion->EsperaConsulta("SELECT Bloqueo, Stock_Actual, " + columna + " AS Costo FROM Almacen_Articulos" +
                                  (variante ? "_C" + kClave + kVariante : kClave),
                              {"Costo"}, std::move(filas));
    };
    lee("P_Medio", false, {});
    EXPECT_EQ(Currency(), objeto.Dev_Costo(6, 1042, 38, 0));
    lee("P_Medio", false, {{1.25}});
    lee("P_Medio", true, {{-0.5}});
    EXPECT_EQ(Currency::DeDouble(1.25), objeto.Dev_Costo(6, 1042, 38, 2));
    lee("DF_P_Medio", false, {{1.25}});
    lee("DF_P_Medio", true, {{2.5}});
    EXPECT_EQ(Currency::DeDouble(2.5), objeto.Dev_CostoDF(6, 1042, 38, 2));
    empresa->costeUltimaCompra = true;
    lee("PU_Compra", false, {{3.0}});
    EXPECT_EQ(Currency::DeEntero(3), objeto.Dev_Costo(6, 1042, 0, 2));
    lee("DF_PU_Compra", false, {{4.0}});
    EXPECT_EQ(Currency::DeEntero(4), objeto.Dev_CostoDF(6, 1042, 0, 0));
}

TEST_F(Almacen, Cargar_SoloElStock) {
    guion->EsperaConsulta("SELECT * FROM Almacen_Articulos" + kClave, {"Stock_Actual", "P_Medio"}, {{7.5, 3.0}});
    objeto.Cargar();
    guion->EsperaConsulta("SELECT * FROM Almacen_Articulos" + kClave);
    objeto.Cargar();
    EXPECT_EQ(7.5, objeto.Stock_Actual);
    EXPECT_EQ(0, objeto.P_Medio);
}

}  // namespace
}  // namespace kv::prueba
