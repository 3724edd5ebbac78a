#pragma once

#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <random>
#include <string>

#include "kvdatosart/base/Valor.h"

namespace kv::prueba {

/// Random arguments that one seed repeats, and the trail of those that were drawn.
class Azar {
  public:
    /// `hoy`: the day for which the demonstration was made and which the common library says.
    Azar(std::uint64_t semilla, Fecha dia) : hoy(dia), generador_(semilla) {}

    /// Both limits inclusive.
    template <class T = int>
    T Entre(int minimo, int maximo) {
        return Notar(static_cast<T>(Sacar(minimo, maximo)));
    }
    bool Una(int deCada) { return Notar(Sacar(1, deCada)) == 1; }
    template <class T>
    T De(std::initializer_list<T> lista) {
        return Notar(lista.begin()[Sacar(0, static_cast<int>(lista.size()) - 1)]);
    }
    Fecha Dia(int minimo, int maximo) { return Notar(hoy + Sacar(minimo, maximo)); }
    /// An amount with up to `decimales` decimals; both limits in units.
    Currency Importe(int minimo, int maximo, int decimales) {
        int pasos = 1;
        for (int i = 0; i < decimales; ++i) pasos *= 10;
        return Notar(Currency::DeDiezmilesimas(std::int64_t{Sacar(minimo * pasos, maximo * pasos)} * (10000 / pasos)));
    }
    /// Random arguments of their own, with a trail of their own.
    std::uint64_t Semilla() { return generador_(); }
    const std::string& Rastro() const { return rastro_; }

    const Fecha hoy;

  private:
    int Sacar(int minimo, int maximo) { return std::uniform_int_distribution<int>(minimo, maximo)(generador_); }
    template <class T>
    T Notar(T valor) {
        rastro_ += " " + AString(valor, '.');
        return valor;
    }

    std::mt19937_64 generador_;
    std::string rastro_;
};

/// The seed in the environment variable KV_SEMILLA, else one of this moment's own.
inline std::uint64_t SemillaDePrueba() {
    const char* semilla = std::getenv("KV_SEMILLA");
    return semilla == nullptr ? std::random_device()() : std::strtoull(semilla, nullptr, 10);
}

}  // namespace kv::prueba
