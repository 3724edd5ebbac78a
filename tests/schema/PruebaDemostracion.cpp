#include <gtest/gtest.h>

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

std::int16_t Corto(const std::string& texto) {
    return static_cast<std::int16_t>(std::stoi(texto));
}

class Demostracion : public testing::Test {
  protected:
    void Preparar(clsDatosArt& articulo, const std::string& empresa) {
        articulo.Conexion(conexion_);
        articulo.cEmpresa(std::make_shared<host::EmpresaTabla>(*conexion_, Corto(empresa)));
    }
    int Contar(const std::string& desde) {
        return std::stoi(LeerFilas(base_.Ruta(), "SELECT COUNT(*) FROM " + desde)[0][0]);
    }

    BaseDePrueba base_{BaseDePrueba::Datos::Demostracion, kHoy};
    BibliotecaDePrueba biblioteca_{kHoy};
    std::shared_ptr<Connection> conexion_ = base_.Abrir();
};

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

TEST_F(Demostracion, TieneLoQuePrometeYNadaSuelto) {
    const std::pair<const char*, int> kPromesas[] = {
        {"Articulos WHERE Cod_Empresa = 1", 300},
        {"Almacenes WHERE Cod_Empresa = 1", 3},
        {"Tarifas", 5},
        {"Clientes", 60},
        {"Clientes_Notas WHERE Pendiente = 1 AND Vencimiento <= '2027-02-10'", 1},
    };
    for (const auto& [desde, minimo] : kPromesas) EXPECT_GE(Contar(desde), minimo) << desde;
    struct Referencia {
        std::string tabla;
        std::string columna;
        std::string referida;
    };
    const Referencia kReferencias[] = {
        {"Articulos", "PadreVenta", "Articulos"},           {"Articulos", "Envase", "Articulos"},
        {"Articulos_Tarifas", "Cod_Articulo", "Articulos"}, {"Tarifas_Modificacion", "Cod_Articulo", "Articulos"},
        {"Almacen_Articulos", "Cod_Almacen", "Almacenes"},  {"Clientes_Art_PVP", "Cod_Cliente", "Clientes"},
        {"Clientes_Telefonos", "Cod_Cliente", "Clientes"}};
    for (const Referencia& r : kReferencias)
        EXPECT_EQ(0, Contar(r.tabla + " WHERE " + r.columna + " <> 0 AND " + r.columna +
                            " NOT IN (SELECT Codigo FROM " + r.referida + ")"))
            << r.tabla << '.' << r.columna;
}

}  // namespace
}  // namespace kv::prueba
