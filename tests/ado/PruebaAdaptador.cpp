// What the adapter does that no database shows: how failures come out, procedures and the company object.

#include "db/Tokens.h"
#include "db/ado/ConexionAdo.h"
#include "db/ado/EmpresaDispatch.h"
#include "tests/ado/ClaseFalsa.h"
#include "tests/comun/Errores.h"

namespace kv::prueba {
namespace {

constexpr const char* kDelProveedor = "-2147217900|Proveedor de prueba|";

/// Fails in every call, saying which, but in Execute without saying anything.
class ConexionMuda : public ConexionFalsa {
  public:
    ConexionMuda() : ConexionFalsa(ado::kConnection[1]) {}
    HRESULT STDMETHODCALLTYPE Execute(BSTR, VARIANT*, long, ado::Recordset**) override { return E_FAIL; }
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
    PunteroCom<ConexionMuda> nativa = Nuevo<ConexionMuda>();
    ConexionAdo cn{nativa.Get()};
};

TEST_F(AdaptadorAdo, Fallos_SonLosDelProveedorYNuncaUnoAnterior) {
    EXPECT_EQ(std::string(kDelProveedor) + "BeginTrans", FalloDe([&] { cn.BeginTrans(); }));
    EXPECT_EQ(std::string(kDelProveedor) + "CommitTrans", FalloDe([&] { cn.CommitTrans(); }));
    EXPECT_EQ(std::string(kDelProveedor) + "RollbackTrans", FalloDe([&] { cn.RollbackTrans(); }));
    Quejarse("un error anterior que nadie leyó");
    EXPECT_EQ("-2147467259|ADODB|Error 0x80004005", FalloDe([&] { cn.Ejecutar("DELETE FROM t"); }));
    EsperarError(kErrTipo, "", [] { const ConexionAdo no(Nuevo<EmpresaFalsa>().Get()); });
}

TEST_F(AdaptadorAdo, Procedimiento_ParametrosYSalidas) {
    using enum ParameterDirection;
    const auto orden = Orden("KVP_Prueba");
    orden->Parameters.Append("Return", DataType::adInteger, adParamReturnValue, 0, Nulo{});
    orden->Parameters.Append("@Activo", DataType::adBoolean, adParamInput, 0, true);
    orden->Parameters.Append("@Importe", DataType::adCurrency, adParamInputOutput, 0, Currency::DeEntero(2));
    orden->Parameters.Append("@Dto", DataType::adDouble, adParamOutput, 0, Nulo{});
    const std::vector<Valor> salidas = {std::int32_t{-1}, Nulo{}, Currency::DeDiezmilesimas(15), 12.5};
    Global().pasos = {
        {'P',
         "KVP_Prueba",
         {},
         {"Return\t3\t4\t0\t0:", "@Activo\t11\t1\t0\t1:1", "@Importe\t6\t3\t0\t8:20000", "@Dto\t5\t2\t0\t0:"},
         salidas}};
    orden->Execute(CommandType::adOptionUnspecified);
    std::vector<Valor> quedan;
    for (const Parameter& parametro : orden->Parameters) quedan.push_back(parametro.Value);
    EXPECT_EQ((std::vector<Valor>{salidas[0], true, salidas[2], salidas[3]}), quedan);
    EXPECT_EQ(std::string(kDelProveedor) + "de más: |KVP_Prueba|",
              FalloDe([&] { orden->Execute(CommandType::adOptionUnspecified); }));
}

TEST_F(AdaptadorAdo, TextoDeUnaOrden_EsUnNombreOUnaSentencia) {
    const auto pasa = [&](const char* texto) {
        Global().pasos = {{'P', texto, {}, {}, {}}};
        const bool bien = FalloDe([&] { Orden(texto)->Execute(CommandType::adOptionUnspecified); }).empty();
        EXPECT_EQ(bien, Global().pasos.empty()) << texto;
        return bien;
    };
    for (const char* nombre : {"KVP_Prueba", "dbo.KVP_Prueba", "[base nueva].dbo.[un nombre]"})
        EXPECT_TRUE(pasa(nombre)) << nombre;
    for (const char* otro :
         {"", "KVP_Prueba 1", "KVP_Prueba;DELETE FROM t", "KVP_Prueba(1)", "[base nueva]..[un nombre]"})
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

}  // namespace
}  // namespace kv::prueba
