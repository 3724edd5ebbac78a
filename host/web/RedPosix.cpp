#include <netinet/tcp.h>
#include <poll.h>

#include <cerrno>

#include "kvdatosart/host/web/Red.h"

namespace kv::host::red {
namespace {

ssize_t Movidos(ssize_t dicho) {
    if (dicho >= 0) return dicho;
    return errno == EAGAIN || errno == EINTR ? kTodaviaNo : kRota;
}

}  // namespace

void Preparar(socket_t enchufe) {
    const int si = 1;
    setsockopt(enchufe, IPPROTO_TCP, TCP_NODELAY, &si, sizeof si);
}

std::optional<bool> Esperar(socket_t enchufe, Suceso suceso, std::chrono::milliseconds plazo) {
    const short cual = suceso == Suceso::Leer ? POLLIN : POLLOUT;
    pollfd este{enchufe, cual, 0};
    if (poll(&este, 1, static_cast<int>(plazo.count())) <= 0) return {};
    return (este.revents & (cual | POLLHUP)) != 0;
}

ssize_t Recibir(socket_t enchufe, char* destino, std::size_t cuanto) {
    return Movidos(recv(enchufe, destino, cuanto, MSG_DONTWAIT));
}

ssize_t Enviar(socket_t enchufe, std::string_view datos) {
    return Movidos(send(enchufe, datos.data(), datos.size(), MSG_DONTWAIT | MSG_NOSIGNAL));
}

void Acabar(socket_t enchufe) {
    shutdown(enchufe, SHUT_WR);
}

void Cerrar(socket_t enchufe) {
    close(enchufe);
}

void SoloUnServidor(socket_t enchufe) {
    const int si = 1;
    setsockopt(enchufe, SOL_SOCKET, SO_REUSEADDR, &si, sizeof si);
}

}  // namespace kv::host::red
