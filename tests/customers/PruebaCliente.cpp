#include "kvdatosart/customers/ColumnasCliente.h"
#include "kvdatosart/customers/clsCliente.h"
#include "kvdatosart/tests/comun/BaseDemo.h"
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
    EXPECT_EQ((std::array<int, 9>{25, 29, 31, 32, 33, 56, 90, 92, 101}),
              (std::array<int, 9>{c.Divisa, c.AgenciaTransp, c.AlmacenAsoc, c.TarifaPVP, c.TarifaPromocion, c.FormaPago,
                                  c.TipoCliente, c.Cad_Nivel_1, c.Cad_Nivel_10}));
    EXPECT_EQ((std::array<std::string, 5>{"1", "36", "73", "74", "77"}),
              (std::array{c.Nombre, c.MotivoBloq, c.CCC, c.CCCRemesas, c.Observaciones}));
    EXPECT_EQ(Currency::DeEntero(70), c.DtoPPago);
    EXPECT_EQ(std::nullopt, c.FechaBloq);
    EXPECT_EQ(Fecha::DeOle(40), c.FechaEspecial);
    // No member is read twice.
    for (std::size_t i = 0; i < fila.size(); ++i) {
        const auto comparar = [&](auto miembro) {
            clsCliente solo;
            Asignar(solo.*miembro, fila[i]);
            EXPECT_EQ(solo.*miembro, c.*miembro) << columnas[i];
        };
        std::visit(comparar, kColumnasCliente.at(i).destino);
    }
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

