#include <gtest/gtest.h>

#include "customers/ColumnasCliente.h"
#include "customers/clsCliente.h"
#include "tests/comun/ConexionGuion.h"
#include "tests/comun/EmpresaFija.h"
#include "tests/comun/Errores.h"

namespace kv::prueba {
namespace {

const Fecha kDia = Fecha::DeAmd(2026, 3, 5);

class Cliente : public testing::Test {
  protected:
    Cliente() {
        cliente.Conexion(guion);
        cliente.cEmpresa(std::make_shared<EmpresaFija>());
        cliente.Codigo = 77;
        cliente.Nombre = "Obras Duero";
    }

    // A whole row: each column holds its position, so that one read into its neighbour's member is seen.
    static ConexionGuion::Fila Fila() {
        struct Visita {
            int i;
            Valor operator()(std::int16_t clsCliente::*) const { return static_cast<std::int16_t>(i); }
            Valor operator()(std::int32_t clsCliente::*) const { return std::int32_t{i}; }
            Valor operator()(std::uint8_t clsCliente::*) const { return static_cast<std::uint8_t>(i); }
            Valor operator()(bool clsCliente::*) const { return i % 2 == 0; }
            Valor operator()(float clsCliente::*) const { return static_cast<float>(i); }
            Valor operator()(double clsCliente::*) const { return static_cast<double>(i); }
            Valor operator()(Currency clsCliente::*) const { return Currency::DeEntero(i); }
            Valor operator()(std::string clsCliente::*) const { return "t" + std::to_string(i); }
            Valor operator()(std::optional<Fecha> clsCliente::*) const { return i % 2 == 0 ? Valor(kDia) : Nulo{}; }
        };
        ConexionGuion::Fila fila;
        for (const auto& columna : kColumnasCliente)
            fila.push_back(std::visit(Visita{static_cast<int>(fila.size())}, columna.destino));
        return fila;
    }
    static std::vector<std::string> Columnas() {
        std::vector<std::string> columnas;
        for (const auto& columna : kColumnasCliente) columnas.emplace_back(columna.nombre);
        return columnas;
    }

