#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <optional>

#include "component/clsDatosArt.h"
#include "tests/comun/BaseDemo.h"
#include "tests/comun/EmpresaFija.h"

namespace kv::prueba {
namespace {

const Fecha kHoy = Fecha::DeAmd(2026, 11, 21);

// Everything that can price one article for one customer, in hundredths; nothing where the source is absent.
struct Mundo {
    std::optional<int> tarifa;
    std::optional<int> promocion;
    std::optional<int> delCliente;
    std::optional<int> deEmpresa;
    int tipoCliente = 0;
    bool aCoste = false;
    std::optional<int> propio;
    int diasPropio = 0;
    bool conCadena = false;
    std::optional<int> baseNodo;
    std::optional<int> basePadre;
    std::optional<int> convenioMenos;
    std::optional<int> porcentajeNodo;
    bool cascadaNodo = false;
    bool dtoPadre = true;
    std::optional<int> importePadre;
    std::optional<int> grupo;
    std::optional<int> familia;
    int unidades = 1;
};

// The independent answer: plain arithmetic in hundredths, rule by rule.
struct Respuesta {
    double pvp = 0;
    int tarifa = 0;
    double descuento = 0;
};

long Redondear(double centimos) {
    return std::lround(centimos);
}

Respuesta Resolver(const Mundo& m) {
    Respuesta r;
    constexpr int kCoste = 333;
    long precio = 0;
    if (m.aCoste) {
        precio = kCoste;
    } else {
        const std::pair<std::optional<int>, int> candidatas[] = {
            {m.tarifa, 7}, {m.promocion, 4}, {m.delCliente, 3}, {m.deEmpresa, 1}};
        for (const auto& [pvp, tarifa] : candidatas)
            if (pvp && *pvp != 0) {
                precio = *pvp;
                r.tarifa = tarifa;
                break;
            }
    }
    if (m.tipoCliente != 0) return {kCoste / 100.0, 0, 0};
    if (m.propio && m.diasPropio >= 0) {
        precio = *m.propio;
        r.tarifa = 0;
    }
    if (m.conCadena) {
        if (m.baseNodo && *m.baseNodo != 0)
            precio = *m.baseNodo;
        else if (m.basePadre && *m.basePadre != 0)
            precio = *m.basePadre;
    }
    constexpr int kBaseConvenio = 1000;
    if (m.convenioMenos && *m.convenioMenos != 0 && kBaseConvenio - *m.convenioMenos > 0) {
        precio = kBaseConvenio - *m.convenioMenos;
        r.tarifa = 0;
    }
    r.descuento = m.grupo && *m.grupo != 0 ? *m.grupo : m.familia.value_or(0);
    if (m.conCadena) {
        const long base = precio;
        const bool hayNodo = m.baseNodo || m.porcentajeNodo;
        const bool subePadre = !hayNodo || m.dtoPadre;
        if (subePadre && m.importePadre) precio -= *m.importePadre;
        if (m.porcentajeNodo)
            precio -= Redondear(static_cast<double>((m.cascadaNodo ? precio : base) * *m.porcentajeNodo) / 100.0);
        r.tarifa = 0;
    }
    r.pvp = static_cast<double>(precio) / 100.0;
    return r;
}

std::string Importe(int centimos) {
    return Currency::DeDiezmilesimas(centimos * 100LL).ATexto('.').Cadena();
}

class Constructor {
  public:
    explicit Constructor(Connection& conexion) : conexion_(conexion) {}

