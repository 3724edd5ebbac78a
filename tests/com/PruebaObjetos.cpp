#include "kvdatosart/component/com/ArgumentosCompletos.h"
#include "kvdatosart/tests/com/Registrada.h"

namespace kv::prueba {
namespace {

constexpr GUID kDesconocido = {0x5a1c0f3e, 0x11, 0x22, {1, 2, 3, 4, 5, 6, 7, 8}};
constexpr HRESULT kSinObjeto = static_cast<HRESULT>(0x800A005B);

HRESULT SePuedeDescargar() {
    using Funcion = HRESULT(STDMETHODCALLTYPE*)();
    const auto direccion = GetProcAddress(GetModuleHandleW(L"KVDatosArt.dll"), "DllCanUnloadNow");
    return reinterpret_cast<Funcion>(reinterpret_cast<void*>(direccion))();
}

template <class Interfaz>
ULONG Referencias(Interfaz& objeto) {
    objeto.AddRef();
    return objeto.Release();
}

TEST_F(Registrada, ReferenciasQueTomaYSuelta) {
    const ULONG conexion = Referencias(*escena.conexion.Get());
    const auto otra = Nuevo<ConexionFalsa>(escena.guion);
    const auto o = Preparar(escena, casos[24]);
    EXPECT_EQ(S_OK, CargarPorRanura(*o.Get(), casos[24]).hr);
    EXPECT_EQ(conexion + 1, Referencias(*escena.conexion.Get()));
    EXPECT_EQ(2U, Referencias(*escena.empresa.Get()));
    EXPECT_EQ(S_OK, o->putref_Conexion(otra.Get()));
    EXPECT_EQ(conexion, Referencias(*escena.conexion.Get()));
    EXPECT_NE(S_OK, o->putref_Conexion(escena.empresa.Get()));
    EXPECT_EQ(2U, Referencias(*otra.Get())) << "no sustituye";
    EXPECT_EQ(S_OK, o->putref_Conexion(nullptr));
    EXPECT_EQ(1U, Referencias(*otra.Get())) << "Nothing suelta";
    EXPECT_EQ(kSinObjeto, CargarPorRanura(*o.Get(), casos[24]).hr) << "Nothing no es una conexión";
}

TEST_F(Registrada, TodaInterfazVuelveAUnSoloIUnknown) {
    const auto o = Crear();
    PunteroCom<IUnknown> identidad;
    o->QueryInterface(IID_IUnknown, identidad.RecibirVoid());
    for (const IID& iid : {IID_IDispatch, IID__clsDatosArt, IID_ISupportErrorInfo}) {
        PunteroCom<IUnknown> otra;
        PunteroCom<IUnknown> vuelta;
        EXPECT_EQ(S_OK, identidad->QueryInterface(iid, otra.RecibirVoid())) << "QueryInterface";
        EXPECT_EQ(S_OK, otra->QueryInterface(IID_IUnknown, vuelta.RecibirVoid())) << "vuelta";
        EXPECT_EQ(identidad.Get(), vuelta.Get()) << "una sola identidad";
    }
    EXPECT_EQ(2, Referencias(*o.Get())) << "referencias de más";
    PunteroCom<ISupportErrorInfo> errores;
    o->QueryInterface(IID_ISupportErrorInfo, errores.RecibirVoid());
    EXPECT_EQ(S_OK, errores->InterfaceSupportsErrorInfo(IID__clsDatosArt)) << "da objetos de error";
    EXPECT_EQ(S_FALSE, errores->InterfaceSupportsErrorInfo(kDesconocido)) << "no de una interfaz ajena";
}

PunteroCom<IClassFactory> Fabrica() {
    PunteroCom<IClassFactory> fabrica;
    CoGetClassObject(CLSID_clsDatosArt, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, fabrica.RecibirVoid());
    return fabrica;
}

TEST_F(Registrada, BloqueadaNoSeDescarga) {
    {
        const auto fabrica = Fabrica();
        EXPECT_EQ(S_FALSE, SePuedeDescargar()) << "con una fábrica";
    }
    Fabrica()->LockServer(TRUE);
    EXPECT_EQ(S_FALSE, SePuedeDescargar()) << "bloqueada, no se descarga";
    Fabrica()->LockServer(FALSE);
    EXPECT_EQ(S_OK, SePuedeDescargar()) << "desbloqueada";
}

TEST_F(Registrada, ElPadreEsUnoSobreviveYNoTieneConexion) {
    PunteroCom<::_clsDatosArt> padre;
    const Caso* caso = casos.data();
    while (!caso->dado.contains("Padre")) ++caso;
    {
        const auto o = Preparar(escena, *caso);
        PunteroCom<::_clsDatosArt> antes;
        CargarPorRanura(*o.Get(), *caso);
        escena.Poner(caso->partes[2]);
        o->get_padre(antes.Recibir());
        EXPECT_EQ(S_OK, o->get_padre(padre.Recibir()));
        EXPECT_EQ(antes.Get(), padre.Get()) << "el padre es uno";
    }
    EXPECT_EQ(1U, Referencias(*padre.Get())) << "el padre queda sólo nuestro";
    EXPECT_EQ(S_FALSE, SePuedeDescargar());
    EXPECT_EQ(kSinObjeto, CargarPorRanura(*padre.Get(), *caso).hr) << "el padre no hereda la conexión";
}

// As script hosts that have no Set do; a parent that was put is the one that is read.
TEST_F(Registrada, ObjetosPuestosComoValores) {
    const auto o = Crear();
    const auto otro = Crear();
    const std::pair<DISPID, IDispatch*> objetos[] = {
        {30, escena.conexion.Get()}, {31, escena.empresa.Get()}, {48, otro.Get()}};
    for (const auto& [id, objeto] : objetos) {
        Variante valor(objeto);
        DISPID puesto = DISPID_PROPERTYPUT;
        DISPPARAMS dados{&valor.Get(), &puesto, 1, 1};
        EXPECT_TRUE(o->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYPUT, &dados, nullptr, nullptr, nullptr) == S_OK)
            << "sin Set " + std::to_string(id);
    }
    {
        PunteroCom<::_clsDatosArt> padre;
        EXPECT_EQ(S_OK, o->get_padre(padre.Recibir()));
        EXPECT_EQ(otro.Get(), padre.Get()) << "el padre puesto";
    }
    EXPECT_EQ(2U, Referencias(*otro.Get()));
    escena.Poner(casos[24].partes[0]);
    EXPECT_EQ(S_OK, CargarPorRanura(*o.Get(), casos[24]).hr);
    EXPECT_EQ(1U, Referencias(*otro.Get())) << "una carga suelta el padre anterior";
}

/// Source and text of the thread's error object, which is taken from it.
std::string ErrorDelHilo() {
    PunteroCom<IErrorInfo> info;
    Cadena origen;
    Cadena texto;
    if (GetErrorInfo(0, info.Recibir()) != S_OK) return {};
    info->GetSource(origen.Recibir());
    info->GetDescription(texto.Recibir());
    return Utf8(origen.Get()) + "|" + Utf8(texto.Get());
}

TEST_F(Registrada, ElErrorDelHiloYElDeLaLlamadaPorNombreDicenLoMismo) {
    const auto incompleta = Nuevo<EmpresaFalsa>();
    incompleta->falta = "CodEmpresaClientes";
    IDispatch* const conexion = escena.conexion.Get();
    IDispatch* const empresa = escena.empresa.Get();
    const struct {
        IDispatch* conexion;
        IDispatch* empresa;
        std::uint32_t numero;
        const char* error;
    } errores[] = {
        {nullptr, empresa, 0x800A005B, "Variable de objeto no establecida: Conexion"},
        {conexion, nullptr, 0x800A005B, "Variable de objeto no establecida: cEmpresa"},
        {conexion, incompleta.Get(), 0x800A01B6, "cEmpresa no tiene CodEmpresaClientes"},
        {conexion, empresa, 0x80040E14, "bloqueo"},
    };
    Caso caso;
    caso.argumentos = {"C", "1", "1", "46000", "1", "0", "0"};
    for (int vez = 1; vez <= 2; ++vez) {
        escena.guion.EsperaConsulta("SELECT * FROM Clientes WHERE Cod_Empresa =1 AND Codigo =1");
        escena.guion.YFalla(static_cast<HRESULT>(0x80040E14), "bloqueo");
    }
    for (const auto& c : errores) {
        const auto o = Crear();
        o->putref_Conexion(c.conexion);
        o->putref_cEmpresa(c.empresa);
        const Llamada ranura = CargarPorRanura(*o.Get(), caso);
        const std::string error = ErrorDelHilo();
        EXPECT_EQ(c.numero, static_cast<std::uint32_t>(ranura.hr)) << c.error;
        EXPECT_EQ("3:0", ranura.valor) << c.error;
        EXPECT_EQ(std::string("clsCliente::Cargar|") + c.error, error);
        const Llamada ll = PorNombre(*o.Get(), "Cargar", DISPATCH_METHOD, {1, 1, 46000, 1, 1, 2});
        EXPECT_EQ(ranura.hr, ll.Fallo()) << c.error;
        EXPECT_EQ(error, ll.error);
    }
}

TEST_F(Registrada, LlamadasQueNadieHaceAdrede) {
    const auto o = Crear();
    const auto fabrica = Fabrica();
    void* nadas[4] = {o.Get(), o.Get(), o.Get(), o.Get()};
    DISPPARAMS sin{};
    CURRENCY precio;
    precio.int64 = 7;
    const auto ajeno = Nuevo<EmpresaFalsa>();
    auto* const noEs = reinterpret_cast<::_clsDatosArt*>(static_cast<IDispatch*>(ajeno.Get()));
    const auto invocar = [&](REFIID iid, DISPPARAMS* dados) {
        return o->Invoke(1, iid, 0, DISPATCH_PROPERTYGET, dados, nullptr, nullptr, nullptr);
    };
    PunteroCom<ITypeInfo> info;
    const struct {
        const char* que;
        HRESULT hr;
        HRESULT esperado;
    } llamadas[] = {
        {"Cargar a nulo", o->Cargar(1, 1, 46000, 1, 1, 2, CURRENCY{}, nullptr), E_POINTER},
        {"DevPvp a nulo", o->DevPvp(1, 46000, 0, nullptr), E_POINTER},
        {"interfaz desconocida", o->QueryInterface(kDesconocido, &nadas[0]), E_NOINTERFACE},
        {"la fábrica no es Dispatch", fabrica->QueryInterface(IID_IDispatch, &nadas[1]), E_NOINTERFACE},
        {"no se agrega", fabrica->CreateInstance(o.Get(), IID_IUnknown, &nadas[2]), CLASS_E_NOAGGREGATION},
        {"creación sin interfaz", fabrica->CreateInstance(nullptr, kDesconocido, &nadas[3]), E_NOINTERFACE},
        {"fecha inmensa", o->DevPvp(1, 1e300, 0, &precio), static_cast<HRESULT>(0x800A0006)},
        {"propiedad a nulo", o->get_Codigo(nullptr), E_POINTER},
        {"padre de otra clase", o->putref_padre(noEs), static_cast<HRESULT>(0x800A000D)},
        {"padre a nulo", o->get_padre(nullptr), E_POINTER},
        {"QueryInterface a nulo", o->QueryInterface(IID_IUnknown, nullptr), E_POINTER},
        {"otra descripción", o->GetTypeInfo(1, 0, info.Recibir()), DISP_E_BADINDEX},
        {"Invoke sin argumentos", invocar(IID_NULL, nullptr), E_INVALIDARG},
        {"Invoke con interfaz", invocar(kDesconocido, &sin), DISP_E_UNKNOWNINTERFACE},
    };
    for (const auto& c : llamadas) EXPECT_EQ(c.esperado, c.hr) << c.que;
    EXPECT_EQ(0, precio.int64) << "precio de un fallo";
    PunteroCom<ITypeInfo> otra;
    o->GetTypeInfo(0, 0, info.Recibir());
    const ULONG antes = Referencias(*info.Get());
    o->GetTypeInfo(0, 0, otra.Recibir());
    EXPECT_EQ(antes + 1, Referencias(*info.Get())) << "cada descripción dada lleva su referencia";
    for (const void* nada : nadas) EXPECT_EQ(nullptr, nada) << "nada que no se da";
    EXPECT_EQ(S_OK, o->put_Descripcion(nullptr));
    EXPECT_EQ("10:", Leer(*o.Get(), "Descripcion")) << "texto nulo, vacío";
}

// Wine fills in what is missing and does not tell which argument is wrong, so the class itself is asked.
TEST(ArgumentosCompletos, OptativoQueNoEstaOMarcadoComoAusente) {
    VARIANT importe{};
    importe.vt = VT_CY;
    VARIANT dados[7]{};
    dados[0].vt = VT_ERROR;
    dados[0].scode = DISP_E_PARAMNOTFOUND;
    DISPPARAMS seis{dados + 1, nullptr, 6, 0};
    DISPPARAMS siete{dados, nullptr, 7, 0};
    ArgumentosCompletos sin(seis, 6, importe);
    ArgumentosCompletos marcado(siete, 6, importe);
    EXPECT_EQ(7U, sin.Get()->cArgs);
    EXPECT_EQ(VT_CY, sin.Get()->rgvarg[0].vt);
    EXPECT_EQ(5U, sin.Situar(6)) << "optativo que no está";
    EXPECT_EQ(VT_CY, marcado.Get()->rgvarg[0].vt);
    EXPECT_EQ(6U, marcado.Situar(6)) << "optativo marcado como ausente";
}

}  // namespace
}  // namespace kv::prueba
