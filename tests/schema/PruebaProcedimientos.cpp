#include <gtest/gtest.h>

#include "db/ValoresSql.h"
#include "rules/clsCliente_DtosFamilias.h"
#include "rules/clsCliente_Grp_Dtos.h"
#include "tests/comun/BaseDemo.h"
#include "tests/comun/EmpresaFija.h"

namespace kv::prueba {
namespace {

// A discount row: of article 50 (families 3, 4 and 5) unless it says otherwise.
struct FilaDto {
    int nivel;
    int f1;
    int f2;
    int f3;
    int articulo;
    double descuento;
    double minimo = 0;
    double maximo = 0;
    int deOtro = 0;
};

constexpr FilaDto kSeccion{1, 3, 0, 0, 0, 2};
constexpr FilaDto kFamilia{2, 3, 4, 0, 0, 4};
constexpr FilaDto kSubfamilia{3, 3, 4, 5, 0, 6};
constexpr FilaDto kArticulo{4, 3, 4, 5, 50, 8};

constexpr int kGrupo = 7;
constexpr int kCliente = 20;

class Procedimientos : public testing::Test {
  protected:
    // The company keeps its customers under another code, where the group is found.
    Procedimientos() {
        Ejecutar("INSERT INTO Empresas (Codigo, Cod_EmpresaClientes) VALUES (1, 3)");
        Ejecutar("INSERT INTO Clientes (Cod_Empresa, Codigo, Grupo_Dto) VALUES (3, 20, 7)");
        Ejecutar("INSERT INTO Clientes (Cod_Empresa, Codigo, Grupo_Dto) VALUES (1, 20, 8)");
    }

    void Ejecutar(const std::string& sql) { conexion_->Ejecutar(sql); }

    void Insertar(const FilaDto& f) {
        std::string clave;
        Agregar(clave, SqlEntero(f.nivel), ",", SqlEntero(f.f1), ",", SqlEntero(f.f2), ",", SqlEntero(f.f3), ",",
                SqlEntero(f.articulo), ",", SqlDoble(f.descuento), ")");
        if (f.minimo == 0 && f.maximo == 0)
            Ejecutar(
                TextoSql("INSERT INTO Descuentos_Familias (Cod_Empresa, Cod_Cliente, Nivel, Familia_1, Familia_2,"
                         " Familia_3, Cod_Articulo, Descuento) VALUES (1,",
                         SqlEntero(kCliente + f.deOtro), ",", clave));
        Ejecutar(
            TextoSql("INSERT INTO Clientes_Grp_Descuentos_Fam (Cod_Empresa, Cod_Grupo, Unidades_Min, Unidades_Max,"
                     " Nivel, Familia_1, Familia_2, Familia_3, Cod_Articulo, Descuento) VALUES (1,",
                     SqlEntero(kGrupo + f.deOtro), ",", SqlDoble(f.minimo), ",", SqlDoble(f.maximo), ",", clave));
    }

    template <class Descuentos>
    Descuentos Nuevo() {
        Descuentos d;
        d.Conexion(conexion_);
        d.cEmpresa(empresa_);
        d.Cod_Articulo = 50;
        d.Familia_1 = 3;
        d.Familia_2 = 4;
        d.Familia_3 = 5;
        return d;
    }
    double DeCliente() {
        auto dtos = Nuevo<clsCliente_DtosFamilias>();
        dtos.Cliente = kCliente;
        return dtos.Dev_Descuento_Activo();
    }
    double DeGrupo(double unidades) {
        return Nuevo<clsCliente_Grp_Dtos>().Dev_Descuento_Activo(kCliente, Currency::DeDouble(unidades)).ADouble();
    }

