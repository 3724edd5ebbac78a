#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <string_view>

#include "kvdatosart/host/web/Red.h"

namespace kv::host {

/// One client's connection. It reads each request's head itself, whole, within limits and in time, and hands what was
/// let in to the HTTP library as a stream; what the library writes is gathered and sent at once.
class Enchufe : public httplib::Stream {
  public:
    enum class Lectura {
        /// A whole head is there.
        Hecha,
        /// The client is gone, sent nothing in time, or the server ends.
        Fin,
        /// It came too slowly, is too long, or the client stopped in its middle.
        Lenta,
        Larga,
        Cortada
    };

    /// `paciencia` says how long a client may hold its thread at this moment; 0 lets it go.
    Enchufe(socket_t enchufe, std::function<std::chrono::milliseconds()> paciencia);
    /// Closes it, after what was sent has had the time to arrive.
    ~Enchufe() override;
    Enchufe(const Enchufe&) = delete;
    Enchufe& operator=(const Enchufe&) = delete;

    Lectura LeerCabecera();
    /// The head that was read, with its empty line.
    std::string_view Cabecera() const { return std::string_view(recibido_).substr(0, cabecera_); }
    /// What the library is to read in its place.
    void Entregar(std::string entrada);
    /// Sends what was written. False when the client did not take it.
    bool Vaciar();

    bool is_readable() const override { return true; }
    bool is_writable() const override { return sano_; }
    ssize_t read(char* destino, size_t cuanto) override;
    ssize_t write(const char* datos, size_t cuanto) override;
    // Nobody asks who it is: whoever passed the head's checks is answered.
    void get_remote_ip_and_port(std::string&, int&) const override {}
    void get_local_ip_and_port(std::string&, int&) const override {}
    socket_t socket() const override { return enchufe_; }

  private:
    using Reloj = std::chrono::steady_clock;

    bool Esperar(red::Suceso suceso, Reloj::time_point desde) const;
    bool Enviar(std::string_view datos);

    socket_t enchufe_;
    std::function<std::chrono::milliseconds()> paciencia_;
    std::string recibido_;
    std::size_t cabecera_ = 0;
    std::string entrada_;
    std::size_t leido_ = 0;
    std::string salida_;
    bool sano_ = true;
    Reloj::time_point comienzo_;
};

}  // namespace kv::host
