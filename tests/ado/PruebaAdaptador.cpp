// What the adapter does that no database shows: values, how failures come out, procedures and the company object.

#include "kvdatosart/db/Tokens.h"
#include "kvdatosart/db/ado/ConexionAdo.h"
#include "kvdatosart/db/ado/EmpresaDispatch.h"
#include "kvdatosart/tests/com/Escena.h"
#include "kvdatosart/tests/comun/ConexionGuion.h"
#include "kvdatosart/tests/comun/Errores.h"

namespace kv::prueba {
namespace {

/// Kind and text of what a VARIANT is read as, or the failure's number.
std::string Leer(Variante& v) {
    std::string leido;
    const std::string fallo = FalloDe([&] {
        const Valor valor = v.AValor();
        leido = std::to_string(valor.index()) + ":" + (EsNulo(valor) ? "" : AString(valor, '.'));
    });
    return fallo.empty() ? leido : "error " + fallo.substr(0, fallo.find('|'));
}

std::string Leer(int tipo, auto miembro, auto valor) {
    Variante v;
    v.Get().*miembro = valor;
    v.Get().vt = static_cast<VARTYPE>(tipo);
    return Leer(v);
}

std::string Decimal(unsigned char escala, bool negativo, ULONG alto, ULONGLONG bajo) {
    Variante v;
    DECIMAL& d = v.Get().decVal;
    d.Hi32 = alto;
    d.Lo64 = bajo;
    d.scale = escala;
    d.sign = negativo ? DECIMAL_NEG : 0;
    v.Get().vt = VT_DECIMAL;
    return Leer(v);
}

TEST(Variante, CadaTipoSeLeeComoElSuyo_TambienPorReferencia) {
    CY cy;
    cy.int64 = -123456789;
    EXPECT_EQ("0:", Leer(VT_EMPTY, &VARIANT::lVal, 0L));
    EXPECT_EQ("0:", Leer(VT_NULL, &VARIANT::lVal, 0L));
    EXPECT_EQ("1:Verdadero", Leer(VT_BOOL, &VARIANT::boolVal, VARIANT_TRUE));
    EXPECT_EQ("2:255", Leer(VT_UI1, &VARIANT::bVal, BYTE{255}));
    EXPECT_EQ("3:-3", Leer(VT_I1, &VARIANT::cVal, static_cast<CHAR>(-3)));
    EXPECT_EQ("3:-32768", Leer(VT_I2, &VARIANT::iVal, SHORT{-32768}));
    EXPECT_EQ("4:65535", Leer(VT_UI2, &VARIANT::uiVal, USHORT{65535}));
    EXPECT_EQ("4:-2147483648", Leer(VT_I4, &VARIANT::lVal, -2147483647L - 1));
    EXPECT_EQ("5:4294967295", Leer(VT_UI4, &VARIANT::ulVal, 4294967295UL));
    EXPECT_EQ("5:-9007199254740993", Leer(VT_I8, &VARIANT::llVal, -9007199254740993LL));
    EXPECT_EQ("5:7", Leer(VT_UI8, &VARIANT::ullVal, 7ULL));
    EXPECT_EQ("error 6", Leer(VT_UI8, &VARIANT::ullVal, ULLONG_MAX));
    EXPECT_EQ("6:0.1", Leer(VT_R4, &VARIANT::fltVal, 0.1F));
    EXPECT_EQ("8:-12345.6789", Leer(VT_CY, &VARIANT::cyVal, cy));
    EXPECT_EQ("9:01/01/2026", Leer(VT_DATE, &VARIANT::date, 46023.75));
    EXPECT_EQ("10:", Leer(VT_BSTR, &VARIANT::bstrVal, static_cast<BSTR>(nullptr)));
    EXPECT_EQ("error 13", Leer(VT_DISPATCH, &VARIANT::pdispVal, static_cast<IDispatch*>(nullptr)));
    EXPECT_EQ("error 13", Leer(VT_ARRAY | VT_UI1, &VARIANT::parray, static_cast<SAFEARRAY*>(nullptr)));

    double doble = 2.5;
    SHORT corto = -7;
    Variante dentro(Valor{std::string("Peña 5 €")});
    VARIANT nulo{};
    nulo.vt = VT_NULL;
    EXPECT_EQ("7:2.5", Leer(VT_BYREF | VT_R8, &VARIANT::pdblVal, &doble));
    EXPECT_EQ("3:-7", Leer(VT_BYREF | VT_I2, &VARIANT::piVal, &corto));
    EXPECT_EQ("10:Peña 5 €", Leer(VT_BYREF | VT_VARIANT, &VARIANT::pvarVal, &dentro.Get()));
    EXPECT_EQ("0:", Leer(VT_BYREF | VT_VARIANT, &VARIANT::pvarVal, &nulo));
}

TEST(Variante, DecimalesSonDineroSiCaben) {
    EXPECT_EQ("8:12.5", Decimal(2, false, 0, 1250));
    EXPECT_EQ("8:-1.2345", Decimal(4, true, 0, 12345));
    EXPECT_EQ("8:0", Decimal(2, true, 0, 0));
    EXPECT_EQ("8:12.5", Decimal(6, false, 0, 12500000));
    EXPECT_EQ("7:-1.23456", Decimal(5, true, 0, 123456));
    EXPECT_EQ("8:1", Decimal(28, false, 0x204FCE5E, 0x3E25026110000000));
    EXPECT_EQ("7:-1", Decimal(28, true, 0x204FCE5E, 0x3E25026110000001));
    EXPECT_EQ("7:1E-28", Decimal(28, false, 0, 1));
    EXPECT_EQ("7:922337203685478", Decimal(0, false, 0, 922337203685478));
    EXPECT_EQ("7:1E+16", Decimal(0, false, 0, 10000000000000000));
    EXPECT_EQ("8:922337203685477.5807", Decimal(4, false, 0, 0x7FFFFFFFFFFFFFFF));
    EXPECT_EQ("7:1.84467440737096E+19", Decimal(0, false, 1, 0));
    EXPECT_EQ("7:-7.92281625142643E+28", Decimal(0, true, 0xFFFFFFFF, 0xFFFFFFFFFFFFFFFF));
}

TEST(Variante, LosValoresVanYVuelven) {
    for (const Valor& valor : {Valor{}, Valor{true}, Valor{std::uint8_t{7}}, Valor{std::int16_t{-7}}, Valor{1.5F},
                               Valor{Currency::DeDiezmilesimas(-1)}, Valor{Fecha::DeAmd(1850, 2, 3)},
                               Valor{std::string("ñ€\xF0\x9F\x98\x80")}, Valor{std::string("a\0b", 3)}})
        EXPECT_EQ(valor, Variante(valor).AValor());
}

constexpr HRESULT kDelProveedor = static_cast<HRESULT>(0x80040E14);
constexpr const char* kBloqueo = "-2147217900|Proveedor de prueba|bloqueo";

/// Fails in Execute without saying anything.
struct ConexionMuda : ConexionFalsa {
    using ConexionFalsa::ConexionFalsa;
    STDMETHODIMP Execute(BSTR, VARIANT*, long, ado::Recordset**) override { return E_FAIL; }
};

class AdaptadorAdo : public testing::Test {
  protected:
    std::unique_ptr<Command> Orden(const char* texto, CommandType tipo = CommandType::adCmdStoredProc) {
        auto orden = cn.CrearCommand();
        orden->CommandType = tipo;
        orden->CommandTimeout = 500;
        orden->CommandText = texto;
        return orden;
    }

