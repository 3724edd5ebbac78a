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

// What the demonstration's own table does not tell: decimals, and the base price that each source leaves behind.
struct Linea {
    const char* nombre;
    int articulo;
    int cliente;
    int tarifa;
    int decimales;
    double pvp;
    int tarifaPvp;
    double pvpBase;
    const char* convenio = "";
};

const Linea kLineas[] = {
    {"tarifa pedida", 101, 1, 1, 2, 89.95, 1, 89.95},
    {"sin decimales", 101, 1, 1, 0, 90, 1, 89.95},
    {"coste con tres decimales", 101, 1, -1, 3, 52.346, 0, 52.3456},
    {"coste con cuatro decimales", 101, 1, -1, 4, 52.3456, 0, 52.3456},
    {"cliente a coste, sin redondear", 101, 50, 1, 2, 52.3456, 0, 0},
    {"precio del cliente", 106, 3, 1, 2, 1.57, 0, 1.57},
    {"convenio por importe", 108, 4, 1, 2, 87.95, 0, 84.5},
    {"convenio sobre la compra", 109, 4, 1, 2, 56, 0, 99.9},
    {"convenio bajo cero", 110, 4, 1, 2, 1.2, 1, 1.2},
    {"convenio en una cadena", 116, 20, 1, 2, 244, 0, 249, "PB: 249  DTOS: E5.00"},
    {"precio base dos niveles arriba", 107, 11, 1, 2, 30.26, 0, 31.2, "PB: 31.2  DTOS: 3.00%"},
    {"cadena con todas las clases", 113, 11, 1, 2, 15.51, 0, 24, "PB: 24  DTOS: 10.00% E1.50 5.00% 2.00% M5,1"},
    {"cadena sin acuerdos", 101, 15, 1, 1, 90, 0, 89.95, "PB: 89.95"},
    {"grupo", 111, 6, 1, 2, 5.95, 1, 5.95},
};

