#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "kvdatosart/db/Connection.h"
#include "kvdatosart/db/Tokens.h"
#include "kvdatosart/tests/comun/Errores.h"

namespace kv::prueba {

/// What a case asks of the database behind an adapter.
enum class Exigencia : std::uint8_t {
    Nada,
    Top,             // SELECT TOP n
    Mayusculas,      // names come back as the statement spells them
    TextoAncho,      // any character
    Dinero,          // money columns that come back as money
    Octeto,          // whole numbers of one byte
    DiaMesAnio,      // dd/mm/yyyy literals
    FechaVacia,      // the empty text is 01/01/1900
    LogicoMenosUno,  // -1 written into a Boolean is true
    Procedimientos,  // stored procedures
};

/// An adapter under the contract: how to get a connection to an empty database that holds this table, with its rows.
///   Contrato (Codigo int, Importe money, Activo bit, Octeto tinyint, Corto smallint, Doble float, Fecha date,
///             Texto varchar, Nula int), key Codigo
///   row 1: 12.3456, true, 200, -5, 0.1, 05/03/2026, 'ñ € x ', NULL; row 2: -0.5, false, 0, 7, 2.5, 01/01/1900, '', 9
/// and the procedure Salidas, which takes a number and gives that number, 2, 5, 1 or true, 05/03/2026, 'ñ' and NULL.
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

    /// False, with the reason on the output, when the database cannot do it.
    static bool Puede(Exigencia exigencia) {
        const auto motivo = GetParam().noPuede.find(exigencia);
        if (motivo == GetParam().noPuede.end()) return true;
        std::cout << "sin probar: " << motivo->second << '\n';
        return false;
    }
    static void EsperarErrorAdo(std::int32_t numero, const std::function<void()>& accion) {
        EsperarError(numero | GetParam().marca, "", accion);
    }
    std::unique_ptr<Recordset> Leer(std::string_view sql) {
        std::unique_ptr<Recordset> rs;
        AbrirLectura(rs, *conexion, sql);
        return rs;
    }
    /// The first row of a query; empty when there is none.
    std::vector<Valor> Fila(std::string_view sql) {
        std::vector<Valor> fila;
        const auto rs = Leer(sql);
        for (std::int32_t i = 0; !rs->Eof() && i < rs->NumeroCampos(); ++i)
            fila.push_back(rs->Fields(rs->NombreCampo(i)).Value());
        return fila;
    }
    int Contar() { return ALong(Fila("SELECT COUNT(*) AS Cuantas FROM Contrato").at(0)); }

    std::shared_ptr<Connection> conexion;
};

TEST_P(ContratoAdaptador, SeLeeLoEscrito) {
    struct CasoContrato {
        Exigencia exige;
        std::string columnas;
        std::string donde;
        std::vector<Valor> fila;
        std::string cambio = {};
        int cambiadas = 0;
    };
    using E = Exigencia;
    const Fecha dia = Fecha::DeAmd(2026, 3, 5);
    const Fecha ultimo = Fecha::DeAmd(2050, 12, 31);
    // clang-format off
    const CasoContrato kCasos[] = {
        {E::Nada, "Nula, Codigo, Activo, Corto, Doble, Fecha", "Codigo =1", {Nulo{}, 1, true, AInteger(-5), 0.1, dia}},
        {E::Dinero, "Importe", "Codigo =1", {Currency::DeDiezmilesimas(123456)}},
        {E::Octeto, "Octeto", "Codigo =1", {std::uint8_t{200}}},
        {E::TextoAncho, "Texto", "Codigo =1", {"ñ € x "}},
        {E::TextoAncho, "Texto", "Texto =''", {""}},
        {E::Top, "TOP 1 Codigo", "Codigo >0 ORDER BY Codigo DESC", {2}},
        {E::Nada, "Corto", "Codigo =1", {AInteger(-8)}, "Corto = Corto + -3", 2},
        {E::Nada, "Corto", "Corto =1", {}, "Corto =1 WHERE Codigo =77"},
        {E::LogicoMenosUno, "Activo", "Codigo =2 AND Activo =1", {true}, "Activo =-1 WHERE Codigo =2", 1},
        {E::DiaMesAnio, "Fecha", "Fecha >='31/12/2050'", {ultimo}, "Fecha ='31/12/2050' WHERE Fecha ='05/03/2026'", 1},
        {E::DiaMesAnio, "Fecha", "Fecha >'05/03/2026'", {}},
        {E::FechaVacia, "Fecha", "Codigo =1", {Fecha::DeAmd(1900, 1, 1)}, "Fecha ='' WHERE Codigo =1", 1},
        {E::FechaVacia, "Corto", "Codigo =2", {AInteger(0)}, "Corto =0 WHERE Fecha <=' 01/01/1900'", 1},
    };
    // clang-format on
    for (const CasoContrato& caso : kCasos) {
        SCOPED_TRACE(caso.columnas + " " + caso.donde + " " + caso.cambio);
        if (!Puede(caso.exige)) continue;
        conexion.reset();
        conexion = GetParam().conectar();
        if (!caso.cambio.empty()) {
            EXPECT_EQ(caso.cambiadas, conexion->EjecutarContando("UPDATE Contrato SET " + caso.cambio));
        }
        EXPECT_EQ(caso.fila, Fila("SELECT " + caso.columnas + " FROM Contrato WHERE " + caso.donde));
    }
}

