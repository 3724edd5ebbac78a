#pragma once

#include <httplib.h>

#include <atomic>
#include <string>
#include <vector>

#include "kvdatosart/host/web/Api.h"
#include "kvdatosart/host/web/Enchufe.h"
#include "kvdatosart/host/web/Portero.h"

namespace kv::host {

/// The price simulator: its page and the addresses below /api/, on this machine only.
class Servidor : private httplib::Server {
  public:
    /// Takes the port, any free one for 0; std::runtime_error when it cannot be had, because another server has it for
    /// one. `permitidos` are names of a proxy in front of it, which it answers to besides this machine's own.
    Servidor(Api& api, int puerto, std::vector<std::string> permitidos);

    int Puerto() const { return puerto_; }
    /// Answers until `Parar` is called from another thread, and then what is being answered.
    void Escuchar();
    void Parar();

  private:
    bool process_and_close_socket(socket_t enchufe) override;
    bool Atender(Enchufe& cliente, bool ultima);
    void Responder(const httplib::Request& peticion, httplib::Response& respuesta);

    Api& api_;
    int puerto_;
    Portero portero_;
    std::atomic<bool> parada_ = false;
    // Clients without a thread.
    std::atomic<int> cola_ = 0;
};

}  // namespace kv::host
