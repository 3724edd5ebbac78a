#include "kvdatosart/host/web/Enchufe.h"

#include <netinet/tcp.h>
#include <poll.h>

#include <algorithm>
#include <cstring>

#include "kvdatosart/host/web/Limites.h"

namespace kv::host {
namespace {

using std::chrono::milliseconds;

// How often a client that is waited for is asked about again, and what is sent to it at a time.
constexpr milliseconds kPaso{50};
constexpr std::size_t kTramo = 65536;

// Behind the empty line that ends a head, whichever way its lines end; 0 when it is not there yet.
std::size_t FinDeCabecera(std::string_view texto, std::size_t desde) {
    for (auto fin = texto.find('\n', desde); fin != std::string_view::npos; fin = texto.find('\n', fin + 1)) {
        const std::string_view resto = texto.substr(fin + 1);
        if (resto.starts_with('\n')) return fin + 2;
        if (resto.starts_with("\r\n")) return fin + 3;
    }
    return 0;
}

}  // namespace

Enchufe::Enchufe(socket_t enchufe, std::function<milliseconds()> paciencia)
    : enchufe_(enchufe), paciencia_(std::move(paciencia)) {
    // An answer is one piece: nothing is gained by waiting for more.
    const int si = 1;
    setsockopt(enchufe_, IPPROTO_TCP, TCP_NODELAY, &si, sizeof si);
}

Enchufe::~Enchufe() {
    // Closed with something unread, the client would be told of a broken connection and not read the answer.
    shutdown(enchufe_, SHUT_WR);
    char resto[4096];
    const auto desde = Reloj::now();
    while (sano_ && Reloj::now() - desde < kPacienciaConCola && Esperar(POLLIN, desde))
        if (recv(enchufe_, resto, sizeof resto, MSG_DONTWAIT) <= 0) break;
    close(enchufe_);
}

// False when patience ends first, or the connection.
bool Enchufe::Esperar(short suceso, Reloj::time_point desde) const {
    for (;;) {
        pollfd este{enchufe_, suceso, 0};
        if (poll(&este, 1, static_cast<int>(kPaso.count())) > 0) return (este.revents & (suceso | POLLHUP)) != 0;
        if (Reloj::now() - desde >= paciencia_()) return false;
    }
}

Enchufe::Lectura Enchufe::LeerCabecera() {
    recibido_.erase(0, cabecera_);
    cabecera_ = 0;
    const auto desde = Reloj::now();
    std::size_t mirado = 0;
    for (;;) {
        cabecera_ = FinDeCabecera(recibido_, mirado);
        if (std::max(cabecera_, recibido_.size()) > kMaximoCabecera && cabecera_ == 0) return Lectura::Larga;
        if (cabecera_ > kMaximoCabecera) return Lectura::Larga;
        if (cabecera_ != 0) return Lectura::Hecha;
        // The end of a line may still turn out to be the first half of the end.
        mirado = recibido_.size() < 2 ? 0 : recibido_.size() - 2;
        const bool empezada = !recibido_.empty();
        if (Reloj::now() - desde >= paciencia_() || !Esperar(POLLIN, desde))
            return empezada ? Lectura::Lenta : Lectura::Fin;
        char trozo[4096];
        const ssize_t llegado = recv(enchufe_, trozo, sizeof trozo, MSG_DONTWAIT);
        if (llegado < 0 && (errno == EAGAIN || errno == EINTR)) continue;
        if (llegado < 0) return Lectura::Fin;
        if (llegado == 0) return empezada ? Lectura::Cortada : Lectura::Fin;
        recibido_.append(trozo, static_cast<std::size_t>(llegado));
    }
}

void Enchufe::Entregar(std::string entrada) {
    entrada_ = std::move(entrada);
    leido_ = 0;
    comienzo_ = Reloj::now();
}

ssize_t Enchufe::read(char* destino, size_t cuanto) {
    const std::size_t hay = std::min(cuanto, entrada_.size() - leido_);
    std::memcpy(destino, entrada_.data() + leido_, hay);
    leido_ += hay;
    return static_cast<ssize_t>(hay);
}

ssize_t Enchufe::write(const char* datos, size_t cuanto) {
    salida_.append(datos, cuanto);
    if (salida_.size() >= kTramo && !Vaciar()) return -1;
    return static_cast<ssize_t>(cuanto);
}

bool Enchufe::Vaciar() {
    sano_ = sano_ && Enviar(salida_);
    salida_.clear();
    return sano_;
}

bool Enchufe::Enviar(std::string_view datos) {
    auto desde = Reloj::now();
    while (!datos.empty()) {
        const ssize_t enviado = send(enchufe_, datos.data(), datos.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
        if (enviado > 0) {
            datos.remove_prefix(static_cast<std::size_t>(enviado));
            desde = Reloj::now();
            continue;
        }
        if (errno != EAGAIN && errno != EINTR) return false;
        if (Reloj::now() - comienzo_ >= kMaximoRespuesta || !Esperar(POLLOUT, desde)) return false;
    }
    return true;
}

}  // namespace kv::host
