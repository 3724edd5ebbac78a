#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>

#include "kvdatosart/host/Terminal.h"

namespace kv::host {

Terminal::Terminal() {
    std::signal(SIGPIPE, SIG_IGN);
}

Terminal::~Terminal() = default;

bool SalidaEnTerminal() {
    return isatty(STDOUT_FILENO) != 0;
}

bool ErroresEnTerminal() {
    return isatty(STDERR_FILENO) != 0;
}

std::size_t ColumnasTerminal() {
    winsize tamano{};
    return ioctl(STDOUT_FILENO, TIOCGWINSZ, &tamano) == 0 ? tamano.ws_col : 0;
}

bool TerminalConColores() {
    const std::string terminal = DelEntorno("TERM");
    return !terminal.empty() && terminal != "dumb";
}

bool SeFueElLector(int error) {
    return error == EPIPE;
}

std::string DelEntorno(const char* nombre) {
    const char* const valor = std::getenv(nombre);
    return valor == nullptr ? "" : valor;
}

}  // namespace kv::host
