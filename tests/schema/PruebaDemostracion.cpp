#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "base/RuntimeError.h"
#include "component/clsDatosArt.h"
#include "host/EmpresaTabla.h"
#include "tests/comun/BaseDemo.h"
#include "tests/comun/EmpresaFija.h"
#include "tests/schema/FilasSqlite.h"

namespace kv::prueba {
namespace {

const Fecha kHoy = Fecha::DeAmd(2027, 2, 10);

using Celdas = std::vector<std::string>;

// The rows of the table under a heading of the document, without its header.
std::vector<Celdas> TablaDelDocumento(std::string_view titulo, std::size_t columnas) {
    std::ifstream documento(KV_DOCS "/demo.md");
    std::vector<Celdas> filas;
    bool dentro = false;
    for (std::string linea; std::getline(documento, linea);) {
        if (linea.starts_with("## ")) dentro = linea.substr(3) == titulo;
        if (!dentro || !linea.starts_with("| ")) continue;
        Celdas& fila = filas.emplace_back();
        for (std::size_t desde = 2, hasta; (hasta = linea.find(" |", desde)) != std::string::npos; desde = hasta + 3)
            fila.push_back(linea.substr(desde, hasta - desde));
        EXPECT_EQ(columnas, fila.size()) << linea;
    }
    if (!filas.empty()) filas.erase(filas.begin());
    return filas;
}

class Demostracion : public testing::Test {
  protected:
    static void SetUpTestSuite() { base_ = std::make_unique<BaseDePrueba>(BaseDePrueba::Datos::Demostracion, kHoy); }
    static void TearDownTestSuite() { base_.reset(); }

    void Preparar(clsDatosArt& articulo, const std::string& empresa) {
        empresa_ = std::make_shared<host::EmpresaTabla>(*conexion_, static_cast<std::int16_t>(std::stoi(empresa)));
        articulo.Conexion(conexion_);
        articulo.cEmpresa(empresa_);
    }
    static int Contar(const std::string& desde) {
        return std::stoi(LeerFilas(base_->Ruta(), "SELECT COUNT(*) FROM " + desde)[0][0]);
    }

