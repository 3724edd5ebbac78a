#pragma once

#include <cstdint>
#include <optional>

#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/customers/clsCliente.h"
#include "kvdatosart/db/Consulta.h"
#include "kvdatosart/db/Inyectado.h"
#include "kvdatosart/pricing/DatosArticulo.h"
#include "kvdatosart/pricing/ObservadorCarga.h"
#include "kvdatosart/rules/clsClientes_Cadenas_ConvArt.h"

namespace kv {

class clsCliente_Articulo;

/// For whom, when, from where and how precisely an article is loaded.
struct ArgumentosCarga {
    std::int32_t lngCod_Cliente = 0;
    Fecha dteFecha;
    /// -1 sells at cost.
    std::int16_t intTarifa = 0;
    std::int16_t intCod_Almacen = 0;
    /// Decimals of the final price.
    std::int16_t intDec_Pvp = 0;
    /// Quantity of the sales line.
    Currency curUnidades;
};

/// Result of a load, as the Integer of the interface has it. A later condition never replaces an earlier one.
enum EstadoCarga : std::int16_t {
    kCargado = 0,
    kArticuloNoExiste = 1,
    /// Loaded and priced all the same, as the next one.
    kSinStock = 2,
    kBloqueadoEnAlmacen = 3,
};

/// Loads articles for `clsDatosArt`: the master row, the warehouse's figures and the price. It has no error handler:
/// every failure reaches the caller as it was raised, with what was assigned until then kept.
class CargaArticulo : public Inyectado {
  public:
    /// Fills `objPadre` with the article and returns one of the results above.
    std::int16_t Cargar(DatosArticulo& objPadre, std::int32_t lngCod_Articulo, const ArgumentosCarga& argumentos);

    /// Tariff price of the article and variant that `objPadre` names, 0 when there is none; `TarifaPVP` tells the
    /// tariff, untouched when there is none. `blnForzarAnterior` takes a future date's price from the scheduled
    /// changes even when the company does not. Outside a load there is no customer, and error 91 answers as soon as
    /// the customer's tariffs would be tried.
    Currency DevPvp(DatosArticulo& objPadre, std::int16_t intTarifa, Fecha dteFecha, bool blnForzarAnterior);

    /// Listens to the following loads; null for none. It must outlive them.
    void Observador(ObservadorCarga* observador) { observador_ = observador; }

  private:
    Recordset& AbrirMaestro(Consulta& consulta, std::int32_t lngCod_Articulo, std::int16_t intCod_Almacen) const;
    bool LeerMaestro(Consulta& consulta, DatosArticulo& objPadre, std::int32_t lngCod_Articulo,
                     std::int16_t intCod_Almacen);
    void PonerPrecioInicial(Consulta& consulta, DatosArticulo& objPadre, const ArgumentosCarga& argumentos);
    void PonerCosteTipoCliente(DatosArticulo& objPadre);
    void AplicarPrecioCliente(DatosArticulo& objPadre, clsCliente_Articulo& precios, const ArgumentosCarga& argumentos);
    void AplicarPrecioBaseCadena(Consulta& consulta, DatosArticulo& objPadre, clsClientes_Cadenas_ConvArt& cadena,
                                 Fecha dteFecha);
    void AplicarConvenioPvp(Consulta& consulta, DatosArticulo& objPadre, std::int32_t lngCod_Cliente,
                            std::int32_t lngCod_Articulo);
    void AplicarNetoCadena(DatosArticulo& objPadre, clsClientes_Cadenas_ConvArt& cadena, Fecha dteFecha);
    void RedondearPrecio(DatosArticulo& objPadre, std::int16_t intDec_Pvp);

    Currency PrecioTarifa(Consulta& consulta, DatosArticulo& objPadre, std::int16_t intTarifa, Fecha dteFecha,
                          bool blnForzarAnterior);
    bool UsarCambiosProgramados(Consulta& consulta, Fecha dteFecha, bool blnForzarAnterior);
    std::int16_t TarifaCandidata(OrigenTarifa origen, std::int16_t intTarifa) const;
    Currency BuscarEnTarifas(Consulta& consulta, DatosArticulo& objPadre, std::int16_t intTarifa, Fecha dteFecha,
                             bool porCualidad, bool programada);
    Recordset& AbrirTarifa(Consulta& consulta, const DatosArticulo& objPadre, std::int16_t tarifa,
                           bool porCualidad) const;
    Recordset& AbrirCambio(Consulta& consulta, const DatosArticulo& objPadre, std::int16_t tarifa, Fecha dteFecha,
                           bool porCualidad) const;

    Currency LeerAlmacen(Consulta& consulta, DatosArticulo& objPadre, std::int16_t intCod_Almacen);
    void LeerAlmacenCualidades(Consulta& consulta, DatosArticulo& objPadre, std::int16_t intCod_Almacen,
                               const char* columnaCoste, Currency& coste);
    void LeerNivelesCadena(Consulta& consulta, clsClientes_Cadenas_ConvArt& cadena, std::int32_t lngCod_Cliente);
    std::uint8_t NivelArticulo() const;
    Currency BuscarDescuento(const DatosArticulo& objPadre, Currency curUnidades);

    void Avisar(FuentePrecio fuente, bool hallada, bool aplicada, double antes, double despues) const;

    /// The customer of the load that runs; after a failed one it stays until the next.
    std::optional<clsCliente> cliente_;
    ObservadorCarga* observador_ = nullptr;
};

}  // namespace kv
