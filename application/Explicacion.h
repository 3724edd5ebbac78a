#pragma once

#include <string>
#include <vector>

#include "kvdatosart/application/Frase.h"
#include "kvdatosart/application/Sesion.h"
#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/base/Valor.h"
#include "kvdatosart/pricing/ObservadorCarga.h"

namespace kv::aplicacion {

/// For whom and when a load was made, as its explanation needs to know it.
struct AsuntoExplicado {
    std::int32_t articulo = 0;
    std::int32_t cliente = 0;
    Fecha fecha;
    std::uint8_t cualidadX = 0;
};

/// One source of the price, in the order in which they were asked.
struct PasoExplicado {
    std::string fuente;
    /// What was asked of it: a tariff, a node, a discount.
    Frase clave;
    Frase resultado;
    /// What the two sentences say, for programs: the tariff, the node ("1.1.2") and the price, percentage or amount
    /// that the source had; NULL where it has none.
    Valor tarifa = Nulo{};
    Valor nodo = Nulo{};
    Valor importe = Nulo{};
    /// The price before and after; NULL for what does not touch it.
    Valor antes = Nulo{};
    Valor despues = Nulo{};
    /// It set the price and nothing replaced it later.
    bool decide = false;
    /// It had nothing to say about this line; `resultado` tells why.
    bool vacia = false;
};

/// Why a line has its price: listens to a load and tells it source by source, in the order in which they were asked.
/// Why a source had nothing is looked up afterwards, outside the load.
class Explicacion : public ObservadorCarga {
  public:
    explicit Explicacion(const AsuntoExplicado& asunto) : asunto_(asunto) {}

    void Tarifa(const TarifaProbada& tarifa) override;
    void Paso(const PasoPrecio& paso) override;
    void DescuentoLinea(FuenteDescuento fuente, Currency porcentaje) override;
    void DescuentoFallido(FuenteDescuento fuente, std::string_view procedimiento, std::string_view fallo) override;
    void NodoBase(const NivelesCadena& nodo, const DiasAcuerdo* acuerdo, Currency base) override;
    void NodoDescuentos(const NivelesCadena& nodo, const DiasAcuerdo* acuerdo, int aplicables) override;
    void DescuentoCadena(const DescuentoAplicado& descuento) override;

    /// What was heard, with the reasons looked up. A database failure reaches the caller.
    std::vector<PasoExplicado> Pasos(const Sesion& sesion) const;

  private:
    /// Why a source had nothing, to be found out in the database.
    enum class Duda : std::uint8_t { Ninguna, Tarifa, Cambio, PrecioCliente, Nodo, Convenio };

    struct Renglon {
        PasoExplicado paso;
        Duda duda = Duda::Ninguna;
        std::int16_t tarifa = 0;
        bool porCualidad = false;
        NivelesCadena nodo{};
        /// It set the price.
        bool puso = false;
    };

    Renglon& Nuevo(std::string fuente, Frase clave = {});
    Renglon& NuevoDescuento(FuenteDescuento fuente);
    Renglon& NuevoNodo(const char* fuente, const NivelesCadena& nodo, const DiasAcuerdo* acuerdo, Frase resultado);
    Frase Motivo(const Sesion& sesion, const Renglon& renglon) const;
    std::string MotivoTarifa(const Sesion& sesion, const Renglon& renglon) const;
    std::string MotivoCambio(const Sesion& sesion, const Renglon& renglon) const;
    std::string MotivoNodo(const Sesion& sesion, const Renglon& renglon) const;

    AsuntoExplicado asunto_;
    std::vector<Renglon> renglones_;
    bool preguntadaCadena_ = false;
};

}  // namespace kv::aplicacion
