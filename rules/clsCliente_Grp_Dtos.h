#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "kvdatosart/base/Currency.h"
#include "kvdatosart/db/Inyectado.h"

namespace kv {

/// The discounts of a customer group by family or article and by range of units (table
/// `Clientes_Grp_Descuentos_Fam`). Both bounds of a range are inclusive; 0 to 0 is any quantity. The fields are the
/// input of every method; rows of articles and of families are told apart as in `clsCliente_DtosFamilias`. Whatever
/// is written marks the group's header as changed.
class clsCliente_Grp_Dtos : public Inyectado {
  public:
    /// The database's procedure that decides which discount applies.
    static constexpr const char* kProcedimiento = "KVP_DevDtoClientesGrupos";

    std::int16_t Cod_Grupo = 0;
    std::uint8_t Nivel = 0;
    std::int16_t Familia_1 = 0;
    std::int16_t Familia_2 = 0;
    std::int16_t Familia_3 = 0;
    std::int32_t Cod_Articulo = 0;
    /// Value of the discount, stored and returned only: no method looks at its kind.
    double Descuento = 0;
    Currency Unidades_Min;
    Currency Unidades_Max;
    /// Family levels that the company uses, 1 to 3.
    std::int16_t NumNiveles = 0;

    void Insertar();
    void Eliminar();
    /// Changes `Descuento` of the row that the other fields name, its range included; no row is no error.
    void Modificar();

    /// Fills level, article and families from a row's key, "article-level-family1-family2-family3".
    void Calcula_Nivel(std::string_view strClave);

    /// The articles of a family; a family of 0 does not filter. The caller owns the open rows.
    std::unique_ptr<Recordset> Cargar_Articulos(std::int16_t intFamilia1, std::int16_t intFamilia2,
                                                std::int16_t intFamilia3);
    /// Every discount row of the group with the article's name. The caller owns the open rows.
    std::unique_ptr<Recordset> Cargar_Todos();

    /// Discount of the row that the fields name, for a quantity: the fitting range with the highest lower bound; for
    /// 0 units only the row for any quantity. 0 when there is none.
    double Dev_Descuento(const Currency& curUnidades);
    /// Discount of the customer's group for the article and a quantity, as the database decides it. Never fails: 0
    /// when the database does.
    Currency Dev_Descuento_Activo(std::int32_t lngCliente, const Currency& curUnidades);
    /// What the last `Dev_Descuento_Activo` swallowed; nothing when the database answered.
    const std::optional<std::string>& Fallo() const { return fallo_; }

    /// True when a stored range of the same key overlaps `Unidades_Min` to `Unidades_Max` (ranges that touch do); then
    /// the arguments receive the bounds of the first one, else they stay. A stored range overlaps itself.
    bool Comprobar_Encajados(Currency& curUnidMinimo, Currency& curUnidMaximo);

  private:
    bool EsArticulo() const;

    std::optional<std::string> fallo_;
};

}  // namespace kv
