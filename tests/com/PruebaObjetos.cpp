#include <cstring>

#include "tests/com/Etapas.h"

namespace kv::prueba {
namespace {

constexpr GUID kDesconocido = {0x5a1c0f3e, 0x11, 0x22, {1, 2, 3, 4, 5, 6, 7, 8}};

HMODULE Dll() {
    return GetModuleHandleW(L"KVDatosArt.dll");
}

HRESULT SePuedeDescargar() {
    const auto direccion = GetProcAddress(Dll(), "DllCanUnloadNow");
    HRESULT(STDMETHODCALLTYPE * funcion)() = nullptr;
    static_assert(sizeof funcion == sizeof direccion);
    std::memcpy(&funcion, &direccion, sizeof funcion);
    return funcion();
}

template <class Interfaz>
ULONG Referencias(Interfaz& objeto) {
    objeto.AddRef();
    return objeto.Release();
}

/// Loads of two objects in turns, each with its own values to the end.
void ProbarIndependencia(const Escena& escena) {
    const Caso& uno = escena.casos[24];
    const Caso& dos = escena.casos[400];
    const auto a = escena.Preparar(uno);
    const auto b = escena.Preparar(dos);
    for (int vuelta = 0; vuelta < 2; ++vuelta) {
        escena.Cargar(*a.Get(), uno);
        escena.Cargar(*b.Get(), dos);
    }
    for (const auto& [objeto, caso] : {std::pair{a.Get(), &uno}, std::pair{b.Get(), &dos}})
        for (const auto& [nombre, valor] : caso->propiedades)
            Exigir(Codificar(Leer(*objeto, nombre)) == valor, "cada objeto lo suyo: " + nombre);
}

void ProbarReferencias(const Escena& escena) {
    const auto vivos = Global().vivos;
    const ULONG conexion = Referencias(*escena.conexion.Get());
    const ULONG empresa = Referencias(*escena.empresa.Get());
    {
        PunteroCom<ConexionFalsa> otra;
        *otra.Recibir() = new ConexionFalsa(ado::kConnection[1]);
        const auto o = escena.Preparar(escena.casos[24]);
        Exigir(Referencias(*escena.conexion.Get()) == conexion + 1, "una referencia a la conexión");
        Exigir(Referencias(*escena.empresa.Get()) == empresa + 1, "una referencia a la empresa");
        escena.Cargar(*o.Get(), escena.casos[24]);
        Exigir(o->putref_Conexion(otra.Get()) == S_OK && Referencias(*escena.conexion.Get()) == conexion, "sustituida");
        Exigir(o->putref_Conexion(escena.empresa.Get()) != S_OK && Referencias(*otra.Get()) == 2,
               "la mala no sustituye");
        Exigir(o->putref_Conexion(nullptr) == S_OK && Referencias(*otra.Get()) == 1, "Nothing suelta");
        Exigir(SePuedeDescargar() == S_FALSE, "un objeto retiene la DLL");
    }
    Exigir(Referencias(*escena.conexion.Get()) == conexion, "conexión devuelta");
    Exigir(Referencias(*escena.empresa.Get()) == empresa, "empresa devuelta");
    Exigir(Global().vivos == vivos, "nada más queda vivo");
    Exigir(SePuedeDescargar() == S_OK, "nada retiene la DLL");
}

/// From every interface to every other, with one IUnknown.
void ProbarIdentidad() {
    const auto o = Crear();
    const IID interfaces[] = {IID_IUnknown, IID_IDispatch, IID__clsDatosArt, IID_ISupportErrorInfo};
    PunteroCom<IUnknown> identidad;
    o->QueryInterface(IID_IUnknown, identidad.RecibirVoid());
    for (const IID& desde : interfaces)
        for (const IID& hasta : interfaces) {
            PunteroCom<IUnknown> primera;
            PunteroCom<IUnknown> segunda;
            PunteroCom<IUnknown> vuelta;
            Exigir(o->QueryInterface(desde, primera.RecibirVoid()) == S_OK, "QueryInterface");
            Exigir(primera->QueryInterface(hasta, segunda.RecibirVoid()) == S_OK, "de una a otra");
            Exigir(segunda->QueryInterface(IID_IUnknown, vuelta.RecibirVoid()) == S_OK, "de vuelta");
            Exigir(vuelta.Get() == identidad.Get(), "una sola identidad");
        }
    void* nada = o.Get();
    Exigir(o->QueryInterface(kDesconocido, &nada) == E_NOINTERFACE && nada == nullptr, "interfaz desconocida");
    Exigir(o->QueryInterface(IID_IUnknown, nullptr) == E_POINTER, "QueryInterface a nulo");
    Exigir(Referencias(*o.Get()) == 2, "referencias de más");
}

void ProbarFabrica() {
    PunteroCom<IClassFactory> fabrica;
    Exigir(CoGetClassObject(CLSID_clsDatosArt, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                            fabrica.RecibirVoid()) == S_OK,
           "fábrica");
    PunteroCom<ConexionFalsa> exterior;
    *exterior.Recibir() = new ConexionFalsa(ado::kConnection[0]);
    void* nada = exterior.Get();
    Exigir(fabrica->CreateInstance(exterior.Get(), IID_IUnknown, &nada) == CLASS_E_NOAGGREGATION && nada == nullptr,
           "no se agrega");
    Exigir(fabrica->CreateInstance(nullptr, kDesconocido, &nada) == E_NOINTERFACE && nada == nullptr, "sin interfaz");
    Exigir(fabrica->CreateInstance(nullptr, IID_IUnknown, nullptr) == E_POINTER, "creación a nulo");
    Exigir(fabrica->QueryInterface(IID_IDispatch, &nada) == E_NOINTERFACE && nada == nullptr,
           "la fábrica no es Dispatch");
    Exigir(fabrica->LockServer(TRUE) == S_OK, "bloqueo");
    fabrica = {};
    Exigir(SePuedeDescargar() == S_FALSE, "bloqueada, no se descarga");
    CoGetClassObject(CLSID_clsDatosArt, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, fabrica.RecibirVoid());
    fabrica->LockServer(FALSE);
    fabrica = {};
    Exigir(SePuedeDescargar() == S_OK, "desbloqueada");
}

void ProbarPadre(const Escena& escena) {
    int conPadre = 0;
    for (const Caso& caso : escena.casos) {
        auto o = escena.Preparar(caso);
        if (caso.padre.empty() && conPadre > 0) continue;
        escena.Cargar(*o.Get(), caso);
        Global().pasos = caso.pasosPadre;
        PunteroCom<::_clsDatosArt> padre;
        PunteroCom<::_clsDatosArt> otraVez;
        Exigir(o->get_padre(padre.Recibir()) == S_OK && o->get_padre(otraVez.Recibir()) == S_OK, "padre");
        Exigir(Global().pasos.empty() && padre.Get() == otraVez.Get(), "el padre se carga una vez y es uno");
        Exigir(static_cast<bool>(padre) != caso.padre.empty(), "hay padre o no");
        if (!padre) continue;
        ++conPadre;
        otraVez = {};
        Exigir(o->get_padre(nullptr) == E_POINTER, "padre a nulo");
        o = {};
        Exigir(Referencias(*padre.Get()) == 1, "el padre queda sólo nuestro");
        Exigir(std::to_string(std::get<std::int32_t>(Leer(*padre.Get(), "Codigo"))) == caso.padre[0], "artículo padre");
        Exigir(Codificar(Leer(*padre.Get(), "Pvp")) == caso.padre[1], "precio del padre");
        short estado = 0;
        Exigir(padre->Cargar(1, 1, 46000, 1, 1, 2, CURRENCY{}, &estado) == static_cast<HRESULT>(0x800A005B),
               "el padre no hereda la conexión");
        Exigir(SePuedeDescargar() == S_FALSE, "el padre retiene la DLL");
    }
    Exigir(conPadre > 0, "alguno con padre");
    Exigir(SePuedeDescargar() == S_OK, "padres devueltos");
}

/// The thread's error object and the record of a by-name call say the same.
void ProbarErrores(const Escena& escena) {
    PunteroCom<EmpresaFalsa> incompleta;
    *incompleta.Recibir() = new EmpresaFalsa;
    incompleta->falta = "CodEmpresaClientes";
    const struct {
        const char* que;
        IDispatch* conexion;
        IDispatch* empresa;
        double fecha;
        std::uint32_t numero;
        const char* origen;
        const char* descripcion;
    } casos[] = {
        {"sin Conexion", nullptr, escena.empresa.Get(), 46000, 0x800A005B,
         "clsCliente::", "Variable de objeto no establecida: Conexion"},
        {"sin cEmpresa", escena.conexion.Get(), nullptr, 46000, 0x800A005B,
         "clsCliente::", "Variable de objeto no establecida: cEmpresa"},
        {"empresa sin un miembro", escena.conexion.Get(), incompleta.Get(), 46000, 0x800A01B6, "",
         "cEmpresa no tiene CodEmpresaClientes"},
        {"fecha imposible", escena.conexion.Get(), escena.empresa.Get(), 1e300, 0x800A0006, "KVDatosArt",
         "Desbordamiento"},
        {"del proveedor", escena.conexion.Get(), escena.empresa.Get(), 46000, 0x80040E14, "", "de más: |SELECT"},
    };
    for (const auto& c : casos) {
        const auto o = Crear();
        o->putref_Conexion(c.conexion);
        o->putref_cEmpresa(c.empresa);
        Global().pasos.clear();
        short estado = -1;
        const HRESULT hr = o->Cargar(1, 1, c.fecha, 1, 1, 2, CURRENCY{}, &estado);
        const std::string texto = TextoError();
        Exigir(static_cast<std::uint32_t>(hr) == c.numero && estado == 0, std::string(c.que) + ": número");
        Exigir(texto.starts_with(c.descripcion), std::string(c.que) + ": " + texto);
        VARIANT fecha{};
        fecha.vt = VT_DATE;
        fecha.date = c.fecha;
        VARIANT uno{};
        uno.vt = VT_I2;
        uno.iVal = 1;
        Llamada ll;
        PorNombre(ll, *o.Get(), "Cargar", DISPATCH_METHOD, {uno, uno, fecha, uno, uno, uno});
        Exigir(ll.hr == DISP_E_EXCEPTION && ll.numero == hr && ll.descripcion == texto,
               std::string(c.que) + ": por nombre");
        Exigir(ll.origen.starts_with(c.origen) && !ll.origen.empty(), std::string(c.que) + ": origen " + ll.origen);
    }
}

void ProbarNulos() {
    const auto o = Crear();
    const struct {
        const char* que;
        HRESULT hr;
    } casos[] = {
        {"Cargar", o->Cargar(1, 1, 46000, 1, 1, 2, CURRENCY{}, nullptr)},
        {"DevPvp", o->DevPvp(1, 46000, 0, nullptr)},
        {"GetTypeInfoCount", o->GetTypeInfoCount(nullptr)},
        {"GetTypeInfo", o->GetTypeInfo(0, 0, nullptr)},
        {"GetIDsOfNames", o->GetIDsOfNames(IID_NULL, nullptr, 1, 0, nullptr)},
    };
    for (const auto& c : casos) Exigir(c.hr == E_POINTER, std::string(c.que) + " a nulo");
    PunteroCom<ITypeInfo> info;
    Exigir(o->GetTypeInfo(1, 0, info.Recibir()) == DISP_E_BADINDEX, "índice de la descripción");
    Exigir(o->Invoke(1, IID_NULL, 0, DISPATCH_PROPERTYGET, nullptr, nullptr, nullptr, nullptr) == E_INVALIDARG,
           "Invoke");
    DISPPARAMS sin{};
    Exigir(
        o->Invoke(1, kDesconocido, 0, DISPATCH_PROPERTYGET, &sin, nullptr, nullptr, nullptr) == DISP_E_UNKNOWNINTERFACE,
        "Invoke con interfaz");
    Exigir(o->put_Descripcion(nullptr) == S_OK && Codificar(Leer(*o.Get(), "Descripcion")) == "10:",
           "texto nulo, vacío");
}

}  // namespace

void ProbarObjetos(const Escena& escena) {
    ProbarIndependencia(escena);
    ProbarReferencias(escena);
    ProbarIdentidad();
    ProbarFabrica();
    ProbarPadre(escena);
    ProbarErrores(escena);
    ProbarNulos();
}

}  // namespace kv::prueba
