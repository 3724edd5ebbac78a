#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/base/Valor.h"
#include "kvdatosart/db/Inyectado.h"

namespace kv {

/// The prices agreed with a customer for an article between two days, both inclusive (table `Clientes_Art_PVP`), and
/// the customer's sales statistics. Prices are browsed article by article or customer by customer.
class clsCliente_Articulo : public Inyectado {
  public:
    /// Company of the rows.
    std::int16_t Cod_Empresa = 0;
    /// Warehouse of the statistics.
    std::int16_t Cod_Almacen = 0;
    std::int32_t Cod_Cliente = 0;
    /// Company whose masters give the names while browsing.
    std::int16_t Cod_EmpresaExtra = 0;
    std::int32_t Cod_Articulo = 0;
    /// Name of the customer or article, filled while browsing.
    std::string Descripcion;
    double precio = 0;
    Fecha Fecha_Inicial;
    Fecha Fecha_Final;

    /// Browse mode: true shows the customers of one article, false the articles of one customer.
    void Por_Articulo(bool valor) { porArticulo_ = valor; }
    /// Code from which the browsing methods move on; the class never sets it. One with decimals goes into the statement
    /// with the regional separator.
    void Key(Valor valor) { key_ = std::move(valor); }

    /// Looks for the customer's price of the article on a day and leaves it in `precio`; false, and `precio` as it
    /// was, when there is none. Of several, the first that the database returns.
    bool Dev_Precio(Fecha dteFecha);

    void Insertar();
    /// Deletes the price of this code (a customer or an article, by the browse mode) between exactly these days.
    void Eliminar(std::int32_t lngCodigo, Fecha dteFecha_Inicial, Fecha dteFecha_Final);
    /// Gives the row of the old code (`lngCodigo`, by the browse mode) and of the days in the fields the article, the
    /// customer and the price in the fields.
    void Modificar(const std::int32_t& lngCodigo);

    /// Shows the rows of a code in a browse mode: `rs` stays open with them, the first one is copied into the fields.
    /// A `conexion` takes the place of the stored one for good. True when there was a row.
    bool Cargar(std::unique_ptr<Recordset>& rs, const bool& blnPor_Articulo, const Valor& codigo,
                std::shared_ptr<Connection> conexion);
    /// The same for the neighbour of `Key`, the first or the last code that has prices.
    bool Cargar_Siguiente(std::unique_ptr<Recordset>& rs);
    bool Cargar_Anterior(std::unique_ptr<Recordset>& rs);
    bool Cargar_Primero(std::unique_ptr<Recordset>& rs);
    bool Cargar_Ultimo(std::unique_ptr<Recordset>& rs);

    /// Adds a sale of the article (units, selling and cost amount; negative for a return) to the day's statistics. A
    /// cost of 0 is taken from the warehouse.
    void Acumular(Fecha dteFecha, Currency curUnidades, Currency curImportePvp, Currency curImporteCosto);
    /// The same for a variant.
    void Acumular_C(Fecha dteFecha, Currency curUnidades, Currency curImportePvp, Currency curImporteCosto,
                    std::int16_t intCualidadX, std::int16_t intCualidadY);

  private:
    bool Abrir(std::unique_ptr<Recordset>& rs, std::string_view sql);
    void CargarRegistro(Recordset& rs);
    std::string Union() const;
    std::string TextoKey() const;
    Currency CosteUnitarioCualidad();

    bool porArticulo_ = false;
    Valor key_;
};

}  // namespace kv
