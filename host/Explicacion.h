#pragma once

#include <string>
#include <vector>

#include "base/Fecha.h"
#include "host/Sesion.h"
#include "pricing/ObservadorCarga.h"

namespace kv::host {

/// For whom and when a load was made, as its explanation needs to know it.
struct AsuntoExplicado {
    std::int32_t articulo = 0;
    std::int32_t cliente = 0;
    Fecha fecha;
    std::uint8_t cualidadX = 0;
};

/// Why a line has its price: listens to a load and tells it source by source, in the order in which they were asked.
/// Why a source had nothing is looked up afterwards, outside the load.
class Explicacion : public ObservadorCarga {
  public:
    explicit Explicacion(const AsuntoExplicado& asunto) : asunto_(asunto) {}

    void Tarifa(const TarifaProbada& tarifa) override;
    void Paso(const PasoPrecio& paso) override;
    void DescuentoLinea(FuenteDescuento fuente, Currency porcentaje) override;
    void NodoBase(const NivelesCadena& nodo, const DiasAcuerdo* acuerdo, Currency base) override;
    void NodoDescuentos(const NivelesCadena& nodo, const DiasAcuerdo* acuerdo, int aplicables) override;
    void DescuentoCadena(const DescuentoAplicado& descuento) override;

    /// Adds the explanation to the session's answer.
    void Escribir(Sesion& sesion) const;

  private:
    /// Why a source had nothing, to be found out in the database.
    enum class Duda : std::uint8_t { Ninguna, Tarifa, Cambio, PrecioCliente, Nodo, Convenio };

    struct Renglon {
        std::string fuente;
        std::string clave;
        std::string resultado;
        Valor antes = Nulo{};
        Valor despues = Nulo{};
        Duda duda = Duda::Ninguna;
        std::int16_t tarifa = 0;
        bool porCualidad = false;
        NivelesCadena nodo{};
        /// It set the price.
        bool puso = false;
    };

    Renglon& Nuevo(std::string fuente, std::string clave);
    void NuevoNodo(const char* fuente, const NivelesCadena& nodo, const DiasAcuerdo* acuerdo,
                   const std::string& resultado);
    std::string Motivo(Sesion& sesion, const Renglon& renglon) const;
    std::string MotivoTarifa(Sesion& sesion, const Renglon& renglon) const;
    std::string MotivoCambio(Sesion& sesion, const Renglon& renglon) const;
    std::string MotivoNodo(Sesion& sesion, const Renglon& renglon) const;

    AsuntoExplicado asunto_;
    std::vector<Renglon> renglones_;
    bool preguntadaCadena_ = false;
};

}  // namespace kv::host