    void Construir(const Mundo& m) {
        conexion_.Ejecutar(
            "INSERT INTO Empresas (Codigo, Cod_EmpresaArticulos, Cod_EmpresaClientes, CaptionFamilia1) VALUES (1, 1, 1,"
            " 'a')");
        conexion_.Ejecutar("INSERT INTO Articulos (Cod_Empresa, Codigo, Familia_1) VALUES (1, 10, 2)");
        conexion_.Ejecutar("INSERT INTO Articulos (Cod_Empresa, Codigo) VALUES (1, 11)");
        conexion_.Ejecutar(
            "INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, Stock_Actual, P_Medio) VALUES (1, "
            "1,"
            " 10, 5, 3.33)");
        conexion_.Ejecutar(
            "INSERT INTO Clientes (Cod_Empresa, Codigo, Tarifa_Pvp, Tarifa_Promoc, TipoCliente,"
            " Grupo_Dto, Cad_Nivel_1, Cad_Nivel_2) VALUES (1, 20, 3, 4, " +
            std::to_string(m.tipoCliente) + ", 6, " + (m.conCadena ? "8, 9)" : "0, 0)"));
        Tarifa(7, m.tarifa);
        Tarifa(4, m.promocion);
        Tarifa(3, m.delCliente);
        Tarifa(1, m.deEmpresa);
        if (m.propio) {
            const std::string hasta = (kHoy + m.diasPropio).ATexto().Cadena();
            conexion_.Ejecutar(
                "INSERT INTO Clientes_Art_PVP (Cod_Empresa, Cod_Cliente, Cod_Articulo, Fecha_Inicial,"
                " Fecha_Final, PVP) VALUES (1, 20, 10, '01/01/2020', '" +
                hasta + "', " + Importe(*m.propio) + ")");
        }
        if (m.baseNodo || m.porcentajeNodo)
            Acuerdo(9, m.baseNodo.value_or(0), 0, m.porcentajeNodo.value_or(0) * 100, m.cascadaNodo, m.dtoPadre);
        if (m.basePadre || m.importePadre)
            Acuerdo(0, m.basePadre.value_or(0), 1, m.importePadre.value_or(0), false, true);
        if (m.convenioMenos) {
            conexion_.Ejecutar(
                "INSERT INTO Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp) VALUES (1, 11,"
                " 1, 10)");
            conexion_.Ejecutar(
                "INSERT INTO Clientes_Convenio_Pvp (Cod_Empresa, Cod_Cliente, Cod_Articulo,"
                " Cod_ArticuloB, Pvp) VALUES (1, 20, 10, 11, " +
                Importe(*m.convenioMenos) + ")");
        }
        if (m.grupo)
            conexion_.Ejecutar(
                "INSERT INTO Clientes_Grp_Descuentos_Fam (Cod_Empresa, Cod_Grupo, Nivel, Familia_1,"
                " Familia_2, Familia_3, Cod_Articulo, Unidades_Min, Unidades_Max, Descuento) VALUES (1, 6,"
                " 1, 2, 0, 0, 0, 0, 0, " +
                std::to_string(*m.grupo) + ")");
        if (m.familia)
            conexion_.Ejecutar(
                "INSERT INTO Descuentos_Familias (Codigo, Cod_Empresa, Cod_Cliente, Nivel, Familia_1,"
                " Familia_2, Familia_3, Cod_Articulo, Descuento) VALUES (0, 1, 20, 1, 2, 0, 0, 0, " +
                std::to_string(*m.familia) + ")");
    }

  private:
    void Tarifa(int tarifa, std::optional<int> pvp) {
        if (pvp)
            conexion_.Ejecutar(
                "INSERT INTO Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp) VALUES (1, 10, " +
                std::to_string(tarifa) + ", " + Importe(*pvp) + ")");
    }
    void Acuerdo(int nivel2, int base, int tipo, int importe, bool cascada, bool dtoPadre) {
        conexion_.Ejecutar(
            "INSERT INTO Clientes_Cadenas_ConvArt (Cod_Empresa, Cod_Articulo, Cod_Nivel1, Cod_Nivel2, Cod_Nivel3,"
            " Cod_Nivel4, Cod_Nivel5, Cod_Nivel6, Cod_Nivel7, Cod_Nivel8, Cod_Nivel9, Cod_Nivel10, FechaEntrada, PBase,"
            " TDto3, ImporteDto3, Aplicar_Cascada3, Dto_Padre) VALUES (1, 10, 8, " +
            std::to_string(nivel2) + ", 0, 0, 0, 0, 0, 0, 0, 0, '01/01/2020', " + Importe(base) + ", " +
            std::to_string(tipo) + ", " + Importe(importe) + ", " + (cascada ? "-1" : "0") + ", " +
            (dtoPadre ? "-1" : "0") + ")");
    }

