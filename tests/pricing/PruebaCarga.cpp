#include "kvdatosart/component/clsDatosArt.h"
#include "kvdatosart/tests/comun/ConGuion.h"

namespace kv::prueba {
namespace {

using Filas = std::vector<ConexionGuion::Fila>;

const auto kColumnas = Palabras(
    "Descripcion Familia_1 Familia_2 Familia_3 UxCaja Control_NSeries Control_Caducidad DStock CtaVentas CtaDVentas"
    " TipoImpuesto TipoImpuesto2 ArticuloGenerico Envase RAEE ECORAEE FidelizacionPuntos TipoRep Control_Lotes Largo"
    " Ancho Altura Bloqueado MsjAlerta MotivoBaja BajoPedido UnidadesDecimales Peso PadreVenta");

// The properties in the order of those columns, which of them hold something: '1'.
std::string Puestas(const DatosArticulo& a) {
    const auto puestas = [](const auto&... propiedad) {
        return std::string{(ADouble(Valor(propiedad)) != 0 ? '1' : '.')...};
    };
    return puestas(a.Descripcion, a.Familia_1, a.Familia_2, a.Familia_3, a.UxB, a.Control_Series, a.Control_Caducidad,
                   a.DStock, a.CtaVentas, a.CtaDVentas, a.Impuesto, a.Impuesto2, a.Tipo, a.Cod_Envase, a.RAEE,
                   a.ECORAEE, a.FidelizacionPuntos, a.TipoRep, a.Control_Lotes, a.Largo, a.Ancho, a.Altura,
                   a.BloqueadoGral, a.MsjAlerta, a.MotivoBaja, a.BajoPedido, a.UnidadesDecimales, a.Peso);
}

class Carga : public ConGuion<clsDatosArt> {
  protected:
    std::int16_t Cargar() { return objeto.Cargar(1042, 77, dia, 9, 6, 2, Currency::DeEntero(2)); }

