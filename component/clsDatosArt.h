#pragma once

#include <cstdint>
#include <memory>

#include "kvdatosart/pricing/CargaArticulo.h"
#include "kvdatosart/pricing/DatosArticulo.h"

namespace kv {

/// The component's public class: an article as a sales line needs it, for a customer, on a date, in a tariff, from a
/// warehouse. Give it `Conexion` and `cEmpresa`, then call `Cargar` and read the data properties.
/// Failures reach the host unchanged (see RuntimeError); what was assigned before one keeps its new value.
/// One thread's, as its connection is: prices at the same time need an object and a connection for each thread.
class clsDatosArt : public DatosArticulo {
  public:
    /// The open connection, shared with the host. Error 91 from any method that needs it and was not given it.
    void Conexion(std::shared_ptr<Connection> conexion) { carga_.Conexion(std::move(conexion)); }
    /// The company, shared with the host. Error 91 as above.
    void cEmpresa(std::shared_ptr<kv::cEmpresa> empresa) { carga_.cEmpresa(std::move(empresa)); }

    /// Tariff price of the article in `Codigo` (and `CualidadX`) on a date; `TarifaPVP` then holds the tariff. A date
    /// after today is priced by the scheduled changes when `blnForzarAnterior` says so or the company has them on.
    /// Error 91 when `intTarifa` is 0 or less or has no price, since the next tariffs to try are those of a customer,
    /// whom only `Cargar` has; behind a `Cargar` that failed he is still there, and 0 tells that no tariff has one.
    Currency DevPvp(std::int16_t intTarifa, Fecha dteFecha, bool blnForzarAnterior = false);

    /// Loads an article and tells an `EstadoCarga`: kCargado, kArticuloNoExiste, kSinStock or kBloqueadoEnAlmacen (the
    /// last two are loaded and priced all the same). `intTarifa` -1 prices at cost; `intDec_Pvp` are the decimals of
    /// the price; `curUnidades` is the quantity of the line. Drops the former `padre`.
    std::int16_t Cargar(std::int32_t lngCod_Articulo, std::int32_t lngCod_Cliente, Fecha dteFecha,
                        std::int16_t intTarifa, std::int16_t intCod_Almacen, std::int16_t intDec_Pvp,
                        Currency curUnidades = Currency());

    /// The article's sales parent, loaded on first reading for the customer, date, tariff, warehouse and quantity of
    /// the last `Cargar`; null when it has none.
    std::shared_ptr<clsDatosArt> padre();
    void padre(std::shared_ptr<clsDatosArt> nuevo) { padre_ = std::move(nuevo); }

    /// Listens to the following loads; null for none. It must outlive them.
    void Observador(ObservadorCarga* observador) { carga_.Observador(observador); }

  protected:
    void CrearPadre() override { padre_ = std::make_shared<clsDatosArt>(); }

  private:
    CargaArticulo carga_;
    ArgumentosCarga argumentos_;
    std::shared_ptr<clsDatosArt> padre_;
};

}  // namespace kv
