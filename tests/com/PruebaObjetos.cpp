#include "component/com/ArgumentosCompletos.h"
#include "db/ado/EmpresaDispatch.h"
#include "tests/com/Etapas.h"

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

void ProbarReferencias(const Escena& escena) {
    const auto vivos = Global().vivos;
    const ULONG conexion = Referencias(*escena.conexion.Get());
    const ULONG empresa = Referencias(*escena.empresa.Get());
    {
        const auto otra = Nuevo<ConexionFalsa>(ado::kConnection[1]);
        const auto o = Preparar(escena, escena.casos[24]);
        Exigir(CargarPorRanura(*o.Get(), escena.casos[24]).hr == S_OK, "carga");
        Exigir(Referencias(*escena.conexion.Get()) == conexion + 1, "una referencia a la conexión");
        Exigir(Referencias(*escena.empresa.Get()) == empresa + 1, "una referencia a la empresa");
        Exigir(o->putref_Conexion(otra.Get()) == S_OK && Referencias(*escena.conexion.Get()) == conexion, "sustituida");
        Exigir(o->putref_Conexion(escena.empresa.Get()) != S_OK && Referencias(*otra.Get()) == 2,
               "la mala no sustituye");
        Exigir(o->putref_Conexion(nullptr) == S_OK && Referencias(*otra.Get()) == 1, "Nothing suelta");
    }
    Exigir(Referencias(*escena.empresa.Get()) == empresa, "empresa devuelta");
    Exigir(Global().vivos == vivos, "nada más queda vivo");
    Exigir(SePuedeDescargar() == S_OK, "nada retiene la DLL");
}

/// Every interface leads back to one IUnknown.
void ProbarIdentidad() {
    const auto o = Crear();
    PunteroCom<IUnknown> identidad;
    o->QueryInterface(IID_IUnknown, identidad.RecibirVoid());
    for (const IID& iid : {IID_IDispatch, IID__clsDatosArt, IID_ISupportErrorInfo}) {
        PunteroCom<IUnknown> otra;
        PunteroCom<IUnknown> vuelta;
        Exigir(identidad->QueryInterface(iid, otra.RecibirVoid()) == S_OK, "QueryInterface");
        Exigir(otra->QueryInterface(IID_IUnknown, vuelta.RecibirVoid()) == S_OK, "vuelta");
        Exigir(vuelta.Get() == identidad.Get(), "una sola identidad");
    }
    Exigir(Referencias(*o.Get()) == 2, "referencias de más");
    PunteroCom<ISupportErrorInfo> errores;
    o->QueryInterface(IID_ISupportErrorInfo, errores.RecibirVoid());
    Exigir(errores->InterfaceSupportsErrorInfo(IID__clsDatosArt) == S_OK, "da objetos de error");
    Exigir(errores->InterfaceSupportsErrorInfo(kDesconocido) == S_FALSE, "no de una interfaz ajena");
}

PunteroCom<IClassFactory> Fabrica() {
    PunteroCom<IClassFactory> fabrica;
    CoGetClassObject(CLSID_clsDatosArt, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, fabrica.RecibirVoid());
    return fabrica;
}

void ProbarBloqueo() {
    Fabrica()->LockServer(TRUE);
    Exigir(SePuedeDescargar() == S_FALSE, "bloqueada, no se descarga");
    Fabrica()->LockServer(FALSE);
    Exigir(SePuedeDescargar() == S_OK, "desbloqueada");
}

/// A parent is loaded once, outlives its child, and has no connection of its own.
void ProbarPadre(const Escena& escena) {
    PunteroCom<::_clsDatosArt> padre;
    const Caso* caso = escena.casos.data();
    while (caso->padre.empty()) ++caso;
    {
        const auto o = Preparar(escena, *caso);
        PunteroCom<::_clsDatosArt> antes;
        CargarPorRanura(*o.Get(), *caso);
        Global().pasos = caso->pasosPadre;
        o->get_padre(antes.Recibir());
        Exigir(o->get_padre(padre.Recibir()) == S_OK && padre.Get() == antes.Get(), "el padre es uno");
    }
    Exigir(Referencias(*padre.Get()) == 1 && SePuedeDescargar() == S_FALSE, "el padre queda sólo nuestro");
    Exigir(CargarPorRanura(*padre.Get(), *caso).hr == kSinObjeto, "el padre no hereda la conexión");
}

