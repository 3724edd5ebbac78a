#include "kvdatosart/application/Frase.h"

namespace kv::aplicacion {

std::string Frase::Con(char separador) const {
    std::string entera = texto;
    std::size_t desde = 0;
    for (const Currency numero : numeros) {
        const std::string escrito = numero.ATexto(separador).Cadena();
        desde = entera.find("{}", desde);
        entera.replace(desde, 2, escrito);
        desde += escrito.size();
    }
    return entera;
}

}  // namespace kv::aplicacion
