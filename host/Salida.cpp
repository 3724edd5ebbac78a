#include "kvdatosart/host/Salida.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>

#include "kvdatosart/db/BibliotecaComun.h"

namespace kv::host {
namespace {

constexpr std::size_t kAnchoDesconocido = 80;

std::size_t AnchoTerminal() {
    winsize tamano{};
    const bool dicho = ioctl(STDOUT_FILENO, TIOCGWINSZ, &tamano) == 0 && tamano.ws_col > 0;
    return dicho ? std::max<std::size_t>(tamano.ws_col, kAnchoMinimo) : kAnchoDesconocido;
}

bool QuiereColor() {
    const char* const sinColor = std::getenv("NO_COLOR");
    const char* const terminal = std::getenv("TERM");
    return (sinColor == nullptr || *sinColor == '\0') && terminal != nullptr && std::strcmp(terminal, "dumb") != 0;
}

std::string Motivo(int error) {
    if (error == ENOSPC || error == EDQUOT) return "el disco está lleno";
    if (error == EBADF) return "está cerrada";
    return std::strerror(error);
}

}  // namespace

Presentacion PresentacionDeSalida() {
    Presentacion presentacion;
    if (isatty(STDOUT_FILENO) == 0) return presentacion;
    presentacion.ancho = AnchoTerminal();
    presentacion.color = QuiereColor();
    return presentacion;
}

char SeparadorDeGente() {
    return BibliotecaComun().SeparadorDecimal();
}

void EscribirSalida(std::string_view texto) {
    while (!texto.empty()) {
        const ssize_t escritos = write(STDOUT_FILENO, texto.data(), texto.size());
        if (escritos >= 0) {
            texto.remove_prefix(static_cast<std::size_t>(escritos));
        } else if (errno == EPIPE) {
            return;
        } else if (errno != EINTR) {
            throw std::runtime_error("no se puede escribir en la salida: " + Motivo(errno));
        }
    }
}

void IgnorarTuberiaCerrada() {
    std::signal(SIGPIPE, SIG_IGN);
}

}  // namespace kv::host