/// Script hosts without Set assign objects as values; a parent that was put is the one that is read.
void ProbarSinSet(const Escena& escena) {
    const auto o = Crear();
    const auto otro = Crear();
    const std::pair<DISPID, IDispatch*> objetos[] = {
        {30, escena.conexion.Get()}, {31, escena.empresa.Get()}, {48, otro.Get()}};
    for (const auto& [id, objeto] : objetos) {
        Variante valor(objeto);
        DISPID puesto = DISPID_PROPERTYPUT;
        DISPPARAMS dados{&valor.Get(), &puesto, 1, 1};
        Exigir(o->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYPUT, &dados, nullptr, nullptr, nullptr) == S_OK,
               "sin Set " + std::to_string(id));
    }
    PunteroCom<::_clsDatosArt> padre;
    Exigir(o->get_padre(padre.Recibir()) == S_OK && padre.Get() == otro.Get(), "el padre puesto");
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

/// The thread's error object and the record of a by-name call say the same.
void ProbarErrores(const Escena& escena) {
    const auto incompleta = Nuevo<EmpresaFalsa>();
    incompleta->falta = "CodEmpresaClientes";
    IDispatch* const conexion = escena.conexion.Get();
    IDispatch* const empresa = escena.empresa.Get();
    const struct {
        IDispatch* conexion;
        IDispatch* empresa;
        std::uint32_t numero;
        const char* error;
    } casos[] = {
        {nullptr, empresa, 0x800A005B, "Variable de objeto no establecida: Conexion"},
        {conexion, nullptr, 0x800A005B, "Variable de objeto no establecida: cEmpresa"},
        {conexion, incompleta.Get(), 0x800A01B6, "cEmpresa no tiene CodEmpresaClientes"},
        {conexion, empresa, 0x80040E14, "de más: |SELECT * FROM Clientes WHERE Cod_Empresa =1 AND Codigo =1|"},
    };
    Caso caso;
    caso.argumentos = {"C", "1", "1", "46000", "1", "0", "0"};
    Global().pasos.clear();
    for (const auto& c : casos) {
        const auto o = Crear();
        o->putref_Conexion(c.conexion);
        o->putref_cEmpresa(c.empresa);
        const Llamada ranura = CargarPorRanura(*o.Get(), caso);
        const std::string error = ErrorDelHilo();
        Exigir(static_cast<std::uint32_t>(ranura.hr) == c.numero && ranura.valor == "3:0", c.error);
        Exigir(error == std::string("clsCliente::Cargar|") + c.error, error + " en vez de " + c.error);
        const Llamada ll = PorNombre(*o.Get(), "Cargar", DISPATCH_METHOD, {1, 1, 46000, 1, 1, 2});
        Exigir(ll.Fallo() == ranura.hr && ll.error == error, "por nombre: " + ll.error);
    }
}

/// The calls that no host makes on purpose.
void ProbarDesatinos() {
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
    } casos[] = {
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
        {"GetTypeInfoCount a nulo", o->GetTypeInfoCount(nullptr), E_POINTER},
        {"GetTypeInfo a nulo", o->GetTypeInfo(0, 0, nullptr), E_POINTER},
        {"GetIDsOfNames a nulo", o->GetIDsOfNames(IID_NULL, nullptr, 1, 0, nullptr), E_POINTER},
        {"creación a nulo", fabrica->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER},
        {"otra descripción", o->GetTypeInfo(1, 0, info.Recibir()), DISP_E_BADINDEX},
        {"Invoke sin argumentos", invocar(IID_NULL, nullptr), E_INVALIDARG},
        {"Invoke con interfaz", invocar(kDesconocido, &sin), DISP_E_UNKNOWNINTERFACE},
    };
    for (const auto& c : casos) Exigir(c.hr == c.esperado, c.que);
    Exigir(precio.int64 == 0, "precio de un fallo");
    for (const void* nada : nadas) Exigir(nada == nullptr, "nada que no se da");
    Exigir(o->put_Descripcion(nullptr) == S_OK && Leer(*o.Get(), "Descripcion") == "10:", "texto nulo, vacío");
}