TEST_P(ContratoAdaptador, ValoresEscritosVuelvenExactos) {
    conexion->Ejecutar(
        "INSERT INTO Contrato (Codigo, Importe, Octeto, Corto, Doble, Texto)"
        " VALUES (3, -99999999.9999, 255, -32768, 1E+15, 'a''; DELETE')");
    std::string textos;
    for (const Valor& v : Fila("SELECT Importe, Octeto, Corto, Doble, Texto FROM Contrato WHERE Codigo =3"))
        textos += AString(v, '.') + " | ";
    EXPECT_EQ("-99999999.9999 | 255 | -32768 | 1E+15 | a'; DELETE | ", textos);
}

TEST_P(ContratoAdaptador, SalidasDeUnProcedimiento_VuelvenEnSuPropioTipo) {
    if (!Puede(Exigencia::Procedimientos)) return;
    using enum DataType;
    const std::tuple<const char*, DataType, Valor> salidas[] = {{"@S0", adCurrency, Currency::DeDiezmilesimas(71235)},
                                                                {"@S1", adDouble, 2.0},
                                                                {"@S2", adTinyInt, std::int16_t{5}},
                                                                {"@S3", adBoolean, true},
                                                                {"@S4", adDate, Fecha::DeAmd(2026, 3, 5)},
                                                                {"@S5", adVarChar, std::string("ñ")},
                                                                {"@S6", adInteger, Nulo{}}};
    const auto comando = conexion->CrearCommand();
    comando->CommandType = CommandType::adCmdStoredProc;
    comando->CommandText = "Salidas";
    comando->Parameters.Append("@Numero", adDouble, ParameterDirection::adParamInput, 0, 7.123456);
    for (const auto& [nombre, tipo, valor] : salidas)
        comando->Parameters.Append(nombre, tipo, ParameterDirection::adParamOutput, 50, Valor(Nulo{}));
    comando->Execute(CommandType::adOptionUnspecified);
    auto leida = std::next(comando->Parameters.begin());
    for (const auto& [nombre, tipo, valor] : salidas) EXPECT_EQ(valor, (leida++)->Value) << nombre;
}

TEST_P(ContratoAdaptador, RecorridoCierreYReapertura) {
    std::unique_ptr<Recordset> rs = Leer("SELECT Codigo, Corto AS Otro FROM Contrato WHERE Codigo =2");
    EXPECT_EQ(2, ALong(rs->Fields("CODIGO").Value()));
    EXPECT_EQ(2, rs->NumeroCampos());
    if (Puede(Exigencia::Mayusculas)) {
        EXPECT_EQ("Codigo Otro", std::string(rs->NombreCampo(0)) + " " + std::string(rs->NombreCampo(1)));
    }
    EsperarErrorAdo(kErrElementoNoEncontrado, [&] { rs->NombreCampo(2); });
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
    AbrirLectura(rs, *conexion, "SELECT Codigo FROM Contrato WHERE Codigo =1");
    EXPECT_EQ(1, ALong(rs->Fields("Codigo").Value()));
}

TEST_P(ContratoAdaptador, DosLecturasDelMismoTextoALaVez) {
    const auto uno = Leer("SELECT Codigo FROM Contrato WHERE Codigo >0 ORDER BY Codigo");
    const auto otro = Leer("SELECT Codigo FROM Contrato WHERE Codigo >1 ORDER BY Codigo");
    EXPECT_EQ(1, ALong(uno->Fields("Codigo").Value()));
    EXPECT_EQ(2, ALong(otro->Fields("Codigo").Value()));
    uno->MoveNext();
    EXPECT_EQ(2, ALong(uno->Fields("Codigo").Value()));
}

TEST_P(ContratoAdaptador, Transacciones) {
    conexion->BeginTrans();
    EXPECT_EQ(2, conexion->EjecutarContando("DELETE FROM Contrato"));
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
    for (const char* dos : {"DELETE FROM Contrato WHERE Codigo =1; DELETE FROM Contrato",
                            "SELECT Codigo FROM Contrato WHERE Texto ='x' DELETE FROM Contrato WHERE Texto <>''",
                            "DELETE FROM Contrato; SELECT Codigo FROM Contrato WHERE Texto ='x"}) {
        EsperarError(kErrVariasSentencias, "", [&] { conexion->Ejecutar(dos); });
        EsperarError(kErrVariasSentencias, "", [&] { Leer(dos); });
    }
    EXPECT_EQ(2, Contar());
}

TEST_P(ContratoAdaptador, ErroresDicenQueYConQueTexto) {
    for (const char* mala :
         {"SELECT Nada FROM Contrato", "SELEC 1", "SELECT * FROM NoHay", "INSERT INTO Contrato (Codigo) VALUES (1)",
          "SELECT Codigo FROM Contrato WHERE Texto ='O'Brien'", "DELETE FROM Contrato WHERE Texto <>'x",
          "DELETE FROM Contrato WHERE [Texto <>'x'", "DELETE FROM Contrato WHERE \"Texto <>'x'"}) {
        const std::string fallo = FalloDe([&] { conexion->Ejecutar(mala); });
        EXPECT_NE(std::string::npos, fallo.find(mala)) << fallo;
        EXPECT_FALSE(fallo.starts_with("0|")) << fallo;
        EXPECT_EQ(std::string::npos, fallo.find("|KVDatosArt|")) << fallo;
        EXPECT_THROW(Leer(mala), RuntimeError) << mala;
    }
    EXPECT_EQ(2, Contar());
}

}  // namespace kv::prueba
