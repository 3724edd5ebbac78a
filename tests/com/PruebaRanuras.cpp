#include "kvdatosart/tests/com/Registrada.h"

// Every member of the interface: its description in the type library, its slot and its name.
namespace kv::prueba {
namespace {

constexpr UINT kHeredadas = 7;

constexpr int kMetodo = INVOKE_FUNC;
constexpr int kGet = INVOKE_PROPERTYGET;
constexpr int kLet = INVOKE_PROPERTYPUT;
constexpr int kSet = INVOKE_PROPERTYPUTREF;

struct Miembro {
    const char* nombre;
    VARTYPE tipo;              // VT_EMPTY when it is no data
    int clases = kGet | kLet;  // its functions, in this order
    const char* firma = " ";   // a method's parameters with their flags: 16 optional, 32 with a default, 10 the result
};

// clang-format off
constexpr Miembro kMiembros[] = {
    {"Codigo", VT_I4}, {"Familia_1", VT_I2}, {"Familia_2", VT_I2}, {"Familia_3", VT_I2}, {"Descripcion", VT_BSTR},
    {"UxB", VT_CY}, {"PvpBase", VT_CY}, {"Convenio", VT_BSTR}, {"Pvp", VT_R8}, {"PvpOriginal", VT_R8},
    {"PDescuento", VT_R4}, {"Impuesto", VT_UI1}, {"Tipo", VT_BOOL}, {"CtaVentas", VT_BSTR}, {"CtaDVentas", VT_BSTR},
    {"PCosto", VT_R8}, {"CualidadX", VT_UI1}, {"CualidadY", VT_UI1}, {"RAEE", VT_CY}, {"ECORAEE", VT_CY},
    {"FidelizacionPuntos", VT_I4}, {"DStock", VT_BOOL}, {"Control_Series", VT_BOOL}, {"Cod_Envase", VT_I4},
    {"Stock", VT_CY}, {"Bloqueado", VT_BOOL}, {"Control_Caducidad", VT_BOOL}, {"Control_Lotes", VT_BOOL},
    {"TipoRep", VT_I2}, {"Conexion", VT_EMPTY, kSet}, {"cEmpresa", VT_EMPTY, kSet},
    {"DevPvp", VT_EMPTY, kMetodo, " intTarifa 1 dteFecha 1 blnForzarAnterior 49=0 precio 10"},
    {"Cargar", VT_EMPTY, kMetodo, " lngCod_Articulo 1 lngCod_Cliente 1 dteFecha 1 intTarifa 1 intCod_Almacen 1"
                                  " intDec_Pvp 1 curUnidades 17 estado 10"},
    {"Largo", VT_CY}, {"Ancho", VT_CY}, {"Altura", VT_CY}, {"BloqueadoVenta", VT_BOOL}, {"BloqueadoGral", VT_BOOL},
    {"MsjAlerta", VT_BSTR}, {"MotivoBaja", VT_I2}, {"BajoPedido", VT_BOOL}, {"TarifaPVP", VT_I2},
    {"PendienteServir", VT_CY}, {"PendienteRecibir", VT_CY}, {"Impuesto2", VT_UI1}, {"UnidadesDecimales", VT_BOOL},
    {"Peso", VT_CY}, {"padre", VT_EMPTY, kGet | kSet},
};
static_assert(std::size(kMiembros) == 48);
// clang-format on

std::string Firma(ITypeInfo& info, const FUNCDESC& f) {
    BSTR nombres[9] = {};
    UINT cuantos = 0;
    info.GetNames(f.memid, nombres, 9, &cuantos);
    std::string texto = Utf8(nombres[0]) + " ";
    for (SHORT i = 0; i < f.cParams; ++i) {
        const PARAMDESC& p = f.lprgelemdescParam[i].paramdesc;
        texto += (i > 0 ? " " : "") + Utf8(nombres[i + 1]) + " " + std::to_string(p.wParamFlags);
        if ((p.wParamFlags & PARAMFLAG_FHASDEFAULT) != 0)
            texto += "=" + std::to_string(p.pparamdescex->varDefaultValue.boolVal);
    }
    for (BSTR nombre : nombres) SysFreeString(nombre);
    return texto;
}

/// The vtable's own description behind the dual interface.
PunteroCom<ITypeInfo> Descripcion(::_clsDatosArt& o) {
    PunteroCom<ITypeInfo> dual;
    PunteroCom<ITypeInfo> tabla;
    HREFTYPE referencia = 0;
    EXPECT_EQ(S_OK, o.GetTypeInfo(0, 0, dual.Recibir()));
    EXPECT_EQ(S_OK, dual->GetRefTypeOfImplType(static_cast<UINT>(-1), &referencia));
    EXPECT_EQ(S_OK, dual->GetRefTypeInfo(referencia, tabla.Recibir()));
    return tabla;
}

std::vector<Valor> Muestras(VARTYPE tipo) {
    if (tipo == VT_I2) return {std::int16_t{-32768}, std::int16_t{32767}};
    if (tipo == VT_I4) return {std::int32_t{-2147483647 - 1}, std::int32_t{2147483647}};
    if (tipo == VT_UI1) return {std::uint8_t{255}, std::uint8_t{1}};
    if (tipo == VT_BOOL) return {true, false};
    if (tipo == VT_R4) return {-3.4e38F, 12.375F};
    if (tipo == VT_R8) return {-1.7e308, 0.1};
    if (tipo == VT_CY) return {Currency::DeDiezmilesimas(INT64_MIN), Currency::DeDiezmilesimas(INT64_MAX)};
    return {std::string("ñ€\0😀", 10), std::string()};
}

/// The type library's own dispatcher goes through the slot that it describes.
void ProbarPropiedad(::_clsDatosArt& o, const Miembro& m) {
    for (const Valor& muestra : Muestras(m.tipo)) {
        EXPECT_EQ(S_OK, Poner(o, m.nombre, muestra)) << m.nombre;
        EXPECT_EQ(Codificar(muestra), Leer(o, m.nombre)) << m.nombre;
    }
}

/// Identifier, kind, slot and name of one function, and the parameters of a method.
void ProbarFuncion(ITypeInfo& info, UINT ranura, const Miembro& m, int clase) {
    FUNCDESC* f = nullptr;
    ASSERT_EQ(S_OK, info.GetFuncDesc(ranura, &f)) << m.nombre;
    EXPECT_EQ(&m - kMiembros + 1, f->memid) << m.nombre;
    EXPECT_EQ(clase, f->invkind) << m.nombre;
    EXPECT_EQ(static_cast<SHORT>((kHeredadas + ranura) * sizeof(void*)), f->oVft) << m.nombre;
    EXPECT_TRUE(Firma(info, *f).starts_with(std::string(m.nombre) + m.firma)) << Firma(info, *f);
    info.ReleaseFuncDesc(f);
}

TEST_F(Registrada, CadaMiembroEnSuRanuraYPorSuNombre) {
    const auto o = Crear();
    const auto info = Descripcion(*o.Get());
    UINT ranura = 0;
    for (const Miembro& m : kMiembros) {
        if (m.tipo != VT_EMPTY) ProbarPropiedad(*o.Get(), m);
        for (const int clase : {kMetodo, kGet, kLet, kSet})
            if ((m.clases & clase) != 0) ProbarFuncion(*info.Get(), ranura++, m, clase);
    }
    FUNCDESC* otra = nullptr;
    EXPECT_NE(S_OK, info->GetFuncDesc(ranura, &otra)) << "ninguna función más";
}

}  // namespace
}  // namespace kv::prueba