    // A row of zeros but for the column `puesta`.
    ConexionGuion::Paso& Maestro(std::size_t puesta) {
        ConexionGuion::Fila fila(kColumnas.size(), 0);
        fila[puesta] = 1;
        guion->EsperaConsulta("SELECT * FROM Clientes WHERE Cod_Empresa =3 AND Codigo =77");
        return guion->EsperaConsulta(
            "SELECT a.Codigo, a.Descripcion, a.Familia_1, a.Familia_2, a.Familia_3, a.UxCaja, a.Largo, a.Ancho,"
            " a.Altura, a.Control_NSeries, a.DStock, a.TipoImpuesto, a.CtaVentas, a.CtaDVentas, a.Bloqueado,"
            " a.MsjAlerta, a.Envase, a.RAEE, a.ECORAEE, a.FidelizacionPuntos, a.Control_Caducidad, a.TipoRep,"
            " a.Control_Lotes, a.Peso, a.MotivoBaja, a.BajoPedido, a.TipoImpuesto2, ISNULL(aa.ArticuloGenerico, 0) AS"
            " ArticuloGenerico, a.UnidadesDecimales, a.PadreVenta FROM Articulos a LEFT JOIN Almacen_Articulos aa ON"
            " aa.Cod_Empresa =1 AND aa.Cod_Almacen =6 AND aa.Cod_Articulo = a.Codigo WHERE a.Cod_Empresa =2"
            " AND a.Codigo =1042",
            kColumnas, {fila});
    }
    void Almacen(const Filas& filas = {{true, false, 7.5, 1.0, 2.0, 3.25}}) {
        guion->EsperaConsulta(
            "SELECT Bloqueo, BloqueoVenta, (Stock_Actual + Stock_MiniCompra) AS Stock, Pend_Servir, Pend_Recibir,"
            " P_Medio AS Costo FROM Almacen_Articulos WHERE Cod_Empresa =1 AND Cod_Almacen =6 AND Cod_Articulo =1042",
            {"Bloqueo", "BloqueoVenta", "Stock", "Pend_Servir", "Pend_Recibir", "Costo"}, filas);
    }
    void HastaLaCadena() {
        Maestro(0);
        Almacen();
        guion->EsperaConsulta(
            "SELECT Cod_Tarifa, Pvp FROM Articulos_Tarifas WHERE Cod_Empresa =2 AND Cod_Articulo =1042"
            " AND Cod_Tarifa =9 AND Pvp <> 0",
            {"Pvp"}, {{19.995}});
        guion->EsperaConsulta(
            " SELECT Pvp FROM Clientes_Art_PVP WHERE Cod_Empresa =1 AND Cod_Cliente =77 AND Cod_Articulo =1042"
            " AND Fecha_Inicial <=' 05/03/2026' AND Fecha_Final >=' 05/03/2026'");
    }
};

const std::string kNivelesCadena =
    "SELECT Cad_Nivel_1, Cad_Nivel_2, Cad_Nivel_3, Cad_Nivel_4, Cad_Nivel_5, Cad_Nivel_6, Cad_Nivel_7,"
    " Cad_Nivel_8, Cad_Nivel_9, Cad_Nivel_10  FROM Clientes WHERE Cod_Empresa=1 AND Codigo=77";

TEST_F(Carga, CadaNivelDeLaCadenaEnElSuyo) {
    HastaLaCadena();
    guion->EsperaConsulta(kNivelesCadena,
                          Palabras("Cad_Nivel_1 Cad_Nivel_2 Cad_Nivel_3 Cad_Nivel_4 Cad_Nivel_5 Cad_Nivel_6"
                                   " Cad_Nivel_7 Cad_Nivel_8 Cad_Nivel_9 Cad_Nivel_10"),
                          {{11, 12, 13, 14, 15, 16, 17, 18, 19, 20}});
    guion->EsperaConsulta(
        "SELECT TOP 1 a.* FROM Clientes_Cadenas_ConvArt a WHERE a.Cod_Empresa = 1 AND a.Cod_Articulo = 1042"
        " AND Cod_Nivel1 =11 AND Cod_Nivel2 =12 AND Cod_Nivel3 =13 AND Cod_Nivel4 =14 AND Cod_Nivel5 =15"
        " AND Cod_Nivel6 =16 AND Cod_Nivel7 =17 AND Cod_Nivel8 =18 AND Cod_Nivel9 =19 AND Cod_Nivel10 =20"
        " AND a.FechaEntrada <='d05/03/2026' AND a.FechaSalida >='d05/03/2026' AND a.FechaSalida < '31/12/2050'"
        " ORDER BY a.FechaEntrada DESC");
    guion->YFalla(1205, "bloqueo");
    EsperarError(1205, "clsClientes_Cadenas_ConvArt::Dev_PBase", [&] { Cargar(); });
}

TEST_F(Carga, Entera_SentenciasEnOrden) {
    objeto.Convenio = "antes";
    objeto.BloqueadoVenta = true;
    HastaLaCadena();
    guion->EsperaConsulta(kNivelesCadena);
    guion->EsperaConsulta(
        "SELECT a.PUC, a.Pvp, b.PU_Compra AS PUC_Base, ISNULL(c.Pvp, 0) AS Pvp_Base FROM Clientes_Convenio_Pvp a"
        " INNER JOIN Articulos b ON a.Cod_ArticuloB = b.Codigo AND b.Cod_Empresa =2 LEFT JOIN Articulos_Tarifas c"
        " ON a.Cod_ArticuloB = c.Cod_Articulo AND c.Cod_Empresa =2 WHERE a.Cod_Empresa =1 AND c.Cod_Tarifa = 1"
        " AND a.Cod_Cliente =77 AND a.Cod_Articulo =1042");
    for (const char* procedimiento : {"KVP_DevDtoClientesGrupos", "KVP_DevDtoDescuentosFamilias"}) {
        guion->EsperaProcedimiento(procedimiento, {}, {});
        guion->YFalla(2812, "no existe");
    }
    EXPECT_EQ(3, Cargar());
    EXPECT_EQ(Currency::DeDouble(19.995), objeto.PvpBase);
    EXPECT_EQ("", objeto.Convenio);
    EXPECT_EQ(Currency::DeDouble(7.5), objeto.Stock);
    EXPECT_EQ(Currency::DeEntero(1), objeto.PendienteServir);
    EXPECT_EQ(Currency::DeEntero(2), objeto.PendienteRecibir);
    EXPECT_FALSE(objeto.BloqueadoVenta);
}

// Each column of a variant's master row in its turn; then the variant's own row cannot be read.
TEST_F(Carga, DeUnaVariante_CadaColumnaEnSuPropiedad) {
    objeto.CualidadX = 38;
    objeto.CualidadY = 4;
    for (std::size_t puesta = 0; puesta + 1 < kColumnas.size(); ++puesta) {
        Maestro(puesta);
        Almacen();
        guion->EsperaConsulta(
            "SELECT (Stock_Actual + Stock_MiniCompra) AS Stock, P_Medio AS Costo FROM Almacen_Articulos_C"
            " WHERE Cod_Empresa =1 AND Cod_Almacen =6 AND Cod_Articulo =1042 AND CualidadX =38 AND CualidadY =4");
        guion->YFalla(1205, "bloqueo");
        EsperarError(1205, "Proveedor", [&] { Cargar(); });
        std::string esperadas(kColumnas.size() - 1, '.');
        esperadas[puesta] = '1';
        EXPECT_EQ(esperadas, Puestas(objeto)) << kColumnas[puesta];
    }
}

TEST_F(Carga, NuloAMitad_DejaLoAnteriorYLosPreciosACero) {
    objeto.Pvp = objeto.PvpOriginal = objeto.TarifaPVP = 9;
    objeto.Convenio = "antes";
    objeto.Peso = Currency::DeEntero(1);
    const std::size_t envase = 13;
    Maestro(envase).filas[0][envase + 1] = Nulo{};
    EsperarError(kErrNulo, "KVDatosArt", [&] { Cargar(); });
    EXPECT_EQ(1042, objeto.Codigo);
    EXPECT_EQ(1, objeto.Cod_Envase);
    EXPECT_EQ(0, objeto.Pvp + objeto.PvpOriginal + objeto.TarifaPVP);
    EXPECT_EQ("antes", objeto.Convenio);
    EXPECT_EQ(Currency::DeEntero(1), objeto.Peso);
}

TEST_F(Carga, PrecioDeTarifa) {
    const std::string vigente = "SELECT Cod_Tarifa, Pvp FROM Articulos_Tarifas";
    const std::string cambio = "SELECT TOP 1 Cod_Tarifa, Pvp FROM Tarifas_Modificacion";
    const std::string articulo = " WHERE Cod_Empresa =2 AND Cod_Articulo =1042";
    const std::string variante = "_C" + articulo + " AND CualidadX =38";
    const std::string tarifa = " AND Cod_Tarifa =3 AND Pvp <> 0";
    const std::string orden =
        " AND Actualizado=1 AND Borrado=0  AND Fecha_Entrada<='18/04/2026' ORDER BY Fecha_Entrada DESC, Codigo DESC";
    const auto hay = [&](const std::string& sql, Filas filas = {{12.3456}}) {
        guion->EsperaConsulta(sql, {"Pvp"}, std::move(filas));
    };
    const auto interruptor = [&](Filas filas) {
        guion->EsperaConsulta("SELECT TarifasxFechas FROM Empresas WHERE Codigo=1", {"TarifasxFechas"},
                              std::move(filas));
    };
    const auto precio = [&](std::uint8_t x, Fecha cuando, bool forzar, std::int16_t pedida = 3) {
        objeto.Codigo = 1042;
        objeto.CualidadX = x;
        objeto.TarifaPVP = 77;
        return objeto.DevPvp(pedida, cuando, forzar).ADouble();
    };
    hay(vigente + articulo + tarifa);
    EXPECT_EQ(12.3456, precio(0, hoy, true)) << "hoy no mira adelante ni forzado";
    EXPECT_EQ(3, objeto.TarifaPVP);
    hay(vigente + variante + tarifa);
    EXPECT_EQ(12.3456, precio(38, hoy, false)) << "variante";
    hay(cambio + articulo + tarifa + orden);
    EXPECT_EQ(12.3456, precio(0, hoy + 1, true)) << "futura forzada";
    interruptor({{true}});
    hay(cambio + variante + tarifa + orden);
    EXPECT_EQ(12.3456, precio(38, hoy + 1, false)) << "futura de una variante";
    interruptor({});
    hay(vigente + articulo + tarifa);
    EXPECT_EQ(12.3456, precio(0, hoy + 1, false)) << "empresa sin fila";
    interruptor({{Nulo{}}});
    EsperarError(kErrNulo, "KVDatosArt", [&] { precio(0, hoy + 1, false); });
    hay(vigente + articulo + tarifa, {{Nulo{}}});
    EsperarError(kErrNulo, "KVDatosArt", [&] { precio(0, hoy, false); });
    EXPECT_EQ(77, objeto.TarifaPVP);
    for (const std::int16_t ninguna : {std::int16_t{0}, std::int16_t{-1}})
        EsperarError(kErrObjetoNoEstablecido, "KVDatosArt", [&] { precio(0, hoy, false, ninguna); });
}

}  // namespace
}  // namespace kv::prueba