TEST(Demostracion, CadaLinea_DaPrecioYPrecioBase) {
    const BibliotecaDePrueba biblioteca(kHoy, '.');
    const auto empresa = Ribera();
    const auto conexion = Base().Abrir();
    for (const Linea& l : kLineas) {
        SCOPED_TRACE(l.nombre);
        clsDatosArt a;
        a.Conexion(conexion);
        a.cEmpresa(empresa);
        EXPECT_EQ(0, a.Cargar(l.articulo, l.cliente, kHoy, static_cast<std::int16_t>(l.tarifa), 1,
                              static_cast<std::int16_t>(l.decimales)));
        EXPECT_DOUBLE_EQ(l.pvp, a.Pvp);
        EXPECT_DOUBLE_EQ(l.pvp, a.PvpOriginal);
        EXPECT_EQ(l.tarifaPvp, a.TarifaPVP);
        EXPECT_EQ(Currency::DeDouble(l.pvpBase), a.PvpBase);
        EXPECT_EQ(l.convenio, a.Convenio);
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

// Rows that the demonstration does not have, each in place of one of its own.
TEST_F(CargaReal, ValoresEnElBorde) {
    struct Caso {
        const char* nombre;
        const char* sql;
        int articulo;
        int cliente;
        std::uint8_t x;
        std::uint8_t y;
        bool ultimaCompra;
        int estado;
        double pvp;
        double coste;
    };
    const Caso kCasos[] = {
        {"stock negativo", "UPDATE Almacen_Articulos SET Stock_Actual =-1", 101, 1, 0, 0, false, 2, 89.95, 52.3456},
        {"tipo negativo", "UPDATE Clientes SET TipoCliente =-1", 101, 1, 0, 0, false, 0, 52.3456, 52.3456},
        {"a coste, bloqueado", "UPDATE Almacen_Articulos SET Bloqueo =1", 101, 50, 0, 0, false, 0, 52.3456, 52.3456},
        {"a coste, sin stock", "UPDATE Almacen_Articulos SET Stock_Actual =0", 101, 50, 0, 0, false, 2, 52.3456,
         52.3456},
        {"convenio a 0", "UPDATE Clientes_Convenio_Pvp SET Pvp =89.95", 108, 4, 0, 0, false, 0, 84.5, 48.3},
        {"variante, coste negativo", "UPDATE Almacen_Articulos_C SET P_Medio =-1", 103, 1, 40, 1, false, 0, 59, 31.25},
        {"variante, última compra", "UPDATE Almacen_Articulos_C SET PU_Compra =9", 103, 1, 40, 1, true, 0, 59, 9},
        {"sin talla", "UPDATE Almacen_Articulos_C SET CualidadX =0 WHERE CualidadX =40", 103, 1, 0, 1, false, 0, 59,
         31.25},
        {"sin color", "UPDATE Almacen_Articulos_C SET CualidadY =0 WHERE CualidadY =1", 103, 1, 40, 0, false, 0, 59,
         31.25},
    };
    for (const Caso& caso : kCasos) {
        SCOPED_TRACE(caso.nombre);
        conexion->BeginTrans();
        conexion->Ejecutar(caso.sql);
        clsDatosArt a;
        Conectar(a);
        a.CualidadX = caso.x;
        a.CualidadY = caso.y;
        empresa->costeUltimaCompra = caso.ultimaCompra;
        EXPECT_EQ(caso.estado, a.Cargar(caso.articulo, caso.cliente, kHoy, 1, 1, 4));
        conexion->RollbackTrans();
        EXPECT_DOUBLE_EQ(caso.pvp, a.Pvp);
        EXPECT_DOUBLE_EQ(caso.coste, a.PCosto);
    }
}

TEST_F(CargaReal, FinTemprano_SueltaAlClienteYNoTocaLoQueSigue) {
    for (const auto& [articulo, cliente] : {std::pair{999999, 1}, {101, 50}}) {
        clsDatosArt a;
        Conectar(a);
        a.PDescuento = 7;
        a.PvpBase = Currency::DeEntero(8);
        a.Cargar(articulo, cliente, kHoy, 1, 1, 2);
        EXPECT_EQ(7, a.PDescuento);
        EXPECT_EQ(Currency::DeEntero(8), a.PvpBase);
        EsperarError(kErrObjetoNoEstablecido, "KVDatosArt", [&] { a.DevPvp(0, kHoy); });
    }
}

class EmpresaAnotada : public EmpresaFija {
  public:
    mutable std::vector<int> pedidos;
    Valor Parametro(std::int16_t numero) const override {
        pedidos.push_back(numero);
        return EmpresaFija::Parametro(numero);
    }
};

// The level of the article: the second parameter decides, and the first one only when it holds nothing.
TEST_F(CargaReal, NivelDelArticulo_PorLosParametros) {
    const std::pair<Valor, std::vector<int>> kCasos[] = {
        {std::string("x"), {2}}, {std::int16_t{0}, {2}}, {std::string(), {2, 1}}, {Nulo{}, {2, 1}}};
    for (const auto& [segundo, pedidos] : kCasos) {
        const auto anotada = std::make_shared<EmpresaAnotada>();
        static_cast<EmpresaFija&>(*anotada) = *Ribera();
        anotada->parametros[2] = segundo;
        clsDatosArt a;
        a.Conexion(conexion);
        a.cEmpresa(anotada);
        a.Cargar(101, 1, kHoy, 1, 1, 2);
        EXPECT_EQ(pedidos, anotada->pedidos);
    }
}

TEST_F(CargaReal, Padre_SeCargaUnaVezAlLeerlo) {
    clsDatosArt a;
    Conectar(a);
    a.Cargar(118, 1, kHoy, -1, 1, 2);
    const std::size_t antes = conexion->textos.size();
    const auto padre = a.padre();
    ASSERT_NE(nullptr, padre);
    EXPECT_EQ(119, padre->Codigo);
    EXPECT_EQ(52.8, padre->Pvp);  // At cost too, from the same warehouse.
    const std::size_t despues = conexion->textos.size();
    EXPECT_GT(despues, antes);
    EXPECT_EQ(padre, a.padre());
    EXPECT_EQ(despues, conexion->textos.size());
    EXPECT_EQ(nullptr, padre->padre());
    a.Cargar(118, 1, kHoy, 1, 1, 2);
    EXPECT_NE(padre, a.padre());
    a.padre(nullptr);
    EXPECT_EQ(nullptr, a.padre());
    const auto otro = std::make_shared<clsDatosArt>();
    otro->Codigo = 5;
    a.padre(otro);
    EXPECT_EQ(119, a.padre()->Codigo);
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
    int nodos = 0;
    void Tarifa(const TarifaProbada&) override { ++avisos; }
    void Paso(const PasoPrecio&) override { ++avisos; }
    void DescuentoLinea(FuenteDescuento, Currency) override { ++avisos; }
    void NodoBase(const NivelesCadena&, bool, Currency) override { ++avisos; }
    void NodoDescuentos(const NivelesCadena&, bool, int) override { ++nodos; }
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
            a.Cargar(l.articulo, l.cliente, kHoy, static_cast<std::int16_t>(l.tarifa), 1, 2);
            textos[con] = conexion->textos;
            pvp[con] = a.Pvp;
        }
        EXPECT_EQ(textos[0], textos[1]);
        EXPECT_EQ(pvp[0], pvp[1]);
        EXPECT_GT(observador.avisos, 1);
        // The text walks the chain once more, and unheard.
        if (l.articulo == 113) {
            EXPECT_EQ(4, observador.nodos);
        }
    }
}

}  // namespace
}  // namespace kv::prueba
