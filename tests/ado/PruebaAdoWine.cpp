// Over what Wine has of its own.

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

#include "kvdatosart/db/ado/ConexionAdo.h"
#include "kvdatosart/db/ado/FabricaAdo.h"
#include "kvdatosart/db/ado/Variante.h"
#include "kvdatosart/db/odbc/ConexionOdbc.h"
#include "kvdatosart/tests/com/AdoFalso.h"
#include "kvdatosart/tests/comun/Errores.h"
#include "kvdatosart/tests/comun/LeerValor.h"
#include "kvdatosart/tests/odbc/ContratoSqlite.h"

namespace kv::prueba {
namespace {

constexpr GUID kClaseConnection = ado::Identificador(0x514);

void Omitir(const std::string& que) {
    std::cout << "OMITIDA: " << que << std::endl;
}

// Wine's own ADO shares nothing with the declarations under test. What it does not implement is shown as left out, and
// checked as soon as it is.
TEST(AdoDeWine, ConexionSentenciasYConsultas) {
    const auto nativa = FabricaAdo<ado::Connection>(kClaseConnection, ado::kConnection).Crear();
    ConexionAdo cn(nativa.Get());
    EsperarError(static_cast<HRESULT>(0x800A0E78), "", [&] { cn.Ejecutar("SELECT 1"); });
    const char* origen = std::getenv("KV_ORIGEN");
    if (origen == nullptr) GTEST_SKIP() << "KV_ORIGEN no dice qué origen de datos ODBC se prueba";
    const Cadena cadena(std::string("Provider=MSDASQL;Data Source=") + origen);
    const Cadena vacia("");
    ASSERT_EQ(S_OK, nativa->Open(cadena.Get(), vacia.Get(), vacia.Get(), -1));
    const std::string transaccion = FalloDe([&] { cn.BeginTrans(), cn.RollbackTrans(); });
    if (transaccion.starts_with(std::to_string(E_NOTIMPL)))
        Omitir("BeginTrans: Wine no lo implementa");
    else
        EXPECT_EQ("", transaccion);
    for (const char* sql : {"CREATE TABLE Telefonos (Codigo INTEGER PRIMARY KEY, Nombre VARCHAR(20), Tarifa DOUBLE)",
                            "INSERT INTO Telefonos VALUES (1, 'Peña 5 €', 2.5)", "UPDATE Telefonos SET Codigo = 2",
                            "INSERT INTO Telefonos VALUES (1, 'otra', 0)"})
        EXPECT_EQ("", FalloDe([&] { cn.Ejecutar(sql); })) << sql;
    EsperarError(E_FAIL, "ADODB", [&] { cn.Ejecutar("INSERT INTO Telefonos VALUES (2, 'otra', 0)"); });
    if (cn.EjecutarContando("UPDATE Telefonos SET Tarifa = 3") != 2) Omitir("registros afectados: Wine da siempre 0");
    std::unique_ptr<kv::Recordset> rs;
    AbrirLectura(rs, cn, "SELECT Codigo, Nombre FROM Telefonos WHERE Codigo = 2");
    EXPECT_EQ(2, rs->NumeroCampos());
    EXPECT_EQ("Nombre", rs->NombreCampo(1));
    if (rs->Eof())
        Omitir("filas de una consulta: Wine no las lee del proveedor y EOF es siempre verdadero");
    else
        EXPECT_EQ(Valor("Peña 5 €"), rs->Fields("NOMBRE").Value());
    rs->Close();
    EXPECT_EQ(ObjectState::adStateClosed, rs->State());
}

// The contract: ADO-shaped objects lead to the system's odbc32 and a real driver, whose values travel through VARIANTs
// and back.
struct Montaje {
    ClaseFalsa<RecordsetFalso> clase{ado::kClaseRecordset, ado::kRecordset[1]};
    ConexionOdbc real{"DSN=" + std::string(std::getenv("KV_ORIGEN")), DialectoOdbc::Otro};
    PunteroCom<ConexionFalsa> fachada = Nuevo<ConexionFalsa>(real);
    ConexionAdo cn{fachada.Get()};
};

std::shared_ptr<Connection> Conectar() {
    const auto montaje = std::make_shared<Montaje>();
    montaje->real.EjecutarLote("DROP TABLE IF EXISTS Contrato");
    CrearContratoSqlite(montaje->cn);
    // The driver brings no wide text back, but what went in is whole.
    EXPECT_EQ(Valor(std::string("C3B120E282AC207820")),
              LeerValor(montaje->cn, "SELECT HEX(Texto) AS Bytes FROM Contrato WHERE Codigo =1"));
    return {montaje, &montaje->cn};
}

const AdaptadorProbado kAdo{
    "ado", Conectar, kNoPuedeSqliteOdbc,
    std::getenv("KV_ORIGEN") == nullptr ? "KV_ORIGEN no dice qué origen de datos ODBC se prueba" : "",
    MAKE_HRESULT(1, FACILITY_CONTROL, 0)};

INSTANTIATE_TEST_SUITE_P(Ado, ContratoAdaptador, testing::Values(kAdo));

}  // namespace
}  // namespace kv::prueba
