#include <gtest/gtest.h>

#include "kvdatosart/db/Transaccion.h"
#include "kvdatosart/rules/clsCliente_DtosFamilias.h"
#include "kvdatosart/rules/clsCliente_Grp_Dtos.h"
#include "kvdatosart/schema/Escritor.h"
#include "kvdatosart/tests/comun/BaseDemo.h"
#include "kvdatosart/tests/comun/EmpresaFija.h"
#include "kvdatosart/tests/servidor/Pareja.h"

namespace kv::prueba {
namespace {

// Families of a row, and the range of units that it is for.
struct De {
    int f1 = 3, f2 = 4, f3 = 5;
};
struct Tramo {
    int minimo = 0, maximo = 0;
};

// A discount row of a level; of an article, of the customer or of their neighbours.
struct FilaDto {
    int nivel, descuento, articulo = 0;
    De familias = {};
    Tramo unidades = {};
    int deOtro = 0;
};
using Filas = std::vector<FilaDto>;
using Captions = std::array<std::string, 3>;

constexpr FilaDto kSeccion{1, 2, 0, {3, 0, 0}};
constexpr FilaDto kFamilia{2, 4, 0, {3, 4, 0}};
constexpr FilaDto kSubfamilia{3, 6};
constexpr FilaDto kArticulo{4, 8, 50};
constexpr FilaDto kFamiliaPorTramo{3, 6, 0, {}, {1, 50}};
const Filas kTramos = {{4, 5, 50},
                       {4, 7, 50, {}, {1, 10}},
                       {4, 9, 50, {}, {11, 100}},
                       {4, 10, 50, {}, {5, 100}},
                       {4, 3, 50, {}, {0, 2}},
                       {4, 4, 50, {}, {1, 3}}};
const Filas kConCodigosDeMas = {{1, 5, 0, {3, 2, 0}}, {1, 6, 0, {3, 9, 0}, {1, 9}}, {1, 7, 0, {3, 8, 0}, {2, 9}}};
const Captions kTres = {"Sección", "Familia", "Subfamilia"};
const Captions kDos = {"Sección", "Familia", ""};
const Captions kSinSegunda = {"Sección", "", "Subfamilia"};

constexpr int kGrupo = 7;
constexpr int kCliente = 20;

constexpr int kEmpresa = 31, kDeClientes = 33;

void Insertar(demo::Escritor& escritor, const FilaDto& f) {
    const std::string clave = "Cod_Empresa, Nivel, Familia_1, Familia_2, Familia_3, Cod_Articulo, Descuento, ";
    const auto& [f1, f2, f3] = f.familias;
    if (f.unidades.maximo == 0)
        escritor.Fila("Descuentos_Familias", clave + "Cod_Cliente", kEmpresa, f.nivel, f1, f2, f3, f.articulo,
                      f.descuento, kCliente + f.deOtro);
    escritor.Fila("Clientes_Grp_Descuentos_Fam", clave + "Cod_Grupo, Unidades_Min, Unidades_Max", kEmpresa, f.nivel, f1,
                  f2, f3, f.articulo, f.descuento, kGrupo + f.deOtro, f.unidades.minimo, f.unidades.maximo);
}

// Asks about article 50.
template <class Descuentos>
void Preparar(Descuentos& descuentos, const std::shared_ptr<Connection>& conexion,
              const std::shared_ptr<cEmpresa>& empresa) {
    descuentos.Conexion(conexion);
    descuentos.cEmpresa(empresa);
    descuentos.Cod_Articulo = 50;
    descuentos.Familia_1 = 3;
    descuentos.Familia_2 = 4;
    descuentos.Familia_3 = 5;
}

}  // namespace

// The article's row wins over its families', and a deeper family over a shallower one. Within a level, the range of
// units with the highest lower bound wins, the narrower one among those, and the row for any quantity is the last.
void ProbarProcedimientos(const std::shared_ptr<Connection>& conexion) {
    struct Caso {
        const char* nombre;
        Filas filas;
        double esperado;
        Captions niveles = kTres;
        double unidades = 1;
        bool porTramos = false;  // The customer's own discounts have no ranges.
    };
    const Caso kCasos[] = {
        {"sin filas", {}, 0},
        {"sección", {kSeccion}, 2},
        {"familia", {kSeccion, kFamilia}, 4},
        {"subfamilia", {kFamilia, kSubfamilia, kSeccion}, 6},
        {"artículo", {kArticulo, kSubfamilia, kFamilia, kSeccion}, 8},
        {"artículo con 0", {{4, 0, 50}, kSubfamilia}, 0},
        {"artículo que cambió de familia", {{4, 8, 50, {9, 9, 9}}, kSubfamilia}, 8},
        {"artículo bajo dos familias", {{4, 8, 50, {9, 9, 9}}, {4, 7, 50, {2, 9, 9}}}, 7},
        {"otro artículo", {{4, 8, 51}, kSeccion}, 2},
        {"otro artículo, de cuando había dos niveles", {{3, 8, 51}, kSeccion}, 2},
        {"otras familias", {{1, 2, 0, {4, 0, 0}}, {2, 4, 0, {3, 5, 0}}, {3, 6, 0, {3, 4, 6}}}, 0},
        {"de otro cliente o grupo", {{1, 2, 0, {3, 0, 0}, {}, 1}}, 0},
        {"dos niveles: el artículo es el tercero", {{3, 8, 50}, kFamilia}, 8, kDos},
        {"dos niveles: la subfamilia no cuenta", {kSubfamilia, kFamilia}, 4, kDos},
        {"un nivel: el artículo es el segundo", {{2, 8, 50}, kSeccion}, 8, {"Sección", "", ""}},
        {"un nivel: la familia no cuenta", {kFamilia, kSeccion}, 2, {"Sección", "", ""}},
        {"sin el segundo: el artículo es el cuarto", {kArticulo, kFamilia}, 8, kSinSegunda},
        {"sin el segundo: la familia no cuenta", {kFamilia, kSeccion}, 2, kSinSegunda},
        {"sin unidades, sólo el de cualquiera", kTramos, 5, kTres, 0, true},
        {"sin unidades ni el de cualquiera", {{4, 3, 50, {}, {0, 2}}, kSeccion}, 2, kTres, 0, true},
        {"el que empieza en 0 gana al de cualquiera", kTramos, 3, kTres, 0.5, true},
        {"dos con el mismo mínimo: el más estrecho", kTramos, 4, kTres, 1, true},
        {"primera unidad del siguiente", kTramos, 10, kTres, 5, true},
        {"mayor mínimo", kTramos, 9, kTres, 11, true},
        {"último", kTramos, 9, kTres, 100, true},
        {"pasado el último, el de cualquiera", kTramos, 5, kTres, 100.5, true},
        {"tramo de familia", {kFamiliaPorTramo, kSeccion}, 6, kTres, 50, true},
        {"fuera del tramo de familia", {kFamiliaPorTramo, kSeccion}, 2, kTres, 50.0001, true},
        {"el artículo gana al tramo de la familia", {kArticulo, kFamiliaPorTramo}, 8, kTres, 5, true},
        {"sección con códigos de más", {{1, 2, 0, {3, 9, 8}}}, 2},
        {"familia con un código de más", {{2, 4, 0, {3, 4, 9}}, kSeccion}, 4},
        {"entre códigos de más, los menores", {{1, 3, 0, {3, 9, 1}}, {1, 4, 0, {3, 2, 7}}, {1, 5, 0, {3, 2, 6}}}, 5},
        {"entre códigos de más de la familia, el menor", {{2, 3, 0, {3, 4, 9}}, {2, 4, 0, {3, 4, 7}}}, 4},
        {"el tramo cuenta antes que los códigos de más", kConCodigosDeMas, 7, kTres, 5, true},
        {"fuera del tramo del artículo", {{4, 9, 50, {}, {10, 20}}, kFamiliaPorTramo}, 6, kTres, 9, true},
    };
    const auto empresa = std::make_shared<EmpresaFija>();
    empresa->codEmpresa = kEmpresa;
    demo::Escritor escritor(*conexion, Fecha());
    // The company keeps its customers under another code, where the group is found.
    const Transaccion nuncaConfirmada(*conexion);
    escritor.Fila("Empresas", "Codigo, Cod_EmpresaClientes", kEmpresa, kDeClientes);
    escritor.Fila("Clientes", "Cod_Empresa, Codigo, Grupo_Dto", kDeClientes, kCliente, kGrupo);
    escritor.Fila("Clientes", "Cod_Empresa, Codigo, Grupo_Dto", kEmpresa, kCliente, kGrupo + 1);
    clsCliente_Grp_Dtos grupos;
    clsCliente_DtosFamilias familias;
    familias.Cliente = kCliente;
    Preparar(grupos, conexion, empresa);
    Preparar(familias, conexion, empresa);
    for (const Caso& caso : kCasos) {
        SCOPED_TRACE(caso.nombre);
        empresa->captions = caso.niveles;
        for (const FilaDto& fila : caso.filas) Insertar(escritor, fila);
        EXPECT_EQ(Currency::DeDouble(caso.esperado),
                  grupos.Dev_Descuento_Activo(kCliente, Currency::DeDouble(caso.unidades)));
        if (!caso.porTramos) {
            EXPECT_DOUBLE_EQ(caso.esperado, familias.Dev_Descuento_Activo());
        }
        conexion->Ejecutar("DELETE FROM Descuentos_Familias WHERE Cod_Empresa =31");
        conexion->Ejecutar("DELETE FROM Clientes_Grp_Descuentos_Fam WHERE Cod_Empresa =31");
    }
    // More decimals come back as money. The rows of group 0, which no screen makes, are nobody's.
    Insertar(escritor, kSeccion);
    conexion->Ejecutar("UPDATE Descuentos_Familias SET Descuento =7.123456 WHERE Cod_Empresa =31");
    EXPECT_EQ(7.1235, familias.Dev_Descuento_Activo());
    FilaDto deNadie = kSeccion;
    deNadie.deOtro = -kGrupo;
    Insertar(escritor, deNadie);
    conexion->Ejecutar("UPDATE Clientes SET Grupo_Dto =0 WHERE Cod_Empresa =33");
    EXPECT_EQ(Currency(), grupos.Dev_Descuento_Activo(kCliente, Currency::DeEntero(1)));
}

TEST(Procedimientos, EnLaBaseEmbebida) {
    const BaseDePrueba base(BaseDePrueba::Datos::Ninguno, Fecha());
    ProbarProcedimientos(base.Abrir());
}

}  // namespace kv::prueba
