#include "component/clsDatosArt.h"
#include "tests/comun/ConGuion.h"

namespace kv::prueba {
namespace {

using D = DatosArticulo;
using Filas = std::vector<ConexionGuion::Fila>;

const Fecha kHoy = Fecha::DeAmd(2026, 3, 5);
const Fecha kManana = Fecha::DeAmd(2026, 3, 6);

// The columns of the master row and the property that each one fills.
struct Dato {
    std::string columna;
    std::variant<std::int16_t D::*, std::int32_t D::*, std::uint8_t D::*, bool D::*, Currency D::*, std::string D::*>
        propiedad;
};
const std::vector<Dato> kMaestro = {
    {"Descripcion", &D::Descripcion},
    {"Familia_1", &D::Familia_1},
    {"Familia_2", &D::Familia_2},
    {"Familia_3", &D::Familia_3},
    {"UxCaja", &D::UxB},
    {"Control_NSeries", &D::Control_Series},
    {"Control_Caducidad", &D::Control_Caducidad},
    {"DStock", &D::DStock},
    {"CtaVentas", &D::CtaVentas},
    {"CtaDVentas", &D::CtaDVentas},
    {"TipoImpuesto", &D::Impuesto},
    {"TipoImpuesto2", &D::Impuesto2},
    {"ArticuloGenerico", &D::Tipo},
    {"Envase", &D::Cod_Envase},
    {"RAEE", &D::RAEE},
    {"ECORAEE", &D::ECORAEE},
    {"FidelizacionPuntos", &D::FidelizacionPuntos},
    {"TipoRep", &D::TipoRep},
    {"Control_Lotes", &D::Control_Lotes},
    {"Largo", &D::Largo},
    {"Ancho", &D::Ancho},
    {"Altura", &D::Altura},
    {"Bloqueado", &D::BloqueadoGral},
    {"MsjAlerta", &D::MsjAlerta},
    {"MotivoBaja", &D::MotivoBaja},
    {"BajoPedido", &D::BajoPedido},
    {"UnidadesDecimales", &D::UnidadesDecimales},
    {"Peso", &D::Peso},
};
constexpr std::size_t kRaee = 14;

// What a column holds: every value differs, and of the Booleans only the one of the column `cierta` is true.
Valor Contenido(std::size_t columna, std::size_t cierta) {
    return std::visit(
        [&]<class T>(T D::*) -> Valor {
            if constexpr (std::is_same_v<T, bool>)
                return columna == cierta;
            else if constexpr (std::is_same_v<T, std::string>)
                return "¡" + std::to_string(columna);
            else if constexpr (std::is_same_v<T, Currency>)
                return Currency::DeEntero(static_cast<std::int64_t>(columna));
            else
                return static_cast<T>(columna);
        },
        kMaestro[columna].propiedad);
}

class Carga : public ConGuion<clsDatosArt> {
  protected:
    std::int16_t Cargar() { return objeto.Cargar(1042, 77, kHoy, 9, 6, 2, Currency::DeEntero(2)); }

