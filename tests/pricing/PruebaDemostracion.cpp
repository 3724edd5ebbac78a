#include <gtest/gtest.h>

#include <map>

#include "component/clsDatosArt.h"
#include "tests/comun/BaseDemo.h"
#include "tests/comun/ConexionQueFalla.h"
#include "tests/comun/EmpresaFija.h"
#include "tests/comun/Errores.h"

namespace kv::prueba {
namespace {

const Fecha kHoy = Fecha::DeAmd(2026, 11, 21);

std::shared_ptr<EmpresaFija> Ribera() {
    auto empresa = std::make_shared<EmpresaFija>();
    empresa->codEmpresa = empresa->codEmpresaArticulos = empresa->codEmpresaClientes = empresa->codEmpresaExtra = 1;
    empresa->tarifaEmpresa = 1;
    empresa->parametros = {{1, std::string("Familia")}, {2, std::string("Subfamilia")}};
    return empresa;
}

const BaseDePrueba& Base() {
    static const BaseDePrueba base(BaseDePrueba::Datos::Demostracion, kHoy);
    return base;
}

// One line of the demonstration's table: every way in which a price or a state is reached.
struct Linea {
    const char* nombre;
    int articulo;
    int cliente;
    int tarifa;
    double pvp;
    int estado = 0;
    int tarifaPvp = 0;
    double unidades = 1;
    double descuento = 0;
    int dias = 0;
    int cualidadX = 0;
    int cualidadY = 0;
    int decimales = 2;
    double pvpBase = -1;
    const char* convenio = "";
};

const Linea kLineas[] = {
    {.nombre = "tarifa pedida", .articulo = 101, .cliente = 1, .tarifa = 1, .pvp = 89.95, .tarifaPvp = 1},
    {.nombre = "cambio futuro", .articulo = 102, .cliente = 1, .tarifa = 1, .pvp = 26.9, .tarifaPvp = 1, .dias = 30},
    {.nombre = "víspera del cambio",
     .articulo = 102,
     .cliente = 1,
     .tarifa = 1,
     .pvp = 24.5,
     .tarifaPvp = 1,
     .dias = 29},
    {.nombre = "dos cambios el mismo día",
     .articulo = 102,
     .cliente = 1,
     .tarifa = 1,
     .pvp = 27.5,
     .tarifaPvp = 1,
     .dias = 60},
    {.nombre = "cambios retirados",
     .articulo = 102,
     .cliente = 1,
     .tarifa = 1,
     .pvp = 27.5,
     .tarifaPvp = 1,
     .dias = 95},
    {.nombre = "futuro sin cambios", .articulo = 106, .cliente = 1, .tarifa = 1, .pvp = 0, .dias = 5},
    {.nombre = "variante",
     .articulo = 103,
     .cliente = 1,
     .tarifa = 1,
     .pvp = 64,
     .tarifaPvp = 1,
     .cualidadX = 42,
     .cualidadY = 1},
    {.nombre = "variante en la tarifa del cliente",
     .articulo = 103,
     .cliente = 7,
     .tarifa = 1,
     .pvp = 66,
     .tarifaPvp = 3,
     .cualidadX = 46},
    {.nombre = "promoción del cliente", .articulo = 104, .cliente = 2, .tarifa = 5, .pvp = 7.95, .tarifaPvp = 4},
    {.nombre = "tarifa de la empresa", .articulo = 105, .cliente = 8, .tarifa = 5, .pvp = 12.4, .tarifaPvp = 1},
    {.nombre = "precio 0 y sigue", .articulo = 117, .cliente = 1, .tarifa = 5, .pvp = 18, .tarifaPvp = 2},
    {.nombre = "cliente a coste, sin redondear", .articulo = 101, .cliente = 50, .tarifa = 1, .pvp = 52.3456},
    {.nombre = "venta a coste", .articulo = 101, .cliente = 1, .tarifa = -1, .pvp = 52.35},
    {.nombre = "precio del cliente", .articulo = 106, .cliente = 3, .tarifa = 1, .pvp = 1.57},
    {.nombre = "precio del cliente caducado", .articulo = 101, .cliente = 3, .tarifa = 1, .pvp = 89.95, .tarifaPvp = 1},
    {.nombre = "precio base dos niveles arriba",
     .articulo = 107,
     .cliente = 11,
     .tarifa = 1,
     .pvp = 30.26,
     .pvpBase = 31.2,
     .convenio = "PB: 31.2  DTOS: 3.00%"},
    {.nombre = "convenio por importe", .articulo = 108, .cliente = 4, .tarifa = 1, .pvp = 87.95},
    {.nombre = "convenio sobre la compra", .articulo = 109, .cliente = 4, .tarifa = 1, .pvp = 56},
    {.nombre = "convenio bajo cero", .articulo = 110, .cliente = 4, .tarifa = 1, .pvp = 1.2, .tarifaPvp = 1},
    {.nombre = "grupo, 1 unidad",
     .articulo = 111,
     .cliente = 6,
     .tarifa = 1,
     .pvp = 5.95,
     .tarifaPvp = 1,
     .unidades = 1,
     .descuento = 7},
    {.nombre = "grupo, 10 unidades",
     .articulo = 111,
     .cliente = 6,
     .tarifa = 1,
     .pvp = 5.95,
     .tarifaPvp = 1,
     .unidades = 10,
     .descuento = 9},
    {.nombre = "grupo, media unidad",
     .articulo = 111,
     .cliente = 6,
     .tarifa = 1,
     .pvp = 5.95,
     .tarifaPvp = 1,
     .unidades = 0.5,
     .descuento = 5},
    {.nombre = "descuento del artículo",
     .articulo = 112,
     .cliente = 5,
     .tarifa = 1,
     .pvp = 4.85,
     .tarifaPvp = 1,
     .descuento = 12},
    {.nombre = "cadena con todas las clases",
     .articulo = 113,
     .cliente = 11,
     .tarifa = 1,
     .pvp = 15.51,
     .pvpBase = 24,
     .convenio = "PB: 24  DTOS: 10.00% E1.50 5.00% 2.00% M5,1"},
    {.nombre = "acuerdo con fin gana al abierto",
     .articulo = 116,
     .cliente = 16,
     .tarifa = 1,
     .pvp = 250,
     .pvpBase = 255,
     .convenio = "PB: 255  DTOS: E5.00"},
    {.nombre = "bloqueado", .articulo = 114, .cliente = 1, .tarifa = 1, .pvp = 189, .estado = 3, .tarifaPvp = 1},
    {.nombre = "sin existencias", .articulo = 115, .cliente = 1, .tarifa = 1, .pvp = 399, .estado = 2, .tarifaPvp = 1},
};

TEST(Demostracion, CadaLineaDeSuTabla) {
    const BibliotecaDePrueba biblioteca(kHoy, '.');
    const auto empresa = Ribera();
    const auto conexion = Base().Abrir();
    for (const Linea& l : kLineas) {
        SCOPED_TRACE(l.nombre);
        clsDatosArt a;
        a.Conexion(conexion);
        a.cEmpresa(empresa);
        a.CualidadX = static_cast<std::uint8_t>(l.cualidadX);
        a.CualidadY = static_cast<std::uint8_t>(l.cualidadY);
        EXPECT_EQ(l.estado, a.Cargar(l.articulo, l.cliente, kHoy + l.dias, static_cast<std::int16_t>(l.tarifa), 1,
                                     static_cast<std::int16_t>(l.decimales), Currency::DeDouble(l.unidades)));
        EXPECT_DOUBLE_EQ(l.pvp, a.Pvp);
        EXPECT_DOUBLE_EQ(l.pvp, a.PvpOriginal);
        EXPECT_EQ(l.tarifaPvp, a.TarifaPVP);
        EXPECT_FLOAT_EQ(static_cast<float>(l.descuento), a.PDescuento);
        // Whether the customer's chain wrote the text and the base price.
        if (l.pvpBase >= 0) {
            EXPECT_EQ(l.convenio, a.Convenio);
            EXPECT_EQ(Currency::DeDouble(l.pvpBase), a.PvpBase);
        } else {
            EXPECT_EQ("", a.Convenio);
        }
    }
}

class CargaReal : public testing::Test {
  protected:
    void Conectar(clsDatosArt& articulo) {
        articulo.Conexion(conexion);
        articulo.cEmpresa(empresa);
    }

