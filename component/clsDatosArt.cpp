#include "kvdatosart/component/clsDatosArt.h"

namespace kv {

Currency clsDatosArt::DevPvp(std::int16_t intTarifa, Fecha dteFecha, bool blnForzarAnterior) {
    return carga_.DevPvp(*this, intTarifa, dteFecha, blnForzarAnterior);
}

std::int16_t clsDatosArt::Cargar(std::int32_t lngCod_Articulo, std::int32_t lngCod_Cliente, Fecha dteFecha,
                                 std::int16_t intTarifa, std::int16_t intCod_Almacen, std::int16_t intDec_Pvp,
                                 Currency curUnidades) {
    argumentos_ = {lngCod_Cliente, dteFecha, intTarifa, intCod_Almacen, intDec_Pvp, curUnidades};
    padre_.reset();
    return carga_.Cargar(*this, lngCod_Articulo, argumentos_);
}

std::shared_ptr<clsDatosArt> clsDatosArt::padre() {
    if (padre_ && padre_->Codigo != PadreVenta) carga_.Cargar(*padre_, PadreVenta, argumentos_);
    return padre_;
}

}  // namespace kv
