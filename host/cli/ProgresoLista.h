#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace kv::host {

/// A line on the terminal that says how far a long work is: lines, share, lines a second, time left. Nothing where
/// standard error is no terminal, or while the lines themselves go to one; gone at the end.
class ProgresoLista {
  public:
    /// `porPantalla`: the lines go to standard output.
    explicit ProgresoLista(bool porPantalla);
    ~ProgresoLista();
    ProgresoLista(const ProgresoLista&) = delete;
    ProgresoLista& operator=(const ProgresoLista&) = delete;

    void Mostrar(std::uint64_t hechas, std::uint64_t total);

  private:
    using Reloj = std::chrono::steady_clock;

    bool visible_;
    Reloj::time_point inicio_ = Reloj::now();
    Reloj::time_point ultima_ = inicio_;
    std::size_t escritas_ = 0;
};

}  // namespace kv::host