    BibliotecaDePrueba biblioteca{kHoy, '.'};
    std::shared_ptr<EmpresaFija> empresa = Ribera();
    std::shared_ptr<ConexionQueFalla> conexion = std::make_shared<ConexionQueFalla>(Base().Abrir());
};

TEST_F(CargaReal, NoExiste_DejaTodoComoEstabaMenosElStock) {
    clsDatosArt a;
    Conectar(a);
    a.Cargar(101, 1, kHoy, 1, 1, 2);
    EXPECT_EQ(1, a.Cargar(999999, 1, kHoy, 1, 1, 2));
    EXPECT_EQ(101, a.Codigo);
    EXPECT_EQ(89.95, a.Pvp);
    EXPECT_EQ(Currency(), a.Stock);
    EXPECT_EQ("Taladro percutor 750 W con maletín", a.Descripcion);
}

TEST_F(CargaReal, Almacen_VarianteYFilaQueFalta) {
    clsDatosArt a;
    Conectar(a);
    a.CualidadX = 45;
    a.CualidadY = 2;
    a.Cargar(103, 1, kHoy, 1, 1, 2);
    EXPECT_EQ(Currency::DeEntero(9), a.Stock);
    EXPECT_EQ(31.25, a.PCosto);  // The variant's own cost is 0.
    a.CualidadX = 40;
    a.Cargar(103, 1, kHoy, 1, 1, 2);
    EXPECT_EQ(31.75, a.PCosto);
    a.CualidadY = 0;
    a.Cargar(103, 1, kHoy, 1, 1, 2);
    EXPECT_EQ(Currency::DeEntero(48), a.Stock);
    empresa->costeUltimaCompra = true;
    a.Cargar(103, 1, kHoy, 1, 1, 2);
    EXPECT_EQ(32, a.PCosto);
    a.Bloqueado = true;
    EXPECT_EQ(2, a.Cargar(103, 1, kHoy, 1, 9, 2));  // No row in that warehouse: what was known of locks stays.
    EXPECT_TRUE(a.Bloqueado);
    EXPECT_EQ(0, a.PCosto);
    empresa->venderSinStock = true;
    EXPECT_EQ(3, a.Cargar(103, 1, kHoy, 1, 9, 2));
}

TEST_F(CargaReal, Padre_SeCargaUnaVezAlLeerlo) {
    clsDatosArt a;
    Conectar(a);
    a.Cargar(118, 1, kHoy, 1, 1, 2);
    const std::size_t antes = conexion->textos.size();
    const auto padre = a.padre();
    ASSERT_NE(nullptr, padre);
    EXPECT_EQ(119, padre->Codigo);
    EXPECT_EQ(96, padre->Pvp);
    const std::size_t despues = conexion->textos.size();
    EXPECT_GT(despues, antes);
    EXPECT_EQ(padre, a.padre());
    EXPECT_EQ(despues, conexion->textos.size());
    EXPECT_EQ(nullptr, padre->padre());
    a.Cargar(118, 1, kHoy, 1, 1, 2);
    EXPECT_NE(padre, a.padre());
    a.padre(nullptr);
    EXPECT_EQ(nullptr, a.padre());
    a.Cargar(101, 1, kHoy, 1, 1, 2);
    EXPECT_EQ(nullptr, a.padre());
}

TEST_F(CargaReal, FalloEnCadaSentencia_LlegaConSuOrigen) {
    clsDatosArt entera;
    Conectar(entera);
    entera.Cargar(113, 11, kHoy, 1, 1, 2);
    const std::vector<std::string> textos = conexion->textos;
    ASSERT_GT(textos.size(), 20U);
    std::map<std::string, int> origenes;
    for (std::size_t i = 0; i < textos.size(); ++i) {
        SCOPED_TRACE(textos[i]);
        clsDatosArt a;
        a.cEmpresa(empresa);
        a.Conexion(std::make_shared<ConexionQueFalla>(Base().Abrir(), static_cast<int>(i) + 1));
        if (textos[i].starts_with("KVP_")) {
            EXPECT_EQ(0, a.Cargar(113, 11, kHoy, 1, 1, 2));
            EXPECT_EQ(15.51, a.Pvp);
            ++origenes["callado"];
            continue;
        }
        try {
            a.Cargar(113, 11, kHoy, 1, 1, 2);
            ADD_FAILURE() << "no falla";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(1205, error.numero);
            EXPECT_EQ("bloqueo", error.descripcion);
            ++origenes[error.origen];
        }
        EXPECT_EQ(i < 2 ? 0 : 113, a.Codigo);
    }
    const std::map<std::string, int> esperados = {{"clsCliente::Cargar", 1},
                                                  {"Proveedor", 5},
                                                  {"clsCliente_Articulo::Dev_Precio", 1},
                                                  {"clsClientes_Cadenas_ConvArt::Dev_PBase", 8},
                                                  {"clsClientes_Cadenas_ConvArt::Dev_Descuentos", 16},
                                                  {"callado", 2}};
    EXPECT_EQ(esperados, origenes);
}

TEST_F(CargaReal, TrasUnFallo_ElClienteSigueAhi) {
    clsDatosArt a;
    a.cEmpresa(empresa);
    a.Conexion(std::make_shared<ConexionQueFalla>(Base().Abrir(), 6));
    EXPECT_THROW(a.Cargar(104, 2, kHoy, 5, 1, 2), RuntimeError);
    EXPECT_EQ(Currency::DeDouble(7.95), a.DevPvp(5, kHoy));
    Conectar(a);
    a.Cargar(104, 2, kHoy, 5, 1, 2);
    EsperarError(kErrObjetoNoEstablecido, "KVDatosArt", [&] { a.DevPvp(5, kHoy); });
}

class Callado : public ObservadorCarga {
  public:
    int avisos = 0;
    void Tarifa(const TarifaProbada&) override { ++avisos; }
    void Paso(const PasoPrecio&) override { ++avisos; }
    void DescuentoLinea(FuenteDescuento, Currency) override { ++avisos; }
    void NodoBase(const NivelesCadena&, bool, Currency) override { ++avisos; }
    void NodoDescuentos(const NivelesCadena&, bool, int) override { ++avisos; }
    void DescuentoCadena(const DescuentoAplicado&) override { ++avisos; }
};

TEST_F(CargaReal, ConObservador_MismasSentenciasYMismoResultado) {
    for (const Linea& l : kLineas) {
        SCOPED_TRACE(l.nombre);
        Callado observador;
        std::vector<std::string> textos[2];
        double pvp[2];
        for (const int con : {0, 1}) {
            clsDatosArt a;
            conexion->textos.clear();
            Conectar(a);
            if (con == 1) a.Observador(&observador);
            a.Cargar(l.articulo, l.cliente, kHoy + l.dias, static_cast<std::int16_t>(l.tarifa), 1, 2);
            textos[con] = conexion->textos;
            pvp[con] = a.Pvp;
        }
        EXPECT_EQ(textos[0], textos[1]);
        EXPECT_EQ(pvp[0], pvp[1]);
        EXPECT_GT(observador.avisos, 1);
    }
}

}  // namespace
}  // namespace kv::prueba
