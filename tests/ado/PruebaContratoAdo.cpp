// The contract over the ADO adapter: ADO-shaped objects lead to the system's odbc32 and a real driver, whose values
// travel through VARIANTs and back.

#include <cstdlib>

#include "db/ado/ConexionAdo.h"
#include "db/odbc/ConexionOdbc.h"
#include "tests/com/AdoFalso.h"
#include "tests/comun/LeerValor.h"
#include "tests/odbc/ContratoSqlite.h"

namespace kv::prueba {
namespace {

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
