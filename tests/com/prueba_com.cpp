// Runs under Wine against the registered DLL: prueba_com GRABACION

#include <windows.h>

#include <iostream>

#include "tests/com/ComandoFalso.h"
#include "tests/com/Comprobaciones.h"

namespace kv::prueba {
namespace {

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

void Repetir(::_clsDatosArt& o, const Caso& caso) {
    const auto tarifa = static_cast<short>(caso.Numero(4));
    const auto dia = static_cast<DATE>(caso.Numero(3));
    CURRENCY unidades;
    unidades.int64 = caso.Numero(5) * 10000LL;
    short estado = -1;
    Global().pasos = caso.pasos;
    Global().queja.clear();
    o.put_CualidadX(static_cast<unsigned char>(caso.Numero(6)));
    const HRESULT hr = o.Cargar(caso.Numero(1), caso.Numero(2), dia, tarifa, 1, 2, unidades, &estado);
    Exigir(hr == S_OK, "Cargar " + caso.argumentos[1] + "," + caso.argumentos[2]);
    Exigir(estado == caso.estado && Global().pasos.empty(), "estado y guion agotado");
    for (const auto& [nombre, valor] : caso.propiedades) CompararPropiedad(o, nombre, valor);
    Global().pasos = caso.pasosPrecio;
    CURRENCY precio{};
    const HRESULT hrPrecio = o.DevPvp(tarifa, dia, caso.Numero(7) != 0 ? VARIANT_TRUE : VARIANT_FALSE, &precio);
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
    std::cout << casos.size() << " cargas; ";
    return Resumen();
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
