#include "kvdatosart/host/web/Enchufe.h"

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
    red::Preparar(enchufe_);
}

Enchufe::~Enchufe() {
    // Closed with something unread, the client would be told of a broken connection and not read the answer.
    red::Acabar(enchufe_);
    char resto[4096];
    const auto desde = Reloj::now();
    while (sano_ && Reloj::now() - desde < kPacienciaConCola && Esperar(red::Suceso::Leer, desde))
        if (red::Recibir(enchufe_, resto, sizeof resto) <= 0) break;
    red::Cerrar(enchufe_);
}

// False when patience ends first, or the connection.
bool Enchufe::Esperar(red::Suceso suceso, Reloj::time_point desde) const {
    for (;;) {
        if (const auto puede = red::Esperar(enchufe_, suceso, kPaso)) return *puede;
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
        if (Reloj::now() - desde >= paciencia_() || !Esperar(red::Suceso::Leer, desde))
            return empezada ? Lectura::Lenta : Lectura::Fin;
        char trozo[4096];
        const ssize_t llegado = red::Recibir(enchufe_, trozo, sizeof trozo);
        if (llegado == red::kTodaviaNo) continue;
        if (llegado == red::kRota) return Lectura::Fin;
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
        const ssize_t enviado = red::Enviar(enchufe_, datos);
        if (enviado > 0) {
            datos.remove_prefix(static_cast<std::size_t>(enviado));
            desde = Reloj::now();
            continue;
        }
        if (enviado == red::kRota) return false;
        if (Reloj::now() - comienzo_ >= kMaximoRespuesta || !Esperar(red::Suceso::Escribir, desde)) return false;
    }
    return true;
}

}  // namespace kv::host
