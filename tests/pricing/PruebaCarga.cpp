#include <gtest/gtest.h>

#include "component/clsDatosArt.h"
#include "tests/comun/ConexionGuion.h"
#include "tests/comun/EmpresaFija.h"
#include "tests/comun/Errores.h"

namespace kv::prueba {
namespace {

const Fecha kDia = Fecha::DeAmd(2026, 3, 5);

// The statements of one load under codes that all differ, so that a wrong company is seen.
class Carga : public testing::Test {
  protected:
    Carga() {
        articulo.Conexion(guion);
        articulo.cEmpresa(empresa);
        guion->EsperaConsulta("SELECT * FROM Clientes WHERE Cod_Empresa =3 AND Codigo =77");
    }

    void Maestro(std::vector<ConexionGuion::Fila> filas) {
        guion->EsperaConsulta(
            "SELECT a.Codigo, a.Descripcion, a.Familia_1, a.Familia_2, a.Familia_3, a.UxCaja, a.Largo, a.Ancho,"
            " a.Altura, a.Control_NSeries, a.DStock, a.TipoImpuesto, a.CtaVentas, a.CtaDVentas, a.Bloqueado,"
            " a.MsjAlerta, a.Envase, a.RAEE, a.ECORAEE, a.FidelizacionPuntos, a.Control_Caducidad, a.TipoRep,"
            " a.Control_Lotes, a.Peso, a.MotivoBaja, a.BajoPedido, a.TipoImpuesto2, ISNULL(aa.ArticuloGenerico, 0) AS"
            " ArticuloGenerico, a.UnidadesDecimales, a.PadreVenta FROM Articulos a LEFT JOIN Almacen_Articulos aa ON"
            " aa.Cod_Empresa =1 AND aa.Cod_Almacen =6 AND aa.Cod_Articulo = a.Codigo WHERE a.Cod_Empresa =2"
            " AND a.Codigo =1042",
            {"Descripcion",
             "Familia_1",
             "Familia_2",
             "Familia_3",
             "UxCaja",
             "Control_NSeries",
             "Control_Caducidad",
             "DStock",
             "CtaVentas",
             "CtaDVentas",
             "TipoImpuesto",
             "TipoImpuesto2",
             "ArticuloGenerico",
             "Envase",
             "RAEE",
             "ECORAEE",
             "FidelizacionPuntos",
             "TipoRep",
             "Control_Lotes",
             "Largo",
             "Ancho",
             "Altura",
             "Bloqueado",
             "MsjAlerta",
             "MotivoBaja",
             "BajoPedido",
             "UnidadesDecimales",
             "Peso",
             "PadreVenta"},
            std::move(filas));
    }
    static ConexionGuion::Fila Fila(Valor raee = Currency::DeEntero(5)) {
        using S = std::string;
        const auto i = [](int v) { return static_cast<std::int16_t>(v); };
        const auto c = [](int v) { return Currency::DeEntero(v); };
        return {S("Taladro"),
                i(5),
                i(6),
                i(7),
                c(12),
                true,
                false,
                true,
                S("70"),
                S("708"),
                std::uint8_t{1},
                std::uint8_t{2},
                std::int32_t{1},
                std::int32_t{33},
                std::move(raee),
                c(6),
                std::int32_t{9},
                i(4),
                true,
                c(10),
                c(11),
                c(13),
                false,
                S("¡ojo!"),
                i(8),
                true,
                false,
                c(14),
                std::int32_t{0}};
    }
    void Almacen() {
        guion->EsperaConsulta(
            "SELECT Bloqueo, BloqueoVenta, (Stock_Actual + Stock_MiniCompra) AS Stock, Pend_Servir, Pend_Recibir,"
            " P_Medio AS Costo FROM Almacen_Articulos WHERE Cod_Empresa =1 AND Cod_Almacen =6 AND Cod_Articulo =1042",
            {"Bloqueo", "BloqueoVenta", "Stock", "Pend_Servir", "Pend_Recibir", "Costo"},
            {{true, false, 7.5, 1.0, 2.0, 3.25}});
    }
    // From the tariff to the customer's place in the chain.
    void TarifaYCadena(std::vector<ConexionGuion::Fila> niveles) {
        guion->EsperaConsulta(
            "SELECT Cod_Tarifa, Pvp FROM Articulos_Tarifas WHERE Cod_Empresa =2 AND Cod_Articulo =1042 AND Cod_Tarifa"
            " =9 AND Pvp <> 0",
            {"Cod_Tarifa", "Pvp"}, {{std::int16_t{9}, Currency::DeDouble(19.995)}});
        guion->EsperaConsulta(
            " SELECT Pvp FROM Clientes_Art_PVP WHERE Cod_Empresa =1 AND Cod_Cliente =77 AND Cod_Articulo =1042"
            " AND Fecha_Inicial <=' 05/03/2026' AND Fecha_Final >=' 05/03/2026'");
        guion->EsperaConsulta(
            "SELECT Cad_Nivel_1, Cad_Nivel_2, Cad_Nivel_3, Cad_Nivel_4, Cad_Nivel_5, Cad_Nivel_6, Cad_Nivel_7,"
            " Cad_Nivel_8, Cad_Nivel_9, Cad_Nivel_10  FROM Clientes WHERE Cod_Empresa=1 AND Codigo=77",
            {"Cad_Nivel_1", "Cad_Nivel_2", "Cad_Nivel_3", "Cad_Nivel_4", "Cad_Nivel_5", "Cad_Nivel_6", "Cad_Nivel_7",
             "Cad_Nivel_8", "Cad_Nivel_9", "Cad_Nivel_10"},
            std::move(niveles));
    }

