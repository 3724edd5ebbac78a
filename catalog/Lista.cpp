#include "kvdatosart/catalog/Lista.h"

#include <algorithm>

#include "kvdatosart/catalog/Taller.h"

namespace kv {
namespace {

/// The pairs of article and customer of a list in its order, a block at a time, those of one part only.
class Reparto {
  public:
    Reparto(const Puesto& puesto, const PeticionLista& peticion)
        : peticion_(peticion),
          articulos_(FuenteCodigos::DeArticulos(puesto, peticion.articulos, peticion.orden == OrdenLista::Familia)),
          clientes_(FuenteCodigos::DeClientes(puesto, peticion.clientes)),
          total_(articulos_.Contar() * clientes_.Contar()),
          exterior_(peticion.orden == OrdenLista::Cliente ? clientes_ : articulos_),
          interior_(peticion.orden == OrdenLista::Cliente ? articulos_ : clientes_) {}

    std::uint64_t Total() const { return total_; }

    // The next block of this part; false when there is no more.
    bool Llenar(std::vector<LineaPedida>& bloque) {
        while (LlenarUno(bloque))
            if (bloques_++ % peticion_.partes == peticion_.parte - 1) return true;
        return false;
    }

  private:
    bool LlenarUno(std::vector<LineaPedida>& bloque) {
        bloque.clear();
        while (!acabado_ && bloque.size() < kLineasPorBloque) {
            if (!fuera_ && !(fuera_ = exterior_.Siguiente())) {
                acabado_ = true;
                break;
            }
            if (const auto dentro = interior_.Siguiente())
                bloque.push_back(peticion_.orden == OrdenLista::Cliente ? LineaPedida{*dentro, *fuera_}
                                                                        : LineaPedida{*fuera_, *dentro});
            else
                fuera_.reset();
        }
        return !bloque.empty();
    }

    const PeticionLista& peticion_;
    FuenteCodigos articulos_;
    FuenteCodigos clientes_;
    std::uint64_t total_;
    FuenteCodigos& exterior_;
    FuenteCodigos& interior_;
    std::optional<std::int32_t> fuera_;
    bool acabado_ = false;
    std::uint64_t bloques_ = 0;
};

}  // namespace

bool LineaLista::ConFallo() const {
    return std::any_of(tasaciones.begin(), tasaciones.end(), [](const Tasacion& t) { return !t.fallo.empty(); });
}

bool LineaLista::SinPrecio() const {
    return std::any_of(tasaciones.begin(), tasaciones.end(), [](const Tasacion& t) { return t.SinPrecio(); });
}

RecuentoLista& RecuentoLista::operator+=(const RecuentoLista& otro) {
    lineas += otro.lineas;
    sinPrecio += otro.sinPrecio;
    conFallo += otro.conFallo;
    noComprados += otro.noComprados;
    bloqueados += otro.bloqueados;
    omitidosSinPrecio += otro.omitidosSinPrecio;
    return *this;
}

RecuentoLista HacerLista(const std::vector<Puesto>& puestos, const PeticionLista& peticion, DestinoLista& destino) {
    Reparto reparto(puestos.at(0), peticion);
    Taller taller(puestos, peticion);
    RecuentoLista recuento;
    std::uint64_t hechas = 0;
    destino.Progreso(0, reparto.Total());
    taller.Trabajar([&](std::vector<LineaPedida>& bloque) { return reparto.Llenar(bloque); },
                    [&](const BloqueHecho& hecho) {
                        for (std::size_t i = 0; i < hecho.cuantas; ++i) destino.Linea(hecho.lineas[i]);
                        recuento += hecho.recuento;
                        hechas += hecho.pedidas;
                        destino.Progreso(hechas, reparto.Total());
                    });
    return recuento;
}

}  // namespace kv
