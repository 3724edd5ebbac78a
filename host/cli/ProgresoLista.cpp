#include "kvdatosart/host/cli/ProgresoLista.h"

#include <iostream>
#include <string>

#include "kvdatosart/host/Terminal.h"

namespace kv::host {
namespace {

// A short list shows nothing, a long one no more than can be read.
constexpr std::chrono::milliseconds kPausa(700);

std::string Tiempo(std::uint64_t segundos) {
    if (segundos < 60) return std::to_string(segundos) + " s";
    return std::to_string(segundos / 60) + " min " + std::to_string(segundos % 60) + " s";
}

}  // namespace

ProgresoLista::ProgresoLista(bool porPantalla)
    : visible_(ErroresEnTerminal() && !(porPantalla && SalidaEnTerminal())) {}

ProgresoLista::~ProgresoLista() {
    if (escritas_ > 0) std::cerr << '\r' << std::string(escritas_, ' ') << '\r' << std::flush;
}

void ProgresoLista::Mostrar(std::uint64_t hechas, std::uint64_t total) {
    const auto ahora = Reloj::now();
    if (!visible_ || total == 0 || hechas == 0 || ahora - ultima_ < kPausa) return;
    ultima_ = ahora;
    const double segundos = std::chrono::duration<double>(ahora - inicio_).count();
    const double porSegundo = static_cast<double>(hechas) / segundos;
    const auto quedan = static_cast<std::uint64_t>(static_cast<double>(total - hechas) / porSegundo);
    std::string linea =
        std::to_string(hechas) + " de " + std::to_string(total) + " líneas, " + std::to_string(hechas * 100 / total) +
        " %, " + std::to_string(static_cast<std::uint64_t>(porSegundo)) + " por segundo, quedan " + Tiempo(quedan);
    const std::size_t escritas = linea.size();
    if (escritas_ > escritas) linea.append(escritas_ - escritas, ' ');
    escritas_ = escritas;
    std::cerr << '\r' << linea << std::flush;
}

}  // namespace kv::host
