#include "kvdatosart/host/Salida.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <stdexcept>

#include "kvdatosart/db/BibliotecaComun.h"
#include "kvdatosart/host/Terminal.h"

namespace kv::host {
namespace {

bool callada = false;

constexpr std::size_t kAnchoDesconocido = 80;
// What every system takes at once.
constexpr std::size_t kPieza = std::size_t{1} << 20U;

std::size_t AnchoTerminal() {
    const std::size_t columnas = ColumnasTerminal();
    return columnas > 0 ? std::max(columnas, kAnchoMinimo) : kAnchoDesconocido;
}

bool QuiereColor() {
    return DelEntorno("NO_COLOR").empty() && TerminalConColores();
}

}  // namespace

SinSalida::SinSalida() {
    callada = true;
}
SinSalida::~SinSalida() {
    callada = false;
}

Presentacion PresentacionDeSalida() {
    Presentacion presentacion;
    if (!SalidaEnTerminal()) return presentacion;
    presentacion.ancho = AnchoTerminal();
    presentacion.color = QuiereColor();
    return presentacion;
}

char SeparadorDeGente() {
    return BibliotecaComun().SeparadorDecimal();
}

std::string MotivoDeEscritura(int error) {
    if (error == ENOSPC) return "el disco está lleno";
#ifdef EDQUOT
    if (error == EDQUOT) return "el disco está lleno";
#endif
    if (error == EBADF) return "está cerrada";
    return std::strerror(error);
}

bool EscribirSalida(std::string_view texto) {
    if (callada) return true;
    while (!texto.empty()) {
        const auto octetos = static_cast<unsigned>(std::min(texto.size(), kPieza));
        const ssize_t escritos = write(STDOUT_FILENO, texto.data(), octetos);
        if (escritos >= 0) {
            texto.remove_prefix(static_cast<std::size_t>(escritos));
        } else if (SeFueElLector(errno)) {
            return false;
        } else if (errno != EINTR) {
            throw std::runtime_error("no se puede escribir en la salida: " + MotivoDeEscritura(errno));
        }
    }
    return true;
}

}  // namespace kv::host
