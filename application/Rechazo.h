#pragma once

#include <stdexcept>
#include <string>

namespace kv::aplicacion {

/// What a person asked and is not done, told in plain Spanish; nothing was written. In the text, {hasta} stands for
/// the field of that name, which each edge calls in its own way.
class Rechazo : public std::runtime_error {
  public:
    enum class Clase {
        /// The request cannot be meant: no database could do it.
        Imposible,
        /// A clear no: it does not exist, it exists already, it is not allowed.
        Negativa,
    };

    Rechazo(Clase clase_, std::string campo_, const std::string& texto)
        : std::runtime_error(texto), clase(clase_), campo(std::move(campo_)) {}

    Clase clase;
    /// Name of the request's field (camelCase); empty when it is about no single one.
    std::string campo;
};

[[noreturn]] inline void RechazarImposible(const std::string& campo, const std::string& texto) {
    throw Rechazo(Rechazo::Clase::Imposible, campo, texto);
}
[[noreturn]] inline void RechazarNegativa(const std::string& campo, const std::string& texto) {
    throw Rechazo(Rechazo::Clase::Negativa, campo, texto);
}

}  // namespace kv::aplicacion
