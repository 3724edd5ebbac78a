#pragma once

#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <random>

#include "base/Currency.h"
#include "base/Fecha.h"

namespace kv::prueba {

/// Random arguments that one seed repeats.
class Azar {
  public:
    explicit Azar(std::uint64_t semilla) : generador_(semilla) {}

    /// Both limits inclusive.
    int Entre(int minimo, int maximo) { return std::uniform_int_distribution<int>(minimo, maximo)(generador_); }
    bool Una(int deCada) { return Entre(1, deCada) == 1; }
    template <class T>
    T De(std::initializer_list<T> lista) {
        return lista.begin()[Entre(0, static_cast<int>(lista.size()) - 1)];
    }
    Fecha Dia(Fecha desde, int minimo, int maximo) { return desde + Entre(minimo, maximo); }
    /// An amount with up to `decimales` decimals; both limits in units.
    Currency Importe(int minimo, int maximo, int decimales) {
        int escala = 10000;
        for (int i = 0; i < decimales; ++i) escala /= 10;
        const int pasos = 10000 / escala;
        return Currency::DeDiezmilesimas(static_cast<std::int64_t>(Entre(minimo * pasos, maximo * pasos)) * escala);
    }

  private:
    std::mt19937_64 generador_;
};

/// The seed in the environment variable KV_SEMILLA, else one of this moment's own.
inline std::uint64_t SemillaDePrueba() {
    const char* semilla = std::getenv("KV_SEMILLA");
    return semilla == nullptr ? std::random_device()() : std::strtoull(semilla, nullptr, 10);
}

}  // namespace kv::prueba
