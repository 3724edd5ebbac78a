#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/host/LecturaCampos.h"

namespace kv::host {

/// What an address asks after its question mark, "articulo=101&cliente=3": each parameter is read into a field of the
/// request, once. What cannot be read is a Rechazo of the field, impossible.
class Parametros {
  public:
    /// Rechazo when a parameter is given twice, when it is empty and when it is no printable UTF-8 text.
    explicit Parametros(std::string_view consulta);

    /// A parameter that may be left out; `resto` is what the reading of its field takes besides.
    template <class T, class... Resto>
    Parametros& Admite(const std::string& campo, T& destino, Resto... resto) {
        if (const std::string* texto = Tomar(campo)) Leer(campo, *texto, destino, resto...);
        return *this;
    }
    template <class T, class... Resto>
    Parametros& Exige(const std::string& campo, T& destino, Resto... resto) {
        const std::string* texto = Tomar(campo);
        if (texto == nullptr) aplicacion::RechazarImposible(campo, "falta");
        Leer(campo, *texto, destino, resto...);
        return *this;
    }
    /// When all that the path knows was read: Rechazo of a parameter that is left.
    void Terminar() const;

  private:
    struct Parametro {
        std::string campo;
        std::string texto;
        bool tomado = false;
    };

    void Anadir(std::string_view trozo);
    const std::string* Tomar(const std::string& campo);

    std::vector<Parametro> parametros_;
};

}  // namespace kv::host