// The source KVDatosArt is that of a method without a handler.
TEST_F(Cliente, Consultas) {
    const auto espera = [&](const char* sql, const char* columna, Valor valor) {
        guion->EsperaConsulta(sql, {columna}, {{std::move(valor)}});
    };
    const std::string suelto = "KVDatosArt";
    guion->EsperaEjecucion(
        "UPDATE Clientes SET FUVenta ='05/03/2026' WHERE Cod_Empresa =3 AND Codigo =77 AND FUVenta < '05/03/2026'");
    Hacer(objeto, suelto, [&] { objeto.Act_FUVenta(dia); });
    guion->EsperaEjecucion(
        "UPDATE Clientes SET FUCobro ='05/03/2026' WHERE Cod_Empresa =3 AND Codigo =77 AND FUCobro < '05/03/2026'");
    Hacer(objeto, suelto, [&] { objeto.Act_FUCobro(dia); });
    const auto nuevo = [&](std::int32_t ultimo) {
        espera("SELECT ISNULL(MAX(Codigo), 0) AS Codigo FROM Clientes WHERE Cod_Empresa =3 AND Codigo >= 1000",
               "Codigo", ultimo);
        return Hacer(objeto, suelto, [&] { return objeto.Dev_Codigo_Nuevo(1000); });
    };
    EXPECT_EQ(1, nuevo(0));
    EXPECT_EQ(1235, nuevo(1234));
    EsperarError(kErrDesbordamiento, "", [&] { nuevo(2147483647); });
    for (const std::int32_t notas : {0, 1, 3}) {
        espera(
            " SELECT COUNT(*) AS Cant FROM Clientes_Notas WHERE Cod_Empresa =3 AND Pendiente = 1"
            " AND Vencimiento <= '17/04/2026'",
            "Cant", notas);
        EXPECT_EQ(notas > 0, Hacer(objeto, "clsCliente::Verif_Notas", [&] { return objeto.Verif_Notas(); }));
    }
    espera(
        "SELECT ISNULL(SUM(Total), 0) AS Total FROM Albaranes_F WHERE Cod_Empresa =1 AND Cliente =77"
        " AND Factura_Codigo = 0",
        "Total", Currency::DeDouble(10.5));
    EXPECT_EQ(Currency::DeDouble(10.5), Hacer(objeto, suelto, [&] { return objeto.Dev_SaldoAlbaranes(); }));
    espera("SELECT ISNULL(SUM(Puntos),0) AS Puntos FROM Clientes_Puntos WHERE Cod_Empresa=1 AND Cod_Cliente=77",
           "Puntos", -4);
    EXPECT_EQ(Currency::DeEntero(-4), Hacer(objeto, suelto, [&] { return objeto.Dev_SaldoPuntos(); }));
    for (const bool existe : {false, true}) {
        guion->EsperaConsulta("SELECT Codigo FROM Clientes WHERE Cod_Empresa =3 AND Codigo =77", {"Codigo"},
                              std::vector<ConexionGuion::Fila>(existe ? 1 : 0, {77}));
        EXPECT_EQ(existe, Hacer(objeto, "clsCliente::Existe", [&] { return objeto.Existe(); }));
    }
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

// A database may answer without a row where one always comes: the value counts as 0.
TEST_F(Cliente, ConsultasSinFila_CuentanCero) {
    const struct {
        const char* sql;
        double (*preguntar)(clsCliente&);
        double resultado;
    } kCasos[] = {
        {"SELECT ISNULL(MAX(Codigo), 0) AS Codigo FROM Clientes WHERE Cod_Empresa =3 AND Codigo >= 1000",
         [](clsCliente& c) -> double { return c.Dev_Codigo_Nuevo(1000); }, 1},
        {" SELECT COUNT(*) AS Cant FROM Clientes_Notas WHERE Cod_Empresa =3 AND Pendiente = 1"
         " AND Vencimiento <= '17/04/2026'",
         [](clsCliente& c) -> double { return c.Verif_Notas(); }, 0},
        {"SELECT ISNULL(SUM(Total), 0) AS Total FROM Albaranes_F WHERE Cod_Empresa =1 AND Cliente =77"
         " AND Factura_Codigo = 0",
         [](clsCliente& c) { return c.Dev_SaldoAlbaranes().ADouble(); }, 0},
        {"SELECT ISNULL(SUM(Puntos),0) AS Puntos FROM Clientes_Puntos WHERE Cod_Empresa=1 AND Cod_Cliente=77",
         [](clsCliente& c) { return c.Dev_SaldoPuntos().ADouble(); }, 0},
    };
    for (const auto& caso : kCasos) {
        guion->EsperaConsulta(caso.sql);
        EXPECT_EQ(caso.resultado, caso.preguntar(objeto)) << caso.sql;
    }
}

// A customer of the demonstration, whole, under another code and then changed.
TEST(ClienteEscrito, VuelveEnteroTrasInsertarYModificar) {
    const Fecha hoy = Fecha::DeAmd(2026, 11, 21);
    const BibliotecaDePrueba biblioteca(hoy, ',');
    const BaseDePrueba base(BaseDePrueba::Datos::Demostracion, hoy);
    const auto conexion = base.Abrir();
    const auto empresa = std::make_shared<EmpresaFija>();
    empresa->codEmpresaClientes = 1;
    clsCliente escrito;
    clsCliente leido;
    for (clsCliente* cliente : {&escrito, &leido}) {
        cliente->Conexion(conexion);
        cliente->cEmpresa(empresa);
    }
    const auto comparar = [&] {
        ASSERT_TRUE(leido.Cargar());
        for (const auto& columna : kColumnasCliente)
            std::visit([&](auto m) { EXPECT_EQ(escrito.*m, leido.*m) << columna.nombre; }, columna.destino);
    };
    escrito.Codigo = 11;
    ASSERT_TRUE(escrito.Cargar());
    leido.Codigo = escrito.Codigo = 5011;
    EXPECT_FALSE(leido.Existe());
    escrito.Insertar();
    comparar();
    escrito.Nombre = "Ñandú € 24 h";
    escrito.Credito = Currency::DeDouble(-1234.5678);
    escrito.Bloqueado = true;
    escrito.FAlta.reset();
    escrito.FechaBloq = hoy;
    escrito.Cad_Nivel_10 = -7;
    escrito.Modificar();
    comparar();
    leido.Codigo = 11;
    ASSERT_TRUE(leido.Cargar());
    EXPECT_NE("Ñandú € 24 h", leido.Nombre);
    escrito.Conexion(nullptr);
    EsperarError(kErrObjetoNoEstablecido, "clsCliente::Insertar", [&] { escrito.Insertar(); });
    EsperarError(kErrObjetoNoEstablecido, "clsCliente::Modificar", [&] { escrito.Modificar(); });
}

}  // namespace
}  // namespace kv::prueba