/// Each member of the company is asked for under its own name.
void ProbarEmpresa() {
    const auto falsa = Nuevo<EmpresaFalsa>();
    const EmpresaDispatch e(falsa.Get());
    const char* const nombres[] = {"CodEmpresa",    "CodEmpresaArticulos", "CodEmpresaClientes", "CodEmpresaExtra",
                                   "TarifaEmpresa", "DecPrecios",          "DecImportes",        "DecCostes"};
    for (std::int16_t i = 0; const char* nombre : nombres) falsa->valores[nombre] = i++;
    falsa->valores["VenderSinStock"] = true;
    falsa->valores["CosteUltimaCompra"] = false;
    const std::int16_t leidos[] = {
        e.CodEmpresa(),    e.CodEmpresaArticulos(), e.CodEmpresaClientes(), e.CodEmpresaExtra(),
        e.TarifaEmpresa(), e.DecPrecios(),          e.DecImportes(),        e.DecCostes()};
    for (std::int16_t i = 0; const char* nombre : nombres) Exigir(leidos[i] == i, nombre), ++i;
    Exigir(e.VenderSinStock() && !e.CosteUltimaCompra(), "VenderSinStock y CosteUltimaCompra");
}

/// Wine fills in what is missing and does not tell which argument is wrong, so the class itself is asked.
void ProbarCompletos() {
    VARIANT importe{};
    importe.vt = VT_CY;
    VARIANT dados[7]{};
    dados[0].vt = VT_ERROR;
    dados[0].scode = DISP_E_PARAMNOTFOUND;
    DISPPARAMS seis{dados + 1, nullptr, 6, 0};
    DISPPARAMS siete{dados, nullptr, 7, 0};
    ArgumentosCompletos sin(seis, 6, importe);
    ArgumentosCompletos marcado(siete, 6, importe);
    Exigir(sin.Get()->cArgs == 7 && sin.Get()->rgvarg[0].vt == VT_CY && sin.Situar(6) == 5, "optativo que no está");
    Exigir(marcado.Get()->rgvarg[0].vt == VT_CY && marcado.Situar(6) == 6, "optativo marcado como ausente");
}

/// Texts follow the user's decimal separator.
void ProbarSeparador(const Escena& escena) {
    SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, L",");
    int conDecimales = 0;
    for (const Caso& caso : escena.casos) {
        const std::string& convenio = caso.propiedades.at("Convenio");
        const std::size_t punto = convenio.find('.');
        if (punto == std::string::npos || convenio.find("DTOS") != std::string::npos) continue;
        const auto o = Preparar(escena, caso);
        CargarPorRanura(*o.Get(), caso);
        Exigir(Leer(*o.Get(), "Convenio") == std::string(convenio).replace(punto, 1, ","), "con coma " + convenio);
        ++conDecimales;
    }
    Exigir(conDecimales > 0, "alguna carga con decimales en su texto");
    SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, L".");
}

}  // namespace

void ProbarObjetos(const Escena& escena) {
    ProbarReferencias(escena);
    ProbarIdentidad();
    ProbarBloqueo();
    ProbarPadre(escena);
    ProbarSinSet(escena);
    ProbarErrores(escena);
    ProbarDesatinos();
    ProbarEmpresa();
    ProbarCompletos();
    ProbarSeparador(escena);
}

}  // namespace kv::prueba
