#include "kvdatosart/customers/ColumnasCliente.h"
#include "kvdatosart/customers/clsCliente.h"
#include "kvdatosart/tests/comun/ConGuion.h"

namespace kv::prueba {
namespace {

constexpr const char* kCargar = "SELECT * FROM Clientes WHERE Cod_Empresa =3 AND Codigo =77";

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

class Cliente : public ConGuion<clsCliente> {
  protected:
    Cliente() {
        objeto.Codigo = 77;
        objeto.Nombre = "Obras Duero";
        for (const auto& columna : kColumnasCliente) columnas.emplace_back(columna.nombre);
    }
    // The deletion as far as the statement of this number, the commit behind the last one.
    void EsperarBorrado(std::size_t hasta = std::size(kBorrados)) {
        guion->EsperaBeginTrans();
        for (std::size_t i = 0; i < std::min(hasta + 1, std::size(kBorrados)); ++i)
            guion->EsperaEjecucion(kBorrados[i]);
        if (hasta == std::size(kBorrados)) guion->EsperaCommitTrans();
    }

    std::vector<std::string> columnas;
};

// Each column of the row holds its position, so that one read into another's member is seen.
TEST_F(Cliente, Cargar_CadaColumnaASuVariable) {
    ConexionGuion::Fila fila;
    for (std::int16_t i = 0; i < 104; ++i) fila.push_back(i);
    fila[35] = Nulo{};  // Fecha_Bloq
    guion->EsperaConsulta(kCargar, columnas, {fila});
    clsCliente c;
    EXPECT_TRUE(Hacer(objeto, "clsCliente::Cargar", [&] { return objeto.Cargar(&c); }));
    EXPECT_EQ("Obras Duero", objeto.Nombre);
    EXPECT_EQ((std::array<int, 4>{25, 33, 56, 101}),
              (std::array<int, 4>{c.Divisa, c.TarifaPromocion, c.FormaPago, c.Cad_Nivel_10}));
    EXPECT_EQ((std::array<std::string, 3>{"1", "74", "77"}), (std::array{c.Nombre, c.CCCRemesas, c.Observaciones}));
    EXPECT_EQ(Currency::DeEntero(70), c.DtoPPago);
    EXPECT_EQ(std::nullopt, c.FechaBloq);
    EXPECT_EQ(Fecha::DeOle(40), c.FechaEspecial);
    EXPECT_EQ(104U, columnas.size());
    fila[3] = Nulo{};
    guion->EsperaConsulta(kCargar, columnas, {fila});
    EsperarError(kErrNulo, "", [&] { objeto.Cargar(); });
    EXPECT_EQ("1", objeto.Nombre);
    EXPECT_EQ("", objeto.Direccion);
}

// What is found goes where it is asked to, by each of the four.
TEST_F(Cliente, Recorrido_PorCodigoYPorNombre) {
    using C = clsCliente;
    ConexionGuion::Fila fila(columnas.size(), 0);
    fila[1] = std::string("Tejas Ebro");
    const auto recorre = [&](const char* origen, bool (C::*metodo)(C*), const std::string& resto) {
        const std::string sql = "SELECT * FROM Clientes WHERE Codigo IN (SELECT " + resto;
        guion->EsperaConsulta(sql);
        EXPECT_FALSE(Hacer(objeto, origen, [&] { return (objeto.*metodo)(nullptr); }));
        guion->EsperaConsulta(sql, columnas, {fila});
        clsCliente destino;
        EXPECT_TRUE((objeto.*metodo)(&destino)) << origen;
        EXPECT_EQ("Tejas Ebro", destino.Nombre);
        EXPECT_EQ("Obras Duero", objeto.Nombre);
    };
    for (const bool porNombre : {false, true}) {
        objeto.FichaClienteModoDesp = porNombre;
        const std::string donde = "TOP 1 Codigo FROM Clientes WHERE Cod_Empresa =3 AND ";
        recorre("clsCliente::Cargar_Primero", &C::Cargar_Primero,
                "ISNULL(MIN(Codigo), 0) AS Codigo FROM Clientes  WHERE Cod_Empresa =3)");
        recorre("clsCliente::Cargar_Ultimo", &C::Cargar_Ultimo,
                "ISNULL(MAX(Codigo), 0) AS Codigo FROM Clientes  WHERE Cod_Empresa =3)");
        recorre(
            "clsCliente::Cargar_Anterior", &C::Cargar_Anterior,
            donde + (porNombre ? "Nombre < 'Obras Duero' ORDER BY Nombre DESC)" : "Codigo < 77 ORDER BY Codigo DESC)"));
        recorre(
            "clsCliente::Cargar_Siguiente", &C::Cargar_Siguiente,
            donde + (porNombre ? "Nombre > 'Obras Duero' ORDER BY Nombre ASC)" : "Codigo > 77 ORDER BY Codigo ASC)"));
    }
}

TEST_F(Cliente, Telefonos_DiezComoMuchoYLosCuatroPrimerosAparte) {
    clsCliente otro;
    const auto cargar = [&](std::vector<Valor> numeros, clsCliente* destino) {
        std::vector<ConexionGuion::Fila> filas;
        for (Valor& numero : numeros) filas.push_back({std::move(numero)});
        guion->EsperaConsulta(
            "SELECT Codigo, Numero FROM Clientes_Telefonos WHERE Cod_Empresa =3 AND Cod_Cliente =77 ORDER BY Codigo",
            {"Numero"}, filas);
        return objeto.Cargar_Telefonos(destino);
    };
    const auto aparte = [](const clsCliente& c) {
        return c.TelefonoP + '.' + c.TelefonoS + '.' + c.TelefonoFP + '.' + c.TelefonoFS;
    };
    std::vector<Valor> doce;
    for (int i = 0; i < 12; ++i) doce.emplace_back("n" + std::to_string(i));
    EXPECT_TRUE(cargar(doce, nullptr));
    EXPECT_EQ(10U, objeto.NumeroTelefonos());
    EXPECT_EQ("n9", objeto.Numero(9));
    EXPECT_EQ("n0.n1.n2.n3", aparte(objeto));
    EXPECT_TRUE(cargar({"a", "b", "c"}, &otro));
    EXPECT_EQ("a.b.c.", aparte(otro));
    EXPECT_FALSE(cargar({}, &otro));
    EXPECT_EQ("a.b.c.", aparte(otro)) << "sin filas no cambia nada";
    EXPECT_EQ(3U, otro.NumeroTelefonos());
    EXPECT_EQ("n0.n1.n2.n3", aparte(objeto)) << "lo leído para otro no es suyo";
    EsperarError(kErrNulo, "clsCliente::Cargar_Telefonos", [&] { cargar({"d", Nulo{}}, nullptr); });
    EXPECT_EQ("d...", aparte(objeto));
    EXPECT_EQ(1U, objeto.NumeroTelefonos());
    EsperarError(kErrSubindice, "", [&] { (void)objeto.Numero(1); });
    guion->EsperaEjecucion(
        "INSERT INTO Clientes_Telefonos (Cod_Empresa, Cod_Cliente, Codigo, Numero) VALUES (3, 77, 2, '600 1')");
    Hacer(objeto, "clsCliente::Insertar_Telefono", [&] { objeto.Insertar_Telefono(2, "600 1"); });
}

// The source KVDatosArt is that of a method without a handler. A database may answer without a row where one always
// comes: the value counts as 0. True counts as -1.
TEST_F(Cliente, Consultas) {
    const auto pregunta = [&](const char* origen, const std::string& sql, const char* columna, auto accion,
                              double sinFila, const std::vector<std::pair<Valor, double>>& respuestas) {
        SCOPED_TRACE(sql);
        guion->EsperaConsulta(sql);
        EXPECT_EQ(sinFila, ADouble(Valor(Hacer(objeto, origen, accion))));
        for (const auto& [valor, resultado] : respuestas) {
            guion->EsperaConsulta(sql, {columna}, {{valor}});
            EXPECT_EQ(resultado, ADouble(Valor(accion())));
        }
    };
    const std::string nuevo =
        "SELECT ISNULL(MAX(Codigo), 0) AS Codigo FROM Clientes WHERE Cod_Empresa =3 AND Codigo >= 1000";
    pregunta("KVDatosArt", nuevo, "Codigo", [&] { return objeto.Dev_Codigo_Nuevo(1000); }, 1, {{0, 1}, {1234, 1235}});
    guion->EsperaConsulta(nuevo, {"Codigo"}, {{2147483647}});
    EsperarError(kErrDesbordamiento, "KVDatosArt", [&] { objeto.Dev_Codigo_Nuevo(1000); });
    pregunta("clsCliente::Verif_Notas",
             " SELECT COUNT(*) AS Cant FROM Clientes_Notas WHERE Cod_Empresa =3 AND Pendiente = 1"
             " AND Vencimiento <= '17/04/2026'",
             "Cant", [&] { return objeto.Verif_Notas(); }, 0, {{0, 0}, {1, -1}, {3, -1}});
    pregunta("KVDatosArt",
             "SELECT ISNULL(SUM(Total), 0) AS Total FROM Albaranes_F WHERE Cod_Empresa =1 AND Cliente =77"
             " AND Factura_Codigo = 0",
             "Total", [&] { return objeto.Dev_SaldoAlbaranes(); }, 0, {{Currency::DeDouble(10.5), 10.5}});
    pregunta("KVDatosArt",
             "SELECT ISNULL(SUM(Puntos),0) AS Puntos FROM Clientes_Puntos WHERE Cod_Empresa=1 AND Cod_Cliente=77",
             "Puntos", [&] { return objeto.Dev_SaldoPuntos(); }, 0, {{-4, -4}});
    pregunta("clsCliente::Existe", "SELECT Codigo FROM Clientes WHERE Cod_Empresa =3 AND Codigo =77", "Codigo",
             [&] { return objeto.Existe(); }, 0, {{77, -1}});
}

TEST_F(Cliente, Escrituras) {
    const std::string suya = " WHERE Cod_Empresa =3 AND Codigo =77";
    guion->EsperaEjecucion("UPDATE Clientes SET FUVenta ='05/03/2026'" + suya + " AND FUVenta < '05/03/2026'");
    Hacer(objeto, "KVDatosArt", [&] { objeto.Act_FUVenta(dia); });
    guion->EsperaEjecucion("UPDATE Clientes SET FUCobro ='05/03/2026'" + suya + " AND FUCobro < '05/03/2026'");
    Hacer(objeto, "KVDatosArt", [&] { objeto.Act_FUCobro(dia); });
    // Each column holds its position, an amount half more, and the day of the lock none; no member is written twice.
    std::string nombres, valores, cambios;
    for (std::size_t i = 0; i < std::size(kColumnasCliente); ++i) {
        const auto escribir = [&](auto miembro) -> std::string {
            auto& dato = objeto.*miembro;
            using Dato = std::remove_reference_t<decltype(dato)>;
            const bool dinero = std::is_same_v<Dato, Currency>;
            Asignar(dato,
                    columnas[i] == "Fecha_Bloq" ? Valor(Nulo{}) : Valor(static_cast<double>(i) + (dinero ? 0.5 : 0)));
            if constexpr (std::is_same_v<Dato, bool>) return dato ? "-1" : "0";
            if constexpr (std::is_same_v<Dato, std::string>) return "'" + dato + "'";
            if constexpr (std::is_same_v<Dato, std::optional<Fecha>>)
                return dato ? "'" + dato->ATexto().Cadena() + "'" : "NULL";
            return std::to_string(i) + (dinero ? ".5" : "");
        };
        const std::string valor = std::visit(escribir, kColumnasCliente.at(i).destino);
        nombres += ", " + columnas[i];
        valores += ", " + valor;
        cambios += ", " + columnas[i] + " =" + valor;
    }
    guion->EsperaEjecucion("INSERT INTO Clientes (Cod_Empresa" + nombres + ") VALUES (3" + valores + ")");
    Hacer(objeto, "clsCliente::Insertar", [&] { objeto.Insertar(); });
    guion->EsperaEjecucion("UPDATE Clientes SET Cod_Empresa =3" + cambios + " WHERE Cod_Empresa =3 AND Codigo =0");
    Hacer(objeto, "clsCliente::Modificar", [&] { objeto.Modificar(); });
}

TEST_F(Cliente, Eliminar_SeDetieneEnLaPrimeraDependenciaOBorraTodo) {
    for (std::size_t hallada = 0; hallada <= std::size(kSondas); ++hallada) {
        const bool libre = hallada == std::size(kSondas);
        for (std::size_t i = 0; i < hallada; ++i) guion->EsperaConsulta(kSondas[i]);
        if (libre)
            EsperarBorrado();
        else
            guion->EsperaConsulta(kSondas[hallada], {"Codigo"}, {{std::int32_t{1}}});
        EXPECT_EQ(libre, objeto.Eliminar(false)) << hallada;
        guion->Terminar();
    }
    ASSERT_EQ(std::size(kSondas), biblioteca.Mensajes().size());
    EXPECT_EQ("El cliente no se puede eliminar porque tiene dependencias", biblioteca.Mensajes()[0].texto);
    EXPECT_EQ("¡Atención!", biblioteca.Mensajes()[0].titulo);
    EsperarBorrado();
    EXPECT_TRUE(Hacer(objeto, "clsCliente::Eliminar", [&] { return objeto.Eliminar(true); }));
}

TEST_F(Cliente, Eliminar_FalloEnCadaPaso) {
    const auto falla = [&](bool forzar, bool tampoco = false) {
        guion->YFalla(547, "referencia");
        if (forzar) guion->EsperaRollbackTrans();
        if (forzar && tampoco) guion->YFalla(3, "sin transacción");
        EsperarError(547, "clsCliente::Eliminar", [&] { objeto.Eliminar(forzar); });
        guion->Terminar();
    };
    for (std::size_t paso = 0; paso <= std::size(kBorrados); ++paso) {
        EsperarBorrado(paso);
        falla(true);
    }
    EsperarBorrado(2);
    falla(true, true);  // The rollback fails too: what is told is the first failure.
    guion->EsperaConsulta(kSondas[0]);
    falla(false);
    guion->EsperaBeginTrans();
    guion->YFalla(3, "no");
    EsperarError(3, "", [&] { objeto.Eliminar(true); });
}

}  // namespace
}  // namespace kv::prueba
