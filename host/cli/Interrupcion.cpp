#include "kvdatosart/host/cli/Interrupcion.h"

#include <csignal>
#include <stdexcept>

namespace kv::host {
namespace {

constexpr std::array<int, 3> kSenales = {SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t pedida = 0;

void Anotar(int) {
    pedida = 1;
}

}  // namespace

Interrupcion::Interrupcion() {
    pedida = 0;
    for (std::size_t i = 0; i < kSenales.size(); ++i) anteriores_[i] = std::signal(kSenales[i], Anotar);
}

Interrupcion::~Interrupcion() {
    for (std::size_t i = 0; i < kSenales.size(); ++i) std::signal(kSenales[i], anteriores_[i]);
}

void Interrupcion::Comprobar() const {
    if (pedida != 0) throw std::runtime_error("interrumpido; no ha quedado nada a medias");
}

}  // namespace kv::host
