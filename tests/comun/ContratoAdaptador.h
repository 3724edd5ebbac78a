#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "db/Connection.h"
#include "db/Tokens.h"
#include "tests/comun/Errores.h"

namespace kv::prueba {

/// What a case asks of the database behind an adapter.
enum class Exigencia : std::uint8_t {
    /// SELECT TOP n.
    Top,
    /// Names come back as the statement spells them.
    Mayusculas,
    TextoAncho,
    /// Money columns that come back as money.
    Dinero,
    /// Whole numbers of one byte.
    Octeto,
    /// dd/mm/yyyy literals.
    DiaMesAnio,
    /// The empty text is 01/01/1900.
    FechaVacia,
    /// -1 written into a Boolean is true.
    LogicoMenosUno,
};

/// An adapter under the contract: how to get a connection to an empty database that holds this table, with its rows.
///   Contrato (Codigo int, Importe money, Activo bit, Octeto tinyint, Corto smallint, Doble float, Fecha date,
///             Texto varchar, Nula int), key Codigo
///   row 1: 12.3456, true, 200, -5, 0.1, 05/03/2026, 'ñ € x ', NULL; row 2: -0.5, false, 0, 7, 2.5, 01/01/1900, '', 9
struct AdaptadorProbado {
    std::string nombre;
    std::function<std::shared_ptr<Connection>()> conectar;
    /// What its database cannot do, and why: the cases that ask for it are skipped.
    std::map<Exigencia, std::string> noPuede = {};
    /// Why it cannot be tried here at all; empty when it can.
    std::string falta = {};
    /// What the numbers of ADO's own errors carry besides: over COM they are HRESULTs.
    std::int32_t marca = 0;
};

inline void PrintTo(const AdaptadorProbado& adaptador, std::ostream* salida) {
    *salida << adaptador.nombre;
}

class ContratoAdaptador : public testing::TestWithParam<AdaptadorProbado> {
  protected:
    void SetUp() override {
        if (!GetParam().falta.empty()) GTEST_SKIP() << GetParam().falta;
        conexion = GetParam().conectar();
    }

    /// True, and the case is skipped with the reason, when the database cannot do it.
    static bool SeSaltaSin(Exigencia exigencia) {
        const auto motivo = GetParam().noPuede.find(exigencia);
        if (motivo == GetParam().noPuede.end()) return false;
        [&] { GTEST_SKIP() << motivo->second; }();
        return true;
    }
    static void EsperarErrorAdo(std::int32_t numero, const std::function<void()>& accion) {
        EsperarError(numero | GetParam().marca, "", accion);
    }
    Valor Campo(std::string_view sql, std::string_view nombre) { return Leer(sql)->Fields(nombre).Value(); }

    std::unique_ptr<Recordset> Leer(std::string_view sql) {
        std::unique_ptr<Recordset> rs;
        AbrirLectura(rs, *conexion, sql);
        return rs;
    }
    int Contar() {
        const auto rs = Leer("SELECT COUNT(*) AS Cuantas FROM Contrato");
        return ALong(rs->Fields("Cuantas").Value());
    }