    BibliotecaDePrueba biblioteca{kDia, ','};
    std::shared_ptr<ConexionGuion> guion = std::make_shared<ConexionGuion>();
    clsCliente cliente;
};

constexpr const char* kCargar = "SELECT * FROM Clientes WHERE Cod_Empresa =3 AND Codigo =77";

TEST_F(Cliente, Cargar_CadaColumnaASuVariable) {
    guion->EsperaConsulta(kCargar, Columnas(), {Fila()});
    clsCliente destino;
    EXPECT_TRUE(cliente.Cargar(&destino));
    EXPECT_EQ("Obras Duero", cliente.Nombre);
    EXPECT_EQ(0, destino.Codigo);
    EXPECT_EQ("t1", destino.Nombre);
    EXPECT_FALSE(destino.IntraComunitario);
    EXPECT_EQ(25, destino.Divisa);
    EXPECT_EQ(31, destino.AlmacenAsoc);
    EXPECT_EQ(32, destino.TarifaPVP);
    EXPECT_EQ(33, destino.TarifaPromocion);
    EXPECT_EQ(std::nullopt, destino.FechaBloq);
    EXPECT_EQ(kDia, destino.FechaEspecial);
    EXPECT_EQ(56, destino.FormaPago);
    EXPECT_EQ(Currency::DeEntero(70), destino.DtoPPago);
    EXPECT_EQ("t73", destino.CCC);
    EXPECT_EQ("t77", destino.Observaciones);
    EXPECT_EQ(90, destino.TipoCliente);
    EXPECT_EQ(92, destino.Cad_Nivel_1);
    EXPECT_EQ(101, destino.Cad_Nivel_10);
    EXPECT_FALSE(destino.Factura_PedirVto);
    EXPECT_EQ(104U, kColumnasCliente.size());
}

TEST_F(Cliente, Cargar_SinFilaYConNuloAMitad) {
    guion->EsperaConsulta(kCargar);
    EXPECT_FALSE(cliente.Cargar());
    EXPECT_EQ("Obras Duero", cliente.Nombre);
    ConexionGuion::Fila fila = Fila();
    fila[3] = Nulo{};
    guion->EsperaConsulta(kCargar, Columnas(), {fila});
    EsperarError(kErrNulo, "clsCliente::Cargar", [&] { cliente.Cargar(); });
    EXPECT_EQ("t1", cliente.Nombre);
    EXPECT_EQ("", cliente.Direccion);
}

TEST_F(Cliente, Recorrido_PorCodigoYPorNombre) {
    const std::string cabeza = "SELECT * FROM Clientes WHERE Codigo IN (SELECT ";
    const auto espera = [&](const std::string& resto) { guion->EsperaConsulta(cabeza + resto); };
    espera("ISNULL(MIN(Codigo), 0) AS Codigo FROM Clientes  WHERE Cod_Empresa =3)");
    espera("ISNULL(MAX(Codigo), 0) AS Codigo FROM Clientes  WHERE Cod_Empresa =3)");
    espera("TOP 1 Codigo FROM Clientes WHERE Cod_Empresa =3 AND Codigo < 77 ORDER BY Codigo DESC)");
    espera("TOP 1 Codigo FROM Clientes WHERE Cod_Empresa =3 AND Codigo > 77 ORDER BY Codigo ASC)");
    EXPECT_FALSE(cliente.Cargar_Primero());
    EXPECT_FALSE(cliente.Cargar_Ultimo());
    EXPECT_FALSE(cliente.Cargar_Anterior());
    EXPECT_FALSE(cliente.Cargar_Siguiente());
    cliente.FichaClienteModoDesp = true;
    espera("ISNULL(MIN(Codigo), 0) AS Codigo FROM Clientes  WHERE Cod_Empresa =3)");
    espera("TOP 1 Codigo FROM Clientes WHERE Cod_Empresa =3 AND Nombre < 'Obras Duero' ORDER BY Nombre DESC)");
    espera("TOP 1 Codigo FROM Clientes WHERE Cod_Empresa =3 AND Nombre > 'Obras Duero' ORDER BY Nombre ASC)");
    EXPECT_FALSE(cliente.Cargar_Primero());
    EXPECT_FALSE(cliente.Cargar_Anterior());
    EXPECT_FALSE(cliente.Cargar_Siguiente());
}

TEST_F(Cliente, Telefonos_DiezComoMucho) {
    std::vector<ConexionGuion::Fila> filas;
    for (int i = 0; i < 12; ++i) filas.push_back({static_cast<std::uint8_t>(i), "n" + std::to_string(i)});
    constexpr const char* kSql =
        "SELECT Codigo, Numero FROM Clientes_Telefonos WHERE Cod_Empresa =3 AND Cod_Cliente =77 ORDER BY Codigo";
    guion->EsperaConsulta(kSql, {"Codigo", "Numero"}, filas);
    cliente.Cargar_Telefonos();
    EXPECT_EQ(10U, cliente.NumeroTelefonos());
    EXPECT_EQ("n9", cliente.Numero(9));
    EXPECT_EQ("n3", cliente.TelefonoFS);
    filas.resize(1);
    guion->EsperaConsulta(kSql, {"Codigo", "Numero"}, filas);
    cliente.Cargar_Telefonos();
    EXPECT_EQ("n0", cliente.TelefonoP);
    EXPECT_EQ("", cliente.TelefonoS);
    EsperarError(kErrSubindice, "", [&] { (void)cliente.Numero(1); });
    guion->EsperaEjecucion(
        "INSERT INTO Clientes_Telefonos (Cod_Empresa, Cod_Cliente, Codigo, Numero) VALUES (3, 77, 2, '600 1')");
    cliente.Insertar_Telefono(2, "600 1");
}

TEST_F(Cliente, Consultas) {
    guion->EsperaEjecucion(
        "UPDATE Clientes SET FUVenta ='05/03/2026' WHERE Cod_Empresa =3 AND Codigo =77 AND FUVenta < '05/03/2026'");
    guion->EsperaEjecucion(
        "UPDATE Clientes SET FUCobro ='05/03/2026' WHERE Cod_Empresa =3 AND Codigo =77 AND FUCobro < '05/03/2026'");
    cliente.Act_FUVenta(kDia);
    cliente.Act_FUCobro(kDia);
    constexpr const char* kNuevo =
        "SELECT ISNULL(MAX(Codigo), 0) AS Codigo FROM Clientes WHERE Cod_Empresa =3 AND Codigo >= 1000";
    guion->EsperaConsulta(kNuevo, {"Codigo"}, {{std::int32_t{0}}});
    EXPECT_EQ(1, cliente.Dev_Codigo_Nuevo(1000));
    guion->EsperaConsulta(kNuevo, {"Codigo"}, {{std::int32_t{2147483647}}});
    EsperarError(kErrDesbordamiento, "", [&] { cliente.Dev_Codigo_Nuevo(1000); });
    constexpr const char* kNotas =
        " SELECT COUNT(*) AS Cant FROM Clientes_Notas WHERE Cod_Empresa =3 AND Pendiente = 1"
        " AND Vencimiento <= '05/03/2026'";
    guion->EsperaConsulta(kNotas, {"Cant"}, {{std::int32_t{1}}});
    EXPECT_TRUE(cliente.Verif_Notas());
    guion->EsperaConsulta(
        "SELECT ISNULL(SUM(Total), 0) AS Total FROM Albaranes_F WHERE Cod_Empresa =1 AND Cliente =77"
        " AND Factura_Codigo = 0",
        {"Total"}, {{Currency::DeDouble(10.5)}});
    EXPECT_EQ(Currency::DeDouble(10.5), cliente.Dev_SaldoAlbaranes());
    guion->EsperaConsulta(
        "SELECT ISNULL(SUM(Puntos),0) AS Puntos FROM Clientes_Puntos WHERE Cod_Empresa=1 AND Cod_Cliente=77",
        {"Puntos"}, {{std::int32_t{-4}}});
    EXPECT_EQ(Currency::DeEntero(-4), cliente.Dev_SaldoPuntos());
    guion->EsperaConsulta("SELECT Codigo FROM Clientes WHERE Cod_Empresa =3 AND Codigo =77");
    EXPECT_FALSE(cliente.Existe());
}

constexpr const char* kSondas[] = {
    "SELECT TOP 1 Codigo FROM Clientes WHERE Cod_Empresa =3 AND Padre =77",
    "SELECT TOP 1 Cod_Cliente FROM Clientes_Articulos WHERE Cod_Empresa =3 AND Cod_Cliente =77",
    "SELECT TOP 1 Codigo FROM Facturas WHERE Cod_Empresa =1 AND Cliente =77",
    "SELECT TOP 1 Codigo FROM Facturas_Ex WHERE Cod_Empresa =1 AND Cliente =77",
    "SELECT TOP 1 Codigo FROM Albaranes_F WHERE Cod_Empresa =1 AND Cliente =77",
    "SELECT TOP 1 Codigo FROM AlbaranesST WHERE Cod_Empresa =1 AND Cliente =77",
    "SELECT TOP 1 Codigo FROM Entradas_ST WHERE Cod_Empresa =1 AND Cliente =77",
    "SELECT TOP 1 Codigo FROM Pedidos_Clientes WHERE Cod_Empresa =1 AND Cod_Cliente =77",
    "SELECT TOP 1 Codigo FROM Presup WHERE Cod_Empresa =1 AND Cliente =77",
    "SELECT TOP 1 Codigo FROM Proformas WHERE Cod_Empresa =1 AND Cliente =77",
    "SELECT TOP 1 Codigo FROM TPV_Tickets WHERE Cod_Empresa =1 AND Cliente =77",
};

constexpr const char* kBorrados[] = {
    "DELETE FROM Clientes WHERE Cod_Empresa =3 AND Codigo =77",
    "DELETE FROM Clientes_Telefonos WHERE Cod_Empresa =3 AND Cod_Cliente =77",
    "DELETE FROM Clientes_Contactos WHERE Cod_Empresa =3 AND Cod_Cliente =77",
    "DELETE FROM Clientes_Notas WHERE Cod_Empresa =3 AND Cod_Cliente =77",
    "DELETE FROM Clientes_Instalaciones WHERE Cod_Empresa =3 AND Cod_Cliente =77",
    "DELETE FROM Clientes_Empleados WHERE Cod_Empresa =3 AND Cod_Cliente =77",
    "DELETE FROM Temp_EtiquetasSueltas_Clientes WHERE Cod_Cliente =77",
    "DELETE FROM Temp_FactExt WHERE Cod_Empresa =3 AND Cliente =77",
    "DELETE FROM Descuentos_Familias WHERE Cod_Empresa =3 AND Cod_Cliente =77",
    "DELETE FROM Clientes_Art_PVP WHERE Cod_Empresa =3 AND Cod_Cliente =77",
};

TEST_F(Cliente, Eliminar_SeDetieneEnLaPrimeraDependencia) {
    for (std::size_t hallada = 0; hallada < std::size(kSondas); ++hallada) {
        for (std::size_t i = 0; i < hallada; ++i) guion->EsperaConsulta(kSondas[i]);
        guion->EsperaConsulta(kSondas[hallada], {"Codigo"}, {{std::int32_t{1}}});
        EXPECT_FALSE(cliente.Eliminar(false));
        guion->Terminar();
    }
    ASSERT_EQ(std::size(kSondas), biblioteca.Mensajes().size());
    EXPECT_EQ("El cliente no se puede eliminar porque tiene dependencias", biblioteca.Mensajes()[0].texto);
    EXPECT_EQ("¡Atención!", biblioteca.Mensajes()[0].titulo);
}

TEST_F(Cliente, Eliminar_BorraTodoEnUnaTransaccion) {
    for (const char* sonda : kSondas) guion->EsperaConsulta(sonda);
    guion->EsperaBeginTrans();
    for (const char* borrado : kBorrados) guion->EsperaEjecucion(borrado);
    guion->EsperaCommitTrans();
    EXPECT_TRUE(cliente.Eliminar(false));
}

TEST_F(Cliente, Eliminar_FalloEnCadaPaso) {
    for (std::size_t fallo = 0; fallo <= std::size(kBorrados); ++fallo) {
        guion->EsperaBeginTrans();
        for (std::size_t i = 0; i < std::min(fallo + 1, std::size(kBorrados)); ++i)
            guion->EsperaEjecucion(kBorrados[i]);
        if (fallo == std::size(kBorrados)) guion->EsperaCommitTrans();
        guion->YFalla(547, "referencia");
        guion->EsperaRollbackTrans();
        EsperarError(547, "clsCliente::Eliminar", [&] { cliente.Eliminar(true); });
        guion->Terminar();
    }
    guion->EsperaConsulta(kSondas[0]);
    guion->YFalla(208, "no existe");
    EsperarError(208, "clsCliente::Eliminar", [&] { cliente.Eliminar(false); });
    guion->EsperaBeginTrans();
    guion->YFalla(3, "no");
    EsperarError(3, "clsCliente::Eliminar", [&] { cliente.Eliminar(true); });
}

}  // namespace
}  // namespace kv::prueba
