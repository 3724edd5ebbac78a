#include <gtest/gtest.h>

#include <fstream>

#include "db/sqlite/ConexionSqlite.h"
#include "tests/comun/ContratoAdaptador.h"
#include "tests/comun/Errores.h"
#include "tests/comun/FicheroTemporal.h"

namespace kv::prueba {
namespace {

constexpr IdentidadBase kIdentidad{0x4B56, 3};

constexpr const char* kGuion = R"(
CREATE TABLE Contrato (Codigo int NOT NULL PRIMARY KEY, Importe money, Activo bit, Octeto tinyint, Corto smallint,
    Doble float, Fecha date, Texto varchar(50), Nula int) WITHOUT ROWID;
INSERT INTO Contrato VALUES (1, 12.3456, 1, 200, -5, 0.1, '2026-03-05', 'ñ € x ', NULL);
INSERT INTO Contrato VALUES (2, -0.5, 0, 0, 7, 2.5, '1900-01-01', '', 9);
CREATE TABLE Procedimientos (Nombre varchar(60) NOT NULL PRIMARY KEY, Cuerpo varchar(4000) NOT NULL);
INSERT INTO Procedimientos VALUES ('Doblar', 'SELECT Importe * @Veces AS Dto FROM Contrato WHERE Codigo = @Cliente');
)";

void Nada(Connection&) {}

struct Base {
    CarpetaTemporal carpeta;
    std::string ruta = carpeta.Fichero("base.kv");
    Base() { ConexionSqlite::Crear(ruta, kIdentidad, kGuion, Nada); }
    std::shared_ptr<ConexionSqlite> Abrir(ConexionSqlite::Modo modo = ConexionSqlite::Modo::LecturaEscritura) const {
        return ConexionSqlite::Abrir(ruta, kIdentidad, modo);
    }
};

std::shared_ptr<Connection> Conectar() {
    auto base = std::make_shared<Base>();
    std::shared_ptr<Connection> conexion = base->Abrir();
    // The folder lives as long as the connection.
    Connection* const abierta = conexion.get();
    return {abierta, [base = std::move(base), conexion = std::move(conexion)](Connection*) mutable {
                conexion.reset();
                base.reset();
            }};
}

INSTANTIATE_TEST_SUITE_P(Sqlite, ContratoAdaptador, testing::Values(AdaptadorProbado{"sqlite", Conectar}));

TEST(ConexionSqlite, ElMismoTextoConOtrosValores_NoSePreparaDeNuevo) {
    const Base base;
    const auto conexion = base.Abrir();
    std::unique_ptr<Recordset> rs;
    const auto leer = [&](const std::string& sql) {
        conexion->BeginTrans();
        AbrirLectura(rs, *conexion, sql);
        const bool hay = !rs->Eof();
        rs->Close();
        conexion->CommitTrans();
        return hay;
    };
    EXPECT_TRUE(leer("SELECT Texto FROM Contrato WHERE Codigo =1 AND Fecha >='05/03/2026'"));
    EXPECT_TRUE(leer("SELECT Codigo FROM Contrato WHERE Importe =-0.5"));
    const auto preparadas = conexion->Preparaciones();
    for (int i = 0; i < 50; ++i) {
        EXPECT_EQ(i == 1,
                  leer("SELECT Texto FROM Contrato WHERE Codigo =" + std::to_string(i) + " AND Fecha >='05/03/2026'"));
        EXPECT_EQ(i == 12, leer("SELECT Codigo FROM Contrato WHERE Importe =" + std::to_string(i) + ".3456"));
    }
    EXPECT_EQ(preparadas, conexion->Preparaciones());
    EXPECT_TRUE(leer("SELECT Texto FROM Contrato WHERE Codigo =1 AND  Fecha >='05/03/2026'"));
    EXPECT_EQ(preparadas + 1, conexion->Preparaciones());
}

TEST(ConexionSqlite, MuchasPlantillas_SeOlvidanLasMasViejasSinPerderNada) {
    const Base base;
    const auto conexion = base.Abrir();
    std::unique_ptr<Recordset> abierto;
    AbrirLectura(abierto, *conexion, "SELECT Codigo FROM Contrato ORDER BY Codigo");
    for (int i = 0; i < 500; ++i) {
        std::unique_ptr<Recordset> rs;
        AbrirLectura(rs, *conexion, "SELECT Codigo + " + std::to_string(i) + " AS Suma FROM Contrato WHERE Codigo =1");
        ASSERT_EQ(i + 1, ALong(rs->Fields("Suma").Value()));
    }
    abierto->MoveNext();
    EXPECT_EQ(2, ALong(abierto->Fields("Codigo").Value()));
}

TEST(ConexionSqlite, Procedimiento_EntradasPorNombreYSalidas) {
    const Base base;
    const auto conexion = base.Abrir();
    const auto comando = conexion->CrearCommand();
    comando->CommandType = CommandType::adCmdStoredProc;
    comando->CommandText = "doblar";
    using D = ParameterDirection;
    comando->Parameters.Append({"Return", DataType::adInteger, D::adParamReturnValue, 0, Nulo{}});
    comando->Parameters.Append({"@Cliente", DataType::adInteger, D::adParamInput, 0, std::int32_t{1}});
    comando->Parameters.Append({"@Veces", DataType::adInteger, D::adParamInput, 0, Currency::DeEntero(2)});
    comando->Parameters.Append({"@SinUso", DataType::adInteger, D::adParamInput, 0, std::int32_t{5}});
    comando->Parameters.Append({"@Dto", DataType::adCurrency, D::adParamOutput, 0, Nulo{}});
    comando->Execute(CommandType::adOptionUnspecified);
    EXPECT_EQ(Currency::DeDouble(24.6912), ACurrency(comando->Parameters.Item("@dto").Value));
    EXPECT_EQ(Valor(std::int32_t{0}), comando->Parameters.Item("Return").Value);
    comando->CommandText = "NoHay";
    EsperarError(1, "SQLite", [&] { comando->Execute(CommandType::adOptionUnspecified); });
}

TEST(ConexionSqlite, FicherosQueNoSirven_DicenCualYPorQue) {
    const Base base;
    const auto abrir = [](const std::string& ruta, IdentidadBase identidad = kIdentidad) {
        try {
            ConexionSqlite::Abrir(ruta, identidad, ConexionSqlite::Modo::SoloLectura);
        } catch (const RuntimeError& error) {
            return error.descripcion;
        }
        return std::string();
    };
    const std::string falta = base.carpeta.Fichero("falta.kv");
    EXPECT_EQ("«" + falta + "» no existe", abrir(falta));
    const std::string texto = base.carpeta.Fichero("texto.kv");
    std::ofstream(texto) << std::string(5000, 'x');
    EXPECT_EQ("«" + texto + "» no es una base de datos", abrir(texto));
    const std::string vacio = base.carpeta.Fichero("vacio.kv");
    std::ofstream(vacio).flush();
    EXPECT_EQ("«" + vacio + "» no es una base de datos de KVDatosArt", abrir(vacio));
    EXPECT_EQ("«" + base.carpeta.Fichero(".") + "» no es un fichero", abrir(base.carpeta.Fichero(".")));
    EXPECT_NE(std::string::npos, abrir(base.ruta, {kIdentidad.aplicacion, 4}).find("versión de esquema 3"));
    EXPECT_EQ("", abrir(base.ruta));
}

TEST(ConexionSqlite, CrearQueFalla_NoDejaNada) {
    const CarpetaTemporal carpeta;
    const std::string ruta = carpeta.Fichero("nueva.kv");
    EXPECT_THROW(ConexionSqlite::Crear(ruta, kIdentidad, "CREATE TABLE Mal (", Nada), RuntimeError);
    EXPECT_THROW(ConexionSqlite::Crear(ruta, kIdentidad, kGuion,
                                       [](Connection& c) { c.Ejecutar("INSERT INTO NoHay (A) VALUES (1)"); }),
                 RuntimeError);
    EXPECT_EQ(0U, carpeta.CuantosFicheros());
    ConexionSqlite::Crear(ruta, kIdentidad, kGuion, Nada);
    EXPECT_EQ(1U, carpeta.CuantosFicheros());
    EXPECT_THROW(ConexionSqlite::Crear(ruta, kIdentidad, kGuion, Nada), RuntimeError);
}

TEST(ConexionSqlite, SoloLectura_NoEscribe) {
    const Base base;
    const auto conexion = base.Abrir(ConexionSqlite::Modo::SoloLectura);
    EXPECT_THROW(conexion->Ejecutar("DELETE FROM Contrato"), RuntimeError);
}

}  // namespace
}  // namespace kv::prueba