    ConexionGuion::Paso& Maestro(std::size_t cierta) {
        std::vector<std::string> columnas = {"PadreVenta"};
        ConexionGuion::Fila fila = {std::int32_t{0}};
        for (std::size_t i = 0; i < kMaestro.size(); ++i) {
            columnas.push_back(kMaestro[i].columna);
            fila.push_back(Contenido(i, cierta));
        }
        guion->EsperaConsulta("SELECT * FROM Clientes WHERE Cod_Empresa =3 AND Codigo =77");
        return guion->EsperaConsulta(
            "SELECT a.Codigo, a.Descripcion, a.Familia_1, a.Familia_2, a.Familia_3, a.UxCaja, a.Largo, a.Ancho,"
            " a.Altura, a.Control_NSeries, a.DStock, a.TipoImpuesto, a.CtaVentas, a.CtaDVentas, a.Bloqueado,"
            " a.MsjAlerta, a.Envase, a.RAEE, a.ECORAEE, a.FidelizacionPuntos, a.Control_Caducidad, a.TipoRep,"
            " a.Control_Lotes, a.Peso, a.MotivoBaja, a.BajoPedido, a.TipoImpuesto2, ISNULL(aa.ArticuloGenerico, 0) AS"
            " ArticuloGenerico, a.UnidadesDecimales, a.PadreVenta FROM Articulos a LEFT JOIN Almacen_Articulos aa ON"
            " aa.Cod_Empresa =1 AND aa.Cod_Almacen =6 AND aa.Cod_Articulo = a.Codigo WHERE a.Cod_Empresa =2"
            " AND a.Codigo =1042",
            columnas, {fila});
    }
    void Almacen() {
        guion->EsperaConsulta(
            "SELECT Bloqueo, BloqueoVenta, (Stock_Actual + Stock_MiniCompra) AS Stock, Pend_Servir, Pend_Recibir,"
            " P_Medio AS Costo FROM Almacen_Articulos WHERE Cod_Empresa =1 AND Cod_Almacen =6 AND Cod_Articulo =1042",
            {"Bloqueo", "BloqueoVenta", "Stock", "Pend_Servir", "Pend_Recibir", "Costo"},
            {{true, false, 7.5, 1.0, 2.0, 3.25}});
    }
    // From the master row to the customer's place in the chain.
    void HastaCadena(Filas niveles) {
        Maestro(0);
        Almacen();
        guion->EsperaConsulta(
            "SELECT Cod_Tarifa, Pvp FROM Articulos_Tarifas WHERE Cod_Empresa =2 AND Cod_Articulo =1042 AND Cod_Tarifa"
            " =9 AND Pvp <> 0",
            {"Cod_Tarifa", "Pvp"}, {{std::int16_t{9}, Currency::DeDouble(19.995)}});
        guion->EsperaConsulta(
            " SELECT Pvp FROM Clientes_Art_PVP WHERE Cod_Empresa =1 AND Cod_Cliente =77 AND Cod_Articulo =1042"
            " AND Fecha_Inicial <=' 05/03/2026' AND Fecha_Final >=' 05/03/2026'");
        std::vector<std::string> columnas;
        for (int i = 1; i <= 10; ++i) columnas.push_back("Cad_Nivel_" + std::to_string(i));
        guion->EsperaConsulta(
            "SELECT Cad_Nivel_1, Cad_Nivel_2, Cad_Nivel_3, Cad_Nivel_4, Cad_Nivel_5, Cad_Nivel_6, Cad_Nivel_7,"
            " Cad_Nivel_8, Cad_Nivel_9, Cad_Nivel_10  FROM Clientes WHERE Cod_Empresa=1 AND Codigo=77",
            columnas, std::move(niveles));
    }
};

TEST_F(Carga, Entera_SentenciasEnOrden) {
    objeto.Convenio = "antes";
    objeto.BloqueadoVenta = true;
    HastaCadena({});
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
    EXPECT_EQ(20, objeto.Pvp);
    EXPECT_EQ(20, objeto.PvpOriginal);
    EXPECT_EQ(Currency::DeDouble(19.995), objeto.PvpBase);
    EXPECT_EQ(9, objeto.TarifaPVP);
    EXPECT_EQ("", objeto.Convenio);
    EXPECT_EQ(3.25, objeto.PCosto);
    EXPECT_EQ(Currency::DeDouble(7.5), objeto.Stock);
    EXPECT_EQ(Currency::DeEntero(1), objeto.PendienteServir);
    EXPECT_EQ(Currency::DeEntero(2), objeto.PendienteRecibir);
    EXPECT_TRUE(objeto.Bloqueado);
    EXPECT_FALSE(objeto.BloqueadoVenta);
}

TEST_F(Carga, DeUnaVariante_CadaColumnaEnSuPropiedad) {
    objeto.CualidadX = 38;
    objeto.CualidadY = 4;
    for (std::size_t cierta = 0; cierta < kMaestro.size(); ++cierta) {
        Maestro(cierta);
        Almacen();
        guion->EsperaConsulta(
            "SELECT (Stock_Actual + Stock_MiniCompra) AS Stock, P_Medio AS Costo FROM Almacen_Articulos_C"
            " WHERE Cod_Empresa =1 AND Cod_Almacen =6 AND Cod_Articulo =1042 AND CualidadX =38 AND CualidadY =4");
        guion->YFalla(1205, "bloqueo");
        EsperarError(1205, "Proveedor", [&] { Cargar(); });
        EXPECT_EQ(1042, objeto.Codigo);
        for (std::size_t i = 0; i < kMaestro.size(); ++i)
            std::visit([&](auto d) { EXPECT_EQ(Contenido(i, cierta), Valor(objeto.*d)) << kMaestro[i].columna; },
                       kMaestro[i].propiedad);
    }
}

TEST_F(Carga, DiezNiveles_CadaUnoEnSuSitio) {
    ConexionGuion::Fila niveles;
    for (std::int16_t nivel = 11; nivel <= 20; ++nivel) niveles.emplace_back(nivel);
    HastaCadena({niveles});
    guion->EsperaConsulta(
        "SELECT TOP 1 a.* FROM Clientes_Cadenas_ConvArt a WHERE a.Cod_Empresa = 1 AND a.Cod_Articulo = 1042"
        " AND Cod_Nivel1 =11 AND Cod_Nivel2 =12 AND Cod_Nivel3 =13 AND Cod_Nivel4 =14 AND Cod_Nivel5 =15"
        " AND Cod_Nivel6 =16 AND Cod_Nivel7 =17 AND Cod_Nivel8 =18 AND Cod_Nivel9 =19 AND Cod_Nivel10 =20"
        " AND a.FechaEntrada <='05/03/2026' AND a.FechaSalida >='05/03/2026' AND a.FechaSalida < '31/12/2050'"
        " ORDER BY a.FechaEntrada DESC");
    guion->YFalla(1205, "bloqueo");
    EsperarError(1205, "clsClientes_Cadenas_ConvArt::Dev_PBase", [&] { Cargar(); });
    EXPECT_EQ(19.995, objeto.Pvp);
    EXPECT_EQ(Currency(), objeto.PvpBase);
}

TEST_F(Carga, NuloAMitad_DejaLoAnteriorYLosPreciosACero) {
    objeto.Pvp = objeto.PvpOriginal = objeto.TarifaPVP = 9;
    objeto.Convenio = "antes";
    objeto.Peso = Currency::DeEntero(1);
    Maestro(0).filas[0][1 + kRaee] = Nulo{};
    EsperarError(kErrNulo, "KVDatosArt", [&] { Cargar(); });
    EXPECT_EQ(1042, objeto.Codigo);
    EXPECT_EQ(13, objeto.Cod_Envase);
    EXPECT_EQ(0, objeto.Pvp);
    EXPECT_EQ(0, objeto.PvpOriginal);
    EXPECT_EQ(0, objeto.TarifaPVP);
    EXPECT_EQ("antes", objeto.Convenio);
    EXPECT_EQ(Currency::DeEntero(1), objeto.Peso);
}

TEST_F(Carga, PrecioDeTarifa) {
    const std::string kVigente =
        "SELECT Cod_Tarifa, Pvp FROM Articulos_Tarifas WHERE Cod_Empresa =2 AND Cod_Articulo =1042 AND Cod_Tarifa =3"
        " AND Pvp <> 0";
    const std::string kVigenteC =
        "SELECT Cod_Tarifa, Pvp FROM Articulos_Tarifas_C WHERE Cod_Empresa =2 AND Cod_Articulo =1042 AND CualidadX =38"
        " AND Cod_Tarifa =3 AND Pvp <> 0";
    const std::string kCambio =
        "SELECT TOP 1 Cod_Tarifa, Pvp FROM Tarifas_Modificacion WHERE Cod_Empresa =2 AND Cod_Articulo =1042"
        " AND Cod_Tarifa =3 AND Pvp <> 0 AND Actualizado=1 AND Borrado=0  AND Fecha_Entrada<='06/03/2026'"
        " ORDER BY Fecha_Entrada DESC, Codigo DESC";
    const std::string kCambioC =
        "SELECT TOP 1 Cod_Tarifa, Pvp FROM Tarifas_Modificacion_C WHERE Cod_Empresa =2 AND Cod_Articulo =1042"
        " AND CualidadX =38 AND Cod_Tarifa =3 AND Pvp <> 0 AND Actualizado=1 AND Borrado=0 "
        " AND Fecha_Entrada<='06/03/2026' ORDER BY Fecha_Entrada DESC, Codigo DESC";
    const Valor kPrecio = Currency::DeDouble(12.3456);
    struct Caso {
        const char* nombre;
        std::int16_t tarifa;
        std::uint8_t x;
        Fecha dia;
        bool forzar;
        std::optional<Filas> interruptor;  // None: the company's switch is not asked for.
        std::string sentencia;
        Filas precio;
        std::int32_t error = 0;
    };
    const Caso kCasos[] = {
        {"hoy no mira adelante ni forzado", 3, 0, kHoy, true, {}, kVigente, {{kPrecio}}},
        {"variante", 3, 38, kHoy, false, {}, kVigenteC, {{kPrecio}}},
        {"futura forzada", 3, 0, kManana, true, {}, kCambio, {{kPrecio}}},
        {"futura de una variante", 3, 38, kManana, false, Filas{{true}}, kCambioC, {{kPrecio}}},
        {"interruptor apagado", 3, 0, kManana, false, Filas{{false}}, kVigente, {{kPrecio}}},
        {"empresa sin fila", 3, 0, kManana, false, Filas{}, kVigente, {{kPrecio}}},
        {"interruptor nulo", 3, 0, kManana, false, Filas{{Nulo{}}}, "", {}, kErrNulo},
        {"precio nulo", 3, 0, kHoy, false, {}, kVigente, {{Nulo{}}}, kErrNulo},
        {"sin precio pide el cliente", 3, 0, kHoy, false, {}, kVigente, {}, kErrObjetoNoEstablecido},
        {"tarifa 0", 0, 0, kHoy, false, {}, "", {}, kErrObjetoNoEstablecido},
        {"tarifa negativa", -1, 0, kHoy, false, {}, "", {}, kErrObjetoNoEstablecido},
    };
    for (const Caso& caso : kCasos) {
        SCOPED_TRACE(caso.nombre);
        if (caso.interruptor)
            guion->EsperaConsulta("SELECT TarifasxFechas FROM Empresas WHERE Codigo=1", {"TarifasxFechas"},
                                  *caso.interruptor);
        if (!caso.sentencia.empty()) guion->EsperaConsulta(caso.sentencia, {"Pvp"}, caso.precio);
        objeto.Codigo = 1042;
        objeto.CualidadX = caso.x;
        objeto.TarifaPVP = 77;
        const auto precio = [&] { return objeto.DevPvp(caso.tarifa, caso.dia, caso.forzar); };
        if (caso.error != 0)
            EsperarError(caso.error, "KVDatosArt", precio);
        else
            EXPECT_EQ(kPrecio, Valor(precio()));
        EXPECT_EQ(caso.error != 0 ? 77 : 3, objeto.TarifaPVP);
        guion->Terminar();
    }
}

TEST(SinConexionOEmpresa, Error91) {
    const BibliotecaDePrueba biblioteca(kHoy);
    clsDatosArt articulo;
    EsperarError(kErrObjetoNoEstablecido, "KVDatosArt", [&] { articulo.DevPvp(3, kHoy); });
    articulo.Conexion(std::make_shared<ConexionGuion>());
    EsperarError(kErrObjetoNoEstablecido, "KVDatosArt", [&] { articulo.DevPvp(3, kHoy); });
}

}  // namespace
}  // namespace kv::prueba
