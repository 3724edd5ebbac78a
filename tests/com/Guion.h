#pragma once

#include <cstdio>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "base/Valor.h"

// The recorded traffic of loads: one line per event, its first letter the kind, its fields parted by tabs.
//   E member value        company        C arguments...     a load starts
//   O text                query          F column value...  its first row
//   P procedure           parameters follow: p name type direction size value, then s position value
//   R status              result         V name value       a property after it
//   D price or X number   result of DevPvp or a failure
//   H                     padre is read           H article price  what it is, when there is one
namespace kv::prueba {

inline std::vector<std::string> Partir(const std::string& linea) {
    std::vector<std::string> campos(1);
    for (char c : linea) {
        if (c == '\t')
            campos.emplace_back();
        else
            campos.back() += c;
    }
    return campos;
}

/// A value as its type's position in Valor, a colon and its exact text.
inline std::string Codificar(const Valor& valor) {
    const std::string tipo = std::to_string(valor.index()) + ":";
    if (const auto* t = std::get_if<std::string>(&valor)) return tipo + *t;
    if (const auto* c = std::get_if<Currency>(&valor)) return tipo + std::to_string(c->Diezmilesimas());
    if (const auto* f = std::get_if<Fecha>(&valor)) return tipo + std::to_string(static_cast<long>(f->AOle()));
    if (const auto* b = std::get_if<bool>(&valor)) return tipo + (*b ? "1" : "0");
    if (EsNulo(valor)) return tipo;
    char texto[40];
    std::snprintf(texto, sizeof texto, "%.17g", ADouble(valor));
    return tipo + texto;
}

inline Valor Decodificar(std::string_view codificado) {
    const std::size_t dos = codificado.find(':');
    const int tipo = std::stoi(std::string(codificado.substr(0, dos)));
    const std::string texto(codificado.substr(dos + 1));
    switch (tipo) {
        case 0:
            return Nulo{};
        case 1:
            return texto == "1";
        case 2:
            return static_cast<std::uint8_t>(std::stoi(texto));
        case 3:
            return static_cast<std::int16_t>(std::stoi(texto));
        case 4:
            return static_cast<std::int32_t>(std::stol(texto));
        case 5:
            return static_cast<std::int64_t>(std::stoll(texto));
        case 6:
            return std::stof(texto);
        case 7:
            return std::stod(texto);
        case 8:
            return Currency::DeDiezmilesimas(std::stoll(texto));
        case 9:
            return Fecha::DeOle(std::stod(texto));
        case 10:
            return texto;
        default:
            throw std::runtime_error("tipo desconocido en el guion: " + texto);
    }
}

}  // namespace kv::prueba