    BibliotecaDePrueba biblioteca{kDia, ','};
    std::shared_ptr<ConexionGuion> guion = std::make_shared<ConexionGuion>();
    std::shared_ptr<EmpresaFija> empresa = std::make_shared<EmpresaFija>();
    clsDatosArt articulo;
};

TEST_F(Carga, Entera_SentenciasEnOrdenYPropiedades) {
    articulo.Convenio = "antes";
    articulo.BloqueadoVenta = articulo.BloqueadoGral = articulo.Control_Caducidad = articulo.UnidadesDecimales = true;
    Maestro({Fila()});
    Almacen();
    TarifaYCadena({});
    guion->EsperaConsulta(
        "SELECT a.PUC, a.Pvp, b.PU_Compra AS PUC_Base, ISNULL(c.Pvp, 0) AS Pvp_Base FROM Clientes_Convenio_Pvp a"
        " INNER JOIN Articulos b ON a.Cod_ArticuloB = b.Codigo AND b.Cod_Empresa =2 LEFT JOIN Articulos_Tarifas c"
        " ON a.Cod_ArticuloB = c.Cod_Articulo AND c.Cod_Empresa =2 WHERE a.Cod_Empresa =1 AND c.Cod_Tarifa = 1"
        " AND a.Cod_Cliente =77 AND a.Cod_Articulo =1042");
    guion->EsperaProcedimiento("KVP_DevDtoClientesGrupos", {}, {});
    guion->YFalla(2812, "no existe");
    guion->EsperaProcedimiento("KVP_DevDtoDescuentosFamilias", {}, {});
    guion->YFalla(2812, "no existe");
    EXPECT_EQ(3, articulo.Cargar(1042, 77, kDia, 9, 6, 2, Currency::DeEntero(2)));
    EXPECT_EQ(20, articulo.Pvp);
    EXPECT_EQ(20, articulo.PvpOriginal);
    EXPECT_EQ(9, articulo.TarifaPVP);
    EXPECT_EQ(Currency::DeDouble(19.995), articulo.PvpBase);
    EXPECT_EQ(3.25, articulo.PCosto);
    EXPECT_EQ(Currency::DeDouble(7.5), articulo.Stock);
    EXPECT_EQ(Currency::DeEntero(1), articulo.PendienteServir);
    EXPECT_EQ(Currency::DeEntero(2), articulo.PendienteRecibir);
    EXPECT_TRUE(articulo.Bloqueado);
    EXPECT_FALSE(articulo.BloqueadoVenta);
    EXPECT_EQ(1042, articulo.Codigo);
    EXPECT_EQ("Taladro", articulo.Descripcion);
    EXPECT_EQ("", articulo.Convenio);
    EXPECT_EQ("70", articulo.CtaVentas);
    EXPECT_EQ("708", articulo.CtaDVentas);
    EXPECT_EQ("¡ojo!", articulo.MsjAlerta);
    const std::pair<int, int> enteros[] = {
        {5, articulo.Familia_1},   {6, articulo.Familia_2},          {7, articulo.Familia_3},
        {33, articulo.Cod_Envase}, {1, articulo.Impuesto},           {2, articulo.Impuesto2},
        {4, articulo.TipoRep},     {9, articulo.FidelizacionPuntos}, {8, articulo.MotivoBaja}};
    for (const auto& [esperado, leido] : enteros) EXPECT_EQ(esperado, leido);
    const std::pair<int, Currency> importes[] = {{12, articulo.UxB},   {5, articulo.RAEE},   {6, articulo.ECORAEE},
                                                 {10, articulo.Largo}, {11, articulo.Ancho}, {13, articulo.Altura},
                                                 {14, articulo.Peso}};
    for (const auto& [esperado, leido] : importes) EXPECT_EQ(Currency::DeEntero(esperado), leido);
    EXPECT_TRUE(articulo.Control_Series && articulo.DStock && articulo.Tipo && articulo.Control_Lotes &&
                articulo.BajoPedido);
    EXPECT_FALSE(articulo.Control_Caducidad || articulo.BloqueadoGral || articulo.UnidadesDecimales);
}

TEST_F(Carga, DiezNiveles_CadaUnoEnSuSitio) {
    Maestro({Fila()});
    Almacen();
    ConexionGuion::Fila niveles;
    for (std::int16_t nivel = 11; nivel <= 20; ++nivel) niveles.emplace_back(nivel);
    TarifaYCadena({niveles});
    guion->EsperaConsulta(
        "SELECT TOP 1 a.* FROM Clientes_Cadenas_ConvArt a WHERE a.Cod_Empresa = 1 AND a.Cod_Articulo = 1042"
        " AND Cod_Nivel1 =11 AND Cod_Nivel2 =12 AND Cod_Nivel3 =13 AND Cod_Nivel4 =14 AND Cod_Nivel5 =15"
        " AND Cod_Nivel6 =16 AND Cod_Nivel7 =17 AND Cod_Nivel8 =18 AND Cod_Nivel9 =19 AND Cod_Nivel10 =20"
        " AND a.FechaEntrada <='05/03/2026' AND a.FechaSalida >='05/03/2026' AND a.FechaSalida < '31/12/2050'"
        " ORDER BY a.FechaEntrada DESC");
    guion->YFalla(1205, "bloqueo");
    EsperarError(1205, "clsClientes_Cadenas_ConvArt::Dev_PBase", [&] { articulo.Cargar(1042, 77, kDia, 9, 6, 2); });
    EXPECT_EQ(19.995, articulo.Pvp);
    EXPECT_EQ(Currency(), articulo.PvpBase);
}

TEST_F(Carga, NuloAMitad_DejaLoAnteriorYLosPreciosACero) {
    articulo.Pvp = articulo.PvpOriginal = articulo.TarifaPVP = 9;
    articulo.Convenio = "antes";
    articulo.Peso = Currency::DeEntero(1);
    Maestro({Fila(Nulo{})});
    EsperarError(kErrNulo, "KVDatosArt", [&] { articulo.Cargar(1042, 77, kDia, 9, 6, 2); });
    EXPECT_EQ(1042, articulo.Codigo);
    EXPECT_EQ(33, articulo.Cod_Envase);
    EXPECT_EQ(0, articulo.Pvp);
    EXPECT_EQ(0, articulo.PvpOriginal);
    EXPECT_EQ(0, articulo.TarifaPVP);
    EXPECT_EQ("antes", articulo.Convenio);
    EXPECT_EQ(Currency::DeEntero(1), articulo.Peso);
}

}  // namespace
}  // namespace kv::prueba
