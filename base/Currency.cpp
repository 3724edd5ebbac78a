#include "kvdatosart/base/Currency.h"

#include <array>
#include <cmath>
#include <limits>

#include "kvdatosart/base/Decimal.h"
#include "kvdatosart/base/RuntimeError.h"

namespace kv {
namespace {

constexpr std::int64_t kEscala = 10000;
constexpr std::int64_t kMaximo = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMinimo = std::numeric_limits<std::int64_t>::min();

std::uint64_t Magnitud(std::int64_t valor) {
    return valor < 0 ? 0U - static_cast<std::uint64_t>(valor) : static_cast<std::uint64_t>(valor);
}

std::int64_t ConSigno(std::uint64_t magnitud, bool negativo) {
    constexpr std::uint64_t kLimite = std::uint64_t{1} << 63U;
    if (magnitud > kLimite || (magnitud == kLimite && !negativo)) LanzarError(kErrDesbordamiento);
    return static_cast<std::int64_t>(negativo ? 0U - magnitud : magnitud);
}

// The exact product of the binary value and the scale, half to even: what the multiplication rounded off decides a tie
// and, in large amounts, still counts whole units.
std::int64_t EscalarAlPar(double valor) {
    constexpr auto kFactor = static_cast<double>(kEscala);
    const double producto = valor * kFactor;
    // 2^63 is the first value that does not fit; the comparison is false for NaN.
    if (!(producto >= -0x1p63 && producto < 0x1p63)) LanzarError(kErrDesbordamiento);
    const double sobrante = std::fma(valor, kFactor, -producto);
    const double suelo = std::floor(producto);
    const double resto = producto - suelo;
    auto entero = static_cast<std::int64_t>(suelo);
    if (resto == 0.0) {
        const auto unidades = static_cast<std::int64_t>(std::nearbyint(sobrante));
        if (unidades > 0 ? entero > kMaximo - unidades : entero < kMinimo - unidades) LanzarError(kErrDesbordamiento);
        return entero + unidades;
    }
    const bool mitad = resto == 0.5 && sobrante == 0.0;
    if (mitad ? entero % 2 != 0 : resto > 0.5 || (resto == 0.5 && sobrante > 0.0)) ++entero;
    return entero;
}

}  // namespace

Currency Currency::DeEntero(std::int64_t unidades) {
    if (unidades > kMaximo / kEscala || unidades < kMinimo / kEscala) LanzarError(kErrDesbordamiento);
    return Currency(unidades * kEscala);
}

Currency Currency::DeDouble(double valor) {
    return Currency(EscalarAlPar(valor));
}

Currency Currency::DeTexto(std::string_view texto) {
    const Decimal decimal = LeerDecimal(texto);
    return Currency(ConSigno(EscalarAlPar(decimal, 4), decimal.negativo));
}

TextoNumero Currency::ATexto(char separador) const {
    TextoNumero texto;
    const std::uint64_t magnitud = Magnitud(diezmilesimas_);
    if (diezmilesimas_ < 0) texto.Agregar('-');
    texto.AgregarEntero(static_cast<std::int64_t>(magnitud / kEscala));
    std::uint64_t resto = magnitud % kEscala;
    if (resto == 0) return texto;
    texto.Agregar(separador);
    for (std::uint64_t peso = kEscala / 10; resto != 0; peso /= 10) {
        texto.Agregar(static_cast<char>('0' + resto / peso));
        resto %= peso;
    }
    return texto;
}

std::string Currency::ATextoFijo(int decimales, char separador) const {
    if (decimales < 0) LanzarError(kErrLlamadaInvalida, "número de decimales negativo");
    const std::uint64_t magnitud = Magnitud(diezmilesimas_);
    std::string cifras;
    std::uint64_t resto = magnitud % kEscala;
    bool esCero = magnitud / kEscala == 0;
    for (int i = 0; i < decimales; ++i) {
        resto *= 10;
        const auto cifra = resto / kEscala;
        resto %= kEscala;
        esCero = esCero && cifra == 0;
        cifras += static_cast<char>('0' + cifra);
    }
    std::string texto = diezmilesimas_ < 0 && !esCero ? "-" : "";
    texto += TextoEntero(static_cast<std::int64_t>(magnitud / kEscala));
    if (decimales > 0) texto += separador + cifras;
    return texto;
}

Currency Currency::RedondearAlejando(int decimales) const {
    if (decimales < 0) LanzarError(kErrLlamadaInvalida, "número de decimales negativo");
    if (decimales >= 4) return *this;
    constexpr std::array<std::uint64_t, 4> kPasos = {10000, 1000, 100, 10};
    const std::uint64_t paso = kPasos[static_cast<std::size_t>(decimales)];
    const std::uint64_t magnitud = Magnitud(diezmilesimas_);
    const std::uint64_t redondeada = (magnitud / paso + (magnitud % paso * 2 >= paso ? 1 : 0)) * paso;
    return Currency(ConSigno(redondeada, diezmilesimas_ < 0));
}

Currency Currency::operator-() const {
    if (diezmilesimas_ == kMinimo) LanzarError(kErrDesbordamiento);
    return Currency(-diezmilesimas_);
}

Currency& Currency::operator+=(Currency otro) {
    if ((otro.diezmilesimas_ > 0 && diezmilesimas_ > kMaximo - otro.diezmilesimas_) ||
        (otro.diezmilesimas_ < 0 && diezmilesimas_ < kMinimo - otro.diezmilesimas_))
        LanzarError(kErrDesbordamiento);
    diezmilesimas_ += otro.diezmilesimas_;
    return *this;
}

Currency& Currency::operator-=(Currency otro) {
    if ((otro.diezmilesimas_ < 0 && diezmilesimas_ > kMaximo + otro.diezmilesimas_) ||
        (otro.diezmilesimas_ > 0 && diezmilesimas_ < kMinimo + otro.diezmilesimas_))
        LanzarError(kErrDesbordamiento);
    diezmilesimas_ -= otro.diezmilesimas_;
    return *this;
}

Currency operator*(Currency a, Currency b) {
    // (qa·10^4 + ra)·(qb·10^4 + rb) / 10^4, in pieces that fit 64 bits: 32-bit targets have no wider integer.
    constexpr auto kPaso = static_cast<std::uint64_t>(kEscala);
    const std::uint64_t ma = Magnitud(a.diezmilesimas_);
    const std::uint64_t mb = Magnitud(b.diezmilesimas_);
    const std::uint64_t qa = ma / kPaso;
    const std::uint64_t ra = ma % kPaso;
    constexpr std::uint64_t kTope = std::numeric_limits<std::uint64_t>::max();
    const std::uint64_t rb = mb % kPaso;
    if (qa != 0 && mb > kTope / qa) LanzarError(kErrDesbordamiento);
    const std::uint64_t alto = qa * mb;
    const std::uint64_t medio = ra * (mb / kPaso);
    std::uint64_t bajo = ra * rb / kPaso;
    const std::uint64_t resto = ra * rb % kPaso;
    if (alto > kTope - medio || alto + medio > kTope - bajo - 1) LanzarError(kErrDesbordamiento);
    bajo += alto + medio;
    if (resto * 2 > kPaso || (resto * 2 == kPaso && bajo % 2 == 1)) ++bajo;
    return Currency(ConSigno(bajo, (a.diezmilesimas_ < 0) != (b.diezmilesimas_ < 0)));
}

}  // namespace kv