    std::shared_ptr<Connection> conexion;
};

TEST_P(ContratoAdaptador, CadaColumnaLlegaConSuTipo) {
    const auto rs = Leer("SELECT * FROM Contrato WHERE Codigo =1");
    EXPECT_EQ(Valor(std::int32_t{1}), rs->Fields("codigo").Value());
    EXPECT_EQ(Valor(true), rs->Fields("ACTIVO").Value());
    EXPECT_EQ(Valor(std::int16_t{-5}), rs->Fields("Corto").Value());
    EXPECT_EQ(Valor(0.1), rs->Fields("Doble").Value());
    EXPECT_EQ(Valor(Fecha::DeAmd(2026, 3, 5)), rs->Fields("Fecha").Value());
    EXPECT_EQ(Valor(Nulo{}), rs->Fields("Nula").Value());
}

TEST_P(ContratoAdaptador, DineroLlegaExacto) {
    if (SeSaltaSin(Exigencia::Dinero)) return;
    EXPECT_EQ(Valor(Currency::DeDiezmilesimas(123456)),
              Campo("SELECT Importe FROM Contrato WHERE Codigo =1", "Importe"));
}

TEST_P(ContratoAdaptador, OctetoLlegaSinSigno) {
    if (SeSaltaSin(Exigencia::Octeto)) return;
    EXPECT_EQ(Valor(std::uint8_t{200}), Campo("SELECT Octeto FROM Contrato WHERE Codigo =1", "Octeto"));
}

TEST_P(ContratoAdaptador, TextoLlegaEnteroConSusBlancos) {
    if (SeSaltaSin(Exigencia::TextoAncho)) return;
    EXPECT_EQ(Valor(std::string("ñ € x ")), Campo("SELECT Texto FROM Contrato WHERE Codigo =1", "Texto"));
    EXPECT_EQ(Valor(std::string()), Campo("SELECT Texto FROM Contrato WHERE Texto =''", "Texto"));
}

TEST_P(ContratoAdaptador, Top_LimitaLasFilas) {
    if (SeSaltaSin(Exigencia::Top)) return;
    const auto rs = Leer("SELECT TOP 1 Codigo FROM Contrato ORDER BY Codigo DESC");
    EXPECT_EQ(2, ALong(rs->Fields("Codigo").Value()));
    rs->MoveNext();
    EXPECT_TRUE(rs->Eof());
}

TEST_P(ContratoAdaptador, NombresComoLosEscribeLaSentencia) {
    if (SeSaltaSin(Exigencia::Mayusculas)) return;
    const auto rs = Leer("SELECT Codigo, Corto AS Otro FROM Contrato");
    EXPECT_EQ("Codigo", rs->NombreCampo(0));
    EXPECT_EQ("Otro", rs->NombreCampo(1));
}

TEST_P(ContratoAdaptador, RecorridoCierreYReapertura) {
    std::unique_ptr<Recordset> rs = Leer("SELECT Codigo FROM Contrato WHERE Codigo =2");
    EXPECT_EQ(2, ALong(rs->Fields("Codigo").Value()));
    EXPECT_EQ(1, rs->NumeroCampos());
    EsperarErrorAdo(kErrElementoNoEncontrado, [&] { rs->NombreCampo(1); });
    EsperarErrorAdo(kErrElementoNoEncontrado, [&] { rs->Fields("Otra"); });
    EsperarErrorAdo(kErrObjetoAbierto, [&] { AbrirLectura(rs, *conexion, "SELECT 1 AS A"); });
    rs->MoveNext();
    EXPECT_TRUE(rs->Eof());
    EsperarErrorAdo(kErrSinRegistro, [&] { rs->Fields("Codigo"); });
    EsperarErrorAdo(kErrSinRegistro, [&] { rs->MoveNext(); });
    rs->Close();
    EXPECT_EQ(ObjectState::adStateClosed, rs->State());
    EsperarErrorAdo(kErrObjetoCerrado, [&] { rs->Eof(); });
    EsperarErrorAdo(kErrObjetoCerrado, [&] { rs->Close(); });
    AbrirLectura(rs, *conexion, "SELECT Codigo FROM Contrato WHERE Codigo =9");
    EXPECT_TRUE(rs->Eof());
}

TEST_P(ContratoAdaptador, DosLecturasDelMismoTextoALaVez) {
    const auto uno = Leer("SELECT Codigo FROM Contrato WHERE Codigo >0 ORDER BY Codigo");
    const auto otro = Leer("SELECT Codigo FROM Contrato WHERE Codigo >1 ORDER BY Codigo");
    EXPECT_EQ(1, ALong(uno->Fields("Codigo").Value()));
    EXPECT_EQ(2, ALong(otro->Fields("Codigo").Value()));
    uno->MoveNext();
    EXPECT_EQ(2, ALong(uno->Fields("Codigo").Value()));
}

TEST_P(ContratoAdaptador, EscriturasCuentanSusFilas) {
    EXPECT_EQ(2, conexion->EjecutarContando("UPDATE Contrato SET Corto = Corto + -3"));
    EXPECT_EQ(0, conexion->EjecutarContando("UPDATE Contrato SET Corto =1 WHERE Codigo =77"));
    EXPECT_EQ(1, conexion->EjecutarContando("DELETE FROM Contrato WHERE Codigo =2"));
    EXPECT_EQ(Valor(std::int16_t{-8}), Leer("SELECT Corto FROM Contrato WHERE Codigo =1")->Fields("Corto").Value());
}

TEST_P(ContratoAdaptador, ValoresEscritosVuelvenExactos) {
    conexion->Ejecutar(
        "INSERT INTO Contrato (Codigo, Importe, Octeto, Corto, Doble, Texto)"
        " VALUES (3, -99999999.9999, 255, -32768, 1E+15, 'a''; DELETE')");
    const auto rs = Leer("SELECT * FROM Contrato WHERE Codigo =3");
    EXPECT_EQ(Currency::DeDiezmilesimas(-999999999999), ACurrency(rs->Fields("Importe").Value()));
    EXPECT_EQ(255, AByte(rs->Fields("Octeto").Value()));
    EXPECT_EQ(-32768, AInteger(rs->Fields("Corto").Value()));
    EXPECT_EQ(Valor(1e15), rs->Fields("Doble").Value());
    EXPECT_EQ(Valor(std::string("a'; DELETE")), rs->Fields("Texto").Value());
}

TEST_P(ContratoAdaptador, LogicoMenosUno_EsCierto) {
    if (SeSaltaSin(Exigencia::LogicoMenosUno)) return;
    conexion->Ejecutar("UPDATE Contrato SET Activo =-1 WHERE Codigo =2");
    EXPECT_EQ(Valor(true), Campo("SELECT Activo FROM Contrato WHERE Codigo =2 AND Activo =1", "Activo"));
}

TEST_P(ContratoAdaptador, FechasSonDiaMesAnio) {
    if (SeSaltaSin(Exigencia::DiaMesAnio)) return;
    EXPECT_EQ(1, conexion->EjecutarContando("UPDATE Contrato SET Fecha ='31/12/2050' WHERE Fecha ='05/03/2026'"));
    EXPECT_EQ(Valor(Fecha::DeAmd(2050, 12, 31)),
              Campo("SELECT Fecha FROM Contrato WHERE Fecha >='31/12/2050'", "Fecha"));
    EXPECT_TRUE(Leer("SELECT Codigo FROM Contrato WHERE Fecha >'31/12/2050'")->Eof());
}

TEST_P(ContratoAdaptador, FechaVacia_EsLaFechaCero) {
    if (SeSaltaSin(Exigencia::FechaVacia)) return;
    conexion->Ejecutar("UPDATE Contrato SET Fecha ='' WHERE Codigo =1");
    EXPECT_EQ(Valor(Fecha::DeAmd(1900, 1, 1)), Campo("SELECT Fecha FROM Contrato WHERE Codigo =1", "Fecha"));
    EXPECT_EQ(2, conexion->EjecutarContando("UPDATE Contrato SET Corto =0 WHERE Fecha <=' 01/01/1900'"));
}

TEST_P(ContratoAdaptador, Transacciones) {
    conexion->BeginTrans();
    conexion->Ejecutar("DELETE FROM Contrato");
    EXPECT_EQ(0, Contar());
    conexion->RollbackTrans();
    EXPECT_EQ(2, Contar());
    conexion->BeginTrans();
    conexion->Ejecutar("DELETE FROM Contrato WHERE Codigo =1");
    conexion->CommitTrans();
    EXPECT_EQ(1, Contar());
    EXPECT_THROW(conexion->CommitTrans(), RuntimeError);
    conexion->BeginTrans();
    EXPECT_THROW(conexion->BeginTrans(), RuntimeError);
    conexion->RollbackTrans();
}

TEST_P(ContratoAdaptador, SegundaSentencia_SeRechazaEntera) {
    EsperarError(kErrVariasSentencias, "",
                 [&] { conexion->Ejecutar("DELETE FROM Contrato WHERE Codigo =1; DELETE FROM Contrato"); });
    EsperarError(kErrVariasSentencias, "",
                 [&] { Leer("SELECT Codigo FROM Contrato WHERE Texto ='x' DELETE FROM Contrato WHERE Texto <>''"); });
    EXPECT_EQ(2, Contar());
}

TEST_P(ContratoAdaptador, ErroresDicenQueYConQueTexto) {
    for (const char* mala :
         {"SELECT Nada FROM Contrato", "SELEC 1", "SELECT * FROM NoHay", "INSERT INTO Contrato (Codigo) VALUES (1)"}) {
        try {
            conexion->Ejecutar(mala);
            ADD_FAILURE() << mala;
        } catch (const RuntimeError& error) {
            EXPECT_NE(0, error.numero);
            EXPECT_NE(std::string::npos, error.descripcion.find(mala)) << error.descripcion;
        }
    }
    EXPECT_EQ(2, Contar());
}

}  // namespace kv::prueba
