#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "kvdatosart/catalog/Seleccion.h"
#include "kvdatosart/catalog/Tasacion.h"

namespace kv {

/// What comes first in a list: the article, the customer, or the article's family.
enum class OrdenLista : std::uint8_t { Articulo, Cliente, Familia };

/// A price list: every selected article for every selected customer.
struct PeticionLista {
    SeleccionArticulos articulos;
    SeleccionClientes clientes;
    OrdenLista orden = OrdenLista::Articulo;
    /// The terms of every line; its article, customer and quantity are the list's.
    Pregunta terminos;
    /// Each line is priced for each of these quantities; at least one.
    std::vector<Currency> unidades = {Currency::DeEntero(1)};
    /// What the rules take for today, however long the list runs.
    Fecha hoy;
    /// Articles that are locked or discontinued too.
    bool todos = false;
    bool omitirSinPrecio = false;
    /// Without it, what is sold at cost has no price and no line has a cost.
    bool conCoste = true;
    /// Only what the customer has bought.
    bool soloComprados = false;
    /// This part of so many: together the parts are the list, each line once.
    std::uint32_t parte = 1;
    std::uint32_t partes = 1;
};

struct LineaLista {
    std::int32_t articulo = 0;
    std::int32_t cliente = 0;
    /// One for each quantity, in their order.
    std::vector<Tasacion> tasaciones;

    bool ConFallo() const;
    bool SinPrecio() const;
};

/// What became of the lines of a list.
struct RecuentoLista {
    std::uint64_t lineas = 0;
    /// Among the lines: without a price for some quantity, and those that could not be priced.
    std::uint64_t sinPrecio = 0;
    std::uint64_t conFallo = 0;
    /// Left out, each for the first reason that it had.
    std::uint64_t noComprados = 0;
    std::uint64_t bloqueados = 0;
    std::uint64_t omitidosSinPrecio = 0;

    RecuentoLista& operator+=(const RecuentoLista& otro);
};

/// Who takes a list, in the thread that asks for it.
class DestinoLista {
  public:
    virtual ~DestinoLista() = default;

    /// The next line of the list, in its order. What it raises ends the list.
    virtual void Linea(const LineaLista& linea) = 0;
    /// Asked now and then, with the lines done, those left out among them, and all that there are (of every part).
    /// Raises to end the list.
    virtual void Progreso(std::uint64_t hechas, std::uint64_t total) = 0;
};

/// Prices the list. With one place of work everything happens in this thread; with more, the first serves this thread
/// and each of the others a thread of its own, which prices lines; what comes out is the same. All connections must see
/// one state of the database that stands still (a transaction that reads), for what they answered is remembered.
/// A line that fails is a line; a connection that fails ends the list with its error, and so does `destino`.
RecuentoLista HacerLista(const std::vector<Puesto>& puestos, const PeticionLista& peticion, DestinoLista& destino);

}  // namespace kv
