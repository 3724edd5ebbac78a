#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

#include "kvdatosart/catalog/Lista.h"

namespace kv {

/// Lines that are handed to a worker together.
inline constexpr std::size_t kLineasPorBloque = 128;

/// A line that is to be priced.
struct LineaPedida {
    std::int32_t articulo;
    std::int32_t cliente;
};

/// The lines of a block that are in the list: the first `cuantas` of `lineas`, whose room is used again.
struct BloqueHecho {
    std::vector<LineaLista> lineas;
    std::size_t cuantas = 0;
    std::size_t pedidas = 0;
    RecuentoLista recuento;
};

/// Prices the blocks of one list, in one thread or in several, and hands them back in order.
class Taller {
  public:
    using Llenar = std::function<bool(std::vector<LineaPedida>&)>;
    using Entregar = std::function<void(const BloqueHecho&)>;

    Taller(const std::vector<Puesto>& puestos, const PeticionLista& peticion);

    /// Both functions are called in this thread: `llenar` until it says false, `entregar` for each of its blocks in
    /// their order. A failure of either, or of a database, ends the work and is raised once every thread has ended.
    void Trabajar(const Llenar& llenar, const Entregar& entregar);

  private:
    struct Bloque {
        std::vector<LineaPedida> pedidas;
        BloqueHecho hecho;
        bool listo = false;
        std::exception_ptr fallo;
    };

    void Solo(const Llenar& llenar, const Entregar& entregar);
    void Repartir(const Llenar& llenar, const Entregar& entregar);
    void Obrar(const Puesto& puesto, const std::stop_token& fin);
    Bloque& Esperar(std::size_t orden);
    void Hacer(const Puesto& puesto, Bloque& bloque) const;
    bool HacerLinea(const Puesto& puesto, LineaLista& linea, RecuentoLista& recuento) const;

    std::vector<Puesto> puestos_;
    const PeticionLista& peticion_;

    // Few enough that what is done but not yet handed over stays small.
    std::vector<Bloque> bloques_;
    std::mutex cerrojo_;
    std::condition_variable_any hayTrabajo_;
    std::condition_variable hayHecho_;
    std::deque<Bloque*> cola_;
};

}  // namespace kv
