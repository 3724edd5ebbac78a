#include "kvdatosart/host/cli/Traza.h"

#include <cstdio>
#include <iostream>
#include <string>

namespace kv::host {
namespace {

std::string Milisegundos(std::chrono::nanoseconds tiempo) {
    char texto[32];
    std::snprintf(texto, sizeof texto, "%8.3f ms ", static_cast<double>(tiempo.count()) / 1e6);
    return texto;
}

}  // namespace

void Traza::operator()(const OperacionTrazada& operacion) {
    total_ += operacion.tiempo;
    ++cuantas_;
    std::cerr << Milisegundos(operacion.tiempo) << operacion.clase;
    if (!operacion.texto.empty()) std::cerr << " |" << operacion.texto << '|';
    if (!operacion.error.empty())
        std::cerr << " -> error";
    else if (operacion.clase == "Open")
        std::cerr << (operacion.hayFila ? " -> con fila" : " -> sin fila");
    else if (operacion.afectados >= 0)
        std::cerr << " -> " << operacion.afectados << " afectadas";
    std::cerr << '\n';
}

void Traza::Resumir() const {
    std::cerr << Milisegundos(total_) << "en " << cuantas_ << " operaciones\n";
}

}  // namespace kv::host