    ClaseFalsa<ComandoFalso> clase{ado::kClaseCommand, ado::kCommand[1]};
    ConexionGuion guion;
    ConexionAdo cn{Nuevo<ConexionMuda>(guion).Get()};
};

TEST_F(AdaptadorAdo, Fallos_SonLosDelProveedorYNuncaUnoAnterior) {
    guion.EsperaBeginTrans(), guion.YFalla(kDelProveedor, "bloqueo");
    guion.EsperaCommitTrans(), guion.YFalla(kDelProveedor, "bloqueo");
    guion.EsperaRollbackTrans(), guion.YFalla(kDelProveedor, "bloqueo");
    EXPECT_EQ(kBloqueo, FalloDe([&] { cn.BeginTrans(); }));
    EXPECT_EQ(kBloqueo, FalloDe([&] { cn.CommitTrans(); }));
    EXPECT_EQ(kBloqueo, FalloDe([&] { cn.RollbackTrans(); }));
    Quejarse("un error anterior que nadie leyó");
    EXPECT_EQ("-2147467259|ADODB|Error 0x80004005", FalloDe([&] { cn.Ejecutar("DELETE FROM t"); }));
    EsperarError(kErrTipo, "", [] { const ConexionAdo no(Nuevo<EmpresaFalsa>().Get()); });
}

TEST_F(AdaptadorAdo, Procedimiento_ParametrosYSalidas) {
    using enum ParameterDirection;
    const std::vector<Parameter> parametros = {
        {"Return", DataType::adInteger, adParamReturnValue, 0, Nulo{}},
        {"@Activo", DataType::adBoolean, adParamInput, 0, true},
        {"@Nombre", DataType::adVarChar, adParamInputOutput, 20, std::string("Peña")},
        {"@Importe", DataType::adCurrency, adParamInputOutput, 0, Currency::DeEntero(2)},
        {"@Dto", DataType::adDouble, adParamOutput, 0, Nulo{}}};
    std::vector<Parameter> salidas = parametros;
    const Valor valores[] = {std::int32_t{-1}, Nulo{}, std::string(), Currency::DeDiezmilesimas(15), 12.5};
    for (std::size_t i = 0; i < salidas.size(); ++i) salidas[i].Value = valores[i];
    guion.EsperaProcedimiento("KVP_Prueba", parametros, salidas);
    guion.EsperaProcedimiento("KVP_Prueba", salidas, {}), guion.YFalla(kDelProveedor, "bloqueo");
    const auto orden = Orden("KVP_Prueba");
    for (const Parameter& parametro : parametros) orden->Parameters.Append(parametro);
    orden->Execute(CommandType::adOptionUnspecified);
    std::vector<Valor> quedan;
    for (const Parameter& parametro : orden->Parameters) quedan.push_back(parametro.Value);
    EXPECT_EQ((std::vector<Valor>{valores[0], true, valores[2], valores[3], valores[4]}), quedan);
    EXPECT_EQ(kBloqueo, FalloDe([&] { orden->Execute(CommandType::adOptionUnspecified); }));
}

TEST_F(AdaptadorAdo, TextoDeUnaOrden_EsUnNombreOUnaSentencia) {
    const auto pasa = [&](const char* texto) {
        return FalloDe([&] { Orden(texto)->Execute(CommandType::adOptionUnspecified); }).empty();
    };
    for (const char* nombre : {"KVP_Prueba", "dbo.KVP_Prueba", "[base nueva].dbo.[un nombre]"}) {
        guion.EsperaProcedimiento(nombre, {}, {});
        EXPECT_TRUE(pasa(nombre)) << nombre;
    }
    for (const char* otro :
         {"", "KVP_Prueba 1", "KVP_Prueba;DELETE FROM t", "KVP_Prueba(1)", "[base nueva]..[un nombre]", "[KVP_Prueba"})
        EXPECT_FALSE(pasa(otro)) << otro;
    for (const auto tipo : {CommandType::adCmdText, CommandType::adOptionUnspecified})
        EsperarError(kErrVariasSentencias, "", [&] { Orden("EXEC KVP_Prueba; DELETE FROM t", tipo)->Execute(tipo); });
}

/// One way in which a company object can answer.
struct Respuesta {
    HRESULT hr;
    SCODE scode;
    WORD wCode;
    const char* texto;
    Valor valor;
    const char* esperado;
};

class EmpresaQueResponde : public EmpresaFalsa {
  public:
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* resultado, EXCEPINFO* e,
                                     UINT*) override {
        *resultado = Variante(respuesta.valor).Soltar();
        e->scode = respuesta.scode;
        e->wCode = respuesta.wCode;
        const bool habla = *respuesta.texto != 0;
        if (habla) e->bstrSource = Cadena("Empresa").Soltar(), e->bstrDescription = Cadena(respuesta.texto).Soltar();
        return respuesta.hr;
    }
    Respuesta respuesta{};
};

TEST(EmpresaDispatch, DiceSusFallosYLosDelObjeto) {
    constexpr auto kSuyo = static_cast<SCODE>(0x80040201);
    const Respuesta casos[] = {
        {S_OK, 0, 0, "", std::int32_t{7}, ""},
        {DISP_E_EXCEPTION, kSuyo, 0, "Sin sesión", {}, "-2147220991|Empresa|Sin sesión"},
        {DISP_E_EXCEPTION, 0, 1001, "Sin sesión", {}, "-2146827287|Empresa|Sin sesión"},
        {DISP_E_EXCEPTION, kSuyo, 0, "", {}, "-2147220991||cEmpresa.CodEmpresaArticulos: Error 0x80040201"},
        {DISP_E_TYPEMISMATCH, 0, 0, "", {}, "-2147352571|KVDatosArt|cEmpresa.CodEmpresaArticulos: Error 0x80020005"},
        {S_OK, 0, 0, "", {}, "94|KVDatosArt|cEmpresa.CodEmpresaArticulos: Uso no válido de Null"},
        {S_OK, 0, 0, "", 1e6, "6|KVDatosArt|cEmpresa.CodEmpresaArticulos: Desbordamiento: 1000000"}};
    const auto nativa = Nuevo<EmpresaQueResponde>();
    const EmpresaDispatch empresa(nativa.Get());
    Quejarse("un error anterior que nadie leyó");
    for (const Respuesta& caso : casos) {
        nativa->respuesta = caso;
        EXPECT_EQ(caso.esperado, FalloDe([&] { empresa.CodEmpresaArticulos(); }));
    }
    EXPECT_EQ(1, nativa->preguntas["CodEmpresaArticulos"]) << "el identificador se pide una vez";
    nativa->falta = "DecCostes";
    for (int vez = 1; vez <= 2; ++vez)
        EXPECT_EQ("438|KVDatosArt|cEmpresa no tiene DecCostes", FalloDe([&] { empresa.DecCostes(); }));
}

TEST(EmpresaDispatch, CadaMiembroSePidePorSuNombre) {
    const auto falsa = Nuevo<EmpresaFalsa>();
    const EmpresaDispatch e(falsa.Get());
    const char* const nombres[] = {"CodEmpresa",    "CodEmpresaArticulos", "CodEmpresaClientes", "CodEmpresaExtra",
                                   "TarifaEmpresa", "DecPrecios",          "DecImportes",        "DecCostes"};
    for (std::int16_t i = 0; const char* nombre : nombres) falsa->valores[nombre] = i++;
    falsa->valores["VenderSinStock"] = true;
    const std::int16_t leidos[] = {
        e.CodEmpresa(),    e.CodEmpresaArticulos(), e.CodEmpresaClientes(), e.CodEmpresaExtra(),
        e.TarifaEmpresa(), e.DecPrecios(),          e.DecImportes(),        e.DecCostes()};
    for (std::int16_t i = 0; const char* nombre : nombres) EXPECT_EQ(i, leidos[i]) << nombre, ++i;
    EXPECT_EQ(DISPATCH_METHOD | DISPATCH_PROPERTYGET, falsa->clases) << "una variable o una función de su host";
    EXPECT_TRUE(e.VenderSinStock());
    EXPECT_FALSE(e.CosteUltimaCompra());
}

}  // namespace
}  // namespace kv::prueba
