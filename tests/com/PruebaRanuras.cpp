#include <array>
#include <cstdint>
#include <cstring>

#include "tests/com/Etapas.h"

// Every member of the interface: its description in the type library, its slot and its name.
namespace kv::prueba {
namespace {

constexpr UINT kHeredadas = 7;

struct Miembro {
    const char* nombre;
    const char* tipo;
};

// clang-format off
constexpr Miembro kMiembros[] = {
    {"Codigo", "I4"}, {"Familia_1", "I2"}, {"Familia_2", "I2"}, {"Familia_3", "I2"}, {"Descripcion", "BSTR"},
    {"UxB", "CY"}, {"PvpBase", "CY"}, {"Convenio", "BSTR"}, {"Pvp", "R8"}, {"PvpOriginal", "R8"},
    {"PDescuento", "R4"}, {"Impuesto", "UI1"}, {"Tipo", "BOOL"}, {"CtaVentas", "BSTR"}, {"CtaDVentas", "BSTR"},
    {"PCosto", "R8"}, {"CualidadX", "UI1"}, {"CualidadY", "UI1"}, {"RAEE", "CY"}, {"ECORAEE", "CY"},
    {"FidelizacionPuntos", "I4"}, {"DStock", "BOOL"}, {"Control_Series", "BOOL"}, {"Cod_Envase", "I4"},
    {"Stock", "CY"}, {"Bloqueado", "BOOL"}, {"Control_Caducidad", "BOOL"}, {"Control_Lotes", "BOOL"},
    {"TipoRep", "I2"}, {"Conexion", "set DISPATCH"}, {"cEmpresa", "set DISPATCH"},
    {"DevPvp", "(intTarifa I2, dteFecha DATE, [blnForzarAnterior BOOL=0]) CY"},
    {"Cargar", "(lngCod_Articulo I4, lngCod_Cliente I4, dteFecha DATE, intTarifa I2, intCod_Almacen I2, "
               "intDec_Pvp I2, [curUnidades CY]) I2"},
    {"Largo", "CY"}, {"Ancho", "CY"}, {"Altura", "CY"}, {"BloqueadoVenta", "BOOL"}, {"BloqueadoGral", "BOOL"},
    {"MsjAlerta", "BSTR"}, {"MotivoBaja", "I2"}, {"BajoPedido", "BOOL"}, {"TarifaPVP", "I2"},
    {"PendienteServir", "CY"}, {"PendienteRecibir", "CY"}, {"Impuesto2", "UI1"}, {"UnidadesDecimales", "BOOL"},
    {"Peso", "CY"}, {"padre", "_clsDatosArt*"},
};
static_assert(std::size(kMiembros) == 48);
// clang-format on

/// What a caller of the vtable sees of each function, one text each, in the order of the slots.
std::vector<std::string> Esperadas() {
    std::vector<std::string> lista;
    for (std::size_t i = 0; i < std::size(kMiembros); ++i) {
        const std::string tipo = kMiembros[i].tipo;
        const std::string cabeza = std::to_string(i + 1) + " " + kMiembros[i].nombre;
        if (tipo[0] == '(' || tipo.starts_with("set ")) {
            lista.push_back(cabeza + " " + tipo);
            continue;
        }
        lista.push_back(cabeza + " get " + tipo);
        lista.push_back(cabeza + (tipo.back() == '*' ? " set " : " let ") + tipo);
    }
    return lista;
}

std::string Tipo(ITypeInfo& info, const TYPEDESC& tipo) {
    switch (tipo.vt) {
        case VT_I2:
            return "I2";
        case VT_I4:
            return "I4";
        case VT_R4:
            return "R4";
        case VT_R8:
            return "R8";
        case VT_CY:
            return "CY";
        case VT_DATE:
            return "DATE";
        case VT_BSTR:
            return "BSTR";
        case VT_BOOL:
            return "BOOL";
        case VT_UI1:
            return "UI1";
        case VT_PTR: {
            const std::string apuntado = Tipo(info, *tipo.lptdesc);
            return apuntado == "DISPATCH" ? apuntado : apuntado + "*";
        }
        case VT_DISPATCH:
            return "DISPATCH";
        case VT_USERDEFINED: {
            PunteroCom<ITypeInfo> otro;
            Cadena nombre;
            info.GetRefTypeInfo(tipo.hreftype, otro.Recibir());
            otro->GetDocumentation(MEMBERID_NIL, nombre.Recibir(), nullptr, nullptr, nullptr);
            const std::string texto = Utf8(nombre.Get());
            return texto == "IDispatch" ? "DISPATCH" : texto;
        }
        default:
            return "vt" + std::to_string(tipo.vt);
    }
}

std::string Parametro(ITypeInfo& info, const ELEMDESC& parametro, const std::string& nombre) {
    std::string texto = nombre + " " + Tipo(info, parametro.tdesc);
    const USHORT marcas = parametro.paramdesc.wParamFlags;
    if ((marcas & PARAMFLAG_FHASDEFAULT) != 0) {
        Variante valor;
        VariantChangeType(valor.Recibir(), &parametro.paramdesc.pparamdescex->varDefaultValue, 0, VT_I4);
        texto += "=" + std::to_string(valor.Get().lVal);
    }
    return (marcas & PARAMFLAG_FOPT) != 0 ? "[" + texto + "]" : texto;
}

std::string Funcion(ITypeInfo& info, const FUNCDESC& f) {
    std::array<BSTR, 9> nombres{};
    UINT cuantos = 0;
    info.GetNames(f.memid, nombres.data(), static_cast<UINT>(nombres.size()), &cuantos);
    std::string texto = std::to_string(f.memid) + " " + Utf8(nombres[0]);
    const bool get = f.invkind == INVOKE_PROPERTYGET;
    const int entrantes = f.cParams - (get || f.invkind == INVOKE_FUNC ? 1 : 0);
    std::string salida;
    if (entrantes < f.cParams) {
        const ELEMDESC& ultimo = f.lprgelemdescParam[entrantes];
        salida = Tipo(info, *ultimo.tdesc.lptdesc);
        if ((ultimo.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) == 0) salida += " (no es el resultado)";
    }
    if (get) texto += " get " + salida;
    if (f.invkind == INVOKE_PROPERTYPUT) texto += " let " + Tipo(info, f.lprgelemdescParam[0].tdesc);
    if (f.invkind == INVOKE_PROPERTYPUTREF) texto += " set " + Tipo(info, f.lprgelemdescParam[0].tdesc);
    if (f.invkind == INVOKE_FUNC) {
        texto += " (";
        for (int i = 0; i < entrantes; ++i)
            texto += (i > 0 ? ", " : "") + Parametro(info, f.lprgelemdescParam[i], Utf8(nombres[i + 1u]));
        texto += ") " + salida;
    }
    for (BSTR nombre : nombres) SysFreeString(nombre);
    return texto;
}

/// The vtable's own description behind the dual interface.
PunteroCom<ITypeInfo> Descripcion(::_clsDatosArt& o) {
    PunteroCom<ITypeInfo> dual;
    PunteroCom<ITypeInfo> tabla;
    HREFTYPE referencia = 0;
    Exigir(o.GetTypeInfo(0, 0, dual.Recibir()) == S_OK, "GetTypeInfo");
    Exigir(dual->GetRefTypeOfImplType(static_cast<UINT>(-1), &referencia) == S_OK, "interfaz dual");
    Exigir(dual->GetRefTypeInfo(referencia, tabla.Recibir()) == S_OK, "interfaz de la tabla");
    return tabla;
}

void ProbarDescripcion(ITypeInfo& info) {
    const auto esperadas = Esperadas();
    TYPEATTR* a = nullptr;
    info.GetTypeAttr(&a);
    Exigir(a->typekind == TKIND_INTERFACE && (a->wTypeFlags & TYPEFLAG_FDUAL) != 0, "interfaz dual");
    Exigir(a->cFuncs == esperadas.size(), "número de funciones");
    Exigir(a->cbSizeVft == (kHeredadas + esperadas.size()) * sizeof(void*), "tamaño de la tabla");
    for (UINT i = 0; i < a->cFuncs && i < esperadas.size(); ++i) {
        FUNCDESC* f = nullptr;
        info.GetFuncDesc(i, &f);
        const std::string texto = Funcion(info, *f);
        Exigir(texto == esperadas[i], "|" + texto + "| en vez de |" + esperadas[i] + "|");
        Exigir(f->oVft == static_cast<SHORT>((kHeredadas + i) * sizeof(void*)), "ranura de " + texto);
        Exigir(f->callconv == CC_STDCALL && f->funckind == FUNC_PUREVIRTUAL, "convenio de " + texto);
        info.ReleaseFuncDesc(f);
    }
    info.ReleaseTypeAttr(a);
}

std::vector<Valor> Muestras(const std::string& tipo) {
    if (tipo == "I2") return {std::int16_t{-32768}, std::int16_t{32767}};
    if (tipo == "I4") return {std::int32_t{-2147483647 - 1}, std::int32_t{2147483647}};
    if (tipo == "UI1") return {std::uint8_t{255}, std::uint8_t{1}};
    if (tipo == "BOOL") return {true, false};
    if (tipo == "R4") return {-3.4e38F, 12.375F};
    if (tipo == "R8") return {-1.7e308, 0.1};
    if (tipo == "CY") return {Currency::DeDiezmilesimas(INT64_MIN), Currency::DeDiezmilesimas(INT64_MAX)};
    return {std::string("ñ€\0😀", 10), std::string()};
}

HRESULT PorRanura(::_clsDatosArt& o, std::size_t ranura, VARIANT& argumento) {
    VARTYPE tipo = argumento.vt;
    VARIANTARG* dado = &argumento;
    Variante resultado;
    const HRESULT hr = DispCallFunc(&o, (kHeredadas + ranura) * sizeof(void*), CC_STDCALL, VT_ERROR, 1, &tipo, &dado,
                                    resultado.Recibir());
    return FAILED(hr) ? hr : resultado.Get().scode;
}

std::string LeerPorRanura(::_clsDatosArt& o, std::size_t ranura, VARTYPE tipo) {
    Variante leido;
    leido.Get().vt = tipo;
    VARIANT puntero{};
    puntero.vt = static_cast<VARTYPE>(VT_BYREF | tipo);
    puntero.byref = &leido.Get().byref;
    Exigir(PorRanura(o, ranura, puntero) == S_OK, "lectura por ranura");
    return Codificar(leido.AValor());
}

/// Writes each sample by slot and by name and reads it back both ways; nothing else of the object moves.
void ProbarPropiedad(::_clsDatosArt& o, const Miembro& m, std::size_t ranura) {
    const auto muestras = Muestras(m.tipo);
    for (std::size_t i = 0; i < 2 * muestras.size(); ++i) {
        const Valor& muestra = muestras[i / 2];
        Variante dado(muestra);
        const VARTYPE tipo = dado.Get().vt;
        const HRESULT hr = i % 2 == 0 ? PorRanura(o, ranura + 1, dado.Get()) : Poner(o, m.nombre, dado.Get());
        Exigir(hr == S_OK, std::string("escritura de ") + m.nombre);
        const std::string esperado = Codificar(muestra);
        Exigir(LeerPorRanura(o, ranura, tipo) == esperado, std::string(m.nombre) + " por ranura");
        Exigir(Codificar(Leer(o, m.nombre)) == esperado, std::string(m.nombre) + " por nombre");
    }
    VARIANT nulo{};
    nulo.vt = VT_BYREF | VT_I4;
    Exigir(PorRanura(o, ranura, nulo) == E_POINTER, std::string(m.nombre) + " con puntero nulo");
}

void ProbarPropiedades(::_clsDatosArt& o) {
    std::size_t ranura = 0;
    for (const Miembro& m : kMiembros) {
        const std::string tipo = m.tipo;
        const bool una = tipo[0] == '(' || tipo.starts_with("set ");
        if (!una && tipo.back() != '*') ProbarPropiedad(o, m, ranura);
        ranura += una ? 1 : 2;
    }
    // Each one holds its own last sample still: no two share a place.
    for (const Miembro& m : kMiembros)
        if (const auto muestras = Muestras(m.tipo); std::strchr("(s_", m.tipo[0]) == nullptr)
            Exigir(Codificar(Leer(o, m.nombre)) == Codificar(muestras.back()), std::string(m.nombre) + " al final");
}

}  // namespace

void ProbarRanuras() {
    const auto o = Crear();
    ProbarDescripcion(*Descripcion(*o.Get()).Get());
    ProbarPropiedades(*o.Get());
}

}  // namespace kv::prueba
