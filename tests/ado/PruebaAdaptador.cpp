// The adapter over ADO-shaped objects: what it calls, what it gives back and how failures come out.

#include "db/ado/ConexionAdo.h"
#include "db/ado/EmpresaDispatch.h"
#include "tests/ado/Informe.h"
#include "tests/com/ComandoFalso.h"

namespace kv::prueba {
namespace {

constexpr HRESULT kSintaxis = static_cast<HRESULT>(0x80040E14);
const std::string kFalloSintaxis = std::to_string(kSintaxis);

/// Writes down what it is asked; a text "falla" fails as a provider does, "calla" without saying why.
class ConexionAnotada : public ConexionFalsa {
  public:
    ConexionAnotada() : ConexionFalsa(ado::kConnection[1]) {}
    HRESULT STDMETHODCALLTYPE Execute(BSTR texto, VARIANT* afectados, long opciones, ado::Recordset** rs) override {
        *rs = nullptr;
        const std::string sql = Utf8(texto);
        llamadas += sql + "/" + std::to_string(opciones) + ";";
        if (sql == "falla") return Quejarse("Sintaxis incorrecta cerca de «ñ»");
        if (sql == "calla") return E_FAIL;
        *afectados = Variante(Valor{std::int32_t{3}}).Soltar();
        *rs = new RecordsetFalso(IID_NULL);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE BeginTrans(long* nivel) override {
        *nivel = 1;
        return Anotar("B;");
    }
    HRESULT STDMETHODCALLTYPE CommitTrans() override { return Anotar("C;"); }
    HRESULT STDMETHODCALLTYPE RollbackTrans() override { return Anotar("R;"); }

    std::string llamadas;

  private:
    HRESULT Anotar(const char* que) {
        llamadas += que;
        return S_OK;
    }
};

void ProbarConexion() {
    PunteroCom<ConexionAnotada> nativa;
    *nativa.Recibir() = new ConexionAnotada;
    ConexionAdo cn(nativa.Get());
    cn.BeginTrans();
    Exigir(cn.EjecutarContando("UPDATE t SET a='ñ€'") == 3, "registros afectados");
    cn.RollbackTrans();
    cn.BeginTrans();
    cn.Ejecutar("DELETE FROM t");
    cn.CommitTrans();
    Exigir(nativa->llamadas == "B;UPDATE t SET a='ñ€'/1;R;B;DELETE FROM t/1;C;", nativa->llamadas);
    const std::string fallo = Fallo([&] { cn.Ejecutar("falla"); });
    Exigir(fallo == kFalloSintaxis + "|Proveedor de prueba|Sintaxis incorrecta cerca de «ñ»", fallo);
    Quejarse("un error anterior que nadie leyó");
    const std::string callado = Fallo([&] { cn.Ejecutar("calla"); });
    Exigir(callado == std::to_string(E_FAIL) + "|ADODB|Error 0x80004005", callado);
    nativa->llamadas.clear();
    Exigir(!Fallo([&] { cn.Ejecutar("DELETE FROM t; DELETE FROM u"); }).empty() && nativa->llamadas.empty(),
           "dos sentencias");
    PunteroCom<IUnknown> otro;
    *otro.Recibir() = new EmpresaFalsa;
    const std::string noEs = Fallo([&] { const ConexionAdo no(otro.Get()); });
    Exigir(noEs.starts_with("13|") && noEs.find("no es una conexión ADO") != std::string::npos, noEs);
}

Parameter Dato(const char* nombre, DataType tipo, ParameterDirection direccion, Valor valor) {
    return {nombre, tipo, direccion, 0, std::move(valor)};
}

void ProbarProcedimiento() {
    PunteroCom<ConexionAnotada> nativa;
    *nativa.Recibir() = new ConexionAnotada;
    ConexionAdo cn(nativa.Get());
    const auto orden = cn.CrearCommand();
    orden->CommandType = CommandType::adCmdStoredProc;
    orden->CommandTimeout = 500;
    orden->CommandText = "KVP_Prueba";
    using enum ParameterDirection;
    orden->Parameters.Append(Dato("Return", DataType::adInteger, adParamReturnValue, Nulo{}));
    orden->Parameters.Append(Dato("@Activo", DataType::adBoolean, adParamInput, true));
    orden->Parameters.Append(Dato("@Importe", DataType::adCurrency, adParamInputOutput, Currency::DeEntero(2)));
    orden->Parameters.Append(Dato("@Dto", DataType::adDouble, adParamOutput, Nulo{}));
    const Paso paso{
        'P',
        "KVP_Prueba",
        {},
        {"Return\t3\t4\t0\t0:", "@Activo\t11\t1\t0\t1:1", "@Importe\t6\t3\t0\t8:20000", "@Dto\t5\t2\t0\t0:"},
        {Valor{std::int32_t{-1}}, Valor{}, Valor{Currency::DeDiezmilesimas(15)}, Valor{12.5}}};
    Global().pasos = {paso};
    orden->Execute(CommandType::adOptionUnspecified);
    Exigir(ALong(orden->Parameters.Item("Return").Value) == -1, "valor de vuelta");
    Exigir(orden->Parameters.Item("@importe").Value == paso.salidas[2], "entrada y salida");
    Exigir(orden->Parameters.Item("@Dto").Value == paso.salidas[3], "salida");
    Exigir(orden->Parameters.Item("@Activo").Value == Valor{true}, "una entrada no cambia");
    const std::string fallo = Fallo([&] { orden->Execute(CommandType::adOptionUnspecified); });
    Exigir(fallo.starts_with(kFalloSintaxis + "|Proveedor de prueba|de más"), fallo);
}

void ProbarTextoDeOrden() {
    PunteroCom<ConexionAnotada> nativa;
    *nativa.Recibir() = new ConexionAnotada;
    ConexionAdo cn(nativa.Get());
    const struct {
        const char* texto;
        CommandType tipo;
        bool pasa;
    } casos[] = {{"KVP_Prueba", CommandType::adCmdStoredProc, true},
                 {"dbo.KVP_Prueba", CommandType::adCmdStoredProc, true},
                 {"[base nueva]..[un nombre]", CommandType::adCmdStoredProc, false},
                 {"[base nueva].dbo.[un nombre]", CommandType::adCmdStoredProc, true},
                 {"", CommandType::adCmdStoredProc, false},
                 {"KVP_Prueba 1", CommandType::adCmdStoredProc, false},
                 {"KVP_Prueba;DELETE FROM t", CommandType::adCmdStoredProc, false},
                 {"KVP_Prueba(1)", CommandType::adCmdStoredProc, false},
                 {"SELECT 1 DELETE FROM t", CommandType::adCmdText, false},
                 {"EXEC KVP_Prueba; DELETE FROM t", CommandType::adOptionUnspecified, false}};
    for (const auto& caso : casos) {
        const auto orden = cn.CrearCommand();
        orden->CommandType = caso.tipo;
        orden->CommandTimeout = 500;
        orden->CommandText = caso.texto;
        Global().pasos = {Paso{'P', caso.texto, {}, {}, {}}};
        const std::string fallo = Fallo([&] { orden->Execute(CommandType::adOptionUnspecified); });
        Exigir(fallo.empty() == caso.pasa && Global().pasos.empty() == caso.pasa, caso.texto + fallo);
    }
}

/// Fails in each way in which a company object can.
class EmpresaQueFalla : public EmpresaFalsa {
  public:
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* resultado, EXCEPINFO* e,
                                     UINT*) override {
        *resultado = Variante(valor).Soltar();
        e->scode = scode;
        e->wCode = wCode;
        if (!texto.empty()) e->bstrSource = Cadena("Empresa").Soltar(), e->bstrDescription = Cadena(texto).Soltar();
        return hr;
    }
    HRESULT hr = S_OK;
    SCODE scode = 0;
    WORD wCode = 0;
    std::string texto;
    Valor valor;
};

void ProbarEmpresa() {
    auto* nativa = new EmpresaQueFalla;
    const EmpresaDispatch empresa(nativa);
    nativa->Release();
    Quejarse("un error anterior que nadie leyó");
    const auto caso = [&](HRESULT hr, SCODE scode, WORD wCode, const char* texto, Valor valor, const char* esperado) {
        nativa->hr = hr;
        nativa->scode = scode;
        nativa->wCode = wCode;
        nativa->texto = texto;
        nativa->valor = std::move(valor);
        const std::string fallo = Fallo([&] { empresa.CodEmpresaArticulos(); });
        Exigir(fallo == esperado, fallo + " en vez de " + esperado);
    };
    caso(S_OK, 0, 0, "", std::int32_t{7}, "");
    caso(DISP_E_EXCEPTION, static_cast<SCODE>(0x80040201), 0, "Sin sesión", {}, "-2147220991|Empresa|Sin sesión");
    caso(DISP_E_EXCEPTION, 0, 1001, "Sin sesión", {}, "-2146827287|Empresa|Sin sesión");
    caso(DISP_E_EXCEPTION, static_cast<SCODE>(0x80040201), 0, "", {},
         "-2147220991||cEmpresa.CodEmpresaArticulos: Error 0x80040201");
    caso(DISP_E_TYPEMISMATCH, 0, 0, "", {}, "-2147352571|KVDatosArt|cEmpresa.CodEmpresaArticulos: Error 0x80020005");
    caso(S_OK, 0, 0, "", {}, "94|KVDatosArt|cEmpresa.CodEmpresaArticulos: Uso no válido de Null");
    caso(S_OK, 0, 0, "", 1e6, "6|KVDatosArt|cEmpresa.CodEmpresaArticulos: Desbordamiento: 1000000");
    Exigir(nativa->preguntas["CodEmpresaArticulos"] == 1, "el identificador se pide una vez");
    nativa->falta = "DecCostes";
    for (int vez = 1; vez <= 2; ++vez) {
        const std::string fallo = Fallo([&] { empresa.DecCostes(); });
        Exigir(fallo == "438|KVDatosArt|cEmpresa no tiene DecCostes", fallo);
    }
}

}  // namespace

void ProbarAdaptador() {
    DWORD registro = 0;
    PunteroCom<IUnknown> fabrica;
    *fabrica.Recibir() = new FabricaFalsa<ComandoFalso>(ado::kCommand[1]);
    Exigir(CoRegisterClassObject(ado::kClaseCommand, fabrica.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                 &registro) == S_OK,
           "fábrica de órdenes");
    const long antes = Global().vivos;
    ProbarConexion();
    ProbarProcedimiento();
    ProbarTextoDeOrden();
    ProbarEmpresa();
    Exigir(Global().vivos == antes, "las referencias vuelven a cero");
    CoRevokeClassObject(registro);
}

}  // namespace kv::prueba
