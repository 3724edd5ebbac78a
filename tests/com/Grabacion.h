#pragma once

#include <deque>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "tests/com/Guion.h"

namespace kv::prueba {

/// One recorded query or procedure.
struct Paso {
    char clase = 'O';
    std::string texto;
    std::vector<std::pair<std::string, Valor>> fila;
    std::vector<std::string> parametros;
    std::vector<Valor> salidas;
};

/// One recorded load with the price asked for after it, and what both gave natively.
struct Caso {
    std::vector<std::string> argumentos;
    std::deque<Paso> pasos;
    std::deque<Paso> pasosPrecio;
    std::deque<Paso> pasosPadre;
    int estado = 0;
    std::vector<std::pair<std::string, std::string>> propiedades;
    std::string precio;
    long error = 0;
    std::vector<std::string> padre;  // its article and its price; empty without a parent

    long Numero(std::size_t i) const { return std::stol(argumentos[i]); }
};

/// Every load of a recording, in order; the company's members go to `empresa`.
inline std::vector<Caso> LeerGrabacion(const char* ruta, std::map<std::string, Valor>& empresa) {
    std::ifstream entrada(ruta, std::ios::binary);
    std::vector<Caso> casos;
    std::deque<Paso> Caso::*parte = nullptr;
    for (std::string linea; std::getline(entrada, linea);) {
        const auto c = Partir(linea);
        const char clase = c[0][0];
        if (clase == 'E') empresa[c[1]] = Decodificar(c[2]);
        if (clase == 'C') casos.emplace_back().argumentos = c, parte = &Caso::pasos;
        if (casos.empty()) continue;
        Caso& caso = casos.back();
        auto& pasos = caso.*parte;
        if (clase == 'O' || clase == 'P') pasos.emplace_back().clase = clase, pasos.back().texto = c[1];
        if (clase == 'F')
            for (std::size_t i = 1; i + 1 < c.size(); i += 2)
                pasos.back().fila.emplace_back(c[i], Decodificar(c[i + 1]));
        if (clase == 'p') pasos.back().parametros.push_back(linea.substr(2));
        if (clase == 's') pasos.back().salidas.push_back(Decodificar(c[2]));
        if (clase == 'R') caso.estado = std::stoi(c[1]), parte = &Caso::pasosPrecio;
        if (clase == 'V') caso.propiedades.emplace_back(c[1], c[2]);
        if (clase == 'D') caso.precio = c[1];
        if (clase == 'X') caso.error = std::stol(c[1]);
        if (clase == 'H') parte = &Caso::pasosPadre, caso.padre.assign(c.begin() + 1, c.end());
    }
    return casos;
}

}  // namespace kv::prueba
