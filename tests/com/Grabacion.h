#pragma once

#include <cstdio>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "kvdatosart/base/Valor.h"
#include "kvdatosart/tests/comun/ConexionGuion.h"

// The recorded traffic of loads: one line per event, its first letter the kind, its fields parted by tabs.
//   C arguments...        a load starts    T            what comes next is of its price, then of its parent
//   O text                query            F column value...                      its first row
//   P procedure           call             p name type direction size value left  its parameters
//   R name value          a property after the load     D name value              what was given: Estado, Precio, Padre
namespace kv::prueba {

inline std::vector<std::string> Partir(const std::string& linea) {
    std::vector<std::string> campos;
    std::istringstream entrada(linea + '\t');
    for (std::string campo; std::getline(entrada, campo, '\t');) campos.push_back(campo);
    return campos;
}

/// A value as its type's position in Valor, a colon and its exact text.
inline std::string Codificar(const Valor& valor) {
    char texto[40];
    const bool real = valor.index() == 6 || valor.index() == 7;
    if (real) std::snprintf(texto, sizeof texto, "%.17g", ADouble(valor));
    return std::to_string(valor.index()) + ":" + (real ? texto : EsNulo(valor) ? "" : AString(valor, '.'));
}

inline Valor Decodificar(const std::string& codificado) {
    const int tipo = std::stoi(codificado);
    const Valor texto = codificado.substr(codificado.find(':') + 1);
    if (tipo == 0) return Nulo{};
    if (tipo == 1) return ABoolean(texto);
    if (tipo == 2) return AByte(texto);
    if (tipo == 3) return AInteger(texto);
    if (tipo == 4) return ALong(texto);
    if (tipo == 6) return ASingle(texto);
    if (tipo == 7) return ADouble(texto);
    if (tipo == 8) return ACurrency(texto);
    if (tipo == 9) return ADate(texto);
    if (tipo == 10) return texto;
    throw std::runtime_error("tipo desconocido en el guion: " + codificado);
}

using Pasos = std::vector<ConexionGuion::Paso>;

/// One recorded load with the price asked for after it and its parent, and what they gave natively, encoded.
struct Caso {
    std::vector<std::string> argumentos;
    std::vector<Pasos> partes = {{}};
    std::map<std::string, std::string> propiedades;
    std::map<std::string, std::string> dado;

    std::int32_t Numero(std::size_t i) const { return std::stoi(argumentos[i]); }
};

inline Parameter LeerParametro(const std::vector<std::string>& c, std::size_t valor) {
    // A parameter does not keep its name.
    static std::set<std::string> nombres;
    return {*nombres.insert(c[1]).first, static_cast<DataType>(std::stoi(c[2])),
            static_cast<ParameterDirection>(std::stoi(c[3])), std::stoi(c[4]), Decodificar(c[valor])};
}

/// Every load of a recording, in order.
inline std::vector<Caso> LeerGrabacion(const char* ruta) {
    std::ifstream entrada(ruta, std::ios::binary);
    std::vector<Caso> casos;
    for (std::string linea; std::getline(entrada, linea);) {
        const auto c = Partir(linea);
        const char clase = c[0][0];
        if (clase == 'C') casos.emplace_back().argumentos = c;
        Caso& caso = casos.back();
        if (clase == 'T') caso.partes.emplace_back();
        Pasos& pasos = caso.partes.back();
        if (clase == 'O') pasos.push_back({.operacion = "Open", .texto = c[1]});
        if (clase == 'F') {
            auto& fila = pasos.back().filas.emplace_back();
            for (std::size_t i = 1; i + 1 < c.size(); i += 2) {
                pasos.back().columnas.push_back(c[i]);
                fila.push_back(Decodificar(c[i + 1]));
            }
        }
        if (clase == 'P') pasos.push_back({.operacion = "Command", .texto = c[1], .opciones = -1, .espera = 500});
        if (clase == 'p') {
            pasos.back().parametros.push_back(LeerParametro(c, 5));
            pasos.back().salidas.push_back(LeerParametro(c, 6));
        }
        if (clase == 'R') caso.propiedades[c[1]] = c[2];
        if (clase == 'D') caso.dado[c[1]] = c[2];
    }
    return casos;
}

}  // namespace kv::prueba
