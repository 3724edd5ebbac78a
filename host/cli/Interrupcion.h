#pragma once

#include <array>

namespace kv::host {

/// While it lives, Ctrl-C and the orders to end are only noted, so that the work in hand can leave things as they were.
/// One at a time.
class Interrupcion {
  public:
    Interrupcion();
    ~Interrupcion();
    Interrupcion(const Interrupcion&) = delete;
    Interrupcion& operator=(const Interrupcion&) = delete;

    /// Whether one was noted.
    bool Pedida() const;
    /// Ends the work with a std::runtime_error once one was noted.
    void Comprobar() const;

  private:
    using Manejador = void (*)(int);

    std::array<Manejador, 3> anteriores_;
};

}  // namespace kv::host
