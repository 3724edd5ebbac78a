#include "kvdatosart/db/ado/Variante.h"

#include <new>
#include <type_traits>

#include "kvdatosart/base/RuntimeError.h"

namespace kv {
namespace {

// Divides the 96 bits by ten; false, and nothing changed, when they are no multiple.
bool QuitarCero(DECIMAL& decimal) {
    const ULONG partes[] = {decimal.Hi32, decimal.Mid32, decimal.Lo32};
    ULONG cociente[3];
    std::uint64_t resto = 0;
    for (int i = 0; i < 3; ++i) {
        const std::uint64_t parte = (resto << 32) | partes[i];
        cociente[i] = static_cast<ULONG>(parte / 10);
        resto = parte % 10;
    }
    if (resto != 0) return false;
    decimal.Hi32 = cociente[0];
    decimal.Mid32 = cociente[1];
    decimal.Lo32 = cociente[2];
    --decimal.scale;
    return true;
}

Valor DeDecimal(DECIMAL decimal) {
    // A column of six decimals that holds 12.500000 is as exact as one of two.
    while (decimal.scale > 4 && QuitarCero(decimal)) continue;
    constexpr std::uint64_t kMayor = INT64_MAX;
    std::uint64_t diezmilesimas = decimal.Lo64;
    bool cabe = decimal.Hi32 == 0 && decimal.scale <= 4;
    for (int escala = decimal.scale; cabe && escala < 4; ++escala) {
        cabe = diezmilesimas <= kMayor / 10;
        diezmilesimas *= 10;
    }
    if (cabe && diezmilesimas <= kMayor) {
        const auto importe = static_cast<std::int64_t>(diezmilesimas);
        return Currency::DeDiezmilesimas((decimal.sign & DECIMAL_NEG) != 0 ? -importe : importe);
    }
    double doble = 0;
    if (FAILED(VarR8FromDec(&decimal, &doble))) LanzarError(kErrDesbordamiento);
    return doble;
}

struct Rellenar {
    VARIANT& v;

    void operator()(Nulo) const { v.vt = VT_NULL; }
    void operator()(bool x) const { v.vt = VT_BOOL, v.boolVal = x ? VARIANT_TRUE : VARIANT_FALSE; }
    void operator()(std::uint8_t x) const { v.vt = VT_UI1, v.bVal = x; }
    void operator()(std::int16_t x) const { v.vt = VT_I2, v.iVal = x; }
    void operator()(std::int32_t x) const { v.vt = VT_I4, v.lVal = x; }
    void operator()(std::int64_t x) const { v.vt = VT_I8, v.llVal = x; }
    void operator()(float x) const { v.vt = VT_R4, v.fltVal = x; }
    void operator()(double x) const { v.vt = VT_R8, v.dblVal = x; }
    void operator()(Currency x) const { v.vt = VT_CY, v.cyVal.int64 = x.Diezmilesimas(); }
    void operator()(Fecha x) const { v.vt = VT_DATE, v.date = x.AOle(); }
    void operator()(const std::string& x) const { v.bstrVal = Cadena(x).Soltar(), v.vt = VT_BSTR; }
};

}  // namespace

Variante::Variante(const Valor& valor) : Variante() {
    std::visit(Rellenar{v_}, valor);
}

Variante::Variante(std::string_view texto) : Variante() {
    v_.bstrVal = Cadena(texto).Soltar();
    v_.vt = VT_BSTR;
}

Variante::Variante(IDispatch* objeto) : Variante() {
    if (objeto != nullptr) objeto->AddRef();
    v_.pdispVal = objeto;
    v_.vt = VT_DISPATCH;
}

Valor Variante::AValor() const {
    if ((v_.vt & VT_BYREF) != 0) {
        VARIANT referencia = v_;
        Variante copia;
        if (FAILED(VariantCopyInd(&copia.v_, &referencia)))
            LanzarError(kErrTipo, "VARIANT de tipo " + std::to_string(v_.vt));
        return copia.AValor();
    }
    switch (v_.vt) {
        case VT_NULL:
        case VT_EMPTY:
            return Nulo{};
        case VT_BOOL:
            return v_.boolVal != VARIANT_FALSE;
        case VT_UI1:
            return static_cast<std::uint8_t>(v_.bVal);
        case VT_I1:
            return static_cast<std::int16_t>(static_cast<signed char>(v_.cVal));
        case VT_I2:
            return static_cast<std::int16_t>(v_.iVal);
        case VT_UI2:
            return static_cast<std::int32_t>(v_.uiVal);
        case VT_I4:
        case VT_INT:
            return static_cast<std::int32_t>(v_.lVal);
        case VT_UI4:
        case VT_UINT:
            return static_cast<std::int64_t>(v_.ulVal);
        case VT_I8:
            return static_cast<std::int64_t>(v_.llVal);
        case VT_UI8:
            if (v_.ullVal > static_cast<ULONGLONG>(INT64_MAX)) LanzarError(kErrDesbordamiento);
            return static_cast<std::int64_t>(v_.ullVal);
        case VT_R4:
            return v_.fltVal;
        case VT_R8:
            return v_.dblVal;
        case VT_CY:
            return Currency::DeDiezmilesimas(v_.cyVal.int64);
        case VT_DATE:
            return Fecha::DeOle(v_.date);
        case VT_DECIMAL:
            return DeDecimal(v_.decVal);
        case VT_BSTR:
            return Utf8(v_.bstrVal);
        default:
            LanzarError(kErrTipo, "VARIANT de tipo " + std::to_string(v_.vt));
    }
}

Cadena::Cadena(std::string_view utf8) {
    const int bytes = static_cast<int>(utf8.size());
    const int unidades = bytes == 0 ? 0 : MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, nullptr, 0);
    b_ = SysAllocStringLen(nullptr, static_cast<UINT>(unidades));
    if (b_ == nullptr) throw std::bad_alloc();
    if (unidades > 0) MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, b_, unidades);
}

std::string Utf8(BSTR texto) {
    const int unidades = static_cast<int>(SysStringLen(texto));
    if (unidades == 0) return {};
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, texto, unidades, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, texto, unidades, utf8.data(), bytes, nullptr, nullptr);
    return utf8;
}

}  // namespace kv
