#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "kvdatosart/application/Descuentos.h"
#include "kvdatosart/application/EstadoFijo.h"
#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/catalog/Lista.h"
#include "kvdatosart/rules/ObservadorCadena.h"

namespace kv::aplicacion {

/// Codes that a person gave, one by one or in a file.
struct CodigosPedidos {
    std::vector<std::int32_t> codigos;
    /// The file that they were read from, for messages, and the line of each in it; empty when they were not.
    std::string fichero;
    std::vector<std::uint32_t> lineas;
};

/// A price list: which articles for which customers, and on what terms. What is left out comes from the company and,
/// the day, from the state.
struct PeticionListaPrecios {
    /// Codes, or what narrows the catalogue down; nothing is all of it.
    CodigosPedidos articulos;
    std::vector<Familias> familias;
    /// Words of the code and the description, in any order.
    std::string buscar;

    /// Codes, or what narrows the customers down, or all of them; one must be said.
    CodigosPedidos clientes;
    std::optional<std::int16_t> grupo;
    std::optional<NivelesCadena> nodo;
    bool todosLosClientes = false;

    std::optional<Fecha> fecha;
    /// -1 sells at cost; 0 asks for none.
    std::optional<std::int16_t> tarifa;
    std::int16_t almacen = 1;
    /// Of prices and net prices, 0 to 4.
    std::optional<std::int16_t> decimales;
    /// Each line has a price for each of them; one unit when there is none.
    std::vector<Currency> unidades;

    OrdenLista orden = OrdenLista::Articulo;
    /// Articles that are locked or discontinued too.
    bool todos = false;
    bool omitirSinPrecio = false;
    bool soloComprados = false;
    /// Costs and margins too. A list goes to customers: without it nothing shows a cost, tariff -1 is refused, and what
    /// a customer buys at cost has no price.
    bool conCoste = false;
    /// This part of so many.
    std::uint32_t parte = 1;
    std::uint32_t partes = 1;
};

/// The list that `HacerLista` makes of the state's connections: the request, checked and completed. Only reads.
/// Rechazo, impossible: codes together with what narrows down, no customers said, a quantity that is negative or given
/// twice, tariff -1 without costs, a part that is not there. Negative: a code that does not exist (with the file's
/// line), a selection without articles or customers.
PeticionLista PrepararLista(const EstadoFijo& estado, const PeticionListaPrecios& peticion);

/// What stands above a list for people, each with its heading: company, customers, day, articles and terms.
std::vector<std::pair<std::string, std::string>> TitulosLista(const EstadoFijo& estado,
                                                              const PeticionListaPrecios& peticion);

}  // namespace kv::aplicacion
