#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <map>
#include <optional>

#include "kvdatosart/component/clsDatosArt.h"
#include "kvdatosart/db/Transaccion.h"
#include "kvdatosart/schema/Escritor.h"
#include "kvdatosart/tests/comun/BaseDemo.h"
#include "kvdatosart/tests/comun/ConexionQueFalla.h"
#include "kvdatosart/tests/comun/EmpresaFija.h"

namespace kv::prueba {
namespace {

using Quiza = std::optional<int>;

const Fecha kHoy = Fecha::DeAmd(2026, 11, 21);
constexpr int kPedida = 7, kPromocion = 4, kDelCliente = 3, kDeEmpresa = 5;
// The companies of stock, prices and agreements, of the catalogue and of the customers.
constexpr int kPropia = 1, kDeArticulos = 2, kDeClientes = 3;

// Everything that can price one article for one customer, in hundredths; nothing where the source is absent.
struct Mundo {
    std::map<int, int> tarifas;
    Quiza propio, baseNodo, basePadre, convenioMenos, porcentajeNodo, importePadre, grupo, familia;
    int tipoCliente = 0, diasPropio = 0;
    bool aCoste = false, conCadena = false, cascadaNodo = false, dtoPadre = true;
};

struct Respuesta {
    long pvp = 0, base = 0;
    int tarifa = 0, descuento = 0;
    std::string oido;  // by who listens
};

Currency Centimos(long centimos) {
    return Currency::DeDiezmilesimas(centimos * 100);
}

// A source that was asked, in the words of the listener below: a tariff, or whether it was found and set the price.
std::string DeTarifa(int tarifa, const std::string& pvp) {
    return "tarifa " + std::to_string(tarifa) + " " + pvp + "|";
}
std::string DePaso(FuentePrecio fuente, bool hallada, bool aplicada) {
    return std::to_string(static_cast<int>(fuente)) + (hallada ? " hallada" : "") + (aplicada ? " aplicada|" : "|");
}

bool Hay(const Quiza& fuente) {
    return fuente.value_or(0) != 0;
}

// The independent answer: plain arithmetic in hundredths, rule by rule.
Respuesta Resolver(const Mundo& m) {
    constexpr int kCoste = 333;
    constexpr int kBaseConvenio = 1000;
    Respuesta r;
    const auto paso = [&](FuentePrecio fuente, bool hallada, bool aplicada, long pvp) {
        r.oido += DePaso(fuente, hallada, aplicada);
        if (!aplicada) return;
        r.pvp = pvp;
        if (fuente != FuentePrecio::Tarifa && fuente != FuentePrecio::PrecioBaseCadena) r.tarifa = 0;
    };
    for (const int tarifa : {kPedida, kPromocion, kDelCliente, kDeEmpresa}) {
        if (m.aCoste || r.tarifa != 0 || (tarifa == kPedida && !m.tarifas.contains(tarifa))) continue;
        const int pvp = m.tarifas.contains(tarifa) ? m.tarifas.at(tarifa) : 0;
        if (pvp != 0) r.tarifa = tarifa;
        if (pvp != 0) r.pvp = pvp;
        r.oido += DeTarifa(tarifa, pvp == 0 ? "no" : Centimos(pvp).ATexto('.').Cadena());
    }
    if (m.aCoste)
        paso(FuentePrecio::Coste, true, true, kCoste);
    else
        paso(FuentePrecio::Tarifa, r.pvp != 0, true, r.pvp);
    if (m.tipoCliente != 0) {
        paso(FuentePrecio::CosteTipoCliente, true, true, kCoste);
        return r;
    }
    const bool propio = m.propio && m.diasPropio >= 0;
    paso(FuentePrecio::PrecioCliente, propio, propio, m.propio.value_or(0));
    const int base = !m.conCadena ? 0 : Hay(m.baseNodo) ? *m.baseNodo : m.basePadre.value_or(0);
    paso(FuentePrecio::PrecioBaseCadena, base != 0, base != 0, base);
    r.base = r.pvp;
    const int convenio = Hay(m.convenioMenos) ? kBaseConvenio - *m.convenioMenos : 0;
    paso(FuentePrecio::ConvenioPvp, m.convenioMenos.has_value(), convenio > 0, convenio);
    r.descuento = Hay(m.grupo) ? *m.grupo : m.familia.value_or(0);
    r.oido += "grupo " + Centimos(m.grupo.value_or(0)).ATexto('.').Cadena() + "|";
    if (!Hay(m.grupo)) r.oido += "familia " + Centimos(r.descuento).ATexto('.').Cadena() + "|";
    const long antes = r.pvp;
    paso(FuentePrecio::NetoCadena, m.conCadena, m.conCadena, r.pvp);
    r.oido += DePaso(FuentePrecio::Redondeo, true, true);
    if (!m.conCadena) return r;
    r.base = antes;
    const bool hayNodo = m.baseNodo || m.porcentajeNodo;
    if ((!hayNodo || m.dtoPadre) && m.importePadre) r.pvp -= *m.importePadre;
    if (m.porcentajeNodo)
        r.pvp -= std::lround(static_cast<double>((m.cascadaNodo ? r.pvp : r.base) * *m.porcentajeNodo) / 100);
    return r;
}

void Construir(demo::Escritor& e, const Mundo& m) {
    e.Fila("Empresas", "Codigo, Cod_EmpresaArticulos, Cod_EmpresaClientes, CaptionFamilia1", kPropia, kDeArticulos,
           kDeClientes, "a");
    e.Fila("Articulos", "Cod_Empresa, Codigo, Familia_1", kDeArticulos, 10, 2);
    e.Fila("Articulos", "Cod_Empresa, Codigo", kDeArticulos, 11);
    e.Fila("Almacen_Articulos", "Cod_Empresa, Cod_Almacen, Cod_Articulo, Stock_Actual, P_Medio", kPropia, 8, 10, 5,
           Centimos(333));
    e.Fila("Clientes", "Cod_Empresa, Codigo, Tarifa_Pvp, Tarifa_Promoc, TipoCliente, Grupo_Dto", kDeClientes, 20,
           kDelCliente, kPromocion, m.tipoCliente, 6);
    e.Fila("Clientes",
           "Cod_Empresa, Codigo, Cad_Nivel_1, Cad_Nivel_2, Cad_Nivel_3, Cad_Nivel_4, Cad_Nivel_5, Cad_Nivel_6,"
           " Cad_Nivel_7, Cad_Nivel_8, Cad_Nivel_9, Cad_Nivel_10",
           kPropia, 20, m.conCadena ? 11 : 0, 12, 13, 14, 15, 16, 17, 18, 19, 20);
    constexpr const char* kTarifa = "Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp";
    e.Fila("Articulos_Tarifas", kTarifa, kDeArticulos, 11, 1, 10);
    for (const auto& [tarifa, pvp] : m.tarifas)
        e.Fila("Articulos_Tarifas", kTarifa, kDeArticulos, 10, tarifa, Centimos(pvp));
    if (m.propio)
        e.Fila("Clientes_Art_PVP", "Cod_Empresa, Cod_Cliente, Cod_Articulo, Fecha_Inicial, Fecha_Final, PVP", kPropia,
               20, 10, Fecha::DeAmd(2020, 1, 1), kHoy + m.diasPropio, Centimos(*m.propio));
    const auto acuerdo = [&](int nivel10, const Quiza& base, int tipo, const Quiza& importe, bool cascada, bool padre) {
        if (base || importe)
            e.Fila("Clientes_Cadenas_ConvArt",
                   "Cod_Empresa, Cod_Articulo, Cod_Nivel1, Cod_Nivel2, Cod_Nivel3, Cod_Nivel4, Cod_Nivel5, Cod_Nivel6,"
                   " Cod_Nivel7, Cod_Nivel8, Cod_Nivel9, Cod_Nivel10, FechaEntrada, PBase, TDto3, ImporteDto3,"
                   " Aplicar_Cascada3, Dto_Padre",
                   kPropia, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, nivel10, Fecha::DeAmd(2020, 1, 1),
                   Centimos(base.value_or(0)), tipo, Centimos(importe.value_or(0) * (tipo == 0 ? 100L : 1L)), cascada,
                   padre);
    };
    acuerdo(20, m.baseNodo, 0, m.porcentajeNodo, m.cascadaNodo, m.dtoPadre);
    acuerdo(0, m.basePadre, 1, m.importePadre, false, true);
    if (m.convenioMenos)
        e.Fila("Clientes_Convenio_Pvp", "Cod_Empresa, Cod_Cliente, Cod_Articulo, Cod_ArticuloB, Pvp", kPropia, 20, 10,
               11, Centimos(*m.convenioMenos));
    constexpr const char* kFamilia = "Nivel, Familia_1, Familia_2, Familia_3, Cod_Articulo, Descuento, Cod_Empresa";
    if (m.grupo)
        e.Fila("Clientes_Grp_Descuentos_Fam", std::string(kFamilia) + ", Cod_Grupo, Unidades_Min, Unidades_Max", 1, 2,
               0, 0, 0, Centimos(*m.grupo), kPropia, 6, 0, 0);
    if (m.familia)
        e.Fila("Descuentos_Familias", std::string(kFamilia) + ", Cod_Cliente", 1, 2, 0, 0, 0, Centimos(*m.familia),
               kPropia, 20);
}

// Only listens, and so must change nothing. Each source begins with the price that the one before it left.
class Oyente : public ObservadorCarga {
  public:
    int nodos = 0;
    double pvp = 0;
    std::string oido;
    void Tarifa(const TarifaProbada& t) override {
        oido += DeTarifa(t.tarifa, t.hallada ? t.pvp.ATexto('.').Cadena() : "no");
        if (t.porCualidad || t.programada) oido += "de una variante o por venir|";
    }
    void Paso(const PasoPrecio& p) override {
        oido += p.antes == pvp ? DePaso(p.fuente, p.hallada, p.aplicada) : "empieza en otro precio|";
        pvp = p.despues;
    }
    void DescuentoLinea(FuenteDescuento fuente, Currency dto) override {
        oido += (fuente == FuenteDescuento::Grupo ? "grupo " : "familia ") + dto.ATexto('.').Cadena() + "|";
    }
    void DescuentoFallido(FuenteDescuento, std::string_view, std::string_view) override { oido += "un fallo|"; }
    void NodoBase(const NivelesCadena&, const DiasAcuerdo*, Currency) override {}
    void NodoDescuentos(const NivelesCadena&, const DiasAcuerdo*, int) override { ++nodos; }
    void DescuentoCadena(const DescuentoAplicado&) override {}
};

// What a load gives, and the statements that it sends.
struct Carga {
    int estado;
    Currency precio, base, descuento;
    int tarifa;
    std::string convenio;
    std::vector<std::string> textos;
    bool operator==(const Carga&) const = default;
};

Carga Cargar(const std::shared_ptr<Connection>& real, const Mundo& mundo, ObservadorCarga* observador) {
    const auto conexion = std::make_shared<ConexionQueFalla>(real);
    const auto empresa = std::make_shared<EmpresaFija>();
    empresa->captions = {"a", "", ""};
    clsDatosArt a;
    a.Conexion(conexion);
    a.cEmpresa(empresa);
    a.Observador(observador);
    const std::int16_t tarifa = mundo.aCoste ? -1 : mundo.tarifas.contains(kPedida) ? kPedida : -2;
    const int estado = a.Cargar(10, 20, kHoy, tarifa, 8, 2, Currency::DeEntero(1));
    return {estado,          Currency::DeDouble(a.Pvp),
            a.PvpBase,       Currency::DeDouble(static_cast<double>(a.PDescuento)),
            a.TarifaPVP,     a.Convenio,
            conexion->textos};
}

// Nothing, or what is wrong with a load.
std::string Falta(const Mundo& mundo) {
    static const BaseDePrueba base(BaseDePrueba::Datos::Ninguno, kHoy);
    static const auto conexion = base.Abrir();
    const Transaccion nuncaConfirmada(*conexion);
    demo::Escritor escritor(*conexion, kHoy);
    Construir(escritor, mundo);
    Oyente observador;
    const Carga oida = Cargar(conexion, mundo, &observador);
    if (oida != Cargar(conexion, mundo, nullptr)) return "el observador la cambia";
    // The agreement's text walks the chain once more, and unheard.
    if (observador.nodos > 10) return "se oyen los nodos del texto";
    const Respuesta esperada = Resolver(mundo);
    std::string falta;
    const auto comparar = [&](const char* que, Currency debido, Currency hallado) {
        if (debido != hallado)
            Agregar(falta, std::string_view(que), " ", hallado.ATexto('.'), " en vez de ", debido.ATexto('.'), "; ");
    };
    comparar("estado", Currency(), Currency::DeEntero(oida.estado));
    comparar("precio", Centimos(esperada.pvp), oida.precio);
    comparar("tarifa", Currency::DeEntero(esperada.tarifa), Currency::DeEntero(oida.tarifa));
    comparar("base", Centimos(esperada.base), oida.base);
    comparar("descuento", Centimos(esperada.descuento), oida.descuento);
    comparar("precio oído", oida.precio, Currency::DeDouble(observador.pvp));
    if (observador.oido != esperada.oido) falta += "se oye " + observador.oido + " en vez de " + esperada.oido;
    return falta;
}

RC_GTEST_PROP(Diferencial, CargarIgualQueUnResolutorIngenuo, ()) {
    const BibliotecaDePrueba biblioteca(kHoy, *rc::gen::element('.', ','));
    Mundo m;
    const auto uno = [](int desde, int hasta) -> Quiza {
        return *rc::gen::arbitrary<bool>() ? Quiza(*rc::gen::inRange(desde, hasta)) : Quiza();
    };
    for (const int tarifa : {kPedida, kPromocion, kDelCliente, kDeEmpresa})
        if (const Quiza pvp = uno(-50, 5000)) m.tarifas[tarifa] = *pvp;
    for (Quiza* precio : {&m.propio, &m.baseNodo, &m.basePadre}) *precio = uno(-50, 5000);
    m.convenioMenos = uno(-200, 1200);
    m.porcentajeNodo = uno(1, 60);
    m.importePadre = uno(1, 900);
    for (Quiza* descuento : {&m.grupo, &m.familia}) *descuento = uno(-500, 4000);
    for (bool* indicador : {&m.conCadena, &m.cascadaNodo, &m.dtoPadre}) *indicador = *rc::gen::arbitrary<bool>();
    m.tipoCliente = *rc::gen::element(0, 0, 0, 0, 1, -1);
    m.aCoste = *rc::gen::element(false, false, false, true);
    m.diasPropio = *rc::gen::inRange(-1, 2);
    RC_ASSERT(Falta(m) == "");
}

// Every three sources together, and so every pair and each one alone, which chance may not draw.
TEST(Diferencial, CadaTresFuentes_ComoUnResolutorIngenuo) {
    const std::pair<const char*, void (*)(Mundo&)> kFuentes[] = {
        {"tarifa de la empresa", [](Mundo& m) { m.tarifas[kDeEmpresa] = 1110; }},
        {"tarifa del cliente", [](Mundo& m) { m.tarifas[kDelCliente] = 1230; }},
        {"promoción a 0", [](Mundo& m) { m.tarifas[kPromocion] = 0; }},
        {"promoción del cliente", [](Mundo& m) { m.tarifas[kPromocion] = 1350; }},
        {"tarifa pedida", [](Mundo& m) { m.tarifas[kPedida] = -1470; }},
        {"coste", [](Mundo& m) { m.aCoste = true; }},
        {"precio del cliente", [](Mundo& m) { m.propio = 1530; }},
        {"precio del cliente a 0", [](Mundo& m) { m.propio = 0; }},
        {"precio caducado", [](Mundo& m) { m.propio = 1530, m.diasPropio = -1; }},
        {"base del padre", [](Mundo& m) { m.conCadena = true, m.basePadre = 1650; }},
        {"base del nodo", [](Mundo& m) { m.conCadena = true, m.baseNodo = 1710; }},
        {"importe del padre", [](Mundo& m) { m.conCadena = true, m.importePadre = 215; }},
        {"sin el del padre", [](Mundo& m) { m.conCadena = true, m.dtoPadre = false, m.porcentajeNodo = 4; }},
        {"descuento en cascada", [](Mundo& m) { m.conCadena = m.cascadaNodo = true, m.porcentajeNodo = 5; }},
        {"convenio", [](Mundo& m) { m.convenioMenos = 100; }},
        {"convenio que suma", [](Mundo& m) { m.convenioMenos = -50; }},
        {"convenio a 0", [](Mundo& m) { m.convenioMenos = 1000; }},
        {"descuento de grupo", [](Mundo& m) { m.grupo = -425; }},
        {"descuento de familia", [](Mundo& m) { m.familia = 375; }},
        {"cliente a coste", [](Mundo& m) { m.tipoCliente = -1; }},
    };
    const BibliotecaDePrueba biblioteca(kHoy, ',');
    for (const auto& una : kFuentes)
        for (const auto& otra : kFuentes)
            for (const auto& tercera : kFuentes) {
                if (&una > &otra || &otra > &tercera) continue;
                Mundo m;
                for (const auto* fuente : {&una, &otra, &tercera}) fuente->second(m);
                EXPECT_EQ("", Falta(m)) << una.first << ", " << otra.first << ", " << tercera.first;
            }
}

}  // namespace
}  // namespace kv::prueba
