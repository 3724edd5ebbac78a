#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "kvdatosart/db/Inyectado.h"

namespace kv {

/// The discounts of one customer on article families or on single articles (table `Descuentos_Familias`). The fields
/// are the input of every method and keep their values between calls. A row is an article's when `Nivel` is
/// `NumNiveles` + 1 (error 6 past 32767) and a family's for any other level; a family row holds no article.
class clsCliente_DtosFamilias : public Inyectado {
  public:
    /// The database's procedure that decides which discount applies.
    static constexpr const char* kProcedimiento = "KVP_DevDtoDescuentosFamilias";

    std::uint8_t Nivel = 0;
    std::int16_t Familia_1 = 0;
    std::int16_t Familia_2 = 0;
    std::int16_t Familia_3 = 0;
    std::int32_t Cod_Articulo = 0;
    /// Customer code.
    std::int32_t Cliente = 0;
    /// Value of the discount and its kind, both stored and returned only: no method looks at what they mean.
    double Descuento = 0;
    std::uint8_t Tipo_Descuento = 0;
    /// Family levels that the company uses, 1 to 3.
    std::int16_t NumNiveles = 0;

    void Insertar();
    void Eliminar();
    /// Changes `Descuento` and `Tipo_Descuento` of the row that the other fields name; no row is no error.
    void Modificar();

    /// Fills level, article and families from a row's key, "article-level-family1-family2-family3".
    void Calcula_Nivel(std::string_view strClave);

    /// The articles of a family; a family of 0 does not filter. The caller owns the open rows.
    std::unique_ptr<Recordset> Cargar_Articulos(std::int16_t intFamilia1, std::int16_t intFamilia2,
                                                std::int16_t intFamilia3);
    /// Every discount row of the customer with the article's name. The caller owns the open rows.
    std::unique_ptr<Recordset> Cargar_Todos();

    /// Discount of exactly the row that the fields name, 0 when there is none.
    double Dev_Descuento();
    /// Discount that applies to the article for the customer, as the database decides it. Never fails: 0 when the
    /// database does.
    double Dev_Descuento_Activo();
    /// What the last `Dev_Descuento_Activo` swallowed; nothing when the database answered.
    const std::optional<std::string>& Fallo() const { return fallo_; }

  private:
    bool EsArticulo() const;
    std::string Cola() const;
    /// The first row of the company that meets the conditions in `strFiltro`, 0 without one. Nothing calls it.
    double Dev_Descuento_Filtro(std::string_view strFiltro);

    std::optional<std::string> fallo_;
};

}  // namespace kv
