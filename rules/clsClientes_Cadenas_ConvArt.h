#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/base/Valor.h"
#include "kvdatosart/db/Inyectado.h"
#include "kvdatosart/rules/ObservadorCadena.h"

namespace kv {

class Consulta;

/// The agreements of a chain for an article (table `Clientes_Cadenas_ConvArt`). A customer's place in the chain is a
/// path of ten level codes, top first; a first level of 0 is no chain. An agreement belongs to one node of the
/// hierarchy and fixes a base price and up to five discounts, each between two days, both inclusive.
class clsClientes_Cadenas_ConvArt : public Inyectado {
  public:
    std::int16_t Cod_Nivel1 = 0;
    std::int16_t Cod_Nivel2 = 0;
    std::int16_t Cod_Nivel3 = 0;
    std::int16_t Cod_Nivel4 = 0;
    std::int16_t Cod_Nivel5 = 0;
    std::int16_t Cod_Nivel6 = 0;
    std::int16_t Cod_Nivel7 = 0;
    std::int16_t Cod_Nivel8 = 0;
    std::int16_t Cod_Nivel9 = 0;
    std::int16_t Cod_Nivel10 = 0;
    std::int32_t Cod_Articulo = 0;
    /// First and last day of the agreement; 31/12/2050 is open-ended.
    Fecha FechaEntrada;
    Fecha FechaSalida;
    /// True: the parent node's agreements apply too.
    bool DtoPadre = false;
    Currency PrecioBase;
    /// Depth of the node.
    std::int16_t Nivel = 0;

    // Pricing. The path and `Cod_Articulo` are set before; `PrecioBase` too for the net price and the total text.

    /// Net price on a day: `PrecioBase` less every discount from the top of the chain down to the node, each rounded
    /// to the price decimals. May be negative. Error 11 for an offer of nothing.
    Currency Dev_Neto(Fecha dteFechaEval);
    /// The agreed base price of the nearest node that has one, 0 when none has. The arguments receive path, first and
    /// last day of the last agreement found on the way; they stay when there was none.
    Currency Devuelve_PBase(std::string& strCadena, Fecha& datFecha_Entrada, Valor& datFecha_Salida,
                            Fecha dteFechaEval);
    /// "PB: " with the base price and every discount, for people.
    std::string Dev_CadenaConvenio_Total(Fecha dteFechaEval);
    /// The discounts of exactly this node's agreement, for people, whose days go to `FechaEntrada` and `FechaSalida`;
    /// "  NADS" at the end when it does not pass on to the parent. Empty when there is none.
    std::string Dev_CadenaConvenio_Nivel(Fecha dteFechaEval);

    // Maintenance. The key is company, node and article, and for `Cargar` also `FechaEntrada`.

    /// Loads days, `DtoPadre` and the five discounts; without a row nothing changes. Always false: look at the values.
    bool Cargar();
    /// Writes node, discounts, `DtoPadre` and `Nivel`; days and base price take the table's defaults.
    void Insertar();
    /// Writes discounts and `DtoPadre` over every dated agreement of the node for the article.
    void Modificar();
    /// Deletes every dated agreement of the node for the article.
    void Eliminar();

    // The five discounts, index 0 to 4; any other index is error 9.

    /// The kind: `kDtoPorcentaje`, `kDtoImporte` or `kDtoOferta` of `DescuentosAcuerdo.h`; any other does nothing.
    std::int16_t TipoDto(std::int16_t Index) const { return tipos_[Casilla(Index)]; }
    void TipoDto(std::int16_t Index, std::int16_t intTipo) { tipos_[Casilla(Index)] = intTipo; }
    /// Percentage, amount, or units paid; 0 when unused.
    Currency ImporteDto(std::int16_t Index) const { return importes_[Casilla(Index)]; }
    void ImporteDto(std::int16_t Index, Currency curImporte) { importes_[Casilla(Index)] = curImporte; }
    /// Units given free; loaded half to even, error 6 above 32767.
    std::int16_t UnidadesDto(std::int16_t Index) const { return unidades_[Casilla(Index)]; }
    void UnidadesDto(std::int16_t Index, std::int16_t intUnid) { unidades_[Casilla(Index)] = intUnid; }
    /// A percentage on the running price instead of the base price.
    bool AplicarCascada(std::int16_t Index) const { return cascadas_[Casilla(Index)]; }
    void AplicarCascada(std::int16_t Index, bool bolAplicar) { cascadas_[Casilla(Index)] = bolAplicar; }
    /// First and last day of the discount, as loaded.
    Fecha FechaDtoI(std::int16_t Index) const { return iniciales_[Casilla(Index)]; }
    Fecha FechaDtoF(std::int16_t Index) const { return finales_[Casilla(Index)]; }

    /// Listens to the pricing methods; null for none. It must outlive them.
    void Observador(ObservadorCadena* observador) { observador_ = observador; }

  private:
    /// A discount that applies, in the order in which the walk finds them.
    struct Descuento {
        std::int16_t Tipo;
        Currency Importe;
        Currency Cantidad;
        bool Cascada;
    };

    static std::size_t Casilla(std::int16_t indice);
    NivelesCadena Niveles() const;
    Recordset& AbrirNodo(Consulta& consulta, const NivelesCadena& nodo, Fecha dteFechaEval, bool conFinal) const;
    std::string TextoNivel(Fecha dteFechaEval, bool conFinal) const;
    std::string CondicionClave() const;
    Recordset& AbrirNodo(Consulta& consulta, const NivelesCadena& nodo, Fecha dteFechaEval) const;
    void Dev_Descuentos(Fecha dteFechaEval, std::vector<Descuento>& lista);
    static std::optional<Currency> Efecto(const Descuento& descuento, Currency base);
    Currency Aplicar(const Descuento& descuento, Currency precio) const;

    std::array<std::int16_t, 5> tipos_{};
    std::array<Currency, 5> importes_{};
    std::array<std::int16_t, 5> unidades_{};
    std::array<bool, 5> cascadas_{};
    std::array<Fecha, 5> iniciales_{};
    std::array<Fecha, 5> finales_{};
    ObservadorCadena* observador_ = nullptr;
};

}  // namespace kv