    BaseDePrueba base_{BaseDePrueba::Datos::Ninguno, Fecha::DeAmd(2027, 2, 10)};
    std::shared_ptr<Connection> conexion_ = base_.Abrir();
    std::shared_ptr<EmpresaFija> empresa_ = std::make_shared<EmpresaFija>();
};

TEST_F(Procedimientos, ElArticuloGanaALaFamilia_YLaMasHondaALaMenosHonda) {
    struct Caso {
        const char* nombre;
        std::vector<FilaDto> filas;
        double esperado;
        std::array<std::string, 3> niveles = {"Sección", "Familia", "Subfamilia"};
    };
    const std::vector<Caso> casos = {
        {"sin filas", {}, 0},
        {"sección", {kSeccion}, 2},
        {"familia", {kSeccion, kFamilia}, 4},
        {"subfamilia", {kFamilia, kSubfamilia, kSeccion}, 6},
        {"artículo", {kArticulo, kSubfamilia, kFamilia, kSeccion}, 8},
        {"artículo con 0", {{4, 3, 4, 5, 50, 0}, kSubfamilia}, 0},
        {"artículo que cambió de familia", {{4, 9, 9, 9, 50, 8}, kSubfamilia}, 8},
        {"artículo bajo dos familias", {{4, 9, 9, 9, 50, 8}, {4, 2, 9, 9, 50, 7}}, 7},
        {"otro artículo", {{4, 3, 4, 5, 51, 8}, kSeccion}, 2},
        {"otras familias", {{1, 4, 0, 0, 0, 2}, {2, 3, 5, 0, 0, 4}, {3, 3, 4, 6, 0, 6}}, 0},
        {"de otro cliente o grupo", {{1, 3, 0, 0, 0, 2, 0, 0, 1}}, 0},
        {"dos niveles: el artículo es el tercero", {{3, 3, 4, 5, 50, 8}, kFamilia}, 8, {"Sección", "Familia", ""}},
        {"dos niveles: la subfamilia no cuenta", {kSubfamilia, kFamilia}, 4, {"Sección", "Familia", ""}},
        {"sin el segundo: el artículo es el cuarto", {kArticulo, kFamilia}, 8, {"Sección", "", "Subfamilia"}},
        {"sin el segundo: la familia no cuenta", {kFamilia, kSeccion}, 2, {"Sección", "", "Subfamilia"}},
    };
    for (const Caso& caso : casos) {
        SCOPED_TRACE(caso.nombre);
        empresa_->captions = caso.niveles;
        conexion_->BeginTrans();
        for (const FilaDto& fila : caso.filas) Insertar(fila);
        EXPECT_DOUBLE_EQ(caso.esperado, DeCliente());
        EXPECT_DOUBLE_EQ(caso.esperado, DeGrupo(1));
        conexion_->RollbackTrans();
    }
}

TEST_F(Procedimientos, EntreTramosDeUnidades_GanaElDeMayorMinimoYElDeCualquieraVaElUltimo) {
    const std::vector<FilaDto> tramos = {
        {4, 3, 4, 5, 50, 5},          {4, 3, 4, 5, 50, 7, 1, 10}, {4, 3, 4, 5, 50, 9, 11, 100},
        {4, 3, 4, 5, 50, 10, 5, 100}, {4, 3, 4, 5, 50, 3, 0, 2},  {4, 3, 4, 5, 50, 4, 1, 3},
    };
    const FilaDto familiaPorTramo{3, 3, 4, 5, 0, 6, 1, 50};
    struct Caso {
        const char* nombre;
        std::vector<FilaDto> filas;
        double unidades;
        double esperado;
    };
    const std::vector<Caso> casos = {
        {"sólo cabe el que empieza en 0", tramos, 0, 3},
        {"el que empieza en 0 gana al de cualquiera", tramos, 0.5, 3},
        {"dos con el mismo mínimo: el más estrecho", tramos, 1, 4},
        {"primera unidad del siguiente", tramos, 5, 10},
        {"mayor mínimo", tramos, 11, 9},
        {"último", tramos, 100, 9},
        {"pasado el último, el de cualquiera", tramos, 100.5, 5},
        {"tramo de familia", {familiaPorTramo, kSeccion}, 50, 6},
        {"fuera del tramo de familia", {familiaPorTramo, kSeccion}, 50.0001, 2},
        {"cualquiera del artículo gana al tramo de la familia", {kArticulo, familiaPorTramo}, 5, 8},
        {"fuera del tramo del artículo, la familia", {{4, 3, 4, 5, 50, 9, 10, 20}, familiaPorTramo}, 9, 6},
    };
    for (const Caso& caso : casos) {
        SCOPED_TRACE(caso.nombre);
        conexion_->BeginTrans();
        for (const FilaDto& fila : caso.filas) Insertar(fila);
        EXPECT_DOUBLE_EQ(caso.esperado, DeGrupo(caso.unidades));
        conexion_->RollbackTrans();
    }
}

}  // namespace
}  // namespace kv::prueba
