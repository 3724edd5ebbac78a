#include <algorithm>

#include "kvdatosart/host/web/Red.h"

namespace kv::host::red {
namespace {

void Poner(socket_t enchufe, int nivel, int opcion) {
    const BOOL si = TRUE;
    setsockopt(enchufe, nivel, opcion, reinterpret_cast<const char*>(&si), sizeof si);
}

// What is moved at once.
int Tramo(std::size_t cuanto) {
    return static_cast<int>(std::min(cuanto, std::size_t{1} << 30U));
}

ssize_t Movidos(int dicho) {
    if (dicho >= 0) return dicho;
    return WSAGetLastError() == WSAEWOULDBLOCK ? kTodaviaNo : kRota;
}

}  // namespace

void Preparar(socket_t enchufe) {
    Poner(enchufe, IPPROTO_TCP, TCP_NODELAY);
    u_long si = 1;
    ioctlsocket(enchufe, static_cast<long>(FIONBIO), &si);
}

std::optional<bool> Esperar(socket_t enchufe, Suceso suceso, std::chrono::milliseconds plazo) {
    const short cual = suceso == Suceso::Leer ? POLLIN : POLLOUT;
    WSAPOLLFD este{enchufe, cual, 0};
    if (WSAPoll(&este, 1, static_cast<int>(plazo.count())) <= 0) return {};
    return (este.revents & (cual | POLLHUP)) != 0;
}

ssize_t Recibir(socket_t enchufe, char* destino, std::size_t cuanto) {
    return Movidos(recv(enchufe, destino, Tramo(cuanto), 0));
}

ssize_t Enviar(socket_t enchufe, std::string_view datos) {
    return Movidos(send(enchufe, datos.data(), Tramo(datos.size()), 0));
}

void Acabar(socket_t enchufe) {
    shutdown(enchufe, SD_SEND);
}

void Cerrar(socket_t enchufe) {
    closesocket(enchufe);
}

// What the others call so lets a second server take the port here.
void SoloUnServidor(socket_t enchufe) {
    Poner(enchufe, SOL_SOCKET, SO_EXCLUSIVEADDRUSE);
}

}  // namespace kv::host::red
