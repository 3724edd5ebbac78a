#include <gtest/gtest.h>

#include "kvdatosart/component/clsDatosArt.h"
#include "kvdatosart/tests/comun/BaseDemo.h"
#include "kvdatosart/tests/comun/ConexionQueFalla.h"
#include "kvdatosart/tests/comun/EmpresaFija.h"
#include "kvdatosart/tests/comun/Errores.h"

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
        const char* sql = "";
        int articulo = 103, cliente = 1, estado = 0;
        double pvp = 59, coste = 31.25;
        std::int16_t decimales = 4;
        std::uint8_t x = 0, y = 0;
        bool ultimaCompra = false;
    };
    const Caso kCasos[] = {
        {.nombre = "sin decimales", .articulo = 101, .pvp = 90, .coste = 52.3456, .decimales = 0},
        {.nombre = "tres decimales", .sql = "UPDATE Articulos_Tarifas SET Pvp =9.8765", .pvp = 9.877, .decimales = 3},
        {.nombre = "stock negativo", .sql = "UPDATE Almacen_Articulos SET Stock_Actual =-1", .estado = 2},
        {.nombre = "bloqueado solo para la venta", .sql = "UPDATE Almacen_Articulos SET BloqueoVenta =1"},
        {.nombre = "a coste, bloqueado",
         .sql = "UPDATE Almacen_Articulos SET Bloqueo =1, P_Medio =5.4321",
         .cliente = 50,
         .pvp = 5.4321,
         .coste = 5.4321,
         .decimales = 2},
        {.nombre = "a coste, sin stock",
         .sql = "UPDATE Almacen_Articulos SET Stock_Actual =0",
         .cliente = 50,
         .estado = 2,
         .pvp = 31.25},
        {.nombre = "coste negativo", .sql = "UPDATE Almacen_Articulos_C SET P_Medio =-1", .x = 40, .y = 1},
        {.nombre = "última compra",
         .sql = "UPDATE Almacen_Articulos_C SET PU_Compra =9",
         .coste = 9,
         .x = 40,
         .y = 1,
         .ultimaCompra = true},
        {.nombre = "sin talla", .sql = "UPDATE Almacen_Articulos_C SET CualidadX =0 WHERE CualidadX =40", .y = 1},
        {.nombre = "sin color", .sql = "UPDATE Almacen_Articulos_C SET CualidadY =0 WHERE CualidadY =1", .x = 40},
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

TEST_F(CargaReal, SinFilaEnElAlmacen_BloqueosYPendientesQuedan) {
    clsDatosArt a;
    Conectar(a);
    a.Bloqueado = a.BloqueadoVenta = true;
    a.PendienteServir = Currency::DeEntero(8);
    a.PendienteRecibir = Currency::DeEntero(9);
    EXPECT_EQ(2, a.Cargar(103, 1, kHoy, 1, 9, 2));
    empresa->venderSinStock = true;
    EXPECT_EQ(3, a.Cargar(103, 1, kHoy, 1, 9, 2));
    EXPECT_TRUE(a.BloqueadoVenta);
    EXPECT_EQ(Currency::DeEntero(8), a.PendienteServir);
    EXPECT_EQ(Currency::DeEntero(9), a.PendienteRecibir);
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

// The parent as a load of its own would be: for the same customer, day, tariff, warehouse, decimals and units.
TEST_F(CargaReal, Padre_SeCargaUnaVezAlLeerlo) {
    base->Ejecutar(
        "INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, P_Medio) VALUES (1, 7, 119, 5.4321)");
    base->Ejecutar("UPDATE Clientes SET Grupo_Dto =77 WHERE Codigo =3");
    base->Ejecutar(
        "INSERT INTO Clientes_Grp_Descuentos_Fam (Cod_Empresa, Cod_Grupo, Nivel, Familia_1, Familia_2, Familia_3,"
        " Cod_Articulo, Unidades_Min, Unidades_Max, Descuento) VALUES (1, 77, 4, 5, 1, 3, 119, 6, 6, 12.5)");
    const auto cargar = [&](clsDatosArt& articulo, int codigo, std::int16_t tarifa) {
        articulo.Cargar(codigo, 3, kHoy + -40, tarifa, 7, 3, Currency::DeEntero(6));
    };
    clsDatosArt a;
    clsDatosArt solo;
    Conectar(solo);
    for (const std::int16_t tarifa : {std::int16_t{3}, std::int16_t{-1}}) {
        conexion->textos.clear();
        cargar(solo, 119, tarifa);
        const std::vector<std::string> suyos = conexion->textos;
        Conectar(a);
        cargar(a, 118, tarifa);
        EXPECT_EQ(suyos.size() + 1, conexion->textos.size()) << "el padre espera a que se lea";
        conexion->textos.clear();
        const auto padre = a.padre();
        EXPECT_EQ(119, padre->Codigo);
        EXPECT_EQ(tarifa < 0 ? 5.432 : solo.Pvp, padre->Pvp);
        EXPECT_EQ(12.5F, padre->PDescuento);
        EXPECT_EQ(suyos, conexion->textos);
        EXPECT_EQ(padre, a.padre());
        EXPECT_EQ(suyos.size(), conexion->textos.size());
        EXPECT_EQ(nullptr, padre->padre());
        Conectar(solo);
    }
    const auto antes = a.padre();
    cargar(a, 118, 3);
    EXPECT_NE(antes, a.padre());
    const auto otro = std::make_shared<clsDatosArt>();
    otro->Codigo = 5;
    a.padre(otro);
    EXPECT_EQ(119, a.padre()->Codigo);
    cargar(a, 999999, 3);
    EXPECT_EQ(nullptr, a.padre()) << "el artículo siguiente no existe";
    cargar(a, 118, 3);
    Conectar(a, 1);
    EXPECT_THROW(cargar(a, 118, 3), RuntimeError);
    EXPECT_EQ(nullptr, a.padre()) << "la carga siguiente falla";
}

// A context of the host's own may fail at any of its members.
struct EmpresaQueFalla : EmpresaFija {
    std::int16_t CodEmpresaExtra() const override { LanzarError(kErrTipo, "sin empresa extra"); }
};

TEST_F(CargaReal, EmpresaExtra_SePideEnCadaCarga) {
    empresa = std::make_shared<EmpresaQueFalla>();
    clsDatosArt a;
    Conectar(a);
    EsperarError(kErrTipo, "KVDatosArt", [&] { a.Cargar(101, 1, kHoy, 1, 1, 2); });
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
