// Runs under Wine against the registered DLL: prueba_com GRABACION

#include <windows.h>

#include <fstream>
#include <iostream>

#include "KVDatosArt_h.h"
#include "tests/com/ComandoFalso.h"

namespace kv::prueba {
namespace {

int pasadas = 0;
int fallidas = 0;

void Exigir(bool bien, const std::string& que) {
    ++(bien ? pasadas : fallidas);
    if (!bien && fallidas < 20) std::cout << "FALLA: " << que << " " << Global().queja << std::endl;
}

PunteroCom<::_clsDatosArt> Crear() {
    CLSID clase;
    PunteroCom<::_clsDatosArt> objeto;
    HRESULT hr = CLSIDFromProgID(L"KVDatosArt.clsDatosArt", &clase);
    if (SUCCEEDED(hr))
        hr = CoCreateInstance(clase, nullptr, CLSCTX_INPROC_SERVER, IID__clsDatosArt, objeto.RecibirVoid());
    Exigir(hr == S_OK, "creación por ProgID");
    if (FAILED(hr)) throw std::runtime_error("no se crea el objeto");
    return objeto;
}

Valor Leer(::_clsDatosArt& o, const std::string& nombre) {
    const Cadena ancho(nombre);
    OLECHAR* pedido = ancho.Get();
    DISPID id = 0;
    DISPPARAMS sin{};
    Variante valor;
    if (FAILED(o.GetIDsOfNames(IID_NULL, &pedido, 1, LOCALE_USER_DEFAULT, &id))) return std::string("sin nombre");
    if (FAILED(o.Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYGET, &sin, valor.Recibir(), nullptr, nullptr)))
        return std::string("sin valor");
    return valor.AValor();
}

void Liberar(BSTR texto) {
    SysFreeString(texto);
}
template <class Otro>
void Liberar(const Otro&) {}

/// By vtable and by name give the same value, in the recorded type.
void CompararPropiedad(::_clsDatosArt& o, const std::string& nombre, const std::string& esperado) {
    const std::string leido = Codificar(Leer(o, nombre));
    Exigir(leido == esperado, nombre + ": " + leido + " en vez de " + esperado);
#define KV_PROPIEDAD(miembro, tipo)                                                \
    if (nombre == #miembro) {                                                      \
        tipo valor{};                                                              \
        Exigir(o.get_##miembro(&valor) == S_OK, "get_" #miembro);                  \
        tipo otra = valor;                                                         \
        Exigir(o.put_##miembro(otra) == S_OK, "put_" #miembro);                    \
        Exigir(Codificar(Leer(o, nombre)) == esperado, "put_" #miembro " cambia"); \
        Liberar(valor);                                                            \
    }
#include "component/com/Propiedades.inc"
#undef KV_PROPIEDAD
}

std::string TextoError() {
    PunteroCom<IErrorInfo> info;
    Cadena texto;
    if (GetErrorInfo(0, info.Recibir()) == S_OK) info->GetDescription(texto.Recibir());
    return Utf8(texto.Get());
}

struct Caso {
    std::vector<std::string> argumentos;
    std::deque<Paso> pasos;
    std::deque<Paso> pasosPrecio;
    int estado = 0;
    std::vector<std::pair<std::string, std::string>> propiedades;
    std::string precio;
    long error = 0;
};

std::vector<Caso> LeerGrabacion(const char* ruta, std::map<std::string, Valor>& empresa) {
    std::ifstream entrada(ruta, std::ios::binary);
    std::vector<Caso> casos;
    bool cargado = false;
    for (std::string linea; std::getline(entrada, linea);) {
        const auto c = Partir(linea);
        const char clase = c[0][0];
        if (clase == 'E') empresa[c[1]] = Decodificar(c[2]);
        if (clase == 'C') casos.emplace_back().argumentos = c, cargado = false;
        if (casos.empty()) continue;
        Caso& caso = casos.back();
        auto& pasos = cargado ? caso.pasosPrecio : caso.pasos;
        if (clase == 'O' || clase == 'P') pasos.emplace_back().clase = clase, pasos.back().texto = c[1];
        if (clase == 'F')
            for (std::size_t i = 1; i + 1 < c.size(); i += 2)
                pasos.back().fila.emplace_back(c[i], Decodificar(c[i + 1]));
        if (clase == 'p') pasos.back().parametros.push_back(linea.substr(2));
        if (clase == 's') pasos.back().salidas.push_back(Decodificar(c[2]));
        if (clase == 'R') caso.estado = std::stoi(c[1]), cargado = true;
        if (clase == 'V') caso.propiedades.emplace_back(c[1], c[2]);
        if (clase == 'D') caso.precio = c[1];
        if (clase == 'X') caso.error = std::stol(c[1]);
    }
    return casos;
}

void Repetir(::_clsDatosArt& o, const Caso& caso) {
    const auto numero = [&](std::size_t i) { return std::stol(caso.argumentos[i]); };
    const auto tarifa = static_cast<short>(numero(4));
    const auto dia = static_cast<DATE>(numero(3));
    CURRENCY unidades;
    unidades.int64 = numero(5) * 10000LL;
    short estado = -1;
    Global().pasos = caso.pasos;
    Global().queja.clear();
    o.put_CualidadX(static_cast<unsigned char>(numero(6)));
    const HRESULT hr = o.Cargar(numero(1), numero(2), dia, tarifa, 1, 2, unidades, &estado);
    Exigir(hr == S_OK, "Cargar " + caso.argumentos[1] + "," + caso.argumentos[2]);
    Exigir(estado == caso.estado && Global().pasos.empty(), "estado y guion agotado");
    for (const auto& [nombre, valor] : caso.propiedades) CompararPropiedad(o, nombre, valor);
    Global().pasos = caso.pasosPrecio;
    CURRENCY precio{};
    const HRESULT hrPrecio = o.DevPvp(tarifa, dia, VARIANT_TRUE, &precio);
    if (caso.error != 0)
        Exigir(hrPrecio == static_cast<HRESULT>(0x800A0000L + caso.error), "error de DevPvp");
    else
        Exigir(hrPrecio == S_OK && std::to_string(precio.int64) == caso.precio, "DevPvp");
}

void ProbarErrores(const PunteroCom<ado::Connection>& cn) {
    auto o = Crear();
    short estado = 0;
    CURRENCY nada{};
    Exigir(o->Cargar(1, 1, 46000, 1, 1, 2, nada, &estado) == static_cast<HRESULT>(0x800A005B), "sin Conexion: 91");
    Exigir(TextoError().find("establecida") != std::string::npos, "texto del error 91");
    auto* noEs = new EmpresaFalsa;
    Exigir(o->putref_Conexion(noEs) == static_cast<HRESULT>(0x800A000D), "no es una conexión ADO: 13");
    Exigir(TextoError().find("ADO") != std::string::npos, "texto del error 13");
    noEs->falta = "CodEmpresaClientes";
    o->putref_Conexion(cn.Get());
    o->putref_cEmpresa(noEs);
    noEs->Release();
    Exigir(o->Cargar(1, 1, 46000, 1, 1, 2, nada, &estado) == static_cast<HRESULT>(0x800A01B6), "sin miembro: 438");
    Exigir(o->Cargar(1, 1, 46000, 1, 1, 2, nada, nullptr) == E_POINTER, "puntero nulo");
    Exigir(o->DevPvp(1, 1e300, 0, &nada) == static_cast<HRESULT>(0x800A0006), "fecha fuera de rango: 6");
    Global().pasos.clear();
    Exigir(o->DevPvp(1, 46000, 0, &nada) != S_OK, "DevPvp sin empresa completa");
    auto otro = Crear();
    Exigir(o->putref_padre(otro.Get()) == S_OK, "padre se pone");
    o->putref_padre(nullptr);
}

void ProbarTipos() {
    auto o = Crear();
    PunteroCom<ITypeInfo> info;
    Exigir(o->GetTypeInfo(0, 0, info.Recibir()) == S_OK, "GetTypeInfo");
    TYPEATTR* atributos = nullptr;
    if (!info || FAILED(info->GetTypeAttr(&atributos))) return;
    DISPID mayor = 0;
    for (UINT i = 0; i < atributos->cFuncs; ++i) {
        FUNCDESC* funcion = nullptr;
        if (FAILED(info->GetFuncDesc(i, &funcion))) continue;
        if (funcion->memid > 0 && funcion->memid < 0x1000) {
            Exigir(funcion->memid >= mayor, "orden de los miembros");
            mayor = funcion->memid;
        }
        info->ReleaseFuncDesc(funcion);
    }
    info->ReleaseTypeAttr(atributos);
    Exigir(mayor == 48, "48 miembros");
}

int Todo(const char* ruta) {
    auto* rs = new FabricaFalsa<RecordsetFalso>(ado::kRecordset[1]);
    auto* cmd = new FabricaFalsa<ComandoFalso>(ado::kCommand[0]);
    DWORD r1 = 0;
    DWORD r2 = 0;
    Exigir(CoRegisterClassObject(ado::kClaseRecordset, rs, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &r1) == S_OK,
           "rs");
    Exigir(CoRegisterClassObject(ado::kClaseCommand, cmd, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &r2) == S_OK,
           "cmd");
    auto* empresa = new EmpresaFalsa;
    const auto casos = LeerGrabacion(ruta, empresa->valores);
    Exigir(casos.size() >= 200, "al menos 200 casos");
    const long antes = Global().vivos;
    for (std::size_t i = 0; i < casos.size(); ++i) {
        PunteroCom<ado::Connection> cn;
        *cn.Recibir() = new ConexionFalsa(ado::kConnection[i % 4]);
        auto o = Crear();
        Exigir(o->putref_Conexion(cn.Get()) == S_OK && o->putref_cEmpresa(empresa) == S_OK, "referencias");
        empresa->preguntas.clear();
        Repetir(*o.Get(), casos[i]);
        for (const auto& [nombre, veces] : empresa->preguntas) Exigir(veces == 1, nombre + " resuelto una vez");
    }
    {
        PunteroCom<ado::Connection> cn;
        *cn.Recibir() = new ConexionFalsa(ado::kConnection[0]);
        ProbarErrores(cn);
    }
    ProbarTipos();
    Exigir(Global().vivos == antes, "las referencias vuelven a cero");
    CoFreeUnusedLibrariesEx(0, 0);
    Exigir(GetModuleHandleW(L"KVDatosArt.dll") == nullptr, "la DLL se descarga");
    std::cout << casos.size() << " cargas; " << pasadas << " passed, " << fallidas << " failed" << std::endl;
    return fallidas == 0 ? 0 : 1;
}

}  // namespace
}  // namespace kv::prueba

int main(int argc, char** argv) {
    if (argc != 2 || FAILED(CoInitialize(nullptr))) return 2;
    try {
        return kv::prueba::Todo(argv[1]);
    } catch (const std::exception& error) {
        std::cout << "FALLA: " << error.what() << std::endl;
        return 1;
    }
}
