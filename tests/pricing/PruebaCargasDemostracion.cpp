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
    struct Linea {
        int estado;
        double pvp, coste;
        std::int16_t decimales = 4;
        int articulo = 103, cliente = 1;
        std::uint8_t x = 0, y = 0;
        int dias = 0;
    };
    const auto carga = [&](const char* nombre, const char* sql, const Linea& linea) {
        SCOPED_TRACE(nombre);
        clsDatosArt a;
        Conectar(a);
        a.CualidadX = linea.x;
        a.CualidadY = linea.y;
        base->BeginTrans();
        if (*sql != '\0') base->Ejecutar(sql);
        EXPECT_EQ(linea.estado, a.Cargar(linea.articulo, linea.cliente, kHoy + linea.dias, 1, 1, linea.decimales));
        base->RollbackTrans();
        EXPECT_DOUBLE_EQ(linea.pvp, a.Pvp);
        EXPECT_DOUBLE_EQ(linea.pvp, a.PvpOriginal);
        EXPECT_DOUBLE_EQ(linea.coste, a.PCosto);
    };
    carga("sin decimales", "", {0, 90, 52.3456, 0, 101});
    carga("tres decimales", "UPDATE Articulos_Tarifas SET Pvp =9.8765", {0, 9.877, 31.25, 3});
    carga("stock negativo", "UPDATE Almacen_Articulos SET Stock_Actual =-1", {2, 59, 31.25});
    carga("bloqueado solo para la venta", "UPDATE Almacen_Articulos SET BloqueoVenta =1", {0, 59, 31.25});
    carga("a coste, bloqueado", "UPDATE Almacen_Articulos SET Bloqueo =1, P_Medio =5.4321",
          {0, 5.4321, 5.4321, 2, 103, 50});
    carga("a coste, sin stock", "UPDATE Almacen_Articulos SET Stock_Actual =0", {2, 31.25, 31.25, 4, 103, 50});
    carga("coste negativo", "UPDATE Almacen_Articulos_C SET P_Medio =-1", {0, 59, 31.25, 4, 103, 1, 40, 1});
    carga("sin talla", "UPDATE Almacen_Articulos_C SET CualidadX =0 WHERE CualidadX =40",
          {0, 59, 31.25, 4, 103, 1, 0, 1});
    carga("sin color", "UPDATE Almacen_Articulos_C SET CualidadY =0 WHERE CualidadY =1",
          {0, 59, 31.25, 4, 103, 1, 40, 0});
    carga("antes de los acuerdos", "UPDATE Clientes_Cadenas_ConvArt SET PBase =50",
          {0, 24, 14.2, 2, 113, 11, 0, 0, -9000});
    empresa->costeUltimaCompra = true;
    carga("última compra", "UPDATE Almacen_Articulos_C SET PU_Compra =9", {0, 59, 9, 4, 103, 1, 40, 1});
    biblioteca.masAlRedondear = Currency::DeEntero(10);
    carga("redondea la rutina común", "UPDATE Almacen_Articulos_C SET PU_Compra =9", {0, 69, 9, 4, 103, 1, 40, 1});
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

// Puts what it hears into words, but for the sources that neither had a price nor changed it.
class Oyente : public ObservadorCarga {
  public:
    std::string oido;
    void Tarifa(const TarifaProbada& t) override {
        constexpr const char* kOrigenes[] = {"pedida ", "promoción ", "del cliente ", "de la empresa "};
        oido += kOrigenes[static_cast<int>(t.origen)] + std::to_string(t.tarifa) + (t.porCualidad ? " variante" : "") +
                (t.programada ? " futura" : "") + (t.hallada ? " " : " no ") + t.pvp.ATexto('.').Cadena() + "; ";
    }
    void Paso(const PasoPrecio& p) override {
        constexpr const char* kFuentes[] = {"TARIFAS", "COSTE", "A COSTE", "PROPIO", "BASE", "CONVENIO", "NETO", "FIN"};
        ++pasos;
        if (p.hallada || p.aplicada || p.antes != p.despues)
            oido += kFuentes[static_cast<int>(p.fuente)] + std::string(p.hallada ? " sí" : " no") +
                    (p.aplicada ? ", pone " : ", queda ") + AString(p.antes, '.') + ">" + AString(p.despues, '.') +
                    "; ";
    }
    void DescuentoLinea(FuenteDescuento fuente, Currency dto) override {
        if (dto != Currency())
            oido += (fuente == FuenteDescuento::Grupo ? "grupo " : "familia ") + AString(dto, '.') + "; ";
    }
    void DescuentoFallido(FuenteDescuento fuente, std::string_view que, std::string_view fallo) override {
        oido += fuente == FuenteDescuento::Grupo ? "grupo " : "familia ";
        oido += std::string(que) + ": " + std::string(fallo) + "; ";
    }
    void NodoBase(const NivelesCadena&, const DiasAcuerdo*, Currency) override {}
    void NodoDescuentos(const NivelesCadena&, const DiasAcuerdo*, int) override { ++nodos; }
    void DescuentoCadena(const DescuentoAplicado&) override {}
    int pasos = 0, nodos = 0;
};