    static inline std::unique_ptr<BaseDePrueba> base_;
    BibliotecaDePrueba biblioteca_{kHoy};
    std::shared_ptr<Connection> conexion_ = base_->Abrir();
    std::shared_ptr<host::EmpresaTabla> empresa_;
};

std::int16_t Corto(const std::string& texto) {
    return static_cast<std::int16_t>(std::stoi(texto));
}

TEST_F(Demostracion, CadaCargaDelDocumento_DaLoQueDice) {
    const std::vector<Celdas> filas = TablaDelDocumento("Article loads", 15);
    ASSERT_GT(filas.size(), 50U);
    for (const Celdas& f : filas) {
        SCOPED_TRACE(f[0]);
        clsDatosArt articulo;
        Preparar(articulo, f[1]);
        articulo.CualidadX = static_cast<std::uint8_t>(std::stoi(f[8]));
        articulo.CualidadY = static_cast<std::uint8_t>(std::stoi(f[8].substr(f[8].find('/') + 1)));
        const auto estado = articulo.Cargar(std::stoi(f[2]), std::stoi(f[3]), kHoy + std::stoi(f[4]), Corto(f[5]),
                                            Corto(f[6]), 2, Currency::DeDouble(std::stod(f[7])));
        EXPECT_EQ(Corto(f[9]), estado);
        EXPECT_DOUBLE_EQ(std::stod(f[10]), articulo.Pvp);
        EXPECT_DOUBLE_EQ(std::stod(f[10]), articulo.PvpOriginal);
        EXPECT_DOUBLE_EQ(std::stod(f[11]), articulo.PDescuento);
        EXPECT_EQ(Corto(f[12]), articulo.TarifaPVP);
        EXPECT_DOUBLE_EQ(std::stod(f[13]), articulo.PCosto);
        EXPECT_EQ(f[14], articulo.Convenio.empty() ? "-" : articulo.Convenio);
    }
}

TEST_F(Demostracion, CadaPrecioDeTarifaDelDocumento_DaLoQueDice) {
    const std::vector<Celdas> filas = TablaDelDocumento("Tariff prices", 8);
    ASSERT_GT(filas.size(), 5U);
    for (const Celdas& f : filas) {
        SCOPED_TRACE(f[0]);
        clsDatosArt articulo;
        Preparar(articulo, f[1]);
        articulo.Codigo = std::stoi(f[2]);
        articulo.CualidadX = static_cast<std::uint8_t>(std::stoi(f[3]));
        try {
            const Currency pvp = articulo.DevPvp(Corto(f[4]), kHoy + std::stoi(f[5]), f[6] == "yes");
            EXPECT_EQ(f[7], pvp.ATextoFijo(2, '.'));
        } catch (const RuntimeError& error) {
            EXPECT_EQ(kErrObjetoNoEstablecido, error.numero) << error.descripcion;
            EXPECT_EQ(f[7], "none");
        }
    }
}

TEST_F(Demostracion, ElPadreDeVenta_SeCargaConSuPrecio) {
    clsDatosArt articulo;
    Preparar(articulo, "1");
    ASSERT_EQ(0, articulo.Cargar(118, 1, kHoy, 1, 1, 2));
    ASSERT_NE(nullptr, articulo.padre());
    EXPECT_EQ(119, articulo.padre()->Codigo);
    EXPECT_DOUBLE_EQ(96, articulo.padre()->Pvp);
}

TEST_F(Demostracion, TieneLoQuePromete) {
    struct Promesa {
        const char* desde;
        int minimo;
    };
    constexpr Promesa kPromesas[] = {
        {"Articulos WHERE Cod_Empresa = 1", 300},
        {"(SELECT DISTINCT Familia_1, Familia_2, Familia_3 FROM Articulos WHERE Familia_3 <> 0)", 30},
        {"Almacenes WHERE Cod_Empresa = 1", 3},
        {"(SELECT DISTINCT Cod_Tarifa FROM Articulos_Tarifas JOIN Tarifas ON Codigo = Cod_Tarifa)", 5},
        {"(SELECT DISTINCT Cod_Tarifa FROM Tarifas_Modificacion WHERE Fecha_Entrada > '2027-02-10')", 5},
        {"(SELECT DISTINCT Cod_Tarifa FROM Tarifas_Modificacion WHERE Fecha_Entrada <= '2027-02-10')", 4},
        {"(SELECT DISTINCT Cod_Articulo FROM Articulos_Tarifas_C)", 5},
        {"Clientes", 60},
        {"Clientes WHERE TipoCliente <> 0", 10},
        {"Clientes WHERE Tarifa_Promoc <> 0", 5},
        {"Clientes WHERE Grupo_Dto IN (SELECT Cod_Grupo FROM Clientes_Grp_Descuentos_Fam)", 10},
        {"Clientes WHERE Cad_Nivel_4 <> 0", 2},
        {"Clientes_Telefonos", 60},
        {"Clientes_Notas WHERE Pendiente = 1 AND Vencimiento <= '2027-02-10'", 1},
        {"Clientes_Articulos_C_Tx", 1},
        {"Facturas", 10},
        {"Albaranes_F WHERE Factura_Codigo = 0", 3},
        {"Clientes_Puntos", 10},
    };
    for (const Promesa& p : kPromesas) EXPECT_GE(Contar(p.desde), p.minimo) << p.desde;
    // What is written of an article, a tariff or a customer is there: nothing hangs loose.
    constexpr const char* kSueltas[] = {
        "Articulos_Tarifas t WHERE NOT EXISTS (SELECT 1 FROM Articulos a WHERE a.Codigo = t.Cod_Articulo)",
        "Tarifas_Modificacion t WHERE NOT EXISTS (SELECT 1 FROM Articulos_Tarifas a WHERE"
        " a.Cod_Articulo = t.Cod_Articulo AND a.Cod_Tarifa = t.Cod_Tarifa)",
        "Almacen_Articulos t WHERE NOT EXISTS (SELECT 1 FROM Almacenes a WHERE a.Cod_Empresa = t.Cod_Empresa"
        " AND a.Codigo = t.Cod_Almacen)",
        "Clientes_Art_PVP t WHERE NOT EXISTS (SELECT 1 FROM Clientes c WHERE c.Codigo = t.Cod_Cliente)",
        "Articulos t WHERE PadreVenta <> 0 AND NOT EXISTS (SELECT 1 FROM Articulos a WHERE a.Codigo = t.PadreVenta)",
        "Articulos t WHERE Envase <> 0 AND NOT EXISTS (SELECT 1 FROM Articulos a WHERE a.Codigo = t.Envase)",
    };
    for (const char* suelta : kSueltas) EXPECT_EQ(0, Contar(suelta)) << suelta;
}

}  // namespace
}  // namespace kv::prueba
