#pragma once

#include <cstdint>
#include <string>

#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/db/Inyectado.h"

namespace kv {

class Movimiento;
struct FilaStock;

/// Stock, costs, locks and pending quantities of articles in the warehouses of a company (tables
/// `Almacen_Articulos`, `Almacen_Articulos_C` for variants, `Almacen_Articulos_Ubic` for locations). No transaction is
/// opened here and no failure is trapped: what a failing call had already written stays written.
class clsAlmacen_Articulo : public Inyectado {
  public:
    std::int16_t Almacen = 0;
    std::int32_t Articulo = 0;
    std::string Ubicacion;
    double Stock_Actual = 0;
    double Stock_Peso = 0;
    double Stock_Minimo = 0;
    double Stock_Optimo = 0;
    double Pend_Recibir = 0;
    double Pend_Servir = 0;
    double Stock_MiniCompra = 0;
    std::string Categoria;
    std::int16_t Cobertura = 0;
    std::int16_t Plazo_Reposicion = 0;
    double PU_Compra = 0;
    double P_Medio = 0;
    double Rotacion = 0;
    Fecha FUlt_Compra;
    Fecha FUlt_Venta;
    Fecha FUlt_Inv;
    Fecha FIni_Existencias;
    Fecha FFin_Existencias;
    Fecha F_Dormido;
    bool Bloqueado = false;
    double DF_PU_Compra = 0;
    double DF_P_Medio = 0;
    bool Desglosa_Pack = false;

    // Key in the arguments.

    /// Posts one movement: units and weight as the document line signs them, net unit cost, kind (3 purchase, 5 sale,
    /// 7 priced entry, 8 and 13 other outgoing movements; 5, 8 and 13 are reversed here; any other kind only moves
    /// stock). The outputs receive purchase price, average cost and stock after the movement as this call computed
    /// them. `bolModFichaArt` carries the last sale or purchase to the article and warehouse masters. It reads the row
    /// and then writes it: let it stand in a `Transaccion`, or two that post at the same time spoil the average.
    void Act_Stock(std::int16_t intAlmacen, std::int32_t lngArticulo, double dblUnidades, double dblPeso,
                   double dblNeto, std::int16_t intOp, Fecha dteFecha, double& dblPUC, double& dblPMedio,
                   double& dblStock, bool bolModFichaArt);
    /// Cost of an article in a warehouse, of the variant when both codes are given and it has one above 0; 0 without
    /// a row. By the company's choice, the last purchase price or the average cost.
    Currency Dev_Costo(std::int16_t intAlmacen, std::int32_t lngArticulo, std::uint8_t bytCualidadX,
                       std::uint8_t bytCualidadY);
    /// The same from the second pair of costs.
    Currency Dev_CostoDF(std::int16_t intAlmacen, std::int32_t lngArticulo, std::uint8_t bytCualidadX,
                         std::uint8_t bytCualidadY);

    // Key in `Almacen` and `Articulo`. Quantities are signed increments; a missing row is made.

    /// Nothing happens unless both variant codes are other than 0.
    void Act_PendRecibir_Cualidades(std::int16_t intCualidadX, std::int16_t intCualidadY, Currency curIncremento);
    void Act_PendServir_Cualidades(std::int16_t intCualidadX, std::int16_t intCualidadY, Currency curIncremento);
    void Act_PendRecibir(Currency curIncremento);
    void Act_PendServir(Currency curIncremento);

    // Key in the arguments.

    /// `Act_Stock` for a variant. Its average cost has rules of its own, and the article's kind is not asked.
    void Act_Stock_Cualidades(std::int16_t intAlmacen, std::int32_t lngArticulo, std::uint8_t bytCualidadX,
                              std::uint8_t bytCualidadY, double dblUnidades, double dblPeso, double dblNeto,
                              std::int16_t intOp, Fecha dteFecha, double& dblPUC, double& dblPMedio, double& dblStock,
                              bool bolModFichaArt);
    /// Adds to the stock of a location, a path of five texts (empty where the warehouse uses fewer).
    void Act_Stock_Ubicaciones(std::int16_t intAlmacen, std::int32_t lngArticulo, const std::string& strUbic1,
                               const std::string& strUbic2, const std::string& strUbic3, const std::string& strUbic4,
                               const std::string& strUbic5, Currency curIncremento);

    // Key in `Almacen` and `Articulo`.

    /// Sets purchase price and average cost.
    void Act_Costo(Currency curCosto);
    /// Writes `Bloqueado`, with today as dormant date (01/01/1900 when unlocked), and marks the article as changed.
    void Act_Bloqueo();
    /// Writes `Desglosa_Pack` and marks the article as changed.
    void Act_Desglosa_Pack();

    /// Keeps the second pair of costs after a receipt (key in the arguments). A quantity of 0 or less changes no
    /// average. A missing warehouse row is not made; the article master always receives the price.
    void Act_Costo_DF(std::int16_t intAlmacen, std::int32_t lngArticulo, Currency curIncremento, double dblCosto);
    void Act_StockMiniCompras(Currency curIncremento);

    /// Reads `Stock_Actual` alone; without a row it stays.
    void Cargar();

  private:
    Currency LeerCoste(std::string_view columna, std::int16_t intAlmacen, std::int32_t lngArticulo,
                       std::uint8_t bytCualidadX, std::uint8_t bytCualidadY);
    void PonerEnFila(std::string_view actualizar, std::string_view insertar, std::string_view valores);
    void SumarEnVariante(std::string_view sumar, std::string_view insertar, std::int16_t intCualidadX,
                         std::int16_t intCualidadY, Currency curIncremento);
    void MarcarArticulo();
    bool ArticuloSinStock(std::int32_t lngArticulo);
    bool LeerFila(std::string_view consulta, const Movimiento& movimiento, FilaStock& fila);
    double MediaDeArticulo(const Movimiento& movimiento, const FilaStock& fila) const;
    double MediaDeVariante(const Movimiento& movimiento, const FilaStock& fila) const;
    double MediaPonderada(double media, double stock, double unidades, double neto) const;
    void Propagar(std::int16_t intAlmacen, std::int32_t lngArticulo, const Movimiento& movimiento,
                  std::string_view precioCompra);
};

}  // namespace kv
