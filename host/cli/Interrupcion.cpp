#include "kvdatosart/host/cli/Interrupcion.h"

#include <csignal>
#include <stdexcept>

namespace kv::host {
namespace {

#ifdef _WIN32
// Ctrl-Break and the window that is closed.
constexpr int kOrdenDelTerminal = SIGBREAK;
#else
constexpr int kOrdenDelTerminal = SIGHUP;
#endif
constexpr std::array<int, 3> kSenales = {SIGINT, SIGTERM, kOrdenDelTerminal};

volatile std::sig_atomic_t pedida = 0;

void Anotar(int senal) {
    pedida = 1;
    // Windows forgets it with the first one.
    std::signal(senal, Anotar);
}

}  // namespace

Interrupcion::Interrupcion() {
    pedida = 0;
    for (std::size_t i = 0; i < kSenales.size(); ++i) anteriores_[i] = std::signal(kSenales[i], Anotar);
}

Interrupcion::~Interrupcion() {
    for (std::size_t i = 0; i < kSenales.size(); ++i) std::signal(kSenales[i], anteriores_[i]);
}

bool Interrupcion::Pedida() const {
    return pedida != 0;
}

void Interrupcion::Comprobar() const {
    if (Pedida()) throw std::runtime_error("interrumpido; no ha quedado nada a medias");
}

}  // namespace kv::host
