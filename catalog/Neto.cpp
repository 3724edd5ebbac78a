#include "kvdatosart/catalog/Neto.h"

#include "kvdatosart/db/BibliotecaComun.h"

namespace kv {
namespace {

// A hundredth, half to even at the fourth decimal.
Currency Centesima(Currency valor) {
    const std::int64_t entera = valor.Diezmilesimas() / 100;
    const std::int64_t resto = valor.Diezmilesimas() % 100;
    const std::int64_t lejos = resto < 0 ? -resto : resto;
    const bool sube = lejos > 50 || (lejos == 50 && entera % 2 != 0);
    return Currency::DeDiezmilesimas(entera + (sube ? (resto < 0 ? -1 : 1) : 0));
}

}  // namespace

Currency Neto(Currency pvp, Currency descuento, std::int16_t decimales) {
    return Biblioteca().Redondear(Centesima(pvp * (Currency::DeEntero(100) - descuento)), decimales);
}

}  // namespace kv
