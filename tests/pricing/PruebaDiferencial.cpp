#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <optional>

#include "component/clsDatosArt.h"
#include "schema/Escritor.h"
#include "tests/comun/BaseDemo.h"
#include "tests/comun/EmpresaFija.h"

namespace kv::prueba {
namespace {

using Quiza = std::optional<int>;

const Fecha kHoy = Fecha::DeAmd(2026, 11, 21);

// Everything that can price one article for one customer, in hundredths; nothing where the source is absent.
struct Mundo {
    Quiza tarifa, promocion, delCliente, deEmpresa;
    int tipoCliente = 0;
    bool aCoste = false;
    Quiza propio;
    int diasPropio = 0;
    bool conCadena = false;
    Quiza baseNodo, basePadre, convenioMenos, porcentajeNodo;
    bool cascadaNodo = false;
    bool dtoPadre = true;
    Quiza importePadre, grupo, familia;
};

// The independent answer: plain arithmetic in hundredths, rule by rule.
struct Respuesta {
    long pvp = 0;
    long base = 0;
    int tarifa = 0;
    double descuento = 0;
};

bool Hay(const Quiza& fuente) {
    return fuente.value_or(0) != 0;
}

Respuesta Resolver(const Mundo& m) {
    constexpr int kCoste = 333;
    constexpr int kBaseConvenio = 1000;
    Respuesta r;
    if (m.aCoste || m.tipoCliente != 0) {
        r.pvp = kCoste;
    } else {
        const std::pair<Quiza, int> candidatas[] = {
            {m.tarifa, 7}, {m.promocion, 4}, {m.delCliente, 3}, {m.deEmpresa, 1}};
        for (const auto& [pvp, tarifa] : candidatas)
            if (Hay(pvp) && r.tarifa == 0) {
                r.pvp = *pvp;
                r.tarifa = tarifa;
            }
    }
    if (m.tipoCliente != 0) return r;
    if (m.propio && m.diasPropio >= 0) {
        r.pvp = *m.propio;
        r.tarifa = 0;
    }
    if (m.conCadena && Hay(m.baseNodo))
        r.pvp = *m.baseNodo;
    else if (m.conCadena && Hay(m.basePadre))
        r.pvp = *m.basePadre;
    r.base = r.pvp;
    if (Hay(m.convenioMenos) && kBaseConvenio - *m.convenioMenos > 0) {
        r.pvp = kBaseConvenio - *m.convenioMenos;
        r.tarifa = 0;
    }
    r.descuento = Hay(m.grupo) ? *m.grupo : m.familia.value_or(0);
    if (!m.conCadena) return r;
    r.base = r.pvp;
    r.tarifa = 0;
    const bool hayNodo = m.baseNodo || m.porcentajeNodo;
    if ((!hayNodo || m.dtoPadre) && m.importePadre) r.pvp -= *m.importePadre;
    if (m.porcentajeNodo)
        r.pvp -= std::lround(static_cast<double>((m.cascadaNodo ? r.pvp : r.base) * *m.porcentajeNodo) / 100);
    return r;
}

Currency Centimos(long centimos) {
    return Currency::DeDiezmilesimas(centimos * 100);
}

void Construir(demo::Escritor& e, const Mundo& m) {
    e.Fila("Empresas", "Codigo, Cod_EmpresaArticulos, Cod_EmpresaClientes, CaptionFamilia1", 1, 1, 1, "a");
    e.Fila("Articulos", "Cod_Empresa, Codigo, Familia_1", 1, 10, 2);
    e.Fila("Articulos", "Cod_Empresa, Codigo", 1, 11);
    e.Fila("Almacen_Articulos", "Cod_Empresa, Cod_Almacen, Cod_Articulo, Stock_Actual, P_Medio", 1, 1, 10, 5,
           Centimos(333));
    e.Fila("Clientes",
           "Cod_Empresa, Codigo, Tarifa_Pvp, Tarifa_Promoc, TipoCliente, Grupo_Dto, Cad_Nivel_1, Cad_Nivel_2", 1, 20, 3,
           4, m.tipoCliente, 6, m.conCadena ? 8 : 0, m.conCadena ? 9 : 0);
    const auto tarifa = [&](int articulo, int codigo, const Quiza& pvp) {
        if (pvp)
            e.Fila("Articulos_Tarifas", "Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp", 1, articulo, codigo,
                   Centimos(*pvp));
    };
    tarifa(10, 7, m.tarifa);
    tarifa(10, 4, m.promocion);
    tarifa(10, 3, m.delCliente);
    tarifa(10, 1, m.deEmpresa);
    tarifa(11, 1, 1000);
    if (m.propio)
        e.Fila("Clientes_Art_PVP", "Cod_Empresa, Cod_Cliente, Cod_Articulo, Fecha_Inicial, Fecha_Final, PVP", 1, 20, 10,
               Fecha::DeAmd(2020, 1, 1), kHoy + m.diasPropio, Centimos(*m.propio));
    const auto acuerdo = [&](int nivel2, const Quiza& base, int tipo, const Quiza& importe, bool cascada, bool padre) {
        if (base || importe)
            e.Fila("Clientes_Cadenas_ConvArt",
                   "Cod_Empresa, Cod_Articulo, Cod_Nivel1, Cod_Nivel2, Cod_Nivel3, Cod_Nivel4, Cod_Nivel5, Cod_Nivel6,"
                   " Cod_Nivel7, Cod_Nivel8, Cod_Nivel9, Cod_Nivel10, FechaEntrada, PBase, TDto3, ImporteDto3,"
                   " Aplicar_Cascada3, Dto_Padre",
                   1, 10, 8, nivel2, 0, 0, 0, 0, 0, 0, 0, 0, Fecha::DeAmd(2020, 1, 1), Centimos(base.value_or(0)), tipo,
                   Centimos(importe.value_or(0) * (tipo == 0 ? 100L : 1L)), cascada, padre);
    };
    acuerdo(9, m.baseNodo, 0, m.porcentajeNodo, m.cascadaNodo, m.dtoPadre);
    acuerdo(0, m.basePadre, 1, m.importePadre, false, true);
    if (m.convenioMenos)
        e.Fila("Clientes_Convenio_Pvp", "Cod_Empresa, Cod_Cliente, Cod_Articulo, Cod_ArticuloB, Pvp", 1, 20, 10, 11,
               Centimos(*m.convenioMenos));
    constexpr const char* kFamilia = "Nivel, Familia_1, Familia_2, Familia_3, Cod_Articulo, Descuento, Cod_Empresa";
    if (m.grupo)
        e.Fila("Clientes_Grp_Descuentos_Fam", std::string(kFamilia) + ", Cod_Grupo, Unidades_Min, Unidades_Max", 1, 2,
               0, 0, 0, *m.grupo, 1, 6, 0, 0);
    if (m.familia)
        e.Fila("Descuentos_Familias", std::string(kFamilia) + ", Cod_Cliente", 1, 2, 0, 0, 0, *m.familia, 1, 20);
}

// Only listens, and so must change nothing.
class Callado : public ObservadorCarga {
  public:
    int nodos = 0;
    void Tarifa(const TarifaProbada&) override {}
    void Paso(const PasoPrecio&) override {}
    void DescuentoLinea(FuenteDescuento, Currency) override {}
    void NodoBase(const NivelesCadena&, bool, Currency) override {}
    void NodoDescuentos(const NivelesCadena&, bool, int) override { ++nodos; }
    void DescuentoCadena(const DescuentoAplicado&) override {}
};

void Comparar(const Mundo& mundo, bool observada) {
    static const BaseDePrueba base(BaseDePrueba::Datos::Ninguno, kHoy);
    static const auto conexion = base.Abrir();
    const auto empresa = std::make_shared<EmpresaFija>();
    empresa->codEmpresa = empresa->codEmpresaArticulos = empresa->codEmpresaClientes = empresa->tarifaEmpresa = 1;
    empresa->captions = {"a", "", ""};
    conexion->BeginTrans();
    demo::Escritor escritor(*conexion, kHoy);
    Construir(escritor, mundo);
    clsDatosArt a;
    a.Conexion(conexion);
    a.cEmpresa(empresa);
    Callado observador;
    if (observada) a.Observador(&observador);
    const int tarifa = mundo.aCoste ? -1 : mundo.tarifa ? 7 : -2;
    const auto estado = a.Cargar(10, 20, kHoy, static_cast<std::int16_t>(tarifa), 1, 2, Currency::DeEntero(1));
    conexion->RollbackTrans();
    const Respuesta esperada = Resolver(mundo);
    RC_ASSERT(estado == 0);
    RC_ASSERT(observador.nodos <= 2);  // The agreement's text walks the chain once more, and unheard.
    RC_ASSERT(Currency::DeDouble(a.Pvp) == Centimos(esperada.pvp));
    RC_ASSERT(a.TarifaPVP == esperada.tarifa);
    RC_ASSERT(a.PvpBase == Centimos(esperada.base));
    RC_ASSERT(static_cast<double>(a.PDescuento) == esperada.descuento);
}

RC_GTEST_PROP(Diferencial, CargarIgualQueUnResolutorIngenuo, ()) {
    const BibliotecaDePrueba biblioteca(kHoy, *rc::gen::element('.', ','));
    Mundo m;
    const auto quizas = [](std::initializer_list<Quiza*> fuentes, int desde, int hasta) {
        for (Quiza* fuente : fuentes)
            if (*rc::gen::arbitrary<bool>()) *fuente = *rc::gen::inRange(desde, hasta);
    };
    quizas({&m.tarifa, &m.promocion, &m.delCliente, &m.deEmpresa, &m.propio, &m.baseNodo, &m.basePadre}, -50, 5000);
    quizas({&m.convenioMenos}, -200, 1200);
    quizas({&m.porcentajeNodo}, 1, 60);
    quizas({&m.importePadre}, 1, 900);
    quizas({&m.grupo, &m.familia}, -5, 40);
    for (bool* indicador : {&m.conCadena, &m.cascadaNodo, &m.dtoPadre}) *indicador = *rc::gen::arbitrary<bool>();
    m.tipoCliente = *rc::gen::element(0, 0, 0, 0, 1, -1);
    m.aCoste = *rc::gen::element(false, false, false, true);
    m.diasPropio = *rc::gen::inRange(-1, 2);
    Comparar(m, *rc::gen::arbitrary<bool>());
}

// Every pair of price sources together, which chance may not draw.
TEST(Precedencia, CadaParDeFuentes) {
    const std::pair<const char*, void (*)(Mundo&)> kFuentes[] = {
        {"tarifa de la empresa", [](Mundo& m) { m.deEmpresa = 1100; }},
        {"tarifa del cliente", [](Mundo& m) { m.delCliente = 1200; }},
        {"promoción del cliente", [](Mundo& m) { m.promocion = 1300; }},
        {"tarifa pedida", [](Mundo& m) { m.tarifa = 1400; }},
        {"coste", [](Mundo& m) { m.aCoste = true; }},
        {"precio del cliente", [](Mundo& m) { m.propio = 1500; }},
        {"base del padre", [](Mundo& m) { m.conCadena = true, m.basePadre = 1600; }},
        {"base del nodo", [](Mundo& m) { m.conCadena = true, m.baseNodo = 1700; }},
        {"convenio", [](Mundo& m) { m.convenioMenos = 100; }},
        {"cliente a coste", [](Mundo& m) { m.tipoCliente = 1; }},
    };
    const BibliotecaDePrueba biblioteca(kHoy, '.');
    for (const auto& [una, ponerUna] : kFuentes)
        for (const auto& [otra, ponerOtra] : kFuentes) {
            SCOPED_TRACE(std::string(una) + " con " + otra);
            Mundo m;
            ponerUna(m);
            ponerOtra(m);
            EXPECT_NO_THROW(Comparar(m, true));
        }
}

}  // namespace
}  // namespace kv::prueba