TEST_F(CargaReal, Oyente_CadaFuenteEnSuOrdenConSuPrecio) {
    const auto oye = [&](int articulo, int cliente, std::int16_t tarifa, const std::string& oido, int dias = 0,
                         int x = 0) {
        SCOPED_TRACE(articulo);
        Oyente oyente;
        clsDatosArt a;
        Conectar(a);
        a.Observador(&oyente);
        a.CualidadX = static_cast<std::uint8_t>(x);
        a.Cargar(articulo, cliente, kHoy + dias, tarifa, 1, 2, Currency::DeEntero(9));
        EXPECT_EQ(oido, oyente.oido + "base " + a.PvpBase.ATexto('.').Cadena());
        EXPECT_EQ(cliente == 49 ? 2 : 6, oyente.pasos);
        EXPECT_EQ(articulo == 116 ? 1 : 0, oyente.nodos) << "los nodos del texto no se oyen";
    };
    oye(104, 2, 3, "pedida 3 no 0; promoción 4 7.95; TARIFAS sí, pone 0>7.95; FIN sí, pone 7.95>7.95; base 7.95");
    oye(103, 2, 1,
        "pedida 1 variante no 0; promoción 4 variante no 0; del cliente 3 variante 66; TARIFAS sí, pone 0>66; "
        "FIN sí, pone 66>66; base 66",
        0, 46);
    oye(103, 3, 1, "pedida 1 variante futura 67.9; TARIFAS sí, pone 0>67.9; FIN sí, pone 67.9>67.9; base 67.9", 30, 42);
    oye(121, 1, 5,
        "pedida 5 no 0; del cliente 2 no 0; de la empresa 1 no 0; TARIFAS no, pone 0>0; FIN sí, pone 0>0; base 0");
    oye(101, 1, -1, "COSTE sí, pone 0>52.3456; FIN sí, pone 52.3456>52.35; base 52.3456");
    oye(101, 49, 1, "pedida 1 89.95; TARIFAS sí, pone 0>89.95; A COSTE sí, pone 89.95>52.3456; base 0");
    oye(106, 3, 1,
        "pedida 1 1.95; TARIFAS sí, pone 0>1.95; PROPIO sí, pone 1.95>1.57; FIN sí, pone 1.57>1.57; base 1.57");
    oye(116, 20, 1,
        "pedida 1 289; TARIFAS sí, pone 0>289; BASE sí, pone 289>255; CONVENIO sí, pone 255>249; "
        "NETO sí, pone 249>244; FIN sí, pone 244>244; base 249");
    oye(110, 4, 1, "pedida 1 1.2; TARIFAS sí, pone 0>1.2; CONVENIO sí, queda 1.2>1.2; FIN sí, pone 1.2>1.2; base 1.2");
    oye(111, 6, 1, "pedida 1 5.95; TARIFAS sí, pone 0>5.95; grupo 7; FIN sí, pone 5.95>5.95; base 5.95");
    oye(112, 5, 1, "pedida 1 4.85; TARIFAS sí, pone 0>4.85; familia 12; FIN sí, pone 4.85>4.85; base 4.85");
}

// In each load; the second parameter decides the level of the article, and the first one only when it holds nothing.
TEST_F(CargaReal, EmpresaExtraYParametros_SePidenEnOrden) {
    const std::pair<Valor, std::vector<int>> kCasos[] = {
        {"x", {0, 2}}, {std::int16_t{0}, {0, 2}}, {"", {0, 2, 1}}, {Nulo{}, {0, 2, 1}}};
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
            Oyente oyente;
            a.Observador(&oyente);
            if (etapa.origen != nullptr)
                EsperarError(1205, etapa.origen, cargar);
            else
                cargar();
            EXPECT_EQ(etapa.origen == nullptr, oyente.oido.find(" KVP_DevDto") != std::string::npos) << oyente.oido;
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
