#include <gtest/gtest.h>

#include "kvdatosart/catalog/ConexionMemo.h"
#include "kvdatosart/tests/catalog/MundoCatalogo.h"
#include "kvdatosart/tests/comun/ConexionQueFalla.h"
#include "kvdatosart/tests/comun/Errores.h"

namespace kv::prueba {
namespace {

// Every row of a query with the columns that are asked for, the last one twice.
std::string Leer(Connection& conexion, const std::string& sql, const std::vector<std::string>& columnas) {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, conexion, sql);
    std::string texto;
    for (; !rs->Eof(); rs->MoveNext()) {
        for (const std::string& columna : columnas) texto += AString(rs->Fields(columna).Value(), '.') + ";";
        texto += AString(rs->Fields(columnas.back()).Value(), '.') + "\n";
    }
    rs->Close();
    return texto;
}

TEST(ConexionMemo, RespondeLoMismoQueLaBase_YPreguntaMenos) {
    const MundoCatalogo mundo;
    const auto real = std::make_shared<ConexionQueFalla>(mundo.escritura);
    ConexionMemo memo(real);
    const struct {
        std::string sql;
        std::vector<std::string> columnas;
        bool deMemoria;
    } casos[] = {
        {"SELECT * FROM Clientes WHERE Codigo =11", {"Nombre", "Tarifa_Pvp", "FAlta"}, true},
        {"SELECT * FROM Clientes WHERE Codigo =999", {"Nombre"}, true},
        {"SELECT Codigo FROM Clientes WHERE Codigo <4", {"Codigo"}, false},
        // Columns that the first reader left out, and another order.
        {"SELECT * FROM Clientes WHERE Codigo =11", {"Localidad", "nombre", "Cta_Cliente", "Nombre"}, false},
    };
    for (int vez = 1; vez <= 3; ++vez)
        for (const auto& caso : casos) {
            const std::size_t antes = real->textos.size();
            EXPECT_EQ(Leer(*mundo.escritura, caso.sql, caso.columnas), Leer(memo, caso.sql, caso.columnas)) << caso.sql;
            EXPECT_EQ(caso.deMemoria && vez > 1, antes == real->textos.size()) << caso.sql << ", vez " << vez;
        }
}

TEST(ConexionMemo, DosLecturasALaVez_YLosErroresDeADO) {
    const MundoCatalogo mundo;
    ConexionMemo memo(mundo.escritura);
    const std::string sql = "SELECT Codigo, Nombre FROM Clientes WHERE Codigo =11";
    for (int vez = 1; vez <= 2; ++vez) {
        std::unique_ptr<Recordset> uno, otro;
        AbrirLectura(uno, memo, sql);
        AbrirLectura(otro, memo, sql);
        EXPECT_EQ(11, ALong(uno->Fields("Codigo").Value()));
        EXPECT_EQ(11, ALong(otro->Fields("Codigo").Value()));
        EXPECT_EQ("Nombre", uno->NombreCampo(1));
        EsperarError(kErrElementoNoEncontrado, "", [&] { uno->Fields("Nada"); });
        EsperarError(kErrObjetoAbierto, "", [&] { AbrirLectura(uno, memo, sql); });
        uno->MoveNext();
        EsperarError(kErrSinRegistro, "", [&] { uno->MoveNext(); });
        EsperarError(kErrSinRegistro, "", [&] { uno->Fields("Codigo"); });
        uno->Close();
        EXPECT_EQ(ObjectState::adStateClosed, uno->State());
        EsperarError(kErrObjetoCerrado, "", [&] { uno->Close(); });
        EsperarError(kErrObjetoCerrado, "", [&] { uno->Eof(); });
    }
    EsperarError(kErrLlamadaInvalida, "", [&] { memo.Ejecutar("DELETE FROM Clientes"); });
    EsperarError(kErrLlamadaInvalida, "", [&] { memo.BeginTrans(); });
}

}  // namespace
}  // namespace kv::prueba