    Connection& conexion_;
};

void Comparar(const Mundo& mundo) {
    static const BaseDePrueba base(BaseDePrueba::Datos::Ninguno, kHoy);
    static const auto conexion = base.Abrir();
    const auto empresa = std::make_shared<EmpresaFija>();
    empresa->codEmpresa = empresa->codEmpresaArticulos = empresa->codEmpresaClientes = 1;
    empresa->tarifaEmpresa = 1;
    empresa->captions = {"a", "", ""};
    conexion->BeginTrans();
    Constructor(*conexion).Construir(mundo);
    clsDatosArt a;
    a.Conexion(conexion);
    a.cEmpresa(empresa);
    const std::int16_t estado = a.Cargar(10, 20, kHoy, mundo.aCoste ? -1 : 7, 1, 2, Currency::DeEntero(mundo.unidades));
    conexion->RollbackTrans();
    const Respuesta esperada = Resolver(mundo);
    RC_ASSERT(estado == 0);
    RC_ASSERT(a.Pvp == esperada.pvp);
    RC_ASSERT(a.TarifaPVP == esperada.tarifa);
    if (mundo.tipoCliente == 0) RC_ASSERT(static_cast<double>(a.PDescuento) == esperada.descuento);
}

rc::Gen<std::optional<int>> Quizas(int desde, int hasta) {
    return rc::gen::map(
        rc::gen::pair(rc::gen::arbitrary<bool>(), rc::gen::inRange(desde, hasta)),
        [](const std::pair<bool, int>& p) { return p.first ? std::optional<int>(p.second) : std::nullopt; });
}

RC_GTEST_PROP(Diferencial, CargarIgualQueUnResolutorIngenuo, ()) {
    const BibliotecaDePrueba biblioteca(kHoy, *rc::gen::element('.', ','));
    Mundo m;
    m.tarifa = *Quizas(-50, 5000);
    m.promocion = *Quizas(-50, 5000);
    m.delCliente = *Quizas(-50, 5000);
    m.deEmpresa = *Quizas(-50, 5000);
    m.tipoCliente = *rc::gen::element(0, 0, 0, 0, 1, -1);
    m.aCoste = *rc::gen::element(false, false, false, true);
    m.propio = *Quizas(-50, 5000);
    m.diasPropio = *rc::gen::inRange(-1, 2);
    m.conCadena = *rc::gen::arbitrary<bool>();
    m.baseNodo = *Quizas(-50, 5000);
    m.basePadre = *Quizas(-50, 5000);
    m.convenioMenos = *Quizas(-200, 1200);
    m.porcentajeNodo = *Quizas(1, 60);
    m.cascadaNodo = *rc::gen::arbitrary<bool>();
    m.dtoPadre = *rc::gen::arbitrary<bool>();
    m.importePadre = *Quizas(1, 900);
    m.grupo = *Quizas(-5, 40);
    m.familia = *Quizas(-5, 40);
    Comparar(m);
}

// Every pair of price sources together; the later source in the load's order wins.
TEST(Precedencia, CadaParDeFuentes) {
    struct Fuente {
        const char* nombre;
        void (*poner)(Mundo&);
        double pvp;
        int tarifa;
    };
    const Fuente kFuentes[] = {
        {"tarifa de la empresa", [](Mundo& m) { m.deEmpresa = 1100; }, 11, 1},
        {"tarifa del cliente", [](Mundo& m) { m.delCliente = 1200; }, 12, 3},
        {"promoción del cliente", [](Mundo& m) { m.promocion = 1300; }, 13, 4},
        {"tarifa pedida", [](Mundo& m) { m.tarifa = 1400; }, 14, 7},
        {"coste", [](Mundo& m) { m.aCoste = true; }, 3.33, 0},
        {"precio del cliente", [](Mundo& m) { m.propio = 1500; }, 15, 0},
        {"base del padre", [](Mundo& m) { m.conCadena = true, m.basePadre = 1600; }, 16, 0},
        {"base del nodo", [](Mundo& m) { m.conCadena = true, m.baseNodo = 1700; }, 17, 0},
        {"convenio", [](Mundo& m) { m.convenioMenos = 100; }, 9, 0},
        {"cliente a coste", [](Mundo& m) { m.tipoCliente = 1; }, 3.33, 0},
    };
    const BibliotecaDePrueba biblioteca(kHoy, '.');
    for (const Fuente& una : kFuentes)
        for (const Fuente* otra = &una; otra != std::end(kFuentes); ++otra) {
            SCOPED_TRACE(std::string(una.nombre) + " con " + otra->nombre);
            Mundo m;
            una.poner(m);
            otra->poner(m);
            const Respuesta ganadora = Resolver(m);
            EXPECT_EQ(otra->pvp, ganadora.pvp);
            EXPECT_EQ(otra->tarifa, ganadora.tarifa);
            EXPECT_NO_THROW(Comparar(m));
        }
}

}  // namespace
}  // namespace kv::prueba
