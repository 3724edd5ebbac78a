#include "kvdatosart/host/cli/Opcion.h"

namespace kv::host {

std::string NombreOpcion(const std::string& campo) {
    std::string nombre = "--";
    for (const char c : campo) {
        if (c >= 'A' && c <= 'Z')
            nombre += {'-', static_cast<char>(c - 'A' + 'a')};
        else
            nombre += c;
    }
    return nombre;
}

}  // namespace kv::host
