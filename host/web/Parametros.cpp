#include "kvdatosart/host/web/Parametros.h"

#include <algorithm>
#include <charconv>

#include "kvdatosart/host/Anchura.h"

namespace kv::host {
namespace {

using aplicacion::RechazarImposible;

// %C3%B1 is ñ and + is a blank.
std::string Descifrar(std::string_view cifrado) {
    std::string texto;
    for (std::size_t i = 0; i < cifrado.size(); ++i) {
        unsigned char octeto = static_cast<unsigned char>(cifrado[i]);
        if (octeto == '+') octeto = ' ';
        if (octeto == '%') {
            const char* desde = cifrado.data() + i + 1;
            const bool cabe = i + 2 < cifrado.size();
            if (!cabe || std::from_chars(desde, desde + 2, octeto, 16).ptr != desde + 2)
                RechazarImposible("", "la dirección lleva un % sin sus dos cifras");
            i += 2;
        }
        texto += static_cast<char>(octeto);
    }
    return texto;
}

}  // namespace

Parametros::Parametros(std::string_view consulta) {
    while (!consulta.empty()) {
        const auto corte = std::min(consulta.find('&'), consulta.size());
        Anadir(consulta.substr(0, corte));
        consulta.remove_prefix(std::min(corte + 1, consulta.size()));
    }
}

void Parametros::Anadir(std::string_view trozo) {
    const auto igual = std::min(trozo.find('='), trozo.size());
    Parametro nuevo{Descifrar(trozo.substr(0, igual)), Descifrar(trozo.substr(std::min(igual + 1, trozo.size())))};
    for (const std::string* texto : {&nuevo.campo, &nuevo.texto})
        if (Mostrable(*texto) != *texto)
            RechazarImposible("", "la dirección lleva un texto que no es UTF-8 o no se imprime");
    if (nuevo.texto.empty()) RechazarImposible(nuevo.campo, "está vacío; se espera un valor, o que no se dé");
    for (const Parametro& otro : parametros_)
        if (otro.campo == nuevo.campo) RechazarImposible(nuevo.campo, "está repetido");
    parametros_.push_back(std::move(nuevo));
}

const std::string* Parametros::Tomar(const std::string& campo) {
    for (Parametro& parametro : parametros_) {
        if (parametro.campo != campo) continue;
        parametro.tomado = true;
        return &parametro.texto;
    }
    return nullptr;
}

void Parametros::Terminar() const {
    for (const Parametro& parametro : parametros_)
        if (!parametro.tomado) RechazarImposible(parametro.campo, "no es un parámetro de esta dirección");
}

}  // namespace kv::host
