#include <gtest/gtest.h>

#include "component/clsDatosArt.h"
#include "tests/comun/BaseDemo.h"
#include "tests/comun/ConexionQueFalla.h"
#include "tests/comun/EmpresaFija.h"
#include "tests/comun/Errores.h"

namespace kv::prueba {
namespace {

const Fecha kHoy = Fecha::DeAmd(2026, 11, 21);

class CargaReal : public testing::Test {
  protected:
    CargaReal() { empresa->codEmpresaArticulos = empresa->codEmpresaClientes = empresa->tarifaEmpresa = 1; }
    void Conectar(clsDatosArt& articulo, int falla = 0) {
        conexion = std::make_shared<ConexionQueFalla>(base, falla);
        articulo.Conexion(conexion);
        articulo.cEmpresa(empresa);
    }

    BibliotecaDePrueba biblioteca{kHoy, '.'};
    std::shared_ptr<EmpresaFija> empresa = std::make_shared<EmpresaFija>();
    BaseDePrueba datos{BaseDePrueba::Datos::Demostracion, kHoy};
    std::shared_ptr<Connection> base = datos.Abrir();
    std::shared_ptr<ConexionQueFalla> conexion;
};

// What the table of the demonstration's document does not tell: decimals, and rows in place of its own.
TEST_F(CargaReal, ValoresEnElBorde) {
    struct Caso {
        const char* nombre;
        const char* sql;
        int articulo, cliente, estado;
        double pvp, coste;
        std::int16_t decimales = 4;
        std::uint8_t x = 0, y = 0;
        bool ultimaCompra = false;
    };
    const Caso kCasos[] = {
        {"sin decimales", "", 101, 1, 0, 90, 52.3456, 0},
        {"tres decimales", "UPDATE Articulos_Tarifas SET Pvp =9.8765", 101, 1, 0, 9.877, 52.3456, 3},
        {"stock negativo", "UPDATE Almacen_Articulos SET Stock_Actual =-1", 101, 1, 2, 89.95, 52.3456},
        {"a coste, bloqueado", "UPDATE Almacen_Articulos SET Bloqueo =1", 101, 50, 0, 52.3456, 52.3456, 2},
        {"a coste, sin stock", "UPDATE Almacen_Articulos SET Stock_Actual =0", 101, 50, 2, 52.3456, 52.3456, 2},
        {"variante, coste negativo", "UPDATE Almacen_Articulos_C SET P_Medio =-1", 103, 1, 0, 59, 31.25, 2, 40, 1},
        {"variante, última compra", "UPDATE Almacen_Articulos_C SET PU_Compra =9", 103, 1, 0, 59, 9, 2, 40, 1, true},
        {"sin talla", "UPDATE Almacen_Articulos_C SET CualidadX =0 WHERE CualidadX =40", 103, 1, 0, 59, 31.25, 2, 0, 1},
        {"sin color", "UPDATE Almacen_Articulos_C SET CualidadY =0 WHERE CualidadY =1", 103, 1, 0, 59, 31.25, 2, 40},
    };
    for (const Caso& caso : kCasos) {
        SCOPED_TRACE(caso.nombre);
        clsDatosArt a;
        Conectar(a);
        a.CualidadX = caso.x;
        a.CualidadY = caso.y;
        empresa->costeUltimaCompra = caso.ultimaCompra;
        base->BeginTrans();
        if (*caso.sql != '\0') base->Ejecutar(caso.sql);
        EXPECT_EQ(caso.estado, a.Cargar(caso.articulo, caso.cliente, kHoy, 1, 1, caso.decimales));
        base->RollbackTrans();
        EXPECT_DOUBLE_EQ(caso.pvp, a.Pvp);
        EXPECT_DOUBLE_EQ(caso.pvp, a.PvpOriginal);
        EXPECT_DOUBLE_EQ(caso.coste, a.PCosto);
    }
}

TEST_F(CargaReal, SinFilaEnElAlmacen_LosBloqueosQuedan) {
    clsDatosArt a;
    Conectar(a);
    a.Bloqueado = true;
    EXPECT_EQ(2, a.Cargar(103, 1, kHoy, 1, 9, 2));
    empresa->venderSinStock = true;
    EXPECT_EQ(3, a.Cargar(103, 1, kHoy, 1, 9, 2));
}

TEST_F(CargaReal, FinTemprano_SueltaAlClienteYNoTocaLoQueSigue) {
    clsDatosArt a;
    Conectar(a);
    a.Cargar(101, 1, kHoy, 1, 1, 2);
    a.PDescuento = 7;
    const auto acaba = [&](int estado, int articulo, int cliente) {
        EXPECT_EQ(estado, a.Cargar(articulo, cliente, kHoy, 1, 1, 2)) << articulo;
        EXPECT_EQ(7, a.PDescuento) << articulo;
        EXPECT_EQ(Currency::DeDouble(89.95), a.PvpBase) << articulo;
        EsperarError(kErrObjetoNoEstablecido, "KVDatosArt", [&] { a.DevPvp(0, kHoy); });
    };
    acaba(1, 999999, 1);
    EXPECT_EQ(101, a.Codigo);
    EXPECT_EQ(89.95, a.Pvp);
    EXPECT_EQ(Currency(), a.Stock);
    acaba(0, 102, 50);  // a customer who buys at cost
}

// The second parameter decides the level of the article, and the first one only when it holds nothing.
TEST_F(CargaReal, ParametrosDeLaEmpresa_SePidenEnOrden) {
    const std::pair<Valor, std::vector<int>> kCasos[] = {
        {std::string("x"), {2}}, {std::int16_t{0}, {2}}, {std::string(), {2, 1}}, {Nulo{}, {2, 1}}};
    clsDatosArt a;
    Conectar(a);
    for (const auto& [segundo, pedidos] : kCasos) {
        empresa->parametros[2] = segundo;
        empresa->pedidos.clear();
        a.Cargar(101, 1, kHoy, 1, 1, 2);
        EXPECT_EQ(pedidos, empresa->pedidos);
    }
}

TEST_F(CargaReal, Padre_SeCargaUnaVezAlLeerlo) {
    clsDatosArt a;
    Conectar(a);
    a.Cargar(118, 1, kHoy, -1, 1, 2);
    EXPECT_EQ(8U, conexion->textos.size()) << "el padre espera a que se lea";
    const auto padre = a.padre();
    EXPECT_EQ(119, padre->Codigo);
    EXPECT_EQ(52.8, padre->Pvp);  // At cost too, from the same warehouse.
    conexion->textos.clear();
    EXPECT_EQ(padre, a.padre());
    EXPECT_TRUE(conexion->textos.empty());
    EXPECT_EQ(nullptr, padre->padre());
    a.Cargar(118, 1, kHoy, 1, 1, 2);
    EXPECT_NE(padre, a.padre());
    const auto otro = std::make_shared<clsDatosArt>();
    otro->Codigo = 5;
    a.padre(otro);
    EXPECT_EQ(119, a.padre()->Codigo);
    a.Cargar(101, 1, kHoy, 1, 1, 2);
    EXPECT_EQ(nullptr, a.padre());
}

// The load of a customer four levels below the top of a chain, with each of its statements failing in its turn.
TEST_F(CargaReal, FalloEnCadaSentencia_OrigenYLoYaCargado) {
    struct Etapa {
        int sentencias;
        const char* origen;  // none: a discount that cannot be asked for stops no sale
        std::string cargado;
    };
    const std::string nada = "0 0 7 0 7 7 antes", conTarifa = "113 65 24 1 7 7 ";
    const char* deConvenio = "clsClientes_Cadenas_ConvArt::Dev_Descuentos";
    const Etapa kEtapas[] = {
        {1, "clsCliente::Cargar", nada},
        {1, "Proveedor", nada},
        {1, "Proveedor", "113 0 0 0 7 7 "},
        {1, "Proveedor", "113 65 0 0 7 7 "},
        {1, "clsCliente_Articulo::Dev_Precio", conTarifa},
        {1, "Proveedor", conTarifa},
        {8, "clsClientes_Cadenas_ConvArt::Dev_PBase", conTarifa},
        {1, "Proveedor", "113 65 24 1 24 7 "},
        {2, nullptr, "113 65 15.51 0 24 0 PB: 24  DTOS: 10.00% E1.50 5.00% 2.00% M5,1"},
        {8, deConvenio, "113 65 24 1 24 0 "},
        {8, deConvenio, "113 65 15.51 1 24 0 "},
    };
    int sentencia = 0;
    for (const Etapa& etapa : kEtapas)
        for (int i = 0; i < etapa.sentencias; ++i) {
            SCOPED_TRACE(++sentencia);
            clsDatosArt a;
            Conectar(a, sentencia);
            a.Pvp = 7;
            a.PvpBase = Currency::DeEntero(7);
            a.PDescuento = 7;
            a.Convenio = "antes";
            const auto cargar = [&] { a.Cargar(113, 11, kHoy, 1, 1, 2); };
            if (etapa.origen != nullptr)
                EsperarError(1205, etapa.origen, cargar);
            else
                cargar();
            std::string cargado;
            for (const Valor& valor : std::initializer_list<Valor>{a.Codigo, a.Stock, a.Pvp, a.TarifaPVP, a.PvpBase,
                                                                   static_cast<double>(a.PDescuento), a.Convenio})
                cargado += (cargado.empty() ? "" : " ") + AString(valor, '.');
            EXPECT_EQ(etapa.cargado, cargado);
        }
    clsDatosArt a;
    Conectar(a, sentencia + 1);
    EXPECT_EQ(0, a.Cargar(113, 11, kHoy, 1, 1, 2)) << "hay más sentencias";
}

TEST_F(CargaReal, TrasUnFallo_ElClienteSigueAhi) {
    clsDatosArt a;
    Conectar(a, 6);
    EXPECT_THROW(a.Cargar(104, 2, kHoy, 5, 1, 2), RuntimeError);
    EXPECT_EQ(Currency::DeDouble(7.95), a.DevPvp(5, kHoy));
    Conectar(a);
    a.Cargar(104, 2, kHoy, 5, 1, 2);
    EsperarError(kErrObjetoNoEstablecido, "KVDatosArt", [&] { a.DevPvp(5, kHoy); });
}

}  // namespace
}  // namespace kv::prueba
