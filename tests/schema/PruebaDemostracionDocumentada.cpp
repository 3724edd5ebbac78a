#include <gtest/gtest.h>

#include <fstream>
#include <functional>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/component/clsDatosArt.h"
#include "kvdatosart/db/EmpresaTabla.h"
#include "kvdatosart/tests/comun/BaseDemo.h"
#include "kvdatosart/tests/comun/EmpresaFija.h"

namespace kv::prueba {
namespace {

const Fecha kHoy = Fecha::DeAmd(2027, 2, 10);

using Celdas = std::vector<std::string>;

std::int16_t Corto(const std::string& texto) {
    return static_cast<std::int16_t>(std::stoi(texto));
}

// Each row of the table under a heading of the document, its cells and an article of the company in the second one.
void CadaFila(std::string_view titulo, std::size_t columnas,
              const std::function<void(clsDatosArt&, const Celdas&)>& prueba) {
    const BaseDePrueba base(BaseDePrueba::Datos::Demostracion, kHoy);
    const BibliotecaDePrueba biblioteca(kHoy);
    const std::shared_ptr<Connection> conexion = base.Abrir();
    std::ifstream documento(KV_DOCS "/demo.md");
    int filas = 0;
    bool dentro = false;
    for (std::string linea; std::getline(documento, linea);) {
        if (linea.starts_with("## ")) dentro = linea.substr(3) == titulo;
        if (!dentro || !linea.starts_with("| ") || ++filas == 1) continue;
        SCOPED_TRACE(linea);
        Celdas fila;
        for (std::size_t desde = 2, hasta; (hasta = linea.find(" |", desde)) != std::string::npos; desde = hasta + 3)
            fila.push_back(linea.substr(desde, hasta - desde));
        ASSERT_EQ(columnas, fila.size());
        clsDatosArt articulo;
        articulo.Conexion(conexion);
        articulo.cEmpresa(EmpresaTabla::Leer(*conexion, Corto(fila[1])));
        prueba(articulo, fila);
    }
    EXPECT_GT(filas, 5);
}

TEST(Demostracion, CadaCargaDelDocumento_DaLoQueDice) {
    CadaFila("Article loads", 15, [](clsDatosArt& articulo, const Celdas& f) {
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
    });
}

TEST(Demostracion, CadaPrecioDeTarifaDelDocumento_DaLoQueDice) {
    CadaFila("Tariff prices", 8, [](clsDatosArt& articulo, const Celdas& f) {
        articulo.Codigo = std::stoi(f[2]);
        articulo.CualidadX = static_cast<std::uint8_t>(std::stoi(f[3]));
        try {
            const Currency pvp = articulo.DevPvp(Corto(f[4]), kHoy + std::stoi(f[5]), f[6] == "yes");
            EXPECT_EQ(f[7], pvp.ATextoFijo(2, '.'));
        } catch (const RuntimeError& error) {
            EXPECT_EQ(kErrObjetoNoEstablecido, error.numero) << error.descripcion;
            EXPECT_EQ(f[7], "none");
        }
    });
}

TEST(Demostracion, TieneLoQuePrometeYNadaSuelto) {
    const BaseDePrueba base(BaseDePrueba::Datos::Demostracion, kHoy);
    const auto conexion = base.Abrir();
    const auto contar = [&](const std::string& desde) {
        return ALong(LeerValor(*conexion, "SELECT COUNT(*) AS N FROM " + desde));
    };
    EXPECT_EQ(60, contar("Clientes"));
    EXPECT_LE(1, contar("Clientes_Notas WHERE Pendiente = 1 AND Vencimiento <= '10/02/2027'"));
    const char* const kReferencias[][3] = {
        {"Articulos", "PadreVenta", "Articulos"},           {"Articulos", "Envase", "Articulos"},
        {"Articulos_Tarifas", "Cod_Articulo", "Articulos"}, {"Tarifas_Modificacion", "Cod_Articulo", "Articulos"},
        {"Almacen_Articulos", "Cod_Almacen", "Almacenes"},  {"Clientes_Art_PVP", "Cod_Cliente", "Clientes"},
        {"Clientes_Telefonos", "Cod_Cliente", "Clientes"}};
    for (const auto& [tabla, columna, referida] : kReferencias)
        EXPECT_EQ(0, contar(std::string(tabla) + " WHERE " + columna + " <> 0 AND " + columna +
                            " NOT IN (SELECT Codigo FROM " + referida + ")"))
            << tabla << '.' << columna;
}

}  // namespace
}  // namespace kv::prueba
