#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kv::host {

/// What the doorkeeper makes of a request.
struct Visto {
    /// 200 when it is let in, else its HTTP status, and why.
    int estado = 200;
    std::string motivo = {};
    /// "/api/cargar?articulo=101", visible ASCII: all that the answer needs of it.
    std::string objetivo = {};
    /// The client wants no other answer on this connection.
    bool cierra = false;
};

/// Looks at each request's head before anything else does: its form, its limits, and whether it is for us.
class Portero {
  public:
    /// `puerto` is this server's; `permitidos` are names that a proxy in front of it goes by, with any port.
    Portero(int puerto, std::vector<std::string> permitidos);

    /// A head with the empty line at its end.
    Visto Mirar(std::string_view cabecera) const;

  private:
    bool EsNuestro(std::string_view nombre) const;

    std::string puerto_;
    std::vector<std::string> permitidos_;
};

}  // namespace kv::host
