#pragma once

#include <cstdio>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "base/Valor.h"
#include "tests/comun/ConexionGuion.h"

// The recorded traffic of loads: one line per event, its first letter the kind, its fields parted by tabs.
//   E member value        company        C arguments...     a load starts
//   O text                query          F column value...  its first row
//   P procedure           parameters follow: p name type direction size value, then s value
//   R status              result         V name value       a property after it
//   D price or X number   result of DevPvp or a failure
//   H                     padre is read           H article price  what it is, when there is one
namespace kv::prueba {

inline std::vector<std::string> Partir(const std::string& linea) {
    std::vector<std::string> campos;
    std::istringstream entrada(linea + '\t');
    for (std::string campo; std::getline(entrada, campo, '\t');) campos.push_back(campo);
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

inline Valor Decodificar(const std::string& codificado) {
    const std::size_t dos = codificado.find(':');
    const std::string texto = codificado.substr(dos + 1);
    const int tipo = std::stoi(codificado);
    if (tipo == 0) return Nulo{};
    if (tipo == 1) return texto == "1";
    if (tipo == 2) return static_cast<std::uint8_t>(std::stoi(texto));
    if (tipo == 3) return static_cast<std::int16_t>(std::stoi(texto));
    if (tipo == 4) return static_cast<std::int32_t>(std::stol(texto));
    if (tipo == 6) return std::stof(texto);
    if (tipo == 7) return std::stod(texto);
    if (tipo == 8) return Currency::DeDiezmilesimas(std::stoll(texto));
    if (tipo == 9) return Fecha::DeOle(std::stod(texto));
    if (tipo == 10) return texto;
    throw std::runtime_error("tipo desconocido en el guion: " + codificado);
}

using Pasos = std::vector<ConexionGuion::Paso>;

/// One recorded load with the price asked for after it, and what both gave natively.
struct Caso {
    std::vector<std::string> argumentos;
    Pasos pasos;
    Pasos pasosPrecio;
    Pasos pasosPadre;
    int estado = 0;
    std::map<std::string, std::string> propiedades;
    std::string precio;
    long error = 0;
    std::vector<std::string> padre;  // its article and its price; empty without a parent

    std::int32_t Numero(std::size_t i) const { return std::stoi(argumentos[i]); }
};

/// Every load of a recording, in order; the company's members go to `empresa`.
inline std::vector<Caso> LeerGrabacion(const char* ruta, std::map<std::string, Valor>& empresa) {
    std::ifstream entrada(ruta, std::ios::binary);
    std::vector<Caso> casos;
    Pasos Caso::*parte = nullptr;
    for (std::string linea; std::getline(entrada, linea);) {
        const auto c = Partir(linea);
        const char clase = c[0][0];
        if (clase == 'E') empresa[c[1]] = Decodificar(c[2]);
        if (clase == 'C') casos.emplace_back().argumentos = c, parte = &Caso::pasos;
        if (casos.empty()) continue;
        Caso& caso = casos.back();
        auto& pasos = caso.*parte;
        if (clase == 'O') pasos.push_back({.operacion = "Open", .texto = c[1]});
        if (clase == 'F') {
            auto& fila = pasos.back().filas.emplace_back();
            for (std::size_t i = 1; i + 1 < c.size(); i += 2) {
                pasos.back().columnas.push_back(c[i]);
                fila.push_back(Decodificar(c[i + 1]));
            }
        }
        if (clase == 'P')
            pasos.push_back(
                {.operacion = "Command", .texto = c[1], .opciones = CommandType::adOptionUnspecified, .espera = 500});
        if (clase == 'p')
            pasos.back().parametros.push_back({c[1], static_cast<DataType>(std::stoi(c[2])),
                                               static_cast<ParameterDirection>(std::stoi(c[3])), std::stoi(c[4]),
                                               Decodificar(c[5])});
        if (clase == 's') {
            auto& salidas = pasos.back().salidas;
            salidas.push_back(pasos.back().parametros[salidas.size()]);
            salidas.back().Value = Decodificar(c[1]);
        }
        if (clase == 'R') caso.estado = std::stoi(c[1]), parte = &Caso::pasosPrecio;
        if (clase == 'V') caso.propiedades[c[1]] = c[2];
        if (clase == 'D') caso.precio = c[1];
        if (clase == 'X') caso.error = std::stol(c[1]);
        if (clase == 'H') parte = &Caso::pasosPadre, caso.padre.assign(c.begin() + 1, c.end());
    }
    return casos;
}

}  // namespace kv::prueba
